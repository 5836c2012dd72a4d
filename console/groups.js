// Fields that hold others and change with what is in them: alternatives that share a place, and lists of structs.
import { button, el, show } from "./dom.js";

const wrapped = (name, value) => (value === undefined ? undefined : { [name]: value });

/**
 * Alternatives that share a place: the one that the selector names, or one to choose where nothing selects.
 * @param selector Gives the selector's field.
 */
export function unionField(form, said, shape, path, touched, selector = () => undefined) {
  const known = shape.members.find((member) => form.model.shape(member).kind === "ipv6");
  const choice = !shape.by && !known && el("select", { "aria-label": `${path} alternative` }, shape.members
    .map((member) => el("option", {}, member.name)));
  const body = el("div", { class: "members" });
  let current, field;
  const wanted = () => known ?? (choice ? shape.members.find((member) => member.name === choice.value)
    : form.model.alternative(shape, selector()?.read()));
  const follow = () => {
    const now = wanted();
    if (now === current && body.firstChild) return;
    for (const each of [...form.inputs.keys()]) if (each.startsWith(`${path}.`)) form.inputs.delete(each);
    current = now;
    field = now && form.field(now, form.model.shape(now), `${path}.${now.name}`, touched, false);
    field?.follow?.();
    show(body, field ? field.node
      : el("p", { class: "quiet" }, `${shape.by ?? said.name} selects what stands here.`));
  };
  choice?.addEventListener?.("change", () => { follow(); form.changed(); });
  let listens = false;
  return {
    node: el("fieldset", { class: "union", "data-path": path, title: said.brief }, el("legend", {}, said.name),
      choice, body),
    follow: () => {
      if (!listens) selector()?.node.addEventListener("input", follow);
      listens = true;
      follow();
    },
    read: () => (current ? wrapped(current.name, field.read()) : undefined),
    write: (value) => { if (value?.[current?.name] !== undefined) field.write(value[current.name]); },
    reset: () => { field?.reset(); follow(); },
  };
}

/** A list of structs: as many rows as wanted, up to what the list holds. */
export function rowsField(form, said, shape, path, touched) {
  const fields = [];
  const body = el("div", { class: "rows" });
  const told = () => { body.dispatchEvent(new Event("input", { bubbles: true })); };
  const drop = () => {
    const field = fields.pop();
    if (!field) return;
    const gone = `${path}[${fields.length}]`;
    for (const key of [...form.inputs.keys()]) if (key.startsWith(gone)) form.inputs.delete(key);
    field.node.remove();
    less.disabled = !fields.length;
    more.disabled = false;
  };
  const add = () => {
    const at = `${path}[${fields.length}]`;
    const field = form.field({ ...said, name: `${said.name}[${fields.length}]` }, shape.of, at, touched, false);
    field.follow?.();
    fields.push(field);
    body.append(field.node);
    less.disabled = false;
    more.disabled = fields.length === shape.count;
    return field;
  };
  const more = button("+ row", () => { add(); touched(true); told(); form.changed(); },
    { "aria-label": `Add a row to ${path}`, class: "small" });
  const less = button("− row", () => { drop(); told(); form.changed(); },
    { "aria-label": `Remove the last row of ${path}`, class: "small", disabled: true });
  form.inputs.set(`${path}[]`,
    { grow: (count) => { while (fields.length < count && !(fields.length >= (shape.count ?? 4096))) add(); },
    text: () => String(fields.length), isStandard: () => true, check: () => ({}) });
  return {
    node: el("fieldset", { "data-path": path, title: said.brief }, el("legend", {}, said.name), body, more, less,
      el("span", { class: "hint" }, shape.count ? `up to ${shape.count}` : "")),
    read: () => (fields.length ? fields.map((field) => field.read() ?? {}) : said.pointer ? [] : undefined),
    write: (values) => {
      while (fields.length > values.length) drop();
      while (fields.length < values.length) add();
      values.forEach((value, at) => fields[at].write(value));
    },
    reset: () => { while (fields.length) drop(); },
  };
}
