// The watch page: a table of pinned numbers with rates and sparklines, their plot, and ready boards.
import { button, download, el, link, show, table } from "./dom.js";
import { emptyOf, numberText } from "./values.js";
import { isRepeatable, shapeAt } from "./board.js";
import { plot, sparkline } from "./plot.js";
import { scalarText } from "./answer.js";

/** The ready boards: methods, the argument that goes through its ids, and the members that count most (all: none). */
const boards = {
  "Ethernet ports": [["vx_eth_port_stats_get", "port_id", [3, 4],
    /^p_stats\.([rt]x_(bytes|pkts)|rx_crc_frm|rx_user_drop)$/]],
  GPON: [["vx_gpon_onu_mac_stats_get", null, [0]], ["vx_gpon_onu_fec_stats_get", null, [0]],
    ["vx_gpon_onu_omcc_stats_get", null, [0]]],
  Policers: [["vx_rate_policer_stat_get", "flow_pol_id", [0, 1, 2, 3]],
    ["vx_rate_group_policer_stat_get", "grp_pol_id", [0, 1]]],
  Queues: [["vx_bm_pkt_stats_get", null, [0], /(_rx_pkt|_tx_pkt|_drop)$/],
    ["vx_bm_queue_status_get", "port_num", [0, 3], /(tot_used_buf_cnt|que_size)$/]],
};

/** The paths of all numbers that a method answers. */
function numbersOf(model, method) {
  const paths = [];
  const walk = (shape, path) => {
    if (shape.kind === "int") paths.push(path);
    if (shape.kind === "struct") shape.members.filter((each) => !each.mask)
      .forEach((each) => walk(model.shape(each), `${path}.${each.name}`));
    if (shape.kind === "list") for (let at = 0; at < (shape.count ?? 0); ++at) walk(shape.of, `${path}[${at}]`);
  };
  model.methods[method].arguments.filter((each) => each.direction !== "in")
    .forEach((each) => walk(model.shape(each), each.name));
  return paths;
}

function pinBoard(model, board, name) {
  for (const [method, argument, ids, wanted = /./] of boards[name]) {
    if (!model.methods[method] || !isRepeatable(model.methods[method])) continue;
    for (const id of ids) {
      const params = model.methods[method].arguments
        .map((each) => (each.name === argument ? id : emptyOf(model.shape(each))));
      for (const path of numbersOf(model, method).filter((each) => wanted.test(each))) {
        if (!board.isPinned(method, params, path)) board.toggle(method, params, path);
      }
    }
  }
}

/** What tells two calls of one method apart: the inputs that are ids. */
function scopeOf(model, { method, params }) {
  const list = model.methods[method].arguments;
  return list.map((each, at) => [each, params[at]]).filter(([each, value]) => each.id && each.id !== "device"
    && !each.pointer && typeof value === "number")
    .map(([each, value]) => `${each.id} ${value}`).join(", ");
}

const addressOf = (model, { method, params }) => model.methods[method].arguments.map((each, at) => [each, params[at]])
  .filter(([each, value]) => each.direction !== "out" && typeof value === "number" && value)
    .map(([each, value]) => `${each.name}=${value}`).join("&");

function rateText(rate) {
  if (rate === null || rate === undefined) return "—";
  return rate >= 100 || rate === 0 ? numberText(Math.round(rate), {}) : rate.toFixed(1);
}

function exportCsv(model, pins) {
  const times = [...new Set(pins.flatMap((pin) => pin.samples.map((each) => each.time)))]
    .sort((one, other) => one - other);
  const names = pins.map((pin) => `"${pin.method} ${scopeOf(model, pin)} ${pin.path}"`.replace("  ", " "));
  const at = pins.map((pin) => new Map(pin.samples.map((each) => [each.time, each.value])));
  const rows = times.map((time) => [new Date(time).toISOString(), ...at.map((each) => each.get(time) ?? "")].join(","));
  download("watch.csv", "text/csv", [["time", ...names].join(","), ...rows, ""].join("\n"));
}

/** One line of the table: made once, filled at each sample. */
function lineOf(model, board, pin, onOpen) {
  const cells = { value: el("span"), rate: el("span"), spark: el("span") };
  const shape = shapeAt(model, pin.method, pin.path);
  const name = `${pin.path}, ${pin.method} ${scopeOf(model, pin)}`;
  const fill = () => {
    const last = pin.samples.at(-1);
    const failed = last && last.value === null;
    show(cells.value, failed ? el("span", { class: "bad" }, model.statusNames.get(pin.status) ?? String(pin.status))
      : last ? scalarText(model, last.value, shape) : "…");
    cells.rate.textContent = shape.enum ? "" : rateText(last?.rate);
    show(cells.spark,
      sparkline(pin.samples.slice(-120).map((each) => (shape.counter ? each.rate : each.value === null ? null
      : Number(each.value)))));
  };
  const row = [button(pin.path, () => onOpen(pin), { class: "plain", title: "Show its plot" }),
    el("span", { class: "quiet" }, scopeOf(model, pin)),
    link(`#/method/${pin.method}?${addressOf(model, pin)}`, pin.method), cells.value, cells.rate, cells.spark,
    button("×", () => board.toggle(pin.method, pin.params, pin.path),
      { class: "plain", "aria-label": `Unpin ${name}` })];
  return { pin, row, fill };
}

export function watchPage({ model, board }) {
  const list = el("div"), figure = el("div"), problem = el("p", { class: "bad", role: "alert" });
  let lines = [], shown = null, drawn = null;
  const open = (pin) => {
    drawn?.drop();
    drawn = null;
    shown = shown === pin ? null : pin;
    if (!shown) {
      show(figure);
      return;
    }
    const shape = shapeAt(model, pin.method, pin.path);
    const of = (each) => (shape.counter ? each.rate : each.value === null ? null : Number(each.value));
    drawn = plot(`${pin.path}${shape.counter ? " per second" : ""}`, () => pin.samples
      .map((each) => [new Date(each.time), of(each)]));
    show(figure, el("h2", {}, pin.path, shape.counter ? " per second" : ""),
      el("p", { class: "quiet" }, `${pin.method} ${scopeOf(model, pin)} — drag to zoom, double click for all`),
      drawn.node);
  };
  const build = () => {
    lines = board.pins.map((pin) => lineOf(model, board, pin, open));
    const heads = ["Number", "Of", "Call", { text: "Value", class: "number" }, { text: "Per second", class: "number" },
      "Last minutes", ""];
    show(list, lines.length ? table("Pinned numbers", heads, lines.map((each) => each.row), "watch")
      : el("p", { class: "quiet" }, "Nothing is pinned. Take a ready board, or press ☆ beside a number of an answer."));
    if (shown && !board.pins.includes(shown)) open(shown);
  };
  const update = () => {
    if (lines.length !== board.pins.length || lines.some((line, at) => line.pin !== board.pins[at])) build();
    for (const line of lines) line.fill();
    drawn?.update();
    problem.textContent = board.problem;
  };
  const pause = button("Pause", () => {
    board.pause(!board.isPaused);
    pause.textContent = board.isPaused ? "Go on" : "Pause";
  });
  if (board.isPaused) pause.textContent = "Go on";
  build();
  update();
  board.listeners.add(update);
  board.schedule(0);
  const ready = Object.keys(boards).map((name) => button(name, () => { pinBoard(model, board, name); update(); },
    { class: "small" }));
  return {
    title: "Watch", leave: () => { board.listeners.delete(update); drawn?.drop(); },
    main: [el("h1", {}, "Watch"),
      el("div", { class: "bar" }, pause, button("Export CSV", () => exportCsv(model, board.pins)),
      button("Unpin all", () => board.clear()),
      el("span", { class: "quiet" }, "Ready boards:"), ready), problem, figure, list],
  };
}
