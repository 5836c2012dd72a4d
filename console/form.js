// The form of a method, made of its contract: one field for each argument that the driver reads, and for each member of
// it. A field is {node, read, write, reset}; inputs with a path of their own are kept by it, for shared addresses.
import { el } from "./dom.js";
import { rowsField, unionField } from "./groups.js";
import { emptyOf, fieldText, hintOf, parsed } from "./values.js";
import { isSecret } from "./interface.js";

export class Form {
  /** @param changed Called after each edit. */
  constructor(model, name, changed) {
    Object.assign(this, { model, name, method: model.methods[name], changed, inputs: new Map(), fields: new Map() });
    for (const argument of this.method.arguments) {
      if (argument.direction === "out") continue;
      const field = this.field(argument, model.shape(argument), argument.name, () => {}, true);
      field.follow?.();
      this.fields.set(argument.name, field);
    }
    this.countFrom();
    const fields = [...this.fields.values()].map((field) => field.node);
    this.node = el("form", { class: "call", autocomplete: "off", novalidate: true }, fields.length ? fields
      : el("p", { class: "quiet" }, "It takes no input."));
  }

  /** An argument that says how many elements a list has follows the list, until somebody edits it. */
  countFrom() {
    for (const { name, length } of this.method.arguments) {
      const list = this.fields.get(name), count = typeof length === "string"
        && this.inputs.get(length.replace("*", ""));
      if (!list || !count) continue;
      list.node.addEventListener("input", () => {
        const value = list.read();
        if (!count.edited && Array.isArray(value)) count.set(String(value.length));
      });
    }
  }

  field(said, shape, path, touched, isArgument) {
    if (shape.kind === "void") return { node: null, read: () => [], write() {}, reset() {} };
    if (shape.kind === "struct") return this.struct(said, shape, path, touched);
    if (shape.kind === "union") return unionField(this, said, shape, path, touched);
    const isRows = shape.kind === "list" && ["struct", "union"].includes(shape.of.kind);
    return isRows ? rowsField(this, said, shape, path, touched) : this.scalar(said, shape, path, touched, isArgument);
  }

  choices(shape, path, isArgument) {
    const none = isArgument ? [] : [el("option", { value: "" }, "")];
    if (shape.isBoolean) return el("select", { "aria-label": path }, none, el("option", {}, "0"),
      el("option", {}, "1"));
    const values = Object.entries(this.model.enums[shape.enum].values);
    return el("select", { "aria-label": path }, none,
      values.map(([name, { value, brief }]) => el("option", { value: name, title: brief, selected: isArgument
        && value === 0 }, name)));
  }

  /** One input: a number, an enumerator, an address, a text, or a list of numbers. */
  scalar(said, shape, path, touched, isArgument) {
    const isChoice = shape.kind === "int" && (shape.isBoolean || shape.enum);
    const standard = isArgument && shape.kind === "int" && !isChoice ? "0" : "";
    const problem = el("span", { class: "problem", id: `problem-${path}` });
    const input = isChoice ? this.choices(shape, path, isArgument)
      : el("input", { type: "text", "aria-label": path, "aria-describedby": problem.id, spellcheck: "false",
        value: standard,
        size: { text: 26, mac: 18, ipv6: 30, list: 26 }[shape.kind] ?? 12, autocomplete: "off" });
    const first = input.value;
    const entry = { edited: false, input, shape, text: () => input.value, set: (text) => { put(text); check(); },
      isStandard: () => input.value === first };
    const put = (text) => {
      if (isChoice && ![...input.options].some((each) => each.value === text)) input.append(
        el("option", { value: text }, text));
      input.value = text;
    };
    const check = () => {
      const found = input.value === "" && !isArgument ? {} : parsed(this.model, input.value, shape);
      problem.textContent = found.error ?? found.warning ?? "";
      problem.classList.toggle("mild", !found.error);
      if (found.error) input.setAttribute("aria-invalid", "true");
      else input.removeAttribute("aria-invalid");
      return found;
    };
    let seen = input.value;
    input.addEventListener("change", () => {
      // A choice that a program made comes without this event.
      if (input.value !== seen) input.dispatchEvent(new Event("input", { bubbles: true }));
    });
    input.addEventListener("input", () => {
      seen = input.value;
      entry.edited = true;
      check();
      touched(input.value !== "");
      this.changed(entry);
    });
    this.inputs.set(path, entry);
    entry.check = check;
    const note = isChoice ? "" : hintOf(this.model, shape);
    const node = el("div", { class: "field", title: said.brief, "data-path": path },
      el("span", { class: "name" }, said.name),
        el("span", { class: "entry" }, input, el("span", { class: "hint" }, note), problem));
    return {
      node, entry,
      read: () => (input.value === "" && !isArgument ? undefined : check().value ?? emptyOf(shape)),
      write: (value) => entry.set(fieldText(this.model, value, shape)),
      reset: () => { entry.edited = false; put(first); check(); },
    };
  }

  struct(said, shape, path, touched) {
    const fields = new Map(), boxes = new Map();
    const mask = shape.mask;
    const tick = (name, on) => mask?.flags.filter((flag) => flag.members.includes(name))
      .forEach((flag) => boxes.get(flag.name)?.set(on));
    const body = el("div", { class: "members" });
    for (const flag of mask?.flags ?? []) boxes.set(flag.name,
      this.flag(flag, [path, ...mask.path, flag.name].join(".")));
    const boxOf = new Map();
    for (const member of shape.members) {
      if (member.mask) continue;
      const told = (on) => { tick(member.name, on); touched(true); };
      const at = `${path}.${member.name}`;
      const inner = this.model.shape(member);
      const field = inner.kind === "union" ? unionField(this, member, inner, at, told, () => fields.get(inner.by))
        : this.field(member, inner, at, told, false);
      fields.set(member.name, field);
      const flag = mask?.flags.find((each) => each.members.includes(member.name));
      if (flag && !boxOf.has(flag.name)) boxOf.set(flag.name, member.name);
      body.append(el("div", { class: "member" }, mask
        && el("span", { class: "flag" }, boxOf.get(flag?.name) === member.name ? boxes.get(flag.name).box : null),
        field.node));
      boxes.get(flag?.name)?.rows.push(field.node);
    }
    for (const [name, box] of boxes) {
      if (!boxOf.has(name)) body.append(el("label", { class: "member loose" }, el("span", { class: "flag" }, box.box),
        name));
      box.show();
    }
    for (const field of fields.values()) field.follow?.();
    const ticked = (name) => !mask || !mask.flags.some((flag) => flag.members.includes(name)
      && !boxes.get(flag.name).box.checked);
    return {
      node: el("fieldset", { "data-path": path, title: said.brief }, el("legend", {}, said.name), body),
      read: () => {
        const made = {};
        for (const [name, field] of fields) {
          const value = ticked(name) ? field.read() : undefined;
          if (value !== undefined && !(value.constructor === Object && !Object.keys(value).length)) made[name] = value;
        }
        const flags = [...boxes].filter(([, { box }]) => box.checked).map(([name]) => [name, 1]);
        if (flags.length) made[mask.path[0]] = mask.path.length > 1 ? { [mask.path[1]]: Object.fromEntries(flags) }
          : Object.fromEntries(flags);
        return made;
      },
      write: (value) => {
        for (const [name, field] of fields) if (value?.[name] !== undefined) field.write(value[name]);
        for (const field of fields.values()) field.follow?.();
        for (const [name, field] of fields) if (field.follow && value?.[name] !== undefined) field.write(value[name]);
      },
      reset: () => {
        for (const field of fields.values()) field.reset();
        for (const box of boxes.values()) box.set(false);
      },
    };
  }

  /** The box of a flag; what it is about is grey until it is ticked. */
  flag({ name, brief }, path) {
    const box = el("input", { type: "checkbox", "aria-label": path, title: brief });
    const made = {
      box, rows: [],
      show: () => made.rows.forEach((row) => row.classList.toggle("off", !box.checked)),
      set: (on) => { box.checked = on; made.show(); },
    };
    const entry = { isFlag: true, edited: false, input: box, text: () => (box.checked ? "1" : "0"),
      set: (text) => made.set(text !== "0"),
      isStandard: () => !box.checked || made.rows.some(isFilled), check: () => ({}) };
    box.addEventListener("change", () => { entry.edited = true; made.show(); this.changed(entry); });
    this.inputs.set(path, entry);
    return made;
  }

  /** How many elements an output needs room for, by the inputs. */
  room({ length, times = 1, length_if_zero: ifZero = 0 }) {
    if (typeof length === "number") return length;
    const entry = this.inputs.get(length.replace("*", ""));
    const said = entry ? parsed(this.model, entry.text(), entry.shape) : {};
    return Math.min((Number(said.value) || ifZero) * times, 65536);
  }

  /**
   * What would be sent.
   * @returns {params, errors, soft}: paths with errors; soft if the user may insist.
   */
  read() {
    const params = this.method.arguments.map((argument) => {
      const field = this.fields.get(argument.name);
      if (field) return field.read();
      const shape = this.model.shape(argument);
      return emptyOf(shape, shape.kind === "list" ? this.room(argument) : 0);
    });
    const problems = [...this.inputs].map(([path, entry]) => [path, entry.check()]).filter(([, said]) => said.error);
    return { params, errors: problems.map(([path]) => path), soft: problems.every(([, said]) => said.soft) };
  }

  /** The inputs that differ from an empty form, as [path, text]; secrets are left out. */
  entries() {
    const all = [...this.inputs].filter(([path, entry]) => !entry.isStandard() && !isSecret(path));
    return all.map(([path, entry]) => [path, entry.text()]).filter(([path]) => !this.isImplied(path));
  }

  /** Whether a flag follows from its member, or a member is not sent as its flag is not ticked. */
  isImplied(path) {
    const entry = this.inputs.get(path);
    const field = entry.input?.closest(".off");
    return !entry.isFlag && Boolean(field);
  }

  /**
   * Fills in [path, text]; a path may be a member's name alone.
   * @returns Paths that there are none of.
   */
  apply(entries) {
    let missing = entries, before;
    do { // a selector makes room for its alternative, so what was missing may be there after a round
      before = missing.length;
      missing = missing.filter(([path, text]) => !this.applyOne(path, text));
    } while (missing.length && missing.length < before);
    return missing.map(([path]) => path);
  }

  applyOne(given, text) {
    const full = (path) => (this.inputs.has(path) ? path
      : [...this.inputs.keys()].find((each) => each.endsWith(`.${path}`) && !this.inputs.get(each).isFlag));
    for (const { 0: row, index } of given.matchAll(/\[\d+\]/g)) {
      this.inputs.get(full(`${given.slice(0, index)}[]`))?.grow(Number(row.slice(1, -1)) + 1);
    }
    const path = full(given);
    const entry = this.inputs.get(path);
    if (!entry?.input) return false;
    entry.set(text);
    if (!entry.isFlag) entry.input.dispatchEvent(new Event("input", { bubbles: true }));
    return true;
  }

  /** Fills in what a get answered: by the names of the arguments, or by their types. */
  fill(values) {
    for (const [name, value] of Object.entries(values)) this.fields.get(name)?.write(value);
  }

  reset() {
    for (const field of this.fields.values()) field.reset();
  }

  /** Marks an argument that a fault names; none for null. */
  mark(name) {
    for (const [each, { node }] of this.fields) node?.classList.toggle("named", each === name);
  }
}

const isFilled = (row) => [...row.querySelectorAll("input[type=text], select")].some((input) => input.value !== "");
