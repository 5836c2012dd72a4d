"""The contract as a table for the host: constants of C++ that host/contract.cc expands.

Names stand in it as hashes, of which no two methods and no two members of a struct share one; offsets are left to the
compiler, so that the table fits whatever headers the host is built against.
"""

EFFECTS = {"reads": "reads", "reads registers": "reads_registers", "reads and clears": "clears", "changes": "changes",
           "resets": "resets"}
NONE = 0xFF


def name_hash(name):
    """FNV-1a, 32 bits, as hash() in host/contract.h."""
    value = 0x811C9DC5
    for byte in name.encode():
        value = (value ^ byte) * 0x01000193 & 0xFFFFFFFF
    return value


class Table:
    def __init__(self, interface):
        self.interface = interface
        self.methods, self.lengths, self.struct_arguments, self.structs, self.members = [], [], [], [], []
        self.texts = "\\0"  # the first text is the empty one
        self.numbers = {}  # of structs by name, None for those without anything to check
        for name, method in sorted(interface["methods"].items(), key=lambda item: name_hash(item[0])):
            self.method(name, method)
        hashes = [name_hash(name) for name in interface["methods"]]
        assert len(set(hashes)) == len(hashes), "two methods share a hash: choose another"

    def method(self, name, method):
        arguments = method["arguments"]
        names = [argument["name"] for argument in arguments]
        lengths, structs = len(self.lengths), len(self.struct_arguments)
        for at, argument in enumerate(arguments):
            if argument["pointer"] and argument["length"] != 1:
                self.length(at, argument, arguments, names)
            number = self.struct(argument["type"])
            if number is not None:
                self.struct_arguments.append(f"{{{at}, {number}}}")
        flag = names.index(method["clears_if"]) if "clears_if" in method else NONE
        self.methods.append(f"{{0x{name_hash(name):08x}, Effect::{EFFECTS[method['effect']]}, {flag}, {lengths}, "
                            f"{len(self.lengths) - lengths}, {structs}, {len(self.struct_arguments) - structs}}}")

    def text(self, text):
        at = self.texts.replace("\\0", "\0").find(f"\0{text}\0") + 1
        if at == 0:
            at = len(self.texts.replace("\\0", "\0"))
            self.texts += text + "\\0"
        return at

    def length(self, at, argument, arguments, names):
        length, source, kind, width = argument["length"], NONE, "number", "0"
        number = argument.get("times", 1)
        if isinstance(length, str):
            source = names.index(length.lstrip("*"))
            kind = "pointee" if length.startswith("*") else "value"
            width = f"width_of<{arguments[source]['type']}>"
        else:
            number *= length
        says = self.text(names[source]) if source != NONE else 0
        self.lengths.append(f"{{{at}, Source::{kind}, {source}, {width}, {number}, "
                            f"{argument.get('length_if_zero', 0)}, {self.text(argument['name'])}, {says}}}")

    # A member is checked if it is an array, or holds one.

    def struct(self, name):
        if name not in self.interface["structs"]:
            return None
        if name not in self.numbers:
            self.numbers[name] = self.record(self.interface["structs"][name]["members"], name, "")
        return self.numbers[name]

    def record(self, members, owner, path):
        """The number of a struct, or of one within a struct, which stands at `path` in its owner; None if it holds
        nothing to check."""
        rows = [row for member in members for row in self.member(member, owner, path)]
        if not rows:
            return None
        hashes = [row[0] for row in rows]
        assert len(set(hashes)) == len(hashes), f"two members of {owner} share a hash"
        begin = len(self.members)
        self.members += [f"{{0x{key:08x}, {', '.join(rest)}}}" for key, *rest in rows]
        size = f"sizeof({owner})" if not path else "0"
        self.structs.append(f"{{{size}, {begin}, {len(rows)}}}")
        return len(self.structs) - 1

    def member(self, member, owner, path):
        if member.get("flag") or member.get("mask"):
            return []
        name = member["name"]
        place = f"{path}.{name}".lstrip(".") if name else path
        if "members" in member:
            if not name:
                return [row for each in member["members"] for row in self.member(each, owner, place)]
            number = self.record(member["members"], owner, place)
            # The members of a struct in place are counted from the beginning of the struct around it.
            return [] if number is None else [(name_hash(name), "0", "0", str(number))]
        number = self.struct(member["type"])
        array = "count" in member
        if number is None and not array:
            return []
        # An array type is an array of its elements.
        element = f"sizeof({member['type']})" if "bound" in member else f"sizeof({member['type']}) / {member.get('count')}"
        size = element if array else "0"
        return [(name_hash(name), f"offsetof({owner}, {place})", size, str(NONE if number is None else number))]


def text(interface):
    table = Table(interface)
    arrays = [("MethodRow", "method_rows", table.methods), ("LengthRow", "length_rows", table.lengths),
              ("StructArgument", "struct_arguments", table.struct_arguments), ("StructRow", "struct_rows", table.structs),
              ("MemberRow", "member_rows", table.members)]
    made = "// The contract of the driver interface, made from the headers' comments by interface/contract.py.\n"
    for kind, name, rows in arrays:
        made += f"constexpr {kind} {name}[] = {{\n" + "".join(f"    {row},\n" for row in rows) + "};\n"
    return made + f'constexpr char texts[] = "{table.texts}";\nconstexpr char contract_fingerprint[] = "{interface["fingerprint"]}";\n'
