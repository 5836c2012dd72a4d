"""The contract of the driver interface: what C does not say of arguments and members, read from the headers' comments.

The comments are Doxygen's, in the strict form that CONTRIBUTING.md describes. Whatever is missing, contradicts C or is
not in that form is reported with file, line and what was expected.

    contract.py INCLUDE [--json FILE] [--fingerprint FILE] [--table FILE] [--terms FILE] [--unions FILE]
                                                          writes interface.json and the tables of host and remote driver
    contract.py INCLUDE --released FILE                   writes it without its sentences, as interface/released.json has it
    contract.py INCLUDE --check [HEADER...]               reports what is wrong in these headers, or in all
"""

import argparse
import gzip
import hashlib
import json
import pathlib
import re
import sys

import headers
import remote_table
import table
import ways

EFFECTS = ("reads", "reads registers", "reads and clears", "changes", "resets")
UNITS = {"ns", "us", "ms", "s", "min", "bits", "bytes", "words", "packets", "frames", "cells", "elements", "entries",
         "bit/s", "kbit/s", "Mbit/s", "packets/s", "Hz", "kHz", "MHz", "ppm", "%", "m", "ppb", "tokens", "bit times"}
RANGE = r"(\([^()]*\)|[^\s.]+)\.\.(\([^()]*\)|[^\s.]+)"
TEXTS = ("text", "ipv4", "ipv6", "mac", "bitmap", "counter", "overlaid", "report")


class Problems(list):
    """What is wrong, as lines for people. Reading goes on, so that one run shows everything."""

    def add(self, where, text):
        self.append(f"{where[0]}:{where[1]}: {text}")


class Comments:
    """The doc comments of one header by line: those behind something by its line, those before something by its."""

    COMMENT = re.compile(r"/\*\*(<?)(.*?)\*/", re.DOTALL)

    def __init__(self, path):
        text = path.read_text()
        self.behind, self.before = {}, {}
        for match in self.COMMENT.finditer(text):
            line = text.count("\n", 0, match.start()) + 1
            body = re.sub(r"[ \t]*\\?\n[ \t]*\*? ?", "\n", match.group(2)).strip()
            if match.group(1):
                if line in self.behind:
                    body = self.behind[line] + " " + body
                self.behind[line] = body
            else:
                rest = text[match.end():]
                skipped = re.match(r"\s*(?:/\*(?!\*).*?\*/\s*)*", rest, re.DOTALL).group()
                self.before[text.count("\n", 0, match.end() + len(skipped)) + 1] = body


class Reader:
    """Everything that the headers of a folder say, as the dictionary that interface.json holds."""

    def __init__(self, include):
        folder = pathlib.Path(include)
        self.c = headers.Headers(folder)
        self.comments = {path.name: Comments(path) for path in sorted(folder.glob("lmq/*.h"))}
        self.problems = Problems()
        self.typedef_values = {}  # what the comment of a typedef says of all its values
        self.kinds = {}  # of ids
        for name in self.comments:
            self.kinds |= self.kinds_of_ids(name)
        self.given_out = set()  # kinds of ids that a call answers
        self.ways = {}  # by function: the paragraphs about what it makes
        self.enumerator_of = {name: enum for enum, names in self.c.enums.items() for name in names}
        typedefs = {name: self.typedef(name) for name in self.c.typedefs}
        self.interface = {
            "methods": {name: self.method(function) for name, function in self.c.functions.items()},
            "structs": {name: self.struct(name, record) for name, record in self.c.records.items()},
            "enums": {name: self.enum(name, names) for name, names in self.c.enums.items()},
            "typedefs": typedefs,
        }
        self.interface["ids"] = {
            kind: {key: value for key, value in said.items() if key != "where"} for kind, said in self.kinds.items()}
        for kind, said in self.kinds.items():
            if "range" not in said and "each" not in said and kind not in self.given_out:
                self.problems.add(said["where"], f"the kind '{kind}' has no range, and no call answers such an id")
            self.check_lists(kind, said)
        for name, texts in self.ways.items():
            ways.Ways(self, name, texts).resolve()
        self.interface["fingerprint"] = fingerprint(self.interface)

    # Comments and their parts.

    def comment(self, where, begin=None):
        """The comment behind a declaration, or the one before the line where it begins."""
        comments = self.comments[where[0]]
        found = comments.behind.get(where[1]) or comments.before.get((begin or where)[1])
        return None if found is None else re.sub(r"^@brief\s+", "", found)

    def sentence(self, text, where, what):
        """A sentence on one line, or paragraphs; complains if it is none."""
        if text is None or not text.strip():
            self.problems.add(where, f"{what} has no comment")
            return ""
        text = "\n\n".join(re.sub(r"\s+", " ", part).strip() for part in re.split(r"\n\s*\n", text.strip()))
        if re.search(r"[@\\]\w+", re.sub(r"@(see|ref|p|c)\b", "", text)):
            self.problems.add(where, f"the comment of {what} has a command that is not known here")
        if not text.endswith((".", ":")):
            self.problems.add(where, f"the comment of {what} should be a sentence that ends with a full stop")
        return text

    def constant(self, text, where):
        """The value of a number, a constant or an expression of them; None and a complaint if it is none."""
        try:
            run = [token for token in headers.tokenized(text + "\n", where[0]) if token.kind != "newline"]
            return self.c.constant(run)
        except (headers.Refused, SyntaxError, TypeError):
            self.problems.add(where, f"'{text}' is no number or constant of the headers")
            return None

    def scalar(self, type_name):
        """The headers.Scalar behind a type name, also of an array typedef's elements; None for a struct."""
        what = self.c.resolve(type_name)
        if isinstance(what, tuple):
            what = what[0]
        return what if isinstance(what, headers.Scalar) else None

    # {...}: what the values of an integer mean.

    def values(self, text, type_name, where, what):
        """Splits "{...} sentence" into what the braces say, with what the typedef says, and the sentence."""
        said = dict(self.typedef_values.get(type_name, {}))
        match = re.match(r"\{([^{}]*)\}\s*", text or "")
        if match:
            text = text[match.end():]
            said.update(self.braces(match.group(1), type_name, where, what))
        if said.get("id", "") is None:
            del said["id"]
        if type_name in self.c.enums:
            if "enum" in said:
                self.problems.add(where, f"{what} has an enum type already, so {{{said['enum']}}} says nothing")
            said["enum"] = type_name
        if "range" in said and type_name != "void" and (scalar := self.scalar(type_name)):
            bits = 8 * scalar.size
            low, high = (-(1 << bits - 1), (1 << bits - 1) - 1) if scalar.signed else (0, (1 << bits) - 1)
            if not low <= said["range"][0] <= said["range"][1] <= high:
                self.problems.add(where, f"the range of {what} is empty or not within {low}..{high} of its type")
        return said, text

    def braces(self, content, type_name, where, what):
        said = {}
        for item in re.split(r"\s*,\s*", re.sub(r"\s+", " ", content.strip())):
            if not item.startswith(("by ", "if ")) and (match := re.fullmatch(r"(.+) or (\w+)", item)):
                item, also = match.groups()
                said["or"] = [self.constant(also, where)]
            if match := re.fullmatch(r"(bits of )?(\w+)", item):
                if match.group(2) in self.c.enums:
                    said["bits_of" if match.group(1) else "enum"] = match.group(2)
                    continue
            if match := re.fullmatch(RANGE + r"(?: (.+))?", item):
                low, high = self.constant(match.group(1), where), self.constant(match.group(2), where)
                if low is not None and high is not None:
                    said["range"] = [low, high]
                if match.group(3):
                    said["unit"] = self.unit(match.group(3), where, what)
            elif match := re.fullmatch(r"id ([a-z][a-z0-9-]*)", item):
                said["id"] = match.group(1)
            elif item == "no id":
                said["id"] = None
            elif item in TEXTS:
                said[item] = True
            elif item in UNITS:
                said["unit"] = item
            elif match := re.fullmatch(r"(by|if) (.+)", item):
                said[match.group(1)] = re.split(r"\s+or\s+", match.group(2))
            else:
                self.problems.add(where, f"{{{item}}} of {what} is no enum, range, unit, 'id KIND' or one of {TEXTS}")
        return said

    def unit(self, text, where, what):
        if text not in UNITS:
            self.problems.add(where, f"the unit '{text}' of {what} is none of {sorted(UNITS)}")
        return text

    def note_id(self, said, answered, where):
        if "id" not in said:
            return
        if said["id"] not in self.kinds:
            self.problems.add(where, f"'{said['id']}' is no kind of id; '@page ids' in types.h lists them")
        if answered:
            self.given_out.add(said["id"])

    def kinds_of_ids(self, name):
        """The kinds of ids that "@page ids" of a header lists:

            - `kind`: [RANGE.] Sentence. [Listed by FUNCTION[(ARGUMENT=CONSTANT, ...)], ... [for each ENUM].]
        """
        for line, text in self.comments[name].before.items():
            if not text.startswith("@page ids"):
                continue
            kinds = {}
            for item in re.split(r"\n- ", text)[1:]:
                kind, said = re.fullmatch(r"`([a-z0-9-]+)`: (.*)", item, re.DOTALL).groups()
                where = name, line
                kinds[kind] = {"where": where}
                if match := re.match(RANGE + r"\. ", said):
                    low, high = (self.constant(each, where) for each in match.groups())
                    kinds[kind]["range"] = [low, high]
                    said = said[match.end():]
                said, *listed = re.split(r"\s+Listed by\s+(?=[\w,\s()=]+\.\s*$)", said)
                if listed:
                    kinds[kind] |= self.lists_of(listed[0], where)
                kinds[kind]["brief"] = self.sentence(said, where, f"the kind {kind}")
            return kinds
        return {}

    def lists_of(self, text, where):
        """What is said behind "Listed by"."""
        functions, each = re.fullmatch(r"(.*?)(?:\s+for\s+each\s+(\w+))?\.\s*", text, re.DOTALL).groups()
        said = {"lists": []}
        for name, inside in re.findall(r"(\w+)(?:\(([^()]*)\))?", functions):
            said["lists"].append(name)
            for argument, value in re.findall(r"(\w+)=(\w+)", inside):
                said.setdefault("with", {}).setdefault(name, {})[argument] = self.constant(value, where)
        return said | ({"each": each} if each else {})

    def check_lists(self, kind, said):
        """Each method that lists a kind only reads, and takes or answers such ids, or those enumerators."""
        structs = self.interface["structs"]
        each = said.get("each")
        if each is not None and each not in self.interface["enums"]:
            self.problems.add(said["where"], f"the kind '{kind}' is listed for each {each}, which is no enum")

        def holds(entry):
            inside = structs.get(entry["type"], {}).get("members", []) + entry.get("members", [])
            return each == entry["type"] or entry.get("id") == kind or any(holds(one) for one in inside)

        for name in said.get("lists", []):
            method = self.interface["methods"].get(name)
            if method is None:
                self.problems.add(said["where"], f"the kind '{kind}' is listed by {name}, which is no function")
            elif not (method["effect"] == "reads" or "clears_if" in method) or \
                    not any(holds(one) for one in method["arguments"]):
                self.problems.add(said["where"], f"the kind '{kind}' is listed by {name}, which does not read any")
            elif unknown := said.get("with", {}).get(name, {}).keys() - {one["name"] for one in method["arguments"]}:
                self.problems.add(said["where"], f"the kind '{kind}' is listed by {name}, which has no {min(unknown)}")

    # Declarations.

    def typedef(self, name):
        where = self.c.origins[name]
        target, bounds = self.c.typedefs[name]
        said, text = self.values(self.comment(where) or "", target.removesuffix(" *"), where, name)
        inherited = {key: value for key, value in said.items() if key != "enum" or target not in self.c.enums}
        self.typedef_values[name] = {**self.typedef_values.get(target, {}), **inherited}
        self.note_id(said, False, where)
        made = {"type": target, **inherited}
        if bounds:
            made["count"] = bounds[0].value
        if self.comment(where):
            made["brief"] = self.sentence(text, where, name)
        return made

    def enum(self, name, names):
        where = self.c.origins[name]
        values = {}
        for enumerator, value in names.items():
            place = self.c.origins[enumerator]
            values[enumerator] = {"value": value, "brief": self.sentence(self.comment(place), place, enumerator)}
        made = {"brief": self.sentence(self.comment(where), where, name), "values": values}
        # The enumerators behind a base count on from it, the first one with its own value; clients are told offsets.
        bases = [each for each, following in zip(names, list(names.values())[1:])
                 if each.endswith("_BASE") and names[each] == following]
        if bases:
            made["base"] = bases
        return made

    def struct(self, name, record):
        where = self.c.origins[name]
        brief = self.sentence(self.comment(where), where, name)
        return {"brief": brief, "kind": record.kind, "members": self.members(record, name, [record])}

    def members(self, record, owner, around):
        mask = [member for member in record.members if member.bits is not None]
        return [self.member(member, owner, around, bool(mask)) for member in record.members]

    def member(self, member, owner, around, in_mask):
        what = f"{owner}.{member.name}" if member.name else f"the unnamed {member.inline.kind} of {owner}"
        where = member.end
        made = {"name": member.name}
        if member.bits is not None:
            made |= {"type": member.type, "flag": True, "bits": member.bits}
            text = self.comment(where, member.begin)
            siblings = {each.name for one in around for each in one.members if each.bits is None}
            if text is not None:
                made["brief"] = self.sentence(text, where, what)
            elif member.name in siblings or member.name.startswith("reserved"):
                made["brief"] = f"Whether {member.name} counts." if member.name in siblings else "Reserved."
            else:
                self.problems.add(where, f"{what} is a flag without a comment that flags no member by its name")
            return made
        said, text = self.values(self.comment(where, member.begin), member.type or "int", where, what)
        if member.inline:
            made |= {"type": "", "kind": member.inline.kind}
            flags = bool(member.inline.members) and any(each.bits is not None for each in member.inline.members)
            union = member.inline.kind == "union" and not self.is_mask(member.inline)
            if flags or self.is_mask(member.inline):
                made["mask"] = True
            if union and not ({"by", "overlaid"} & said.keys()):
                self.problems.add(where, f"{what} is a union: {{by MEMBER}} or {{overlaid}} is expected")
            if text is not None or not (flags or self.is_mask(member.inline)):
                made["brief"] = self.sentence(text, where, what)
            else:
                made["brief"] = "Which members count."
            made["members"] = self.members(member.inline, what, [*around, member.inline])
        else:
            made["type"] = member.type
            # The word beside the flags of a mask needs no sentence.
            if text is None and self.is_mask(around[-1]):
                made["brief"] = "All flags as one number."
            else:
                made["brief"] = self.sentence(text, where, what)
        if member.bounds:
            made["bound"], made["count"] = member.bounds[0].text, member.bounds[0].value
        elif member.type in self.c.typedefs and self.c.typedefs[member.type][1]:
            made["count"] = self.c.typedefs[member.type][1][0].value
        self.selectors(said, around, where, what)
        self.note_id(said, True, where)
        return made | said

    @staticmethod
    def is_mask(record):
        """Whether a record is flags, or flags and the same bits as one number."""
        return all(member.bits is not None or member.inline and Reader.is_mask(member.inline)
                   or record.kind == "union" and not member.inline and len(record.members) > 1
                   and any(other.inline and Reader.is_mask(other.inline) for other in record.members)
                   for member in record.members)

    def selectors(self, said, around, where, what):
        """Checks {by MEMBER} of a union and {if ENUMERATOR or ...} of its alternatives."""
        if "by" in said:
            said["by"] = said["by"][0]
            if said["by"] not in {member.name for record in around for member in record.members}:
                self.problems.add(where, f"{{by {said['by']}}} of {what} names no member beside or around it")
        for name in said.get("if", []):
            if name not in self.enumerator_of and not re.fullmatch(r"\d+", name):
                self.problems.add(where, f"{{if {name}}} of {what}: there is no such enumerator")

    # Functions.

    BLOCK = re.compile(r"^@(brief|par|param(?:\[[^\]]*\])?|return|note|see)\b", re.MULTILINE)

    def method(self, function):
        where = function.begin
        text = self.comments[where[0]].before.get(where[1])
        made = {"family": where[0].removesuffix(".h"), "brief": "", "documentation": "", "effect": "",
                "returns": function.returns, "arguments": []}
        if text is None:
            self.problems.add(where, f"{function.name} has no comment")
            return made
        cuts = [match.start() for match in self.BLOCK.finditer(text)] + [len(text)]
        if cuts[0]:
            self.problems.add(where, f"the comment of {function.name} should begin with @brief")
        parameters, effect = {}, None
        for begin, end in zip(cuts, cuts[1:]):
            command, content = re.match(r"@(\S+)\s*(.*)", text[begin:end].strip(), re.DOTALL).groups()
            if command == "brief":
                paragraphs = self.sentence(content, where, function.name).split("\n\n")
                made["brief"], made["documentation"] = paragraphs[0], "\n\n".join(paragraphs[1:])
            elif command == "par":
                title, _, said = re.sub(r"\s+", " ", content).strip().partition(": ")
                if title in ways.TITLES:
                    self.ways.setdefault(function.name, {})[title] = said
                else:
                    effect = f"{title}: {said}"
            elif command.startswith("param"):
                name, _, rest = content.partition(" ")
                parameters[name] = command[5:].strip("[]").replace(" ", ""), rest.strip()
            elif command in ("return", "note"):
                key = {"return": "result", "note": "documentation"}[command]
                made[key] = (made.get(key, "") + "\n\n" + self.sentence(content, where, function.name)).strip()
        self.effect(made, effect, function)
        names = [argument.name for argument in function.arguments]
        if list(parameters) != names:
            self.problems.add(where, f"{function.name}: @param of {names} in this order was expected, not of "
                                     f"{list(parameters)}")
        made["arguments"] = [self.argument(argument, *parameters.get(argument.name, ("", "")), function)
                             for argument in function.arguments]
        return made

    def effect(self, made, text, function):
        match = re.fullmatch(r"Effect: ([a-z ]+?)(?: if (\w+))?", text or "")
        if not match or match.group(1) not in EFFECTS:
            self.problems.add(function.begin, f"{function.name}: '@par Effect: ' with one of {', '.join(EFFECTS)} "
                                              "(reads and clears if FLAG) was expected")
            return
        made["effect"] = match.group(1)
        if flag := match.group(2):
            made["clears_if"] = flag
            if made["effect"] != "reads and clears" or not any(
                    each.name == flag and not each.pointer for each in function.arguments):
                self.problems.add(function.begin, f"{function.name}: 'if {flag}' goes with 'reads and clears' and "
                                                  "names an argument that is no pointer")

    def argument(self, argument, direction, text, function):
        where, what = function.begin, f"{argument.name} of {function.name}"
        array = self.c.typedefs.get(argument.type, ("", []))[1]
        pointer = argument.pointer or bool(array)
        made = {"name": argument.name, "type": argument.type, "pointer": pointer,
                "direction": {"in,out": "inout"}.get(direction, direction)}
        if direction not in ("in", "out", "in,out"):
            self.problems.add(where, f"{what}: @param[in], [out] or [in,out] was expected")
        elif direction != "in" and not pointer:
            self.problems.add(where, f"{what} is passed by value, so it cannot be [{direction}]")
        made["length"] = None
        match = re.match(r"\[([^\]]*)\]\s*", text)
        if pointer:
            made |= {"length": array[0].value if array else 1}
        if match and not pointer:
            self.problems.add(where, f"{what} is passed by value, so [{match.group(1)}] says nothing")
        elif match:
            made |= self.length(match.group(1), function, where, what)
            text = text[match.end():]
        said, text = self.values(text, argument.type if argument.type != "void" else "vx_uint8", where, what)
        self.note_id(said, direction != "in", where)
        return made | said | {"brief": self.sentence(text, where, what)}

    def length(self, text, function, where, what):
        """[COUNT], [COUNT or MOST] (MOST when COUNT is 0), [COUNT; FILLED]; COUNT is a number, a constant, an argument
        or *POINTER, and so is FILLED."""
        match = re.fullmatch(r"(\*?\w+)(?: \* (\w+))?(?: or (\w+))?(?:; (\*\w+) filled)?", text)
        if not match:
            self.problems.add(where, f"[{text}] of {what}: a number, a constant, ARGUMENT, *POINTER, ARGUMENT * NUMBER, "
                                     "'COUNT or MOST' or 'COUNT; *POINTER filled' was expected")
            return {}
        count, times, most, filled = match.groups()
        arguments = {each.name: each for each in function.arguments}
        made = {}
        for name in filter(None, (count, filled)):
            argument = arguments.get(name.lstrip("*"))
            if argument and argument.pointer != name.startswith("*"):
                self.problems.add(where, f"[{text}] of {what}: {name} is {'a' if argument.pointer else 'no'} pointer")
        if count.lstrip("*") in arguments:
            made["length"] = count
        else:
            made["length"] = self.constant(count, where)
        if times:
            made["times"] = self.constant(times, where)
        if most:
            made["length_if_zero"] = self.constant(most, where)
        if filled or count.startswith("*"):
            made["filled"] = filled or count
        return made


def fingerprint(interface):
    """A number over all that is on the wire: names, types, bounds, values, order; not over words and lengths."""
    def bare(members):
        return [[each["name"], each["type"], each.get("bound", ""), each.get("bits", 0), bare(each.get("members", []))]
                for each in members]
    wire = [
        [[name, method["returns"], [[each["type"], each["pointer"], each["name"]] for each in method["arguments"]]]
         for name, method in sorted(interface["methods"].items())],
        [[name, bare(struct["members"])] for name, struct in sorted(interface["structs"].items())],
        [[name, [[each, said["value"]] for each, said in enum["values"].items()]]
         for name, enum in sorted(interface["enums"].items())],
    ]
    return hashlib.sha256(json.dumps(wire).encode()).hexdigest()[:16]


def released(interface):
    """The interface without its sentences, an entry a line: what later ones are compared with."""
    def bare(value):
        if isinstance(value, dict):
            return {key: bare(each) for key, each in value.items()
                    if key not in ("brief", "documentation", "result") or not isinstance(each, str)}
        return [bare(each) for each in value] if isinstance(value, list) else value

    def text(value):
        return json.dumps(bare(value), separators=(",", ":"))
    sections = []
    for name, section in interface.items():
        entries = section if isinstance(section, dict) else None
        lines = [f"{json.dumps(key)}:{text(entry)}" for key, entry in (entries or {}).items()]
        sections.append(f"{json.dumps(name)}:" + ("{\n" + ",\n".join(lines) + "\n}" if entries else text(section)))
    return "{" + ",\n".join(sections) + "}\n"


def main():
    parser = argparse.ArgumentParser(description="Reads the contract out of the headers' comments.")
    parser.add_argument("include", help="the folder that holds lmq/*.h")
    parser.add_argument("--check", nargs="*", metavar="HEADER", help="only report problems, of these headers")
    parser.add_argument("--json", metavar="FILE", help="write interface.json")
    parser.add_argument("--released", metavar="FILE", help="write interface.json without its sentences")
    parser.add_argument("--fingerprint", metavar="FILE", help="write the fingerprint of the interface")
    parser.add_argument("--table", metavar="FILE", help="write the host's table, C++")
    parser.add_argument("--terms", metavar="FILE", help="write the remote driver's table of arguments, C++")
    parser.add_argument("--unions", metavar="FILE", help="write the remote driver's table of unions, C++")
    options = parser.parse_args()
    try:
        reader = Reader(options.include)
    except headers.Refused as refused:
        sys.exit(f"contract: {refused}")
    wanted = [pathlib.Path(name).name for name in options.check or []]
    problems = [each for each in reader.problems if not wanted or each.split(":")[0] in wanted]
    for problem in sorted(problems, key=lambda each: (each.split(":")[0], int(each.split(":")[1]))):
        print(problem, file=sys.stderr)
    if problems:
        sys.exit(f"contract: {len(problems)} problems in the headers' comments")
    if options.json:
        made = json.dumps(reader.interface, separators=(",", ":"), ensure_ascii=False).encode() + b"\n"
        pathlib.Path(options.json).write_bytes(made)
        # Without a time in it, so that two builds are the same.
        pathlib.Path(options.json + ".gz").write_bytes(gzip.compress(made, mtime=0))
    if options.released:
        pathlib.Path(options.released).write_text(released(reader.interface))
    if options.fingerprint:
        pathlib.Path(options.fingerprint).write_text(reader.interface["fingerprint"] + "\n")
    if options.table:
        pathlib.Path(options.table).write_text(table.text(reader.interface))
    if options.terms:
        pathlib.Path(options.terms).write_text(remote_table.terms(reader.interface))
    if options.unions:
        pathlib.Path(options.unions).write_text(remote_table.unions(reader.interface))


if __name__ == "__main__":
    main()
