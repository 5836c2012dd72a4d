// A call as code: for lmqctl, Python, C and curl.
import { documentOf } from "./rpc.js";
import { fieldText, packed } from "./values.js";

const isStruct = (value) => typeof value === "object" && value !== null && !Array.isArray(value);
const plain = (value) => (typeof value === "bigint" ? String(value) : value);
const quoted = (text) => (/^[\w.,:=/@%+\[\]-]+$/.test(text) && !/[\[\]]/.test(text) ? text
  : `'${text.replaceAll("'", `'\\''`)}'`);
const json = (value) => packed(value).replace(/\{"\$i8":"(-?\d+)"\}/g, "$1");

/** The leaves of a struct as [path, value]; flags follow from the members, so that they are left out if asked. */
function leaves(path, value, shape, keepFlags) {
  if (!isStruct(value)) return [[path, value]];
  const flags = new Set(keepFlags || !shape.mask ? [] : [shape.mask.holder]);
  const all = Object.entries(value).filter(([key]) => !flags.has(key));
  return all.flatMap(([key, each]) => leaves(`${path}.${key}`, each, {}, true));
}

function words(model, said, value) {
  const shape = model.shape(said);
  if (shape.kind === "mac" || shape.kind === "int"
    && !Array.isArray(value)) return [`${said.name}=${fieldText(model, value, shape)}`];
  if (!isStruct(value)) return [`${said.name}=${json(value)}`];
  const all = leaves(said.name, value, shape, hasBareFlags(shape, value));
  return all.length ? all.map(([path, each]) => `${path}=${typeof each === "object" ? json(each) : plain(each)}`)
    : [`${said.name}={}`];
}

/** Whether a flag is set whose member is not there, so that flags cannot follow from members. */
function hasBareFlags(shape, value) {
  const flags = shape.mask?.path.reduce((at, key) => at?.[key], value);
  return Object.keys(flags ?? {}).some((flag) => !Object.hasOwn(value, flag));
}

function lmqctl(model, name, params) {
  const said = model.methods[name].arguments.flatMap((each, at) => words(model, each, params[at]));
  return `lmqctl --url ${location.origin}/RPC2 call ${[name, ...said.map(quoted)].join(" ")}`;
}

function pythonText(value) {
  if (isStruct(
    value)) return `{${Object.entries(value).map(([key, each]) => `${JSON.stringify(key)}: ${pythonText(each)}`).join(
    ", ")}}`;
  if (Array.isArray(value)) return value.length > 8 && value.every((each) => each === 0) ? `[0] * ${value.length}`
    : `[${value.map(pythonText).join(", ")}]`;
  return typeof value === "string" ? JSON.stringify(value) : String(value);
}

const python = (model, name, params) => `import xmlrpc.client

host = xmlrpc.client.ServerProxy("${location.origin}/RPC2", allow_none=True)
print(host.lmq.${name}(${params.map(pythonText).join(", ")}))
`;

function cText(model, said, value) {
  const shape = model.shape(said);
  if (isStruct(value)) {
    const inner = Object.entries(value).map(([key, each]) => {
      const member = shape.members?.find((one) => one.name === key) ?? { name: key, type: "vx_uint32" };
      return `.${key} = ${cText(model, member, each)}`;
    });
    return `{${inner.join(", ") || "0"}}`;
  }
  if (Array.isArray(value)) return value.every((each) => each === 0) ? "{0}"
    : `{${value.map((each) => cText(model, { ...said, bound: undefined, count: undefined, length: 1 }, each)).join(
    ", ")}}`;
  if (typeof value === "string") return JSON.stringify(value);
  return shape.enum ? model.nameOf(shape.enum, value) ?? String(value) : shape.bits === 32 && !shape.signed
    ? `${value >>> 0}U` : String(value);
}

function c(model, name, params) {
  const { arguments: list, returns } = model.methods[name];
  const lines = [], given = [];
  list.forEach((said, at) => {
    const value = params[at];
    if (!said.pointer) {
      given.push(cText(model, said, value));
    } else if (Array.isArray(value) && !value.length) {
      given.push("NULL");
    } else {
      const isArray = Array.isArray(value);
      const bound = isArray && !model.typedefs[said.type]?.count ? `[${value.length}]` : "";
      lines.push(`${said.type} ${said.name}${bound} = ${cText(model, said, value)};`);
      given.push(isArray ? said.name : `&${said.name}`);
    }
  });
  const result = returns === "void" ? "" : `${returns} result = `;
  const includes = given.includes("NULL") ? ["#include <stddef.h>"] : [];
  return ["#include <lmq/lmq.h>", ...includes, "", ...lines, `${result}${name}(${given.join(", ")});`, ""].join("\n");
}

const curl = (model, name, params) =>
  `curl -s -H 'Content-Type: text/xml' --data-binary ${quoted(documentOf(`lmq.${name}`,
    params))} ${location.origin}/RPC2`;

/** What a call can be copied as: (model, method, params) to text. */
export const codes = { lmqctl, Python: python, C: c, curl };
