// XML-RPC both ways. A number stands for an int, a BigInt for an i8; what one method takes is for others to know.

/** An answer that is a fault: the driver was not called, or nobody knows what became of the call (`died`). */
export class Fault extends Error {
  constructor(code, text, died = false) {
    super(text);
    Object.assign(this, { code, died });
  }
}

/** A refusal of HTTP: login, rights, lease, too much to do. */
export class Refusal extends Error {
  constructor(status, text) {
    super(text);
    this.status = status;
  }
}

/** No answer: the host is not there, or takes longer than the limit. */
export class Lost extends Error {}

const escapes = { "&": "&amp;", "<": "&lt;", ">": "&gt;" };
const escaped = (text) => text.replace(/[&<>]/g, (sign) => escapes[sign]);

function encoded(value) {
  if (typeof value === "number") return `<value><int>${value}</int></value>`;
  if (typeof value === "bigint") return `<value><i8>${value}</i8></value>`;
  if (typeof value === "string") return `<value><string>${escaped(value)}</string></value>`;
  if (Array.isArray(value)) return `<value><array><data>${value.map(encoded).join("")}</data></array></value>`;
  const members = Object.entries(value)
    .map(([name, each]) => `<member><name>${escaped(name)}</name>${encoded(each)}</member>`);
  return `<value><struct>${members.join("")}</struct></value>`;
}

/** The document of a call. */
export function documentOf(method, params) {
  const values = params.map((each) => `<param>${encoded(each)}</param>`).join("");
  return `<?xml version="1.0"?><methodCall><methodName>${escaped(
    method)}</methodName><params>${values}</params></methodCall>`;
}

function decoded(value) {
  const typed = value.firstElementChild;
  if (!typed) return value.textContent;
  switch (typed.localName) {
    case "i4": case "int": case "boolean": case "double": return Number(typed.textContent);
    case "i8": return BigInt(typed.textContent);
    case "array": return Array.from(typed.firstElementChild.children, decoded);
    case "struct": {
      const made = {};
      for (const member of typed.children) {
        Object.defineProperty(made, member.children[0].textContent,
          { value: decoded(member.children[1]), enumerable: true, writable: true, configurable: true });
      }
      return made;
    }
    case "nil": return null;
    default: return typed.textContent;
  }
}

/** What goes with each request: the token of the lease, if this page holds it. */
export const session = { lease: "" };

const headers = (type) => ({ "Content-Type": type, ...(session.lease && { "Lmq-Lease": session.lease }) });

/** The value that a document answers. */
export function answerOf(text, died = false) {
  const parsed = new DOMParser().parseFromString(text, "text/xml");
  const top = parsed.documentElement;
  if (top.localName !== "methodResponse") throw new Lost("What came is no answer of XML-RPC.");
  const value = decoded(top.querySelector("value"));
  if (top.firstElementChild.localName !== "fault") return value;
  throw new Fault(value.faultCode, value.faultString, died);
}

/** Where a path of the host is: an address that was opened with a password in it is none to fetch from. */
const at = (path) => location.origin + path;

async function limited(timeout, work) {
  const stop = new AbortController();
  const timer = setTimeout(() => stop.abort(), timeout);
  try {
    return await work(stop.signal);
  } catch (error) {
    if (error instanceof Fault || error instanceof Refusal || error instanceof Lost) throw error;
    throw new Lost(stop.signal.aborted ? `No answer within ${timeout / 1000} s; the call may still be under way.`
      : "The host does not answer.");
  } finally {
    clearTimeout(timer);
  }
}

/**
 * Calls a method of the host.
 * @param method With its prefix, as "lmq.vx_reset".
 * @param timeout How long to wait, in ms.
 * @returns {value, request, response, ms, output}: request and response as XML; output is where what the driver printed
 *   can be fetched, or null.
 * @throws Fault, Refusal or Lost, with request, response and ms as far as they are known.
 */
export async function call(method, params, timeout = 60000) {
  const request = documentOf(method, params);
  const about = { request, response: "", ms: 0, output: null };
  const begun = performance.now();
  try {
    await limited(timeout, async (signal) => {
      const reply = await fetch(at("/RPC2"), { method: "POST", body: request, signal,
        headers: headers("text/xml") });
      about.response = await reply.text();
      about.ms = performance.now() - begun;
      about.output = reply.headers.get("Lmq-Output");
      const died = reply.status === 502;
      if (!reply.ok && !(died && about.response.startsWith("<?xml"))) throw new Refusal(reply.status,
        about.response.trim());
      about.value = answerOf(about.response, died);
    });
    return about;
  } catch (error) {
    about.ms ||= performance.now() - begun;
    throw Object.assign(error, about);
  }
}

const refusedCode = -507;
const retryAfter = 10000; // ms until a call that was refused is asked for again

/** Calls that the host has refused, by document: {fault, until}. It refuses all of a request for one such call. */
const refusals = new Map();

/**
 * Many calls in one request. Calls that the host refuses are left out and answered by its fault.
 * @param calls A list of [method, params].
 * @returns A list of values, and a Fault in the place of each call that ended in one.
 */
export async function multicall(calls, timeout = 60000) {
  const list = calls.map(([methodName, params]) => ({ methodName, params, id: documentOf(methodName, params) }));
  for (;;) {
    const now = performance.now();
    const asked = list.filter(({ id }) => !(refusals.get(id)?.until > now));
    const answers = new Map();
    try {
      const { value } = asked.length ? await call("system.multicall",
        [asked.map(({ methodName, params }) => ({ methodName, params }))], timeout) : { value: [] };
      value.forEach((each, at) => answers.set(asked[at], Array.isArray(each) ? each[0]
        : new Fault(each.faultCode, each.faultString)));
    } catch (error) {
      const named = error instanceof Fault && error.code === refusedCode ? asked.filter(({ methodName }) =>
        error.message.split(/[ ,;:]+/).includes(methodName)) : [];
      if (!named.length) throw error;
      for (const { id } of named) refusals.set(id, { fault: error, until: now + retryAfter });
      continue;
    }
    return list.map((each) => answers.get(each) ?? refusals.get(each.id).fault);
  }
}

/** Reads a path of the host; null if there is nothing there. */
export async function get(path, timeout = 10000) {
  return limited(timeout, async (signal) => {
    const reply = await fetch(at(path), { signal, cache: "no-cache" });
    if (reply.status === 404) return null;
    if (!reply.ok) throw new Refusal(reply.status, (await reply.text()).trim());
    return reply.text();
  });
}

/** Sends something else than a call; returns the text of the reply. */
export async function send(method, path, body) {
  return limited(10000, async (signal) => {
    const reply = await fetch(at(path), { method, body, signal, headers: headers("application/json") });
    const text = await reply.text();
    if (!reply.ok) throw new Refusal(reply.status, text.trim());
    return text;
  });
}
