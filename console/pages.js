// The pages that explain: families, structs, enums, statuses and the lists of types, with links both ways.
import { el, link, table } from "./dom.js";
import { hintOf } from "./values.js";
import { refusedNote } from "./rights.js";

/** How families are called. */
export const familyNames = { device: "Device", management: "Management", event: "Events", eth_port: "Ethernet",
  gpon: "GPON", gpon_tm: "GPON traffic", flow: "Flows",
  classifier: "Classifier", policer: "Policers", cosq: "Queues", vlan_bridge: "VLAN and bridges", l2: "Layer 2",
    acl: "Access lists", mcast: "Multicast",
  cpu_packet: "CPU packets", cfm: "OAM (CFM)", time: "Time", peripheral: "Peripherals" };

export const familyName = (family) => (Object.hasOwn(familyNames, family) ? familyNames[family] : family);

export const effectClass = (effect) => (effect === "resets" ? "resets" : effect === "changes" ? "changes"
  : effect === "reads and clears" ? "clears" : "reads");

export const effectMark = (method) => el("span", { class: `effect ${effectClass(method.effect)}` }, method.effect);

export function typeLink(model, type) {
  const href = model.hrefOf(type);
  return href ? link(href, type) : el("code", {}, type);
}

/** A sentence in which the names of methods, structs, enums and enumerators are links. */
export function linked(model, text) {
  return text.split(/(\b[A-Za-z]\w*_\w+\b)/).map((part) => {
    if (Object.hasOwn(model.methods, part)) return link(`#/method/${part}`, part, "inline");
    const type = model.enumeratorNames.get(part);
    if (type) return link(type === "vx_status_e" ? `#/status/${part}` : `#/enum/${type}`, part, "inline");
    return model.hrefOf(part) ? link(model.hrefOf(part), part, "inline") : part.replaceAll("`", "");
  });
}

const notFound = (what, name) =>
  ({ title: "Not there", main: [el("h1", {}, "Not there"), el("p", {}, `This interface has no ${what} ${name}.`),
  el("p", {}, link("#/", "Overview"))] });

export function familyPage({ model, rights }, family) {
  const names = model.families.get(family);
  if (!names) return notFound("family", family);
  const rows = names.map((name) => [link(`#/method/${name}`, name), effectMark(model.methods[name]),
    linked(model, model.methods[name].brief), refusedNote(rights, model, name)]);
  return { title: familyName(family), main: [el("h1", {}, familyName(family)),
    el("p", { class: "quiet" }, `${names.length} methods`),
    table(`Methods of ${familyName(family)}`, ["Method", "Effect", "What it does", ""], rows, "methods")] };
}

function usesOf(model, type) {
  const uses = model.usesOf(type);
  return [el("h2", {}, "Used by"), uses.length
    ? el("ul", { class: "uses" }, uses.map(({ href, text }) => el("li", {}, link(href, text))))
    : el("p", { class: "quiet" }, "Nothing.")];
}

const bracket = (member) => (member.bound ?? (member.count && !member.mac ? member.count : ""));

const elementHint = (model, shape) => hintOf(model, shape.kind === "list" ? shape.of : shape);

function memberRows(model, members, depth) {
  return members.flatMap((member) => {
    const indent = el("span", { class: `depth${Math.min(depth, 4)}` }, member.name || "(no name)", bracket(member)
      && `[${bracket(member)}]`, member.flag && ` : ${member.bits}`);
    const meaning = [linked(model, member.brief), member.by
      && el("span", { class: "hint" }, ` selected by ${member.by}`),
      member.if && el("span", { class: "hint" }, " if ", linked(model, member.if.join(" or ")))];
    const hint = member.members || model.structs[member.type] ? "" : member.enum && member.enum !== member.type
      ? typeLink(model, member.enum) : elementHint(model, model.shape(member));
    return [[indent, member.type ? typeLink(model, member.type) : member.kind, hint, meaning],
      ...memberRows(model, member.members ?? [], depth + 1)];
  });
}

export function structPage({ model }, name) {
  if (!Object.hasOwn(model.structs, name)) return notFound("struct", name);
  const said = model.structs[name];
  return { title: name, main: [el("h1", {}, name), el("p", { class: "brief" }, linked(model, said.brief)),
    table(`Members of ${name}`, ["Member", "Type", "Takes", "Meaning"], memberRows(model, said.members, 0), "members"),
      usesOf(model, name)] };
}

export function enumPage({ model }, name) {
  if (!Object.hasOwn(model.enums, name)) return notFound("enum", name);
  const said = model.enums[name], isStatus = name === "vx_status_e";
  const rows = Object.entries(said.values).map(([each, { value, brief }]) => [isStatus ? link(`#/status/${each}`, each)
    : each, String(value), `0x${(value >>> 0).toString(16)}`, linked(model, brief)]);
  return { title: name, main: [el("h1", {}, name), el("p", { class: "brief" }, linked(model, said.brief)),
    table(`Values of ${name}`, ["Name", { text: "Value", class: "number" }, { text: "Hex", class: "number" },
      "Meaning"], rows), usesOf(model, name)] };
}

/** A status, by name or number. */
export function statusPage({ model }, given) {
  const name = /^\d/.test(given) ? model.statusNames.get(Number(given)) : given;
  const said = model.enums.vx_status_e?.values[name];
  if (!said) return notFound("status", given);
  const mentions = Object.entries(model.methods)
    .filter(([, method]) => `${method.brief} ${method.documentation} ${method.result}`.includes(name));
  return { title: name, main: [el("h1", {}, name), el("p", { class: "brief" }, linked(model, said.brief)),
    el("p", {}, `${said.value} = 0x${said.value.toString(16)}, of `, link("#/enum/vx_status_e", "vx_status_e")),
    mentions.length > 0
      && [el("h2", {}, "Named by"),
      el("ul", { class: "uses" }, mentions.map(([each]) => el("li", {}, link(`#/method/${each}`, each))))]] };
}

/** All structs and enums. */
export function typesPage({ model }) {
  const rows = (all, kind) => Object.entries(all)
    .map(([name, { brief }]) => [link(`#/${kind}/${name}`, name), linked(model, brief)]);
  return { title: "Types", main: [el("h1", {}, "Types"), el("h2", {}, "Structs"),
    table("Structs", ["Name", "What it is"], rows(model.structs, "struct")),
    el("h2", {}, "Enums"), table("Enums", ["Name", "What it is"], rows(model.enums, "enum"))] };
}

export function noPage(_, name) {
  return notFound("page", name);
}
