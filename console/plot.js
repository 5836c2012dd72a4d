// Plots: sparklines of our own, and the large plot as a thin layer over dygraphs, which is fetched when it is needed.
import { el, svg } from "./dom.js";

let library;

function dygraphs() {
  library ??= new Promise((resolve) => {
    document.head.append(el("link", { rel: "stylesheet", href: "dygraph.css" }));
    const loaded = () => {
      // Its legend writes styles into its markup, which the policy of this page forbids.
      Dygraph.PLUGINS = Dygraph.PLUGINS.filter((each) => each !== Dygraph.Plugins.Legend);
      resolve(Dygraph);
    };
    document.head.append(el("script", { src: "dygraph.js", onload: loaded, onerror: () => resolve(null) }));
  });
  return library;
}

function axisText(value) {
  const size = Math.abs(value);
  const [unit, letter] = [[1e9, "G"], [1e6, "M"], [1e3, "k"]].find(([each]) => size >= each) ?? [1, ""];
  return `${Number((value / unit).toPrecision(4))}${letter}`;
}

/** A line of the last values, null for a gap. */
export function sparkline(values, width = 96, height = 20) {
  const known = values.filter((each) => each !== null);
  const low = Math.min(...known, 0), high = Math.max(...known, low + 1e-9);
  let path = "", isOn = false;
  values.forEach((value, at) => {
    if (value === null) {
      isOn = false;
      return;
    }
    const x = (at * width / Math.max(values.length - 1, 1)).toFixed(1),
      y = (height - 1 - (value - low) * (height - 2) / (high - low)).toFixed(1);
    path += `${isOn ? "L" : "M"}${x} ${y}`;
    isOn = true;
  });
  return svg("svg", { class: "spark", viewBox: `0 0 ${width} ${height}`, width, height, "aria-hidden": "true" },
    svg("path", { d: path || "M0 0" }));
}

const color = (name) => getComputedStyle(document.documentElement).getPropertyValue(name).trim();

/**
 * A plot that can be zoomed by dragging; a double click shows all again.
 * @param label What is plotted.
 * @param points Gives a list of [Date, number or null].
 * @returns {node, update, drop}
 */
export function plot(label, points) {
  const place = el("div", { class: "plot", role: "img", "aria-label": `Plot of ${label}` });
  const legend = el("div", { class: "legend quiet" });
  let graph = null, isDropped = false;
  const data = () => {
    const all = points();
    return all.length ? all : [[new Date(), null]];
  };
  dygraphs().then((Dygraph) => {
    if (isDropped) return;
    if (!Dygraph) {
      place.textContent = "This host serves no plots.";
      return;
    }
    graph = new Dygraph(place, data(), {
      labels: ["Time", label], colors: [color("--accent")], strokeWidth: 1.6, fillGraph: true, fillAlpha: 0.12,
      gridLineColor: color("--line"), axisLineColor: color("--line"), axisLabelFontSize: 12, includeZero: true,
      axes: { y: { axisLabelWidth: 64, axisLabelFormatter: axisText } },
      highlightCallback: (_, time, [point]) => {
        legend.textContent = `${new Date(time).toLocaleTimeString("en-GB")}  ${point?.yval ?? ""}`;
      },
      unhighlightCallback: () => { legend.textContent = ""; },
    });
  });
  return {
    node: el("div", {}, place, legend),
    update: () => graph?.updateOptions({ file: data() }),
    drop: () => { isDropped = true; graph?.destroy(); },
  };
}
