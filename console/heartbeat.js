// What the head of the page shows: whether the host answers, the life cycle, a worker that is new, and the lease.
import { call, Fault, Refusal } from "./rpc.js";
import { Lease } from "./lease.js";
import { el, show } from "./dom.js";
import { emptyOf } from "./values.js";

const period = 5000;
const soon = 1000; // while the host is away
const patience = 4000;

/** A call that shows the life cycle and costs little: it reads, and needs nothing but the device. */
function probeOf(model) {
  const isCheap = ({ effect, returns, arguments: list }) => effect === "reads" && returns === "vx_status_e"
    && list.length && list.every((each) => each.direction === "out" || each.id === "device");
  const name = ["vx_watchdog_get", ...Object.keys(model.methods)].find((each) => model.methods[each]
    && isCheap(model.methods[each]));
  return name && [`lmq.${name}`, model.methods[name].arguments.map((each) => emptyOf(model.shape(each), 0))];
}

export class Heartbeat {
  /** @param state, banner, lease: the elements to fill. */
  constructor(state, banner, lease) {
    Object.assign(this, { state, banner, life: null, away: 0 });
    this.lease = new Lease(lease, this.tell.bind(this));
    document.addEventListener("visibilitychange", () => { if (!document.hidden) this.beat(); });
  }

  use(model) {
    this.model = model;
    this.probe = probeOf(model);
    this.beat();
  }

  again(delay) {
    clearTimeout(this.timer);
    if (!document.hidden) this.timer = setTimeout(() => this.beat(), delay);
  }

  async beat() {
    if (this.isBeating || !this.probe) return;
    this.isBeating = true;
    try {
      const { value } = await call(...this.probe, patience);
      this.answered(value[0]);
    } catch (error) {
      this.failed(error);
      if (error instanceof Fault && !error.died) this.answered(null);
    }
    await this.lease.ask();
    this.isBeating = false;
    this.again(this.away ? soon : period);
  }

  answered(status) {
    const life = status === null ? "" : status === 0 ? "device up" : this.model.statusNames.get(status)
      ?? `status ${status}`;
    const text = { VX_ERR_GLBL_SYS_UNINTIALIZED: "system down", VX_ERR_DEV_UNINTIALIZED: "device in reset" }[life]
      ?? life;
    if (this.away) this.tell(`The host is back after ${Math.round((Date.now() - this.away) / 1000)} s.`, true);
    if (this.life === "device up" && text === "system down" && !this.wasOurs) this.tell(
      "The driver has begun anew: a new worker, or somebody shut it down. What was set is lost.", true);
    Object.assign(this, { away: 0, life: text, wasOurs: false });
    show(this.state, el("span", { class: `dot ${status === 0 ? "on" : status === null ? "" : "off"}`,
      "aria-hidden": "true" }), ` ${text || "answers"}`);
  }

  /** Learns from a call that failed. */
  failed(error) {
    if (error instanceof Fault) {
      if (error.died) this.tell(
        "The worker died over a call; a new one has started. The driver has to be initialised again.", true);
      return;
    }
    if (error instanceof Refusal) {
      if (error.status === 401 || error.status === 403) this.tell(`The host refuses: ${error.message}`, false);
      return;
    }
    this.away ||= Date.now();
    this.tell(/answer within/.test(error.message) ? "The host is busy: a call has been in the driver for a while."
      : "The host does not answer. Trying again…", false);
    show(this.state, el("span", { class: "dot off", "aria-hidden": "true" }), " no answer");
    if (!this.isBeating) this.again(soon);
  }

  /** Learns that this page has made a call: a change of the life cycle may follow from it. */
  called(method) {
    if (method.effect !== "resets") return;
    this.wasOurs = true;
    this.again(0);
  }

  tell(text, isDone) {
    clearTimeout(this.hiding);
    this.banner.textContent = text;
    this.banner.hidden = false;
    this.banner.classList.toggle("calm", isDone);
    if (isDone) this.hiding = setTimeout(() => { this.banner.hidden = true; }, 15000);
  }
}
