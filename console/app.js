// The shell: the head, the list of what there is, and the page that the address names.
import { el, link, show } from "./dom.js";
import { get } from "./rpc.js";
import { Interface } from "./interface.js";
import { Search } from "./search.js";
import { History, historyPage, comparePage } from "./history.js";
import { Board } from "./board.js";
import { Rights } from "./rights.js";
import { Heartbeat } from "./heartbeat.js";
import { overviewPage } from "./overview.js";
import { watchPage } from "./watch.js";
import { methodPage } from "./method.js";
import { enumPage, familyName, familyNames, familyPage, noPage, statusPage, structPage, typesPage } from "./pages.js";

const byId = (id) => document.getElementById(id);
const place = { nav: byId("nav"), main: byId("main"), answer: byId("answer") };
const search = new Search(byId("search"), byId("found"));
const context = { history: new History(), board: new Board(), rights: new Rights(),
  heartbeat: new Heartbeat(byId("state"), byId("banner"), byId("lease")) };
const pages = { "": overviewPage, watch: watchPage, history: (all, ids) => (ids ? comparePage(all, ids)
  : historyPage(all)), family: familyPage, method: methodPage,
  struct: structPage, enum: enumPage, status: statusPage, types: typesPage };
let page = null;

/** An address as [kind, name, entries]. */
function parsedAddress(hash) {
  const [path, query = ""] = hash.replace(/^#\/?/, "").split(/\?(.*)/s);
  const [kind, ...rest] = path.split("/");
  return [kind, decodeURIComponent(rest.join("/")), [...new URLSearchParams(query)]];
}

function open() {
  if (!context.model) return;
  let kind, name, entries;
  try {
    [kind, name, entries] = parsedAddress(location.hash);
  } catch {
    [kind, name, entries] = ["?", location.hash, []];
  }
  page?.leave?.();
  page = (Object.hasOwn(pages, kind) ? pages[kind] : noPage)(context, name || (Object.hasOwn(pages, kind) ? "" : kind),
    entries);
  document.title = `${page.title} · lmq ${location.host}`;
  show(place.main, page.main);
  show(byId("stay"), page.side ? [el("h2", {}, "Answer"), page.side] : null);
  document.body.classList.toggle("asks", Boolean(page.side));
  place.answer.hidden = !page.side;
  const family = kind === "method" ? context.model.methods[name]?.family : name;
  for (const each of place.nav.querySelectorAll("a")) {
    const isHere = each.hash === `#/${kind}` || ["family", "method"].includes(kind)
      && each.hash === `#/family/${family}`;
    if (isHere) each.setAttribute("aria-current", "page");
    else each.removeAttribute("aria-current");
  }
  byId("menu").open = false;
  scrollTo(0, 0);
}

function navigation(model) {
  const count = el("span", { class: "count" });
  const counted = () => { count.textContent = context.board.pins.length || ""; };
  const toggle = context.board.save.bind(context.board);
  context.board.save = () => { toggle(); counted(); };
  counted();
  const order = Object.keys(familyNames);
  const families = [...model.families.keys()]
    .sort((one, other) => (order.indexOf(one) + 1 || 99) - (order.indexOf(other) + 1 || 99));
  const item = (href, text, more) => el("li", {}, el("a", { href }, text, more));
  show(place.nav, el("ul", {}, item("#/", "Overview"), item("#/watch", "Watch", count), item("#/history", "History"),
    item("#/types", "Types")),
    el("ul", {},
      families.map((each) => item(`#/family/${each}`, familyName(each),
      el("span", { class: "count" }, model.families.get(each).length)))));
}

function keys(event) {
  const isTyping = event.target.closest?.("input, select, textarea, dialog");
  if ((event.ctrlKey || event.metaKey) && event.key === "Enter" && page?.submit) page.submit();
  else if (isTyping || event.ctrlKey || event.metaKey || event.altKey) return;
  else if (event.key === "/") search.box.focus();
  else if (event.key === "?") byId("help").showModal();
  else if (event.key === "o") location.hash = "#/";
  else if (event.key === "w") location.hash = "#/watch";
  else if (event.key === "h") location.hash = "#/history";
  else return;
  event.preventDefault();
}

function switchTheme() {
  const isDark = document.documentElement.dataset.theme ? document.documentElement.dataset.theme === "dark"
    : matchMedia("(prefers-color-scheme: dark)").matches;
  document.documentElement.dataset.theme = isDark ? "light" : "dark";
  localStorage.setItem("lmq.theme", document.documentElement.dataset.theme);
}

async function start() {
  byId("host").textContent = location.host;
  byId("theme").addEventListener("click", switchTheme);
  byId("keys").addEventListener("click", () => byId("help").showModal());
  byId("close").addEventListener("click", () => byId("help").close());
  document.addEventListener("keydown", keys);
  addEventListener("hashchange", open);
  try {
    const text = await get("/interface", 30000);
    if (text === null) {
      show(place.main, el("h1", {}, "No interface"),
        el("p", {},
        "This host has no description of the interface, interface.json, so that there is nothing to show here."));
      return;
    }
    context.model = new Interface(JSON.parse(text));
  } catch (error) {
    context.heartbeat.tell(error.message, false);
    setTimeout(start, 2000);
    return;
  }
  navigation(context.model);
  context.board.use(context.model);
  context.heartbeat.use(context.model);
  open();
  requestIdleCallback(() => search.use(context.model));
  performance.mark("lmq-ready");
}

start();
