// Values as people write and read them: numbers, enumerators, addresses, texts; and as they go over the wire.

const signed = (value, bits) => BigInt.asIntN(bits, value);

/** A whole number as it goes over the wire: an int up to 32 bits, an i8 beyond. */
export const toWire = (value, shape) => (shape.bits > 32 ? signed(value, 64) : Number(signed(value, 32)));

/** A number from the wire as what its type holds: the wire knows no unsigned ones. */
export function fromWire(value, shape) {
  if (typeof value !== "number" && typeof value !== "bigint") return value;
  if (shape.bits > 32) return shape.signed ? BigInt(value) : BigInt.asUintN(64, BigInt(value));
  return shape.signed ? Number(value) : Number(BigInt.asUintN(shape.bits, BigInt(value)));
}

function wholeNumber(text) {
  const bare = text.replace(/[\s\u2009_']/g, "");
  if (/^-?(0x[0-9a-f]+|0b[01]+|\d+)$/i.test(bare)) return bare.startsWith("-") ? -BigInt(bare.slice(1)) : BigInt(bare);
  return null;
}

const byteList = (bytes, base, sign) => Array.from(bytes, (each) => (each & 255).toString(base).padStart(2, "0")).join(
  sign);

export const macText = (bytes) => byteList(bytes, 16, ":");
export const ipv4Text = (value) => [24, 16, 8, 0].map((shift) => (Number(value) >>> shift) & 255).join(".");

function ipv4Of(text) {
  const parts = text.split(".").map(Number);
  if (!/^\d+(\.\d+){3}$/.test(text) || parts.some((part) => part > 255)) return null;
  return BigInt(parts.reduce((sum, part) => sum * 256 + part, 0));
}

export function ipv6Text(bytes) {
  const words = Array.from({ length: 8 }, (_, at) => ((bytes[2 * at] & 255) * 256 + (bytes[2 * at + 1] & 255)).toString(
    16));
  const zeros = [...words.join(":").matchAll(/\b0(:0)+\b/g)].sort((one, other) => other[0].length - one[0].length)[0];
  if (!zeros) return words.join(":");
  const text = words.join(":");
  return `${text.slice(0, zeros.index).replace(/:$/, "")}::${text.slice(zeros.index + zeros[0].length)
    .replace(/^:/, "")}`;
}

function ipv6Of(text) {
  const [head, tail, more] = text.split("::");
  if (more !== undefined || !/^[0-9a-f:]+$/i.test(text)) return null;
  const words = (part) => (part ? part.split(":") : []);
  const gap = 8 - words(head).length - words(tail).length;
  if (tail === undefined ? gap !== 0 : gap < 1) return null;
  const all = [...words(head), ...Array(gap).fill("0"), ...words(tail)];
  if (!all.every((word) => /^[0-9a-f]{1,4}$/i.test(word))) return null;
  return all.flatMap((word) => [parseInt(word, 16) >> 8, parseInt(word, 16) & 255]);
}

const printable = (bytes) => bytes.every((each) => each >= 32 && each < 127);

/** A text, or the bytes behind it where they are no text. */
export function textOfBytes(value) {
  if (typeof value === "string") return value;
  const bytes = value.map((each) => each & 255);
  const used = bytes.slice(0, bytes.findLastIndex((each) => each !== 0) + 1);
  return printable(used) ? String.fromCharCode(...used)
    : used.map((each) => `0x${each.toString(16).padStart(2, "0")}`).join(" ");
}

function bytesOf(text) {
  if (/^0x[0-9a-f]{1,2}([\s,]+0x[0-9a-f]{1,2})*$/i.test(text)) return text.split(/[\s,]+/).map(Number);
  return Array.from(new TextEncoder().encode(text));
}

/** A number as a text without a name: hexadecimal for addresses and bits, long counters in groups of three. */
export function numberText(value, shape) {
  if (shape.ipv4) return ipv4Text(value);
  if (shape.bitmap || shape.bits_of) return `0x${value.toString(16)}`;
  const text = value.toString();
  return text.length > 4 ? text.replace(/\B(?=(\d{3})+$)/g, "\u2009") : text;
}

/** What the bits of a number stand for, by the enum whose values are bits. */
export function bitNames(model, type, value) {
  const bits = Object.entries(model.enums[type]?.values ?? {}).filter(([, each]) => each.value
    && (Number(value) & each.value) === each.value);
  return bits.map(([name]) => name).join(" | ");
}

/** A scalar as the field of a form holds it. */
export function fieldText(model, value, shape) {
  if (shape.kind === "mac") return macText(value);
  if (shape.kind === "ipv6") return ipv6Text(value);
  if (shape.kind === "text") return textOfBytes(value);
  if (shape.kind === "list") return value.map((each) => fieldText(model, each, shape.of)).join(", ");
  const own = fromWire(value, shape);
  if (shape.enum) return model.nameOf(shape.enum, own) ?? String(own);
  return shape.ipv4 ? ipv4Text(own) : shape.bitmap || shape.bits_of ? `0x${own.toString(16)}` : String(own);
}

const rangeText = (ends, unit) => `${ends[0]}–${ends[1]}${unit ? ` ${unit}` : ""}`;

/** What a field takes, in a few words; empty where the width of a number is all there is to say. */
export function hintOf(model, shape) {
  switch (shape.kind) {
    case "mac": return "MAC address";
    case "ipv6": return "IPv6 address";
    case "text": return `text, ${shape.count} bytes`;
    case "list": return `${shape.count ? `up to ${shape.count} ` : ""}numbers, with commas`;
    default:
  }
  if (shape.ipv4) return "IPv4 address";
  const range = shape.range ?? model.ids[shape.id]?.range;
  if (range && !(shape.id && !shape.range && range[0] === range[1])) {
    return rangeText(range, shape.unit) + (shape.or ? ` or ${shape.or.join(", ")}` : "");
  }
  if (shape.bits_of) return `bits of ${shape.bits_of}`;
  return shape.unit ?? "";
}

function integerOf(model, text, shape) {
  const names = text.split("|").map((each) => each.trim());
  const type = shape.enum ?? shape.bits_of;
  if (type && names.every((each) => Object.hasOwn(model.enums[type].values, each))) {
    return names.map((each) => BigInt(model.enums[type].values[each].value)).reduce((sum, each) => sum | each);
  }
  return (shape.ipv4 ? ipv4Of(text) : null) ?? wholeNumber(text);
}

function parsedInteger(model, text, shape) {
  const value = integerOf(model, text, shape);
  if (value === null) return { error: shape.ipv4 ? "An IPv4 address, as 192.0.2.1."
    : "A whole number, as 42 or 0x2a." };
  const width = model.limits({ ...shape, range: undefined });
  if (value < width[0] || value > width[1]) return { error: `${shape.bits} bits hold ${rangeText(width)}.` };
  const made = { value: toWire(value, shape) };
  const within = (range) => value >= range[0] && value <= range[1] || shape.or?.includes(Number(value));
  if (shape.range && !within(shape.range)) return { ...made,
    error: `Out of range: ${rangeText(shape.range, shape.unit)}.`, soft: true };
  const ids = model.ids[shape.id]?.range;
  if (!shape.range && ids && !within(ids)) return { ...made,
    warning: `No ${shape.id} of this chip: ${rangeText(ids)}.` };
  return made;
}

/**
 * What a text in a field means.
 * @returns {value} for the wire, and besides: error if it cannot be sent, with soft if the user may insist; warning.
 */
export function parsed(model, text, shape) {
  const trimmed = text.trim();
  switch (shape.kind) {
    case "mac": {
      const parts = trimmed.split(/[:-]/);
      const good = parts.length === 6 && parts.every((part) => /^[0-9a-f]{1,2}$/i.test(part));
      return good ? { value: parts.map((part) => parseInt(part, 16)) }
        : { error: "A MAC address, as 02:00:5e:10:00:01." };
    }
    case "ipv6": {
      const value = ipv6Of(trimmed);
      return value ? { value } : { error: "An IPv6 address, as 2001:db8::1." };
    }
    case "text": {
      const bytes = bytesOf(text);
      if (shape.count
        && bytes.length > shape.count) return { error: `${bytes.length} bytes; ${shape.count} are the most.` };
      return { value: shape.isChar ? text : bytes };
    }
    case "list": {
      const each = trimmed.split(/[\s,]+/).filter(Boolean).map((part) => parsed(model, part, shape.of));
      if (shape.count
        && each.length > shape.count) return { error: `${each.length} numbers; ${shape.count} are the most.` };
      return { ...each.find((one) => one.error), ...each.find((one) => one.warning),
        value: each.map((one) => one.value) };
    }
    default: return parsedInteger(model, trimmed, shape);
  }
}

/** What stands for nothing: what an output is sent as, and what a member is that is left out. */
export function emptyOf(shape, count = 0) {
  switch (shape.kind) {
    case "int": return shape.bits > 32 ? 0n : 0;
    case "mac": return Array(6).fill(0);
    case "ipv6": return Array(16).fill(0);
    case "text": return shape.isChar ? "" : Array(shape.count).fill(0);
    case "list": return Array.from({ length: shape.count ?? count }, () => emptyOf(shape.of));
    case "void": return [];
    default: return {};
  }
}

/** JSON that keeps numbers of 64 bits. */
export const packed = (value) => JSON.stringify(value, (_, each) => (typeof each === "bigint" ? { $i8: String(each) }
  : each));
export const unpacked = (text) => JSON.parse(text, (_, each) => (typeof each?.$i8 === "string" ? BigInt(each.$i8)
  : each));

/** JSON for people: numbers of 64 bits as numbers. */
export const pretty = (value) => JSON.stringify(value, (_, each) => (typeof each === "bigint" ? `\u0001${each}\u0001`
  : each), 2)
  .replace(/"\\u0001(-?\d+)\\u0001"/g, "$1");
