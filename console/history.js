// The last calls, kept in the browser: the list of them, a filter, and two answers side by side.
import { button, el, link, show, table } from "./dom.js";
import { pretty, packed, unpacked } from "./values.js";
import { outputsOf, verdict } from "./answer.js";
import { isSecret } from "./interface.js";

const most = 200;
const longest = 20000; // characters of one answer that is kept
const key = "lmq.history";

/** A value without what nobody may read later: members and arguments that hold passwords. */
function bare(value, path) {
  if (isSecret(path)) return typeof value === "string" ? "" : Array.isArray(value) ? value.map(() => 0)
    : typeof value === "bigint" ? 0n : 0;
  if (Array.isArray(value)) return value.map((each) => bare(each, path));
  if (typeof value !== "object" || value === null) return value;
  return Object.fromEntries(Object.entries(value).map(([name, each]) => [name, bare(each, name)]));
}

export class History {
  constructor() {
    try {
      this.entries = unpacked(localStorage.getItem(key) ?? "[]");
    } catch {
      this.entries = [];
    }
  }

  /** Keeps a call: {method, time, ms, address, params, value or error}. */
  add(model, entry) {
    const list = model.methods[entry.method].arguments;
    const arguments_ = (values, from) => values
      .map((value, at) => (at < from ? value : bare(value, list[at - from]?.name ?? "")));
    const { request, response, output, ...rest } = entry;
    const kept = { ...rest, id: crypto.getRandomValues(new Uint32Array(1))[0], params: arguments_(entry.params, 0),
      value: entry.value && arguments_(entry.value, 1) };
    if (kept.value && packed(kept.value).length > longest) kept.value = [kept.value[0]];
    this.entries = [kept, ...this.entries].slice(0, most);
    this.save();
  }

  save() {
    for (; ;) {
      try {
        return localStorage.setItem(key, packed(this.entries));
      } catch {
        if (!this.entries.length) return undefined; // no room at all, or none is given
        this.entries = this.entries.slice(0, this.entries.length >> 1);
      }
    }
  }

  clear() {
    this.entries = [];
    this.save();
  }

  /** The last answer of a method. */
  last(method) {
    return this.entries.find((each) => each.method === method && each.value?.length > 1);
  }

  find(id) {
    return this.entries.find((each) => String(each.id) === id);
  }

  failures() {
    return this.entries.filter((each) => each.error || each.isBad);
  }
}

const when = (entry) => new Date(entry.time).toLocaleTimeString("en-GB");

export const callHref = (entry) => `#/method/${entry.method}${entry.address ? `?${entry.address}` : ""}`;

/** One line for each call, newest first. */
export function historyTable(model, entries, caption, choose) {
  const rows = entries.filter((each) => model.methods[each.method]).map((each) => {
    const said = verdict(model, each.method, each);
    return [choose ? el("input", { type: "checkbox", "aria-label": `Choose ${each.method} of ${when(each)}`,
      onchange: (event) => choose(each, event.target) }) : "",
      when(each), link(callHref(each), each.method), el("span", { class: `verdict ${said.class}` }, said.title),
        `${each.ms.toFixed(1)}`,
      decodeURIComponent(each.address ?? "").replaceAll("&", "  ")];
  });
  return table(caption, ["", "Time", "Call", "Result", { text: "ms", class: "number" }, "With"], rows, "history");
}

export function historyPage({ model, history }) {
  const body = el("div");
  const chosen = [];
  const compare = el("a", { class: "button", hidden: true }, "Compare the two");
  const choose = (entry, box) => {
    if (box.checked) chosen.push(entry);
    else chosen.splice(chosen.indexOf(entry), 1);
    compare.hidden = chosen.length !== 2;
    if (chosen.length === 2) compare.href = `#/history/${chosen[0].id}..${chosen[1].id}`;
  };
  const filter = el("input", { type: "text", "aria-label": "Filter", placeholder: "Method or result",
    oninput: () => fill() });
  const fill = () => {
    chosen.length = 0;
    compare.hidden = true;
    const words = filter.value.toLowerCase().split(/\s+/);
    const entries = history.entries.filter((each) => {
      const text = model.methods[each.method]
        ? `${each.method} ${verdict(model, each.method, each).title} ${each.address ?? ""}`.toLowerCase() : "";
      return words.every((word) => text.includes(word));
    });
    show(body, entries.length ? historyTable(model, entries, "Calls", choose)
      : el("p", { class: "quiet" }, "No calls."));
  };
  fill();
  const clear = button("Forget all", () => { history.clear(); fill(); }, { class: "small" });
  return { title: "History", main: [el("h1", {}, "History"),
    el("p", { class: "quiet" },
      `The last ${most} calls from this browser. A click fills in the form again; two that are ticked can be compared.`),
    el("div", { class: "bar" }, filter, compare, clear), body] };
}

/** Two answers side by side, line by line. */
export function comparePage({ model, history }, ids) {
  const pair = ids.split("..").map((id) => history.find(id));
  if (pair.some((each) => !each)) return { title: "History",
    main: [el("h1", {}, "History"), el("p", {}, "These calls are no longer kept.")] };
  const lines = pair
    .map((each) => pretty(each.value ? { result: each.value[0], ...outputsOf(model, each.method, each.value) }
    : { error: each.error }).split("\n"));
  const rows = [];
  const length = Math.max(...lines.map((each) => each.length));
  for (let at = 0; at < length; ++at) {
    const [one, other] = lines.map((each) => each[at] ?? "");
    rows.push(el("tr", { class: one === other ? "" : "differs" }, el("td", {}, one), el("td", {}, other)));
  }
  return { title: "Two answers", main: [el("h1", {}, "Two answers"),
    el("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": "Two answers" },
      el("table", { class: "compare" },
      el("thead", {},
        el("tr", {}, pair.map((each) => el("th", { scope: "col" }, link(callHref(each), each.method),
        ` ${when(each)}`)))), el("tbody", {}, rows)))] };
}
