// The page of a method: what it does, the form, and the call with its answer.
import { append, button, copyButton, el, show } from "./dom.js";
import { call, Fault, Refusal } from "./rpc.js";
import { Form } from "./form.js";
import { effectMark, linked, typeLink } from "./pages.js";
import { namedArgument, outputsOf, showAnswer } from "./answer.js";
import { isRepeatable } from "./board.js";

/** The method that reads what another one sets; undefined if there is none. */
function getterOf(model, name) {
  const candidates = [name.replace(/_set$/, "_get"), name.replace(/_(add|modify|update)$/, "_get"),
    name.replace(/_(config|enable)_set$/, "_$1_get"), name.replace(/^lmq_set_/, "lmq_get_")];
  return candidates.find((each) => each !== name && Object.hasOwn(model.methods, each));
}

/** Asks before something that cannot be taken back. */
function confirmed(text) {
  return new Promise((resolve) => {
    const answer = (yes) => () => { dialog.close(); dialog.remove(); resolve(yes); };
    const dialog = el("dialog", { "aria-label": "Are you sure?" }, el("p", {}, text),
      el("div", { class: "bar" }, button("Yes, call it", answer(true), { class: "danger" }),
        button("No", answer(false), { autofocus: true })));
    dialog.addEventListener("cancel", answer(false));
    document.body.append(dialog);
    dialog.showModal();
  });
}

const addressOf = (entries) => entries
  .map(([path, text]) =>
  `${encodeURIComponent(path).replaceAll("%5B", "[").replaceAll("%5D", "]")}=${encodeURIComponent(text)}`).join("&");

class MethodPage {
  constructor(context, name, given) {
    Object.assign(this, { ...context, name, method: context.model.methods[name] });
    this.form = new Form(this.model, name, () => this.edited());
    this.form.node.addEventListener("submit", (event) => { event.preventDefault(); this.send(false); });
    this.callButton = button("Call", () => this.send(false), { class: "primary", title: "Ctrl+Enter" });
    this.anyway = button("Send anyway", () => this.send(true), { hidden: true });
    this.note = el("p", { class: "note", role: "alert" });
    this.status = el("p", { role: "status", class: "status" }, el("span", { class: "quiet" }, "Not called yet."));
    this.body = el("div");
    this.side = [this.status, this.body];
    const missing = this.form.apply(given);
    if (missing.length) this.note.textContent = `There is no ${missing.join(", ")} here.`;
    for (const entry of this.form.inputs.values()) entry.edited = false;
    const last = this.history.last(name);
    if (last) append(this.body, button("Show the last answer", () => showAnswer(this.model, this.status, this.body,
      last, this.more(last, null)), { class: "small" }));
  }

  head() {
    const { model, method, name } = this;
    const prototype = el("p", { class: "prototype" }, typeLink(model, method.returns), ` ${name}(`,
      method.arguments
        .map((each, at) => [at > 0 && ", ", typeLink(model, each.type),
        ` ${each.pointer && !model.typedefs[each.type]?.count ? "*" : ""}${each.name}`]), method.arguments.length ? ")"
        : "void)");
    const rows = method.arguments
      .map((each) => el("div", { class: "argument" },
      el("dt", {}, each.name, el("span", { class: "hint" }, ` ${each.direction}`)),
      el("dd", {}, linked(model, each.brief))));
    return [el("h1", {}, name, " ", effectMark(method)), el("p", { class: "brief" }, linked(model, method.brief)),
      method.documentation && el("p", {}, linked(model, method.documentation)),
      el("details", {}, el("summary", {}, "Prototype and arguments"), prototype, el("dl", {}, rows), method.result
        && el("p", {}, "Returns ", linked(model, method.result)))];
  }

  main() {
    const getter = getterOf(this.model, this.name);
    const refusal = el("p", { class: "refused" });
    const note = () => { refusal.textContent = this.rights.reason(this.model, this.name) ?? ""; };
    note();
    this.rights.ask(this.model, this.name).then(note);
    return [this.head(), refusal, this.form.node, this.note, el("div", { class: "bar actions" }, this.callButton,
      this.anyway,
      getter && button("Get first", () => this.getFirst(getter), { title: `Fills in what ${getter} answers` }),
      button("Reset form", () => { this.form.reset(); this.edited(); }), copyButton("Link", () => location.href))];
  }

  edited() {
    this.anyway.hidden = true;
    this.note.textContent = "";
    clearTimeout(this.writing);
    this.writing = setTimeout(() => this.writeAddress(), 150);
  }

  writeAddress() {
    const address = addressOf(this.form.entries());
    history.replaceState(null, "", `#/method/${this.name}${address ? `?${address}` : ""}`);
  }

  more(entry, before) {
    const pin = !entry.error && isRepeatable(this.method) ? (path, shape) => this.pin(entry, path, shape) : null;
    return { before, pin };
  }

  pin(entry, path) {
    const isPinned = () => this.board.isPinned(this.name, entry.params, path);
    const made = button(isPinned() ? "★" : "☆", () => {
      this.board.toggle(this.name, entry.params, path);
      made.textContent = isPinned() ? "★" : "☆";
      made.setAttribute("aria-pressed", String(isPinned()));
    }, { class: "plain pin", "aria-label": `Pin ${path}`, "aria-pressed": String(isPinned()),
      title: "Pin it to the board" });
    return made;
  }

  async send(insist) {
    const { params, errors, soft } = this.form.read();
    this.form.mark(null);
    if (errors.length && !(insist && soft)) {
      this.note.textContent = `Nothing was sent: ${errors.join(", ")}.`;
      this.anyway.hidden = !soft;
      this.form.inputs.get(errors[0])?.input?.focus();
      return;
    }
    this.anyway.hidden = true;
    this.note.textContent = "";
    if (this.isBusy || this.method.effect === "resets"
      && !await confirmed(`${this.name}: ${this.method.brief} Go on?`)) return;
    clearTimeout(this.writing);
    this.writeAddress();
    this.isBusy = true;
    this.callButton.setAttribute("aria-busy", "true");
    show(this.status, el("span", { class: "quiet" }, "Calling…"));
    const before = this.history.last(this.name)?.value;
    const entry = { method: this.name, params, time: Date.now(), address: addressOf(this.form.entries()) };
    try {
      const { value, ...about } = await call(`lmq.${this.name}`, params);
      Object.assign(entry, about, { value, isBad: this.method.returns === "vx_status_e" && value[0] !== 0 });
    } catch (error) {
      const { code, status, died, message, request, response, ms } = error;
      const kind = error instanceof Fault ? "fault" : error instanceof Refusal ? "refused" : "lost";
      Object.assign(entry, { kind, code: code ?? status, died, error: message, request, response, ms });
      this.rights.learn(this.name, error);
      if (error instanceof Fault) this.form.mark(namedArgument(this.model, this.name, message));
      this.heartbeat.failed(error);
    }
    this.isBusy = false;
    this.callButton.removeAttribute("aria-busy");
    this.history.add(this.model, entry);
    showAnswer(this.model, this.status, this.body, entry, this.more(entry, before));
    this.heartbeat.called(this.method);
  }

  async getFirst(getter) {
    const { params } = this.form.read();
    const own = this.method.arguments, list = this.model.methods[getter].arguments;
    const empty = new Form(this.model, getter, () => {});
    const sent = empty.read().params.map((value, at) => {
      const from = own.findIndex((each) => each.name === list[at].name && !each.pointer && !list[at].pointer);
      return from < 0 ? value : params[from];
    });
    try {
      const { value } = await call(`lmq.${getter}`, sent);
      if (value[0] !== 0) throw new Error(this.model.statusNames.get(value[0]) ?? `status ${value[0]}`);
      const came = outputsOf(this.model, getter, value), wanted = {};
      for (const { name, type } of list.filter((each) => Object.hasOwn(came, each.name))) {
        const into = own.find((each) => each.name === name) ?? own.find((each) => each.type === type && each.name
          .replace(/^p_/, "") === name.replace(/^p_/, ""))
          ?? own.filter((each) => each.type === type && each.direction !== "out")
            .find((each, _, all) => all.length === 1);
        const one = (each) => (into && !this.method.arguments.find((arg) => arg === into).pointer
          && Array.isArray(each) ? each[0] : each);
        if (into) wanted[into.name] = one(came[name]);
      }
      this.form.fill(wanted);
      this.note.textContent = `Filled in from ${getter}.`;
    } catch (error) {
      this.note.textContent = `${getter}: ${error.message}`;
    }
  }
}

export function methodPage(context, name, given) {
  if (!Object.hasOwn(context.model.methods, name)) return { title: "Not there",
    main: [el("h1", {}, "Not there"), el("p", {}, `This interface has no method ${name}.`)] };
  const page = new MethodPage(context, name, given);
  return { title: name, main: page.main(), side: page.side, submit: () => page.send(false),
    leave: () => clearTimeout(page.writing) };
}
