// What this user may not call. The host says so when a call is made; to know before, it is asked with a wrong number of
// arguments: whoever may call gets the fault about that, and the driver is not reached either way.
import { call, Fault } from "./rpc.js";
import { el } from "./dom.js";

const refused = -507;

export class Rights {
  constructor() {
    this.reasons = new Map(); // by method: why it is refused; null if it is not
    this.isReadOnly = false;
  }

  /** Why a method is refused as far as that is known; null if it is not. */
  reason(model, name) {
    const told = this.reasons.get(name);
    if (told !== undefined) return told;
    return this.isReadOnly && ["changes", "resets"].includes(model.methods[name].effect) ? "You may only read here."
      : null;
  }

  /** Learns from a fault of a call that was made. */
  learn(name, error) {
    if (!(error instanceof Fault) || error.code !== refused
      || !/only read|not served|may not/.test(error.message)) return;
    this.reasons.set(name, error.message);
    if (/only read/.test(error.message)) this.isReadOnly = true;
  }

  /** Asks the host, once for each method. */
  async ask(model, name) {
    if (this.reasons.has(name)) return;
    this.reasons.set(name, this.reason(model, name));
    const count = model.methods[name].arguments.length;
    try {
      await call(`lmq.${name}`, count ? [] : [0], 5000);
    } catch (error) {
      this.learn(name, error);
    }
  }
}

/** A note beside a method that this user may not call. */
export function refusedNote(rights, model, name) {
  const reason = rights.reason(model, name);
  return reason ? el("span", { class: "refused", title: reason }, "not for you") : null;
}
