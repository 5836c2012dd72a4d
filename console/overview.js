// The overview: life cycle, ports, the ONU's states, T-CONTs, GEM ports, flows and bridges, and the last failures.
import { el, link, show, table } from "./dom.js";
import { multicall } from "./rpc.js";
import { emptyOf, numberText, fromWire } from "./values.js";
import { outputsOf, statusOf } from "./answer.js";
import { growth, isRepeatable } from "./board.js";
import { historyTable } from "./history.js";

const period = 2000;
const ports = [["VX_PORT_MGMT", "Management"], ["VX_PORT_ETH0", "Ethernet 0"], ["VX_PORT_ETH0", "Ethernet 1", 1]];
const lists = 16; // entries of a list that are asked for

/** The calls of the overview: a name for each, the method, and arguments that are not 0. */
function questions(model) {
  const port = (name, more = 0) => model.enumerator(name) + more;
  const asked = { life: ["vx_watchdog_get", {}], onu: ["vx_gpon_onu_port_config_get", {}],
    tconts: ["vx_gpon_onu_active_tcont_get", { p_num_tconts: 8 }],
    gems: ["vx_gpon_onu_active_gem_port_get", { p_num_gem_ports: lists }],
      bridges: ["lmq_get_bridge_config_all", { get_cnt: lists }] };
  for (const [name, , more] of ports) {
    const id = port(name, more);
    asked[`link ${id}`] = ["vx_eth_port_status_get", { port_id: id }];
    asked[`stats ${id}`] = ["vx_eth_port_stats_get", { port_id: id }];
  }
  for (const id of [0, port("VX_PORT_ETH0"), port("VX_PORT_ETH0", 1)]) {
    asked[`${id ? "us" : "ds"} flows ${id}`] = [id ? "vx_flow_us_all_get" : "vx_flow_ds_all_get",
      { port_id: id, get_cnt: lists }];
  }
  return Object.entries(asked).filter(([, [method]]) => model.methods[method] && isRepeatable(model.methods[method]));
}

function paramsOf(model, method, given) {
  const list = model.methods[method].arguments;
  return list.map((argument) => {
    if (Object.hasOwn(given, argument.name)) return given[argument.name];
    const shape = model.shape(argument);
    const count = typeof argument.length === "string" ? given[argument.length.replace("*", "")] : 0;
    return emptyOf(shape, count);
  });
}

const enumerator = (model, type, value) => model.nameOf(type, value) ?? String(value);

function portCard(model, name, id, status, rates) {
  const up = status && /UP|ON/.test(enumerator(model, "vx_link_status_t", status.link_status));
  const text = status ? [enumerator(model, "vx_link_status_t", status.link_status), up
    && enumerator(model, "vx_speed_t", status.speed), up && enumerator(model, "vx_duplex_t", status.duplex)]
    .filter(Boolean).map((each) => each.replace(/^VX_(LINK_|SPEED_|DUPLEX_|PORT_|ETH_)*/, "")).join(" · ")
      : "no answer";
  const rate = (label, value) => el("div", { class: "rate" }, el("span", { class: "quiet" }, label),
    el("b", {}, value === undefined || value === null ? "—" : numberText(Math.round(value), {})));
  return el("a", { class: `card ${up ? "up" : "down"}`, href: `#/method/vx_eth_port_status_get?port_id=${id}` },
    el("h3", {}, name, el("span", { class: "quiet" }, ` port ${id}`)),
      el("p", {}, el("span", { class: "dot", "aria-hidden": "true" }), text),
    rate("in, packets/s", rates.rx), rate("out, packets/s", rates.tx), rate("in, bytes/s", rates.rxBytes),
      rate("out, bytes/s", rates.txBytes));
}

function stateLine(model, type, value) {
  const states = Object.entries(model.enums[type]?.values ?? {}).sort(([, one], [, other]) => one.value - other.value);
  return el("ol", { class: "states", "aria-label": "State of the ONU" }, states.map(([name, said]) =>
    el("li", { class: said.value === value ? "current" : "", "aria-current": said.value === value ? "step" : null,
      title: said.brief }, name.replace(/^VX_GPON_(STATE_)?/, ""))));
}

const section = (title, ...content) => el("section", {}, el("h2", {}, title), content);
const none = (what) => el("p", { class: "quiet" }, `No ${what}.`);

export class Overview {
  constructor({ model, history }) {
    Object.assign(this, { model, history, before: new Map(), isDropped: false });
    this.body = el("div", { class: "overview" }, el("p", { class: "quiet" }, "Asking the chip…"));
    this.questions = questions(model);
    this.onVisible = () => { if (!document.hidden) this.ask(); };
    document.addEventListener("visibilitychange", this.onVisible);
    this.ask();
  }

  leave() {
    this.isDropped = true;
    clearTimeout(this.timer);
    document.removeEventListener("visibilitychange", this.onVisible);
  }

  async ask() {
    clearTimeout(this.timer);
    try {
      const came = await multicall(this.questions
        .map(([, [method, given]]) => [`lmq.${method}`, paramsOf(this.model, method, given)]), 10000);
      if (this.isDropped) return;
      const answers = {};
      this.questions.forEach(([name, [method]], at) => {
        const isGood = Array.isArray(came[at]) && came[at][0] === 0;
        answers[name] = isGood ? Object.assign(outputsOf(this.model, method, came[at]), { status: 0 })
          : { status: Array.isArray(came[at]) ? came[at][0] : came[at].message };
      });
      this.show(answers);
    } catch (error) {
      if (!this.isDropped) show(this.body, el("p", { class: "bad" }, error.message), this.failures());
    }
    if (!this.isDropped && !document.hidden) this.timer = setTimeout(() => this.ask(), period);
  }

  rates(id, stats) {
    const now = { time: performance.now() }, before = this.before.get(id), rates = {};
    for (const [name, member] of [["rx", "rx_pkts"], ["tx", "tx_pkts"], ["rxBytes", "rx_bytes"],
      ["txBytes", "tx_bytes"]]) {
      if (stats?.[member] === undefined) continue;
      const shape = this.model.shape(this.model.structs.vx_eth_port_stats_t.members
        .find((each) => each.name === member));
      now[name] = fromWire(stats[member], shape);
      const grown = before?.[name] === undefined ? null : growth(before[name], now[name], shape);
      rates[name] = grown === null ? null : grown * 1000 / (now.time - before.time);
    }
    this.before.set(id, now);
    return rates;
  }

  show(answers) {
    const { model } = this;
    const isUp = answers.life?.status === 0;
    const life = answers.life && (isUp ? el("p", {}, el("span", { class: "verdict good" }, "✓ "), "The device is up.")
      : this.down(answers.life.status));
    if (!isUp && answers.life) {
      show(this.body, section("Life cycle", life), this.failures());
      return;
    }
    const cards = ports.map(([enumerator_, name, more = 0]) => {
      const id = model.enumerator(enumerator_) + more;
      return answers[`link ${id}`] && portCard(model, name, id, answers[`link ${id}`].p_cfg,
        this.rates(id, answers[`stats ${id}`]?.p_stats));
    });
    const onu = answers.onu?.p_cfg;
    show(this.body, section("Life cycle", life), section("Ports", el("div", { class: "cards" }, cards)),
      onu && section("ONU", stateLine(model, "vx_gpon_onu_state_t", onu.onu_state),
        el("p", {}, `ONU id ${onu.onu_id} · `, link("#/method/vx_gpon_onu_port_config_get", "GPON port"), " · ",
          link("#/method/vx_gpon_onu_port_enable_set", "enable it"))),
      el("div", { class: "columns" }, this.tables(answers)), this.failures());
  }

  down(status) {
    const said = statusOf(this.model, status);
    return el("p", {}, el("span", { class: "verdict bad" }, `✗ ${said.name} `), said.brief, " ", said.advice?.[2]
      && link(said.advice[2], said.advice[1], "button"));
  }

  tables({ tconts, gems, bridges, ...rest }) {
    const number = (text) => ({ text, class: "number" });
    const { model } = this;
    const tcontRows = (tconts?.p_tcont_id ?? [])
      .map((each) => [link(`#/method/vx_gpon_onu_tcont_info_get?tcont_id=${each.tcont_id}`, `${each.tcont_id}`),
      `${each.alloc_id}`]);
    const gemRows = (gems?.p_info ?? [])
      .map((each) => [link(`#/method/vx_gpon_onu_gem_port_info_get?gem_port_id=${each.gem_port_id}`,
      `${each.gem_port_id}`),
      enumerator(model, "lmq_dir_e", each.direction).replace("LMQ_DIR_", ""), `${each.tcont_id}`,
        link(`#/method/vx_gpon_onu_gem_stats_get?gem_id=${each.gem_port_id}`, "counters")]);
    const flows = Object.entries(rest).filter(([name]) => name.includes("flows"))
      .flatMap(([name, each]) => (each.p_cfg ?? []).map((flow) => [name.slice(0, 2), flow]));
    const flowRows = flows
      .map(([way, { flow_id: id, port_num: port, pri, key }]) => [link(`#/method/vx_flow_${way}_get?flow_id=${id}`,
      `${id}`), way === "us" ? "up" : "down", `${port}`, `${pri}`,
      enumerator(model, "vx_cl_key_type_t", key.key_type).replace("VX_CL_KEY_", "")]);
    const bridgeRows = (bridges?.p_cfg ?? [])
      .map((each) => [link(`#/method/lmq_get_bridge_config?brg_id=${each.brg_id}`, `${each.brg_id}`),
      `${each.num_brg_ports}`, `${each.num_sub_ports}`]);
    return [
      section("T-CONTs", tcontRows.length ? table("T-CONTs", [number("T-CONT"), number("Alloc-ID")], tcontRows)
        : none("T-CONT is active")),
      section("GEM ports", gemRows.length ? table("GEM ports", [number("GEM port"), "Direction", number("T-CONT"), ""],
        gemRows) : none("GEM port is active")),
      section("Flows", flowRows.length
        ? table("Flows", [number("Flow"), "Stream", number("Port"), number("Priority"), "Key"], flowRows)
        : none("flow")),
      section("Bridges", bridgeRows.length ? table("Bridges", [number("Bridge"), number("Ports"), number("GEM ports")],
        bridgeRows) : none("bridge")),
    ];
  }

  failures() {
    const failed = this.history.failures().slice(0, 5);
    return failed.length ? section("Last failures from this browser",
      historyTable(this.model, failed, "Last failures")) : null;
  }
}

export function overviewPage(context) {
  const made = new Overview(context);
  return { title: "Overview", main: [el("h1", {}, "Overview"), made.body], leave: () => made.leave() };
}
