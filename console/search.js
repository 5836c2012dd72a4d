// The search over names, sentences, members and enumerators: an index in memory, and the list below the search box.
import { el, show } from "./dom.js";

function indexOf(model) {
  const index = [];
  const add = (kind, name, text, href, weight) =>
    index.push({ kind, name, text, href, weight, lowName: name.toLowerCase(), low: `${name} ${text}`.toLowerCase() });
  for (const [name, { brief }] of Object.entries(model.methods)) add("method", name, brief, `#/method/${name}`, 0);
  const members = (list, href, path) => list.forEach((member) => {
    const at = member.name ? `${path}.${member.name}` : path;
    if (member.name && !member.flag && !member.mask) add("member", at, member.brief, href, 3);
    if (member.members && !member.mask) members(member.members, href, at);
  });
  for (const [name, { brief, members: list }] of Object.entries(model.structs)) {
    add("struct", name, brief, `#/struct/${name}`, 1);
    members(list, `#/struct/${name}`, name);
  }
  for (const [name, { brief, values }] of Object.entries(model.enums)) {
    add("enum", name, brief, `#/enum/${name}`, 1);
    for (const [each, said] of Object.entries(values)) {
      const isStatus = name === "vx_status_e";
      add(isStatus ? "status" : "value", each, `${said.value} · ${said.brief}`, isStatus ? `#/status/${each}`
        : `#/enum/${name}`, 2);
    }
  }
  return index;
}

function rank(entry, words) {
  let sum = entry.weight;
  for (const word of words) {
    const at = entry.lowName.indexOf(word);
    if (at < 0) {
      if (!entry.low.includes(word)) return -1;
      sum += 20;
    } else if (entry.lowName.length === word.length) sum += 0;
    else if (at === 0) sum += 4;
    else sum += /[_.]/.test(entry.lowName[at - 1]) ? 6 : 10;
  }
  return sum + entry.lowName.length / 1000;
}

/** What a text finds, the best first. A number finds the values that it is, too. */
export function find(index, text, most = 40) {
  const number = /^0x[0-9a-f]+$/i.test(text.trim()) ? String(parseInt(text, 16)) : null;
  const words = (number ?? text).toLowerCase().split(/\s+/).filter(Boolean);
  if (!words.length) return [];
  return index.map((entry) => [rank(entry, words), entry]).filter(([sum]) => sum >= 0)
    .sort(([one], [other]) => one - other).slice(0, most).map(([, entry]) => entry);
}

/** Joins the search box and the list below it. */
export class Search {
  constructor(box, list) {
    Object.assign(this, { box, list, found: [], at: -1, index: [] });
    box.addEventListener("input", () => this.search());
    box.addEventListener("focus", () => this.search());
    box.addEventListener("keydown", (event) => this.key(event));
    list.addEventListener("mousedown", (event) => event.preventDefault());
    list.addEventListener("click", (event) => this.open(event.target.closest("[data-at]")?.dataset.at));
    box.addEventListener("blur", () => this.close());
  }

  use(model) {
    this.index = indexOf(model);
    if (document.activeElement === this.box) this.search();
  }

  search() {
    this.found = find(this.index, this.box.value);
    this.mark(this.found.length ? 0 : -1);
    const none = this.box.value.trim() && this.index.length && !this.found.length
      ? el("p", { class: "quiet" }, "Nothing has that in it.") : null;
    show(this.list, this.found.map((each, at) =>
      el("div", { role: "option", id: `found-${at}`, "data-at": at, "aria-selected": at === this.at ? "true"
        : "false" },
        el("span", { class: `kind ${each.kind}` }, each.kind), el("b", {}, each.name), el("span", {}, each.text))),
          none);
    this.list.hidden = !this.found.length && !none;
    this.box.setAttribute("aria-activedescendant", this.at < 0 ? "" : `found-${this.at}`);
  }

  mark(at) {
    this.list.querySelector("[aria-selected=true]")?.setAttribute("aria-selected", "false");
    this.at = at;
    const now = this.list.querySelector(`[data-at="${at}"]`);
    now?.setAttribute("aria-selected", "true");
    now?.scrollIntoView({ block: "nearest" });
    this.box.setAttribute("aria-activedescendant", now ? now.id : "");
  }

  key(event) {
    const count = this.found.length;
    if (event.key === "ArrowDown" && count) this.mark((this.at + 1) % count);
    else if (event.key === "ArrowUp" && count) this.mark((this.at + count - 1) % count);
    else if (event.key === "Enter") this.open(this.at);
    else if (event.key === "Escape") this.box.blur();
    else return;
    event.preventDefault();
  }

  open(at) {
    const entry = this.found[at];
    if (!entry) return;
    this.box.value = "";
    this.box.blur();
    location.hash = entry.href;
  }

  close() {
    this.list.hidden = true;
    this.found = [];
    this.box.setAttribute("aria-activedescendant", "");
  }
}
