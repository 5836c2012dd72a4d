// The contract as a model: what /interface says, and the shape of each argument and member that follows from it.

/** Whether a member is one whose value is kept nowhere. */
export const isSecret = (path) => /passw|psk|secret/i.test(path);

const scalars = {
  char: { bits: 8, signed: true, isChar: true }, "signed char": { bits: 8, signed: true },
  "unsigned char": { bits: 8, signed: false }, short: { bits: 16, signed: true },
    "unsigned short": { bits: 16, signed: false },
  int: { bits: 32, signed: true }, "unsigned int": { bits: 32, signed: false }, long: { bits: 32, signed: true },
  "long long": { bits: 64, signed: true }, "unsigned long long": { bits: 64, signed: false },
};

export class Interface {
  /** @param said What /interface answered, parsed. */
  constructor(said) {
    Object.assign(this, said);
    this.records = new Map();
    this.families = new Map();
    for (const [name, method] of Object.entries(this.methods)) {
      if (!this.families.has(method.family)) this.families.set(method.family, []);
      this.families.get(method.family).push(name);
    }
    this.enumeratorNames = new Map();
    this.statusNames = new Map();
    for (const [name, { value }] of Object.entries(this.enums.vx_status_e?.values ?? {})) {
      if (!this.statusNames.has(value) || this.statusNames.get(value).endsWith("_BASE")) this.statusNames.set(value,
        name);
    }
    for (const [type, { values }] of Object.entries(this.enums)) {
      for (const name of Object.keys(values)) this.enumeratorNames.set(name, type);
    }
  }

  /** What an integer type is: bits, sign, and whether it is a character. */
  scalar(type) {
    for (let at = type; at; at = this.typedefs[at]?.type) {
      if (Object.hasOwn(scalars, at)) return scalars[at];
      if (Object.hasOwn(this.enums, at)) return { bits: 32, signed: true };
    }
    return { bits: 32, signed: true };
  }

  /** An enumerator's value; a number in digits stands for itself. */
  enumerator(name) {
    const type = this.enumeratorNames.get(name);
    return type ? this.enums[type].values[name].value : Number(name);
  }

  /** The name of a value of an enum; undefined if it has none. */
  nameOf(type, value) {
    if (type === "vx_status_e") return this.statusNames.get(Number(value));
    return Object.entries(this.enums[type]?.values ?? {}).find(([, each]) => each.value === Number(value))?.[0];
  }

  /**
   * The shape of an argument or member: {kind, ...} with kind
   *   "int"    bits, signed, and what is said of it: enum, bits_of, bitmap, range, or, unit, id, ipv4, counter
   *   "mac", "ipv6", "text" (count, isChar), "list" (of, count), "struct", "union" (by), "mask", "void"
   */
  shape(said) {
    if (said.members) return this.record(said, said.mask ? "mask" : said.kind);
    if (said.type === "void") return { kind: "void" };
    const inner = this.element(said);
    const isArrayType = this.typedefs[said.type]?.count !== undefined;
    const ofArgument = typeof said.length === "string" || !isArrayType && said.length !== 1 ? said.length : undefined;
    const ofMember = isArrayType && said.bound === undefined ? undefined : said.count;
    const count = said.pointer ? ofArgument : ofMember;
    if (count === undefined || inner.whole) return inner;
    return { kind: "list", of: inner, count: typeof count === "number" ? count : undefined };
  }

  element(said) {
    const struct = this.structs[said.type];
    if (struct) {
      if (!this.records.has(said.type)) this.records.set(said.type, this.record(struct, struct.kind, said.type));
      const record = this.records.get(said.type);
      return record.kind === "union" && said.by ? { ...record, by: said.by } : record;
    }
    const scalar = this.scalar(said.type);
    const count = said.count ?? (said.length > 1 ? said.length : undefined);
    if (said.mac) return { kind: "mac", whole: count === 6 };
    if (said.ipv6) return { kind: "ipv6", whole: true };
    if (said.text || (scalar.isChar && count)) return { kind: "text", whole: true, count, isChar: scalar.isChar };
    const { range, unit, or, id, ipv4, counter, bitmap, bits_of } = said;
    return { kind: "int", ...scalar, enum: said.enum, isBoolean: said.type === "vx_boolean",
      range, unit, or, id, ipv4, counter, bitmap, bits_of };
  }

  /** A struct, union or mask. What has no name has its members in the struct around it. */
  record(said, kind, name) {
    const made = { kind, name, by: said.by, members: [] };
    for (const member of said.members) {
      if (member.name) made.members.push(member);
      else made.members.push(...member.members.filter((each) => !member.mask || each.members || each.flag));
    }
    made.mask = this.maskOf(made.members);
    return made;
  }

  /** Where the flags of a struct are: {path, flags: [{name, members}]}, with the members that each flag is about. */
  maskOf(members) {
    const holder = members.find((member) => member.mask);
    if (!holder) return null;
    const inner = holder.members.find((member) => member.members);
    const path = inner ? [holder.name, inner.name] : [holder.name];
    const names = (inner ?? holder).members.filter((flag) => flag.flag && !/^reserved/.test(flag.name));
    const own = new Set(names.map((flag) => flag.name));
    const free = members.filter((member) => !member.mask && !own.has(member.name)).map((member) => member.name);
    const flags = names.map(({ name, brief }) => {
      const stem = name.replace(/_range$/, "");
      const exact = members.some((member) => member.name === name && !member.mask);
      return { name, brief, members: exact ? [name] : free.filter((each) => each.includes(stem)) };
    });
    return { holder: holder.name, path, flags };
  }

  /** The alternative of a union that a selector's value selects; undefined if none. */
  alternative(union, value) {
    if (value === undefined || value === null) return undefined;
    return union.members.find((member) => member.if?.some((name) => this.enumerator(name) === Number(value)));
  }

  /** The ends of a number's range: those that are told, else those of its width. */
  limits(shape) {
    if (shape.range) return shape.range.map(BigInt);
    return shape.signed ? [-(1n << BigInt(shape.bits - 1)), (1n << BigInt(shape.bits - 1)) - 1n]
      : [0n, (1n << BigInt(shape.bits)) - 1n];
  }

  /** Where the methods, structs and members are that use a type. */
  usesOf(type) {
    const uses = [];
    const walk = (members, href, path) => members.forEach((member) => {
      if (member.type === type || member.enum === type || member.bits_of === type) uses.push(
        { href, text: `${path}.${member.name}` });
      if (member.members) walk(member.members, href, `${path}.${member.name}`);
    });
    for (const [name, method] of Object.entries(this.methods)) {
      walk(method.arguments, `#/method/${name}`, name);
      if (method.returns === type && type !== "vx_status_e") uses.push({ href: `#/method/${name}`, text: name });
    }
    for (const [name, struct] of Object.entries(this.structs)) walk(struct.members, `#/struct/${name}`, name);
    return uses;
  }

  /** A method as C declares it. */
  prototype(name) {
    const { returns, arguments: list } = this.methods[name];
    const declared = list
      .map((each) => `${each.type} ${each.pointer && !this.typedefs[each.type]?.count ? "*" : ""}${each.name}`);
    return `${returns} ${name}(${declared.join(", ") || "void"})`;
  }

  /** The page of a type; null for one that has none. */
  hrefOf(type) {
    if (Object.hasOwn(this.structs, type)) return `#/struct/${type}`;
    return Object.hasOwn(this.enums, type) ? `#/enum/${type}` : null;
  }
}
