// The answer of a call: what came, by name, with what differs from the answer before marked; and how it is explained.
import { button, copyButton, el, link, show } from "./dom.js";
import { bitNames, fromWire, ipv6Text, macText, numberText, pretty, textOfBytes } from "./values.js";
import { get } from "./rpc.js";
import { codes } from "./codegen.js";

/** What to do about a status, where that is known. */
const advice = {
  VX_ERR_GLBL_SYS_UNINTIALIZED: ["", "Start it",
    "#/method/lmq_init_system?num_dev=1&dev_cfg[0].enbl=1"],
  VX_ERR_DEV_UNINTIALIZED: ["The system is up, the device is not. ", "Start the device",
    "#/method/lmq_init_device?enbl=1"],
  VX_ERR_GLBL_SYS_ALRDY_INTIALIZED: ["It is up already: go on, or ", "shut it down first",
    "#/method/lmq_shutdown_system"],
  VX_ERR_DEV_NULL_PTR: ["An empty list went as a NULL pointer: add a row."],
  VX_ERR_GLBL_RANGE_CHECK_FAIL: ["A number is out of its range: look at the hints beside the fields."],
};

/** What is known of a status: its name or number, and its sentence. */
export function statusOf(model, value) {
  const name = model.statusNames.get(value);
  return { name: name ?? `status ${value}`, isGood: value === 0, number: `${value} = 0x${(value >>> 0).toString(16)}`,
    brief: model.enums.vx_status_e?.values[name]?.brief ?? "", advice: advice[name] };
}

/** What a call answered, by name: its outputs as the contract says, lists cut to what was filled. */
export function outputsOf(model, name, value) {
  const list = model.methods[name].arguments;
  const at = (argument) => value[1 + list.findIndex((each) => each.name === argument)];
  const outputs = {};
  for (const [index, argument] of list.entries()) {
    if (argument.direction === "in") continue;
    let came = value[1 + index];
    const filled = argument.filled && at(argument.filled.slice(1));
    if (Array.isArray(came) && argument.filled) came = came.slice(0, Number([filled].flat()[0]));
    outputs[argument.name] = came;
  }
  return outputs;
}

const isZero = (value) => (typeof value === "object" && value !== null ? Object.values(value).every(isZero) : !value);

/** One scalar as text, its name before its number; `plain` for a title. */
export function scalarText(model, value, shape) {
  if (shape.kind === "mac") return macText(value);
  if (shape.kind === "ipv6") return ipv6Text(value);
  if (shape.kind === "text") return textOfBytes(value);
  if (typeof value !== "number" && typeof value !== "bigint") return String(value);
  const own = fromWire(value, shape);
  if (shape.enum) return model.nameOf(shape.enum, own) ?? numberText(own, shape);
  const bits = shape.bits_of && bitNames(model, shape.bits_of, own);
  return numberText(own, shape) + (bits ? ` ${bits}` : "");
}

class Tree {
  /** @param pin Makes the button that pins a number, given its path; null for none. */
  constructor(model, pin) {
    Object.assign(this, { model, pin });
  }

  node(said, shape, value, before, path) {
    if (value === undefined || value === null) return null;
    if (shape.kind === "struct") return this.struct(said, shape, value, before, path);
    if (shape.kind === "union") return this.union(said, shape, value, before, path);
    if (shape.kind === "list" && Array.isArray(value)) return this.list(said, shape, value, before, path);
    if (Array.isArray(value) && shape.kind === "int") return this.node(said, { kind: "list", of: shape }, value,
      before, path);
    return this.row(said, shape, value, before, path);
  }

  row(said, shape, value, before, path) {
    const text = scalarText(this.model, value, shape);
    const was = before === undefined || before === null ? text : scalarText(this.model, before, shape);
    const unit = shape.unit && !["elements", "entries"].includes(shape.unit)
      ? el("span", { class: "unit" }, ` ${shape.unit}`) : null;
    return el("div", { class: `row${was === text ? "" : " differs"}`, "data-path": path, title: said.brief },
      el("span", { class: "name" }, said.name), el("span", { class: "value" }, text, unit, was !== text
        && el("span", { class: "was" }, ` was ${was}`)),
      this.pin && shape.kind === "int" ? this.pin(path, shape) : null);
  }

  branch(said, path, value, children, isOpen, note) {
    const made = el("details", { "data-path": path }, el("summary", { title: said.brief }, said.name,
      el("span", { class: "hint" }, note)), children);
    made.open = isOpen && !isZero(value);
    return made;
  }

  struct(said, shape, value, before, path) {
    const children = shape.members.map((member) => {
      const at = `${path}.${member.name}`, inner = this.model.shape(member);
      if (member.mask) return this.mask(member, shape, value);
      if (inner.kind !== "union") return this.node(member, inner, value[member.name], before?.[member.name], at);
      return this.union(member, inner, value[member.name], before?.[member.name], at, value[inner.by]);
    });
    return this.branch(said, path, value, children, true, isZero(value) ? "all zero" : "");
  }

  union(said, shape, value, before, path, selected) {
    if (!value) return null;
    const meant = shape.members.find((member) => this.model.shape(member).kind === "ipv6")
      ?? this.model.alternative(shape, selected);
    if (!meant && shape.by) return null;
    const members = meant ? [meant] : shape.members;
    const children = members.map((member) => this.node(member, this.model.shape(member), value[member.name],
      before?.[member.name], `${path}.${member.name}`));
    return this.branch(said, path, value, children, true, "");
  }

  mask(member, shape, value) {
    const flags = shape.mask.path.reduce((at, key) => at?.[key], value) ?? {};
    const set = Object.keys(flags).filter((key) => flags[key] && !/^reserved/.test(key));
    return set.length ? el("div", { class: "row", title: member.brief }, el("span", { class: "name" }, member.name),
      el("span", { class: "value flags" }, set.join(" | "))) : null;
  }

  list(said, shape, value, before, path) {
    if (["struct", "union"].includes(shape.of.kind)) {
      const children = value.map((each, at) => this.node({ ...said, name: `[${at}]` }, shape.of, each, before?.[at],
        `${path}[${at}]`));
      return this.branch(said, path, value.length ? [1] : [], children, true, `${value.length} of them`);
    }
    if (value.length <= 4) return value.map((each, at) => this.row({ ...said, name: `${said.name}[${at}]` }, shape.of,
      each, before?.[at], `${path}[${at}]`));
    const text = value.map((each) => scalarText(this.model, each, shape.of)).join(" ");
    return this.branch(said, path, value, el("div", { class: "row numbers" }, text), true, isZero(value)
      ? `${value.length}, all zero` : `${value.length}`);
  }
}

/** The values of an answer by name. */
export function valuesNode(model, name, value, before, pin) {
  const outputs = outputsOf(model, name, value), old = before ? outputsOf(model, name, before) : {};
  const tree = new Tree(model, pin);
  const list = model.methods[name].arguments.filter((each) => Object.hasOwn(outputs, each.name));
  const nodes = list.map((each) => {
    const shape = model.shape(each);
    const came = shape.kind !== "list" && shape.kind !== "mac" && Array.isArray(outputs[each.name])
      && outputs[each.name].length === 1 ? outputs[each.name][0] : outputs[each.name];
    return tree.node(each, shape, came, old[each.name], each.name);
  });
  return el("div", { class: "values" }, nodes.flat().some(Boolean) ? nodes
    : el("p", { class: "quiet" }, "It answers nothing but its result."));
}

/** The line that says how a call went. */
export function verdict(model, name, entry) {
  if (entry.error) {
    const kind = { fault: entry.died ? "The worker died" : `Fault ${entry.code}`, refused: `Refused (${entry.code})`,
      lost: "No answer" }[entry.kind];
    return { class: "bad", title: kind, text: entry.error };
  }
  const result = entry.value[0];
  if (model.methods[name]?.returns !== "vx_status_e") return { class: "good", title: `returned ${result}`, text: "" };
  const status = statusOf(model, result);
  return { class: status.isGood ? "good" : "bad", title: status.name, number: status.isGood ? "" : status.number,
    text: status.isGood ? "" : status.brief, advice: status.advice };
}

/** Which argument a fault's text names; null if none. */
export function namedArgument(model, name, text) {
  const list = model.methods[name].arguments;
  const number = /(?:input|argument) (\d+)/.exec(text);
  if (number) return list[number[1] - 1]?.name ?? null;
  return text.split(/\W+/).find((word) => list.some((each) => each.name === word)) ?? null;
}

/**
 * Shows an answer.
 * @param status The element with role status, which is told how it went.
 * @param body Where the rest goes.
 * @param more {before, pin, actions}: the answer before, what pins numbers, and more buttons.
 */
export function showAnswer(model, status, body, entry, more = {}) {
  const said = verdict(model, entry.method, entry);
  show(status, el("span", { class: `verdict ${said.class}` }, said.class === "good" ? "✓ " : "✗ ", said.title),
    said.number && el("span", { class: "hint" }, ` ${said.number}`));
  const parts = el("div", { class: "part" });
  const views = {
    Values: () => (entry.value ? valuesNode(model, entry.method, entry.value, more.before, more.pin)
      : el("p", { class: "quiet" }, "No values came.")),
    JSON: () => el("pre", { tabindex: 0 }, entry.value
      ? pretty({ result: entry.value[0], ...outputsOf(model, entry.method, entry.value) }) : "null"),
    XML: () => el("pre", { tabindex: 0 }, entry.request ? `${entry.request}\n\n${entry.response ?? ""}`
      : "Kept only until the page is left."),
  };
  if (entry.output) {
    views.Output = () => {
      const text = el("pre", { tabindex: 0 }, "…");
      get(entry.output).then((came) => { text.textContent = came ?? "The host has let go of it."; },
        (error) => { text.textContent = error.message; });
      return text;
    };
  }
  const tabs = Object.keys(views)
    .map((name) => button(name, () => choose(name), { class: "tab", "aria-pressed": "false" }));
  const choose = (name) => {
    for (const tab of tabs) tab.setAttribute("aria-pressed", String(tab.textContent === name));
    show(parts, views[name]());
  };
  const time = new Date(entry.time).toLocaleTimeString("en-GB");
  show(body, el("p", { class: "when quiet" }, `${time} · ${entry.ms.toFixed(1)} ms`), said.text
    && el("p", { class: "said" }, said.text),
    said.advice && el("p", { class: "advice" }, said.advice[0], said.advice[2] && link(said.advice[2], said.advice[1])),
    el("div", { class: "tabs" }, tabs), parts,
    el("div", { class: "copies" }, "Copy as ", Object.entries(codes)
      .map(([label, make]) => copyButton(label, () => make(model, entry.method, entry.params), { class: "small" }))),
      more.actions);
  choose("Values");
}
