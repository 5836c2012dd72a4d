"""Calls made of the contract: values for arguments and members that are in range, with ids that the chip gave out.

A value is what a client would send: an int, a list, a dict. Memory() puts such values where C expects them and reads
them back, by the places that the compiler chose (tests/probe/generate.py).
"""

import copy
import json
import pathlib


class Contract:
    """interface.json with the sizes of its types."""

    SIZES = {"char": 1, "signed char": 1, "unsigned char": 1, "short": 2, "unsigned short": 2, "int": 4,
             "unsigned int": 4, "long long": 8, "unsigned long long": 8, "void": 1}

    def __init__(self, interface, layout):
        said = interface if isinstance(interface, dict) else json.loads(pathlib.Path(interface).read_text())
        self.methods, self.structs, self.enums = said["methods"], said["structs"], said["enums"]
        self.typedefs, self.ids = said["typedefs"], said["ids"]
        self.layout = json.loads(pathlib.Path(layout).read_text())

    def base(self, name):
        """The C type behind a name: one of SIZES, or a struct's name."""
        while name in self.typedefs:
            name = self.typedefs[name]["type"]
        return "int" if name in self.enums else name

    def size(self, name):
        """Bytes of one element of a type; of an array type, of one of its elements."""
        return self.layout[name][""] if name in self.structs else self.SIZES[self.base(name)]

    def signed(self, name):
        return self.base(name) in ("char", "signed char", "short", "int", "long long")


class Generator:
    """Makes calls. The same random numbers make the same calls."""

    def __init__(self, contract, random):
        self.contract, self.random = contract, random
        self.known = {}  # ids by kind, as the chip answered them
        self.accepted = {}  # arguments that calls succeeded with, by family: what was added can be read and deleted

    def scalar(self, said):
        """A value for an argument or member that is no struct."""
        random, type_name = self.random, said["type"]
        if "enum" in said:
            values = {name: each["value"] for name, each in self.contract.enums[said["enum"]]["values"].items()}
            good = [value for name, value in values.items()
                    if not name.endswith(("_MAX", "_END", "_INVALID", "_NUM", "_COUNT"))]
            return random.choice(good or list(values.values()))
        if "bits_of" in said:
            bits = [each["value"] for each in self.contract.enums[said["bits_of"]]["values"].values()]
            return self.cut(type_name, random.choice(bits) | random.choice([0, *bits]))
        bounds = said.get("range")
        if "id" in said:
            known = self.known.get(said["id"])
            if known and random.random() < 0.85:
                return random.choice(sorted(known))
            bounds = bounds or self.contract.ids[said["id"]].get("range")
        if type_name == "vx_boolean":
            return random.randint(0, 1)
        if bounds:
            low, high = bounds
            return random.choice([low, high, random.randint(low, high), min(high, low + 1), min(high, low + 3)])
        return self.cut(type_name, random.choice([0, 1, 1, 2, 3, 10, 100, random.getrandbits(16), random.getrandbits(31)]))

    def cut(self, type_name, value):
        bits = 8 * self.contract.size(type_name)
        value &= (1 << bits) - 1
        return value - (1 << bits) if self.contract.signed(type_name) and value >> bits - 1 else value

    def struct(self, members):
        made = {}
        for member in members:
            if "members" not in member:
                made[member["name"]] = self.member(member)
                continue
            if member.get("mask"):
                inner = self.mask(member)
            elif member["kind"] == "union":
                inner = self.alternatives(member, made)
            else:
                inner = self.struct(member["members"])
            # What has no name counts as the members of the struct around it.
            made.update({member["name"]: inner} if member["name"] else inner)
        return made

    def member(self, member):
        if member["type"] == "vx_char":  # a text that ends within its member
            text = [self.random.randint(ord("a"), ord("z")) for _ in range(self.random.randrange(member["count"]))]
            return text + [0] * (member["count"] - len(text))

        def one():
            known = self.contract.structs.get(member["type"])
            return self.struct(known["members"]) if known else self.scalar(member)
        return [one() for _ in range(member["count"])] if "count" in member else one()

    def alternatives(self, union, before):
        """One alternative, the one that the member before the union selects."""
        choice = None
        for alternative in union["members"]:
            selected = {self.enumerator(name) for name in alternative.get("if", [])}
            if before.get(union.get("by")) in selected:
                choice = alternative
        choice = choice or self.random.choice(union["members"])
        return self.struct([choice])

    def enumerator(self, name):
        if name.isdigit():
            return int(name)
        return next(enum["values"][name]["value"] for enum in self.contract.enums.values() if name in enum["values"])

    def mask(self, member):
        most = self.random.random() < 0.7
        return {each["name"]: self.mask(each) if "members" in each else int(most or self.random.random() < 0.5)
                for each in member["members"] if each.get("flag") or "members" in each}

    def arguments(self, method):
        """Values for all arguments of a method. Counts fit what they count."""
        arguments = method["arguments"]
        values = {}
        kept = self.accepted.get(method["family"])
        before = self.random.choice(kept) if kept and self.random.random() < 0.7 else {}
        again = lambda argument: copy.deepcopy(next(  # noqa: E731
            (before[key] for key in self.keys(argument) if key in before and self.random.random() < 0.9), None))
        counts = {argument["length"].lstrip("*") for argument in arguments if isinstance(argument["length"], str)}
        for argument in arguments:
            if not argument["pointer"]:
                values[argument["name"]] = again(argument)
                if values[argument["name"]] is None:
                    values[argument["name"]] = self.scalar(argument)
            if argument["name"] in counts:
                low, high = argument.get("range", [1, 4])
                low = max(low, 1)
                values[argument["name"]] = self.random.randint(low, max(low, min(low + 3, high)))
        for argument in arguments:
            if argument["pointer"]:
                # What a void pointer points to is nobody's business here: it is NULL.
                length = 0 if argument["type"] == "void" else self.length(argument, values)
                known = self.contract.structs.get(argument["type"])
                one = (lambda: self.struct(known["members"])) if known else (lambda: self.scalar(argument))
                if argument["name"] in counts:
                    values[argument["name"]] = [values[argument["name"]]]
                else:
                    values[argument["name"]] = [again(argument) or one() for _ in range(length)]
        return [values[argument["name"]] for argument in arguments]

    def accept(self, method, sent):
        """Keeps what a call succeeded with."""
        kept = {}
        for argument, value in zip(method["arguments"], sent):
            one = value[0] if isinstance(value, list) and value else value
            if argument["direction"] == "in" and one != []:
                kept.update(dict.fromkeys(self.keys(argument), one))
        self.accepted[method["family"]] = [*self.accepted.get(method["family"], [])[-20:], kept]

    def keys(self, argument):
        """By what an argument of another call stands for the same thing."""
        if argument["type"] in self.contract.structs:
            return [argument["type"]]
        return [f"id {argument['id']}", argument["name"]] if "id" in argument else [argument["name"]]

    @staticmethod
    def length(argument, values):
        """How many elements an argument stands for, the others having these values."""
        length = argument["length"]
        if isinstance(length, int):
            return length * argument.get("times", 1)
        count = values[length.lstrip("*")]
        count = count[0] if isinstance(count, list) else count
        return (count * argument.get("times", 1)) or argument.get("length_if_zero", 0)

    def learn(self, said, value):
        """Keeps the ids in an answer."""
        if isinstance(value, list):
            for each in value:
                self.learn(said, each)
        elif isinstance(value, dict):
            members = self.contract.structs[said["type"]]["members"] if "members" not in said else said["members"]
            for member in members:
                if member.get("name") in value:
                    self.learn(member, value[member["name"]])
        elif "id" in said:
            self.known.setdefault(said["id"], set()).add(value)
            if len(self.known[said["id"]]) > 40:
                self.known[said["id"]].pop()


class Memory:
    """Values in C's memory."""

    def __init__(self, contract):
        self.contract = contract

    def put(self, type_name, value, buffer, at):
        """Writes a value of a type; a list element by element."""
        size = self.contract.size(type_name)
        if isinstance(value, list):
            for index, each in enumerate(value):
                self.put(type_name, each, buffer, at + index * size)
        elif isinstance(value, dict):
            layout = self.contract.layout[type_name]
            self.put_members(self.contract.structs[type_name]["members"], value, layout, "", buffer, at)
        else:
            buffer[at:at + size] = (value & (1 << 8 * size) - 1).to_bytes(size, "little")

    def put_members(self, members, values, layout, path, buffer, at):
        for member in members:
            name = member["name"]
            place = f"{path}.{name}".strip(".")
            if not name:
                self.put_members(member["members"], values, layout, path, buffer, at)
            elif name not in values:
                continue
            elif member.get("flag"):
                first, bits = layout[place]
                ones = int.from_bytes(bytes.fromhex(bits), "little")
                begin = at + first
                end = begin + len(bits) // 2
                word = int.from_bytes(buffer[begin:end], "little")
                word = word | ones if values[name] else word & ~ones
                buffer[begin:end] = word.to_bytes(end - begin, "little")
            elif "members" in member:
                self.put_members(member["members"], values[name], layout, place, buffer, at)
            else:
                self.put(member["type"], values[name], buffer, at + layout[place])

    def get(self, type_name, buffer, at):
        """Reads one value of a type; of a struct what is no flag and no alternative of a union."""
        if type_name in self.contract.structs:
            made = {}
            for place, said, offset in self.leaves(type_name):
                step = self.contract.size(said["type"])
                each = [self.get(said["type"], buffer, at + offset + index * step) for index in range(said.get("count", 1))]
                made[place.rpartition(".")[2]] = each if "count" in said else each[0]
            return made
        size = self.contract.size(type_name)
        return int.from_bytes(buffer[at:at + size], "little", signed=self.contract.signed(type_name))

    def leaves(self, type_name):
        """What lies in a struct and is always there: path, what the contract says, offset. No flags, no unions."""
        def walk(members, path):
            for member in members:
                place = f"{path}.{member['name']}".strip(".")
                if member.get("flag") or member.get("mask") or member.get("kind") == "union":
                    continue
                if "members" in member:
                    yield from walk(member["members"], place)
                else:
                    yield place, member, layout[place]
        layout = self.contract.layout[type_name]
        yield from walk(self.contract.structs[type_name]["members"], "")
