// Making of elements. Text that comes from a host goes in as text and never as markup.

/** Appends what is given: nodes, texts, lists of both; nothing for null and false. */
export function append(parent, ...children) {
  for (const child of children.flat(Infinity)) {
    if (child === null || child === undefined || child === false) continue;
    parent.append(child instanceof Node ? child : document.createTextNode(String(child)));
  }
  return parent;
}

function put(made, attributes, children) {
  for (const [key, value] of Object.entries(attributes)) {
    if (value === null || value === undefined || value === false) continue;
    if (key.startsWith("on")) made.addEventListener(key.slice(2), value);
    else if (key === "value" || key === "checked" || key === "selected" || key === "disabled") made[key] = value;
    else made.setAttribute(key, value === true ? "" : value);
  }
  return append(made, children);
}

/** An element of HTML: el("a", {href, class, onclick}, "text", node, ...). */
export const el = (name, attributes = {}, ...children) => put(document.createElement(name), attributes, children);

/** An element of SVG. */
export const svg = (name, attributes = {}, ...children) =>
  put(document.createElementNS("http://www.w3.org/2000/svg", name), attributes, children);

export const link = (href, text, className) => el("a", { href, class: className }, text);

export const button = (text, onclick, attributes = {}) => el("button", { type: "button", onclick, ...attributes },
  text);

/** Replaces all that a node holds. */
export function show(node, ...children) {
  node.replaceChildren();
  return append(node, ...children);
}

/** A table: heads are texts or {text, class}, rows are lists of cells. */
export function table(caption, heads, rows, className = "") {
  const head = (one) => el("th", { scope: "col", class: one.class }, one.text ?? one);
  return el("div", { class: "scroll", tabindex: 0, role: "region", "aria-label": caption },
    el("table", { class: className }, el("caption", { class: "hidden" }, caption),
      el("thead", {}, el("tr", {}, heads.map(head))),
      el("tbody", {}, rows.map((cells) => el("tr", {},
        cells.map((cell, at) => el("td", { class: heads[at].class }, cell)))))));
}

/** Hands a text to the user as a file. */
export function download(name, type, text) {
  const url = URL.createObjectURL(new Blob([text], { type }));
  el("a", { href: url, download: name }).click();
  setTimeout(() => URL.revokeObjectURL(url), 10000);
}

/** A button that copies what `text` gives, and says so for a moment. Pages without TLS have no clipboard. */
export function copyButton(label, text, attributes = {}) {
  const made = button(label, async () => {
    const copied = text();
    try {
      await navigator.clipboard.writeText(copied);
    } catch {
      const area = el("textarea", { class: "hidden", value: copied });
      document.body.append(area);
      area.select();
      document.execCommand("copy");
      area.remove();
    }
    made.textContent = "Copied";
    setTimeout(() => { made.textContent = label; }, 1200);
  }, attributes);
  return made;
}
