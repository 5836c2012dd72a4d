"""The pages of the reference, made of interface.json and of what the headers say of themselves: a page for each method,
structure, enum and header, and lists of all of them."""

import collections
import re

import example
from words import Words, anchor, table

TITLES = {
    "acl": "Access control", "address": "IP addresses", "cfm": "Fault management (CFM)", "classifier": "Classifier",
    "classifier_key": "Classifier keys", "cosq": "Class of service", "cpu_packet": "CPU packets", "device": "Device",
    "eth_port": "Ethernet ports", "event": "Events", "flow": "Flows", "gpon": "GPON",
    "gpon_tm": "GPON traffic management", "l2": "Layer 2", "management": "Management", "mcast": "Multicast",
    "peripheral": "Peripherals", "policer": "Policers", "status": "Statuses", "time": "Time", "types": "Basic types",
    "vlan_bridge": "VLANs and bridges",
}
# A constant of a header: its name, its value, which may be in brackets and have a type, and the comment behind it.
CONSTANT = re.compile(r"^#define ([A-Z]\w+) +((?:\([^()]*\)|[^\s(/\\]+|\(\([^()]*\)[^()]*\)))"
                      r"(?: */\*\*< *(.*?) *\*/)?$", re.MULTILINE)
EFFECTS = {
    "reads": "Nothing changes by it, neither configuration nor counters.",
    "reads registers": "The driver's state does not change, but registers or a bus are read, which may have effects.",
    "reads and clears": "What is read is taken away: counters, messages.",
    "changes": "Configuration or state changes, or something is sent, cleared or deleted.",
    "resets": "The chip, a module or the driver is reset, started or shut down.",
}
DIRECTIONS = {"in": "in", "out": "out", "inout": "in, out"}


class Reference:
    """All pages by path, in `pages`."""

    def __init__(self, interface, include):
        self.interface = interface
        self.headers = {path.stem: path.read_text() for path in sorted((include / "lmq").glob("*.h"))}
        self.constants = {header: CONSTANT.findall(text) for header, text in self.headers.items()}
        self.words = Words(interface, [name for found in self.constants.values() for name, _, _ in found])
        self.examples = example.Examples(self.words)
        self.home = self.homes()
        self.used = self.uses()
        self.pages = {}
        for kind, page in (("methods", self.method), ("structs", self.struct), ("enums", self.enum)):
            for name in interface[kind]:
                self.pages[f"reference/{kind}/{name}.md"] = page(name)
        for family in self.families():
            self.pages[f"reference/families/{family}.md"] = self.family(family)
        self.pages |= {"reference/README.md": self.overview(), "reference/types/README.md": self.types(),
                       "reference/ids/README.md": self.ids(), "reference/constants/README.md": self.constant_values()}
        for kind, title in (("methods", "Methods"), ("structs", "Structures"), ("enums", "Enums")):
            self.pages[f"reference/{kind}/README.md"] = self.list_of(kind, title)

    # What belongs where.

    def homes(self):
        """The header that declares each structure and enum; of a method the contract says it."""
        home = {name: said["family"] for name, said in self.interface["methods"].items()}
        for header, text in self.headers.items():
            for found in re.finditer(r"\}\s*(\w+);|\b(?:enum|struct|union)\s+(\w+)\s*\{|typedef\s+\w+\s+(\w+);", text):
                for name in filter(None, found.groups()):
                    home.setdefault(name, header)
        return home

    def families(self):
        """The headers that declare something, those with methods first."""
        with_methods = {said["family"] for said in self.interface["methods"].values()}
        found = {self.home[name] for kind in ("structs", "enums") for name in self.interface[kind]} | with_methods
        return sorted(found, key=lambda each: (each not in with_methods, TITLES.get(each, each)))

    def of_family(self, kind, family):
        return [name for name in self.interface[kind] if self.home[name] == family]

    def uses(self):
        """Who names a type: {type: [(name of a method or structure, argument or path of the member)]}."""
        used = collections.defaultdict(list)
        for name, said in self.interface["methods"].items():
            used[said["returns"]].append((name, "its result"))
            for argument in said["arguments"]:
                self.note(used, argument, name, argument["name"])
        for name, said in self.interface["structs"].items():
            for path, member, _ in members(said["members"]):
                self.note(used, member, name, path)
        return used

    @staticmethod
    def note(used, item, name, path):
        for named in {item["type"], item.get("enum"), item.get("bits_of")} - {None, ""}:
            used[named].append((name, path))

    # Parts of pages.

    def trail(self, name):
        family = self.home[name]
        return f"[{TITLES.get(family, family)}](../families/{family}.md) · [lmq/{family}.h](../../include/lmq/{family}.h.md)"

    def rows(self, names, kind):
        said = self.interface[kind]
        if kind == "methods":
            return [[self.words.name(name), said[name]["effect"], self.words.text(said[name]["brief"])] for name in names]
        return [[self.words.name(name), self.words.text(said[name]["brief"].split("\n\n")[0])] for name in names]

    def listing(self, names, kind):
        heads = ["Method", "Effect", "What it does"] if kind == "methods" else ["Name", "What it is"]
        return table(heads, self.rows(names, kind))

    def used_by(self, name):
        """Where a type is named. The status is what nearly every method returns: no list of that helps."""
        users = [(user, path) for user, path in self.used[name] if name != "vx_status_e" or path != "its result"]
        users += [(user, path) for typedef, said in self.interface["typedefs"].items() if said.get("bits_of") == name
                  or said["type"] == name for user, path in self.used[typedef]]
        together = collections.defaultdict(list)
        for user, path in users:
            together[user].append(path if path == "its result" else f"`{path}`")
        rows = [[self.words.name(user), ", ".join(dict.fromkeys(paths))] for user, paths in together.items()]
        if name == "vx_status_e":
            return "## Used by\n\nNearly every method returns one.\n\n" + table(["Besides, in", "as"], rows)
        if not rows:
            return "## Used by\n\nNo method and no structure names it: its values stand in plain integers.\n"
        return "## Used by\n\n" + table(["Method or structure", "as"], rows)

    # Pages.

    def method(self, name):
        said = self.interface["methods"][name]
        effect = f"[{said['effect']}](../README.md#effects)" + (
            f" if `{said['clears_if']}` is not 0, else it only reads" if "clears_if" in said else "")
        text = f"# {name}\n\n{self.trail(name)}\n{{ .trail }}\n\n{self.words.text(said['brief'], name)}\n\n"
        if said["documentation"]:
            text += self.words.text(said["documentation"], name) + "\n\n"
        text += f"```c\n{self.prototype(name)}\n```\n\n**Effect:** {effect}. {EFFECTS[said['effect']]}\n\n"
        if said["arguments"]:
            text += "## Arguments\n\n" + table(
                ["Argument", "Type", "Direction", "On the wire", "Meaning"],
                [[f"`{each['name']}`", self.words.type(each), DIRECTIONS[each["direction"]], self.words.wire(each),
                  self.words.meaning(each, name)] for each in said["arguments"]])
        else:
            text += "It takes no arguments.\n\n"
        text += f"**Returns** {self.words.name(said['returns'])}: " if said["returns"] != "void" else \
            "**Returns** nothing; over XML-RPC it answers 1. "
        text += self.words.text(said.get("result", "")) + "\n\n" + self.calls(name) + self.related(name)
        return text

    def prototype(self, name):
        said = self.interface["methods"][name]
        declared = []
        for each in said["arguments"]:
            star = "*" if each["pointer"] and not self.words.is_array(each["type"]) else ""
            declared.append(f"{each['type']} {star}{each['name']}")
        line = f"{said['returns']} {name}({', '.join(declared) or 'void'});"
        if len(line) <= 100:
            return line
        return f"{said['returns']} {name}(\n    " + ",\n    ".join(declared) + ");"

    def calls(self, name):
        return (f"## Call it\n\n=== \"lmqctl\"\n\n    ```sh\n    {self.examples.lmqctl(name)}\n    ```\n\n"
                f"=== \"Python\"\n\n    ```python\n    {self.examples.python(name)}\n    ```\n\n"
                f"`lmqctl template {name}` prints all of its arguments to edit. `--as c`, `--as python` and `--as xmlrpc` "
                "behind `lmqctl call` print a call as code. The values here are only of the right form; "
                "[how a call looks](../../docs/wire.md) explains the form on the wire.\n\n")

    def related(self, name):
        """The methods that share a type of their own, or a name but for its last word, with this one."""
        said = self.interface["methods"][name]
        stem = re.sub(r"_(set|get|add|delete|del|modify|clear|enable|disable|remove|create|destroy|map|unmap)$", "", name)
        others = {other for other in self.interface["methods"] if other != name and
                  (other == stem or other.startswith(stem + "_"))}
        for each in said["arguments"]:
            users = {user for user, _ in self.used[each["type"]] if user in self.interface["methods"]}
            if each["type"] in self.interface["structs"] and len(users) <= 12:
                others |= users - {name}
        if not others:
            others = set(self.of_family("methods", said["family"])[:8]) - {name}
        return "## Related\n\n" + self.listing([each for each in self.interface["methods"] if each in others], "methods")

    def struct(self, name):
        said = self.interface["structs"][name]
        rows = [[f'<span style="padding-left: {path.count(".")}em">`{member["name"]}`</span>',
                 self.words.type(member, name), self.words.wire(member), self.words.meaning(member, name, selector)]
                for path, member, selector in members(said["members"]) if "flag" not in member]
        text = f"# {name}\n\n{self.trail(name)}\n{{ .trail }}\n\n{self.words.text(said['brief'], name)}\n\n"
        if said["kind"] == "union":
            text += "It is a union: its members are alternatives.\n\n"
        text += "## Members\n\n" + table(["Member", "Type", "On the wire", "Meaning"], rows) if rows else ""
        return text + self.flags(said) + self.used_by(name)

    def flags(self, said):
        flags = [(path, member) for path, member, _ in members(said["members"]) if "flag" in member]
        if not flags:
            return ""
        text = "## Flags\n\nEach is 0 or 1. lmqctl and the Python package set those of the members that you give.\n\n"
        plain = collections.defaultdict(list)
        for path, member in flags:
            if member["brief"] == f"Whether {member['name']} counts.":
                plain[path.rpartition(".")[0]].append(f"`{member['name']}`")
        for mask, names in plain.items():
            text += f"`{mask}` has one for each member that may be left out: {', '.join(names)}.\n\n"
        return text + table(["Flag", "Bits", "Meaning"], [
            [f"`{path}`", str(member["bits"]), self.words.text(member["brief"])] for path, member in flags
            if member["brief"] != f"Whether {member['name']} counts."])

    def enum(self, name):
        said = self.interface["enums"][name]
        rows = [[f"{anchor(each)}`{each}`", str(value["value"]), f"0x{value['value'] & 0xffffffff:X}",
                 self.words.text(value["brief"], each)] for each, value in said["values"].items()]
        text = f"# {name}\n\n{self.trail(name)}\n{{ .trail }}\n\n{self.words.text(said['brief'], name)}\n\n"
        if said.get("base"):
            text += "Behind a `_BASE` the values count on from it. `lmq.listEnums` answers them as offsets.\n\n"
        return text + "## Values\n\n" + table(["Name", "Value", "Hex", "Meaning"], rows) + self.used_by(name)

    def family(self, family):
        comment = re.search(r"@brief\s+(.*?)\*/", self.headers.get(family, "@brief Declarations. */"), re.DOTALL)[1]
        comment = "\n\n".join(" ".join(part.split()) for part in re.split(r"\n \*\n", re.sub(r"\n \* +", "\n ", comment)))
        text = f"# {TITLES.get(family, family)}\n\n[lmq/{family}.h](../../include/lmq/{family}.h.md)\n{{ .trail }}\n\n" + \
            self.words.text(comment) + "\n\n"
        for kind, title in (("methods", "Methods"), ("structs", "Structures"), ("enums", "Enums")):
            names = self.of_family(kind, family)
            text += f"## {title}\n\n" + self.listing(names, kind) if names else ""
        if self.constants.get(family):
            text += "## Constants\n\n" + table(["Name", "Value", "Meaning"], self.constant_rows(family, self.words.name))
        return text

    def constant_rows(self, header, shown):
        """The constants of a header; `shown` makes of a name what stands in the first column."""
        return [[shown(name), f"`{bare(value)}`", self.words.text(comment, name)]
                for name, value, comment in self.constants[header]]

    def overview(self):
        counted = {kind: len(self.interface[kind]) for kind in ("methods", "structs", "enums", "ids")}
        rows = [[f"[{TITLES.get(family, family)}](families/{family}.md)", *(
            str(len(self.of_family(kind, family)) or "") for kind in ("methods", "structs", "enums"))]
            for family in self.families()]
        effects = [[effect, words] for effect, words in EFFECTS.items()]
        return (
            "# Reference\n\nEvery driver function is a method, called `lmq.` and its name. "
            f"There are [{counted['methods']} methods](methods/README.md), "
            f"[{counted['structs']} structures](structs/README.md), [{counted['enums']} enums](enums/README.md), "
            f"[basic types](types/README.md), [constants](constants/README.md) and [{counted['ids']} kinds of ids](ids/README.md). "
            "What a status means stands at [vx_status_e](enums/vx_status_e.md).\n\n"
            "The search finds names, words and numbers: try `watchdog`, `VX_ERR_DEV_BUSY` or `28674`. The same is served by "
            "every host, as `lmqctl describe NAME` and in its [console](../docs/console.md).\n\n"
            f"The fingerprint of this interface is `{self.interface['fingerprint']}`.\n\n"
            "## Families\n\n" + table(["Family", "Methods", "Structures", "Enums"], rows) +
            "## Effects\n\nEach method says what it does to the chip.\n\n" + table(["Effect", "Meaning"], effects))

    def list_of(self, kind, title):
        names = sorted(self.interface[kind])
        return f"# {title}\n\nAll {len(names)}, by name. [By family](../README.md)\n\n" + self.listing(names, kind)

    def constant_values(self):
        text = "# Constants\n\nNumbers that have a name in the headers: bounds, limits, and values that stand for none.\n\n"
        for header, found in self.constants.items():
            if found:
                text += f"## lmq/{header}.h\n\n" + table(["Name", "Value", "Meaning"], self.constant_rows(
                    header, lambda name: f"{anchor(name)}`{name}`"))
        return text

    def types(self):
        rows = []
        for name, said in self.interface["typedefs"].items():
            of = f"`{said['type']}`" + (f" \\[{said['count']}\\]" if "count" in said else "")
            item = {"brief": "", **said}
            rows.append([f"{anchor(name)}`{name}`", of, self.words.meaning(item, name)])
        return "# Basic types\n\nNames for integers. What is said here holds for all arguments and members of the type.\n\n" + \
            table(["Type", "Is", "Meaning"], rows)

    def ids(self):
        text = ("# Ids\n\nMany integers name something: a port, a flow, a bridge. For each kind of id: the methods that answer "
                "one, those that take one, and the structures that hold one.\n\n")
        for kind, said in self.interface["ids"].items():
            text += f"## {kind}\n\n{self.words.text(said['brief'])}"
            if "range" in said:
                low, high = said["range"]
                text += f" Range: {low}." if low == high else f" Range: {low} to {high}."
            for title, names in (("Answered by", self.methods_with(kind, ("out", "inout"))),
                                 ("Taken by", self.methods_with(kind, ("in", "inout"))),
                                 ("Held by", self.structs_with(kind))):
                if len(names) > 100:
                    text += f"\n\n**{title}** {len(names)} methods."
                elif names:
                    text += f"\n\n**{title}** " + ", ".join(self.words.name(name) for name in names) + "."
            text += "\n\n"
        return text

    def methods_with(self, kind, directions):
        """The methods with an argument of a kind of id, or of the enum that stands for it, in one of these directions."""
        enum = self.interface["ids"][kind].get("each")
        return [name for name, said in self.interface["methods"].items()
                if any((each.get("id") == kind or each["type"] == enum) and each["direction"] in directions
                       for each in said["arguments"])]

    def structs_with(self, kind):
        return [name for name, said in self.interface["structs"].items()
                if any(member.get("id") == kind for _, member, _ in members(said["members"]))]


def members(listed, path="", selector=None):
    """All members at any depth: (path, member, the member that selects among its alternatives)."""
    for each in listed:
        yield f"{path}{each['name']}", each, selector
        if each.get("members"):
            yield from members(each["members"], f"{path}{each['name']}." if each["name"] else path, each.get("by"))


def bare(value):
    """A constant's value without its type and brackets."""
    return re.sub(r"\(vx_[a-z0-9_]+\)|[()]", "", value)
