// The board: which numbers are pinned, and the polling that fills them, in one request a second at most.
import { multicall, Fault } from "./rpc.js";
import { fromWire, packed, unpacked } from "./values.js";
import { outputsOf } from "./answer.js";

const key = "lmq.pins";
const kept = 900; // samples of a number
const mostCalls = 100; // of one request

/** How much a counter has grown; null where it was cleared, or its chip began anew. */
export function growth(before, now, shape) {
  if (now >= before) return Number(now - before);
  const width = 1n << BigInt(shape.bits);
  const wrapped = Number(BigInt(now) - BigInt(before) + width);
  return !shape.signed && shape.bits >= 32 && wrapped < Number(width) / 4 ? wrapped : null;
}

const partOf = (path) => path.match(/[^.[\]]+/g);

/** The number at a path of an answer, as p_stats.rx_pkts; undefined if there is none. */
export function numberAt(model, method, value, path) {
  const [first, ...rest] = partOf(path);
  let at = outputsOf(model, method, value)[first];
  for (const part of rest) at = at?.[part];
  if (!rest.length && Array.isArray(at)) [at] = at;
  return typeof at === "number" || typeof at === "bigint" ? at : undefined;
}

/** The shape of what a path leads to. */
export function shapeAt(model, method, path) {
  const [first, ...rest] = partOf(path);
  let shape = model.shape(model.methods[method].arguments.find((each) => each.name === first));
  for (const part of rest) {
    if (/^\d+$/.test(part)) shape = shape.of ?? shape;
    else {
      const said = (shape.of ?? shape).members?.find((each) => each.name === part);
      if (!said) return { kind: "int", bits: 32, signed: true };
      shape = model.shape(said);
    }
  }
  return shape.of ?? shape;
}

/** Whether a call may be repeated: it changes nothing. A flag that clears is taken as not set. */
export function isRepeatable(method) {
  return method.effect === "reads" || method.effect === "reads registers" || Boolean(method.clears_if);
}

export class Board {
  constructor() {
    Object.assign(this, { listeners: new Set(), isPaused: false, timer: 0, problem: "" });
    try {
      this.pins = unpacked(localStorage.getItem(key) ?? "[]").map((pin) => ({ ...pin, samples: [] }));
    } catch {
      this.pins = [];
    }
    document.addEventListener("visibilitychange", () => this.schedule(0));
  }

  use(model) {
    this.model = model;
    this.pins = this.pins.filter((pin) => model.methods[pin.method]);
    this.schedule(0);
  }

  save() {
    localStorage.setItem(key, packed(this.pins.map(({ samples, ...pin }) => pin)));
    for (const listener of this.listeners) listener();
  }

  same(method, params, path) {
    const call = packed(params);
    return this.pins.find((pin) => pin.method === method && pin.path === path && packed(pin.params) === call);
  }

  /** Pins a number, or lets go of it. */
  toggle(method, params, path) {
    const calm = this.calm(method, params);
    const known = this.same(method, calm, path);
    this.pins = known ? this.pins.filter((pin) => pin !== known)
      : [...this.pins, { method, params: calm, path, samples: [] }];
    this.save();
    this.schedule(0);
    return !known;
  }

  /** Parameters that do not clear what is read. */
  calm(method, params) {
    const { clears_if: flag, arguments: list } = this.model.methods[method];
    return params.map((value, at) => (list[at].name === flag ? 0 : value));
  }

  isPinned(method, params, path) {
    return Boolean(this.same(method, this.calm(method, params), path));
  }

  clear() {
    this.pins = [];
    this.save();
  }

  pause(isPaused) {
    this.isPaused = isPaused;
    this.schedule(0);
  }

  /** Whether somebody looks: without a listener or in a hidden tab nothing is asked. */
  get isWatched() {
    return this.listeners.size > 0 && !document.hidden && !this.isPaused && this.pins.length > 0;
  }

  schedule(delay) {
    clearTimeout(this.timer);
    if (this.isWatched && this.model) this.timer = setTimeout(() => this.poll(),
      Math.max(delay, (this.next ?? 0) - performance.now()));
  }

  async poll() {
    if (this.isPolling) return;
    this.isPolling = true;
    this.next = performance.now() + 1000;
    const calls = new Map();
    for (const pin of this.pins) {
      const id = pin.method + packed(pin.params);
      if (!calls.has(id) && calls.size < mostCalls) calls.set(id,
        { pins: [], call: [`lmq.${pin.method}`, pin.params] });
      calls.get(id)?.pins.push(pin);
    }
    let answers = [];
    try {
      answers = await multicall([...calls.values()].map(({ call }) => call), 10000);
      this.problem = "";
    } catch (error) {
      this.problem = error.message;
    }
    const time = Date.now();
    [...calls.values()].forEach(({ pins }, at) => pins.forEach((pin) => this.sample(pin, answers[at], time)));
    for (const listener of this.listeners) listener();
    this.isPolling = false;
    this.schedule(1000);
  }

  sample(pin, answer, time) {
    pin.shape ??= shapeAt(this.model, pin.method, pin.path);
    const isGood = Array.isArray(answer) && (this.model.methods[pin.method].returns !== "vx_status_e"
      || answer[0] === 0);
    const came = isGood ? numberAt(this.model, pin.method, answer, pin.path) : undefined;
    pin.status = Array.isArray(answer) ? answer[0] : answer instanceof Fault ? answer.message : "no answer";
    const value = came === undefined ? null : fromWire(came, pin.shape);
    const before = pin.samples.at(-1);
    let rate = null;
    if (value !== null && before?.value != null) {
      const grown = growth(before.value, value, pin.shape);
      rate = grown === null ? null : grown * 1000 / Math.max(time - before.time, 1);
    }
    pin.samples.push({ time, value, rate });
    if (pin.samples.length > kept) pin.samples.shift();
  }
}
