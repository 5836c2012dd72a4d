// The lease in the head of the page: who holds it, and the buttons that take it and give it back. Its token stays with
// this tab.
import { button, el, show } from "./dom.js";
import { get, Refusal, send, session } from "./rpc.js";

const key = "lmq.lease";
const standard = 20; // minutes

export class Lease {
  /** @param node Where it is shown. */
  constructor(node, tell) {
    Object.assign(this, { node, tell, isServed: true });
    session.lease = sessionStorage.getItem(key) ?? "";
  }

  /** Asks who holds it; a host that knows no lease is asked once. */
  async ask() {
    if (!this.isServed) return;
    try {
      const text = await get("/lease");
      this.isServed = text !== null;
      if (text) this.show(JSON.parse(text));
    } catch {
      // The banner says what is wrong with the host.
    }
  }

  show({ held, name, until }) {
    if (!held) this.keep("");
    const end = held ? new Date(until).toLocaleTimeString("en-GB", { hour: "2-digit", minute: "2-digit" }) : "";
    const text = !held ? "" : session.lease ? `lease: yours until ${end} ` : `lease: ${name} until ${end} `;
    if (this.node.dataset.text === `${held} ${text}`) return;
    this.node.dataset.text = `${held} ${text}`;
    const action = !held ? button("Take the lease", () => this.take(), { class: "small" })
      : session.lease && button("Give back", () => this.request("DELETE"), { class: "small" });
    show(this.node, text, action);
  }

  keep(token) {
    session.lease = token;
    sessionStorage.setItem(key, token);
  }

  async request(method, body) {
    try {
      const text = await send(method, "/lease", body && JSON.stringify(body));
      const said = text ? JSON.parse(text) : { held: false };
      this.keep(said.token ?? "");
    } catch (error) {
      if (!(error instanceof Refusal)) throw error;
      this.tell(error.message, true);
    }
    this.ask();
  }

  take() {
    const name = el("input", { type: "text", "aria-label": "Your name", value: localStorage.getItem("lmq.name") ?? "" });
    const minutes = el("input", { type: "text", "aria-label": "Minutes", value: String(standard), size: 5 });
    const done = () => { dialog.close(); dialog.remove(); };
    const take = () => {
      const seconds = Math.round(Number(minutes.value) * 60);
      if (!name.value.trim() || !(seconds > 0)) return;
      localStorage.setItem("lmq.name", name.value.trim());
      done();
      this.request("POST", { name: name.value.trim(), seconds });
    };
    const dialog = el("dialog", { "aria-label": "Take the lease" },
      el("p", {}, "While you hold it, nobody else can change anything."),
      el("div", { class: "bar" }, "Name ", name, " for ", minutes, " minutes"),
      el("div", { class: "bar" }, button("Take it", take, { class: "primary" }), button("Cancel", done)));
    document.body.append(dialog);
    dialog.showModal();
  }
}
