"""What each UDT and argument has to be on the wire and in memory, worked out from the headers' text and the compiler's
layout: bytes for a value, a value for bytes, and the fault text for a value of a wrong form.
"""

import dataclasses
import sys

import headers
from departures import LISTS, OVERLAID, SPELLED
from harness import FORMS, I8


@dataclasses.dataclass
class Key:
    """One key of a UDT's wire form."""

    kind: str  # int, wide, string, elements, nested, udts, list (no single struct), group, flag
    name: str
    type: str  # as fault texts spell it
    offset: int  # in the UDT
    place: tuple  # member and struct, as fault texts name them
    scalar: headers.Scalar | None = None
    count: int = 1  # elements of an array
    inner: list | str = ""  # keys of a group; name of an inner UDT
    mask: int = 0  # of a flag: its bits in the number that begins at the offset
    departs: bool = False  # by an entry of departures.py


class Oracle:
    def __init__(self, interface, layout):
        self.interface = interface
        self.layout = layout
        self.known = {}

    def size(self, udt):
        return self.layout[udt][""]

    def keys(self, udt):
        if udt not in self.known:
            self.known[udt] = list(self.keys_of(udt, self.interface.records[udt], "", None, udt))
        return self.known[udt]

    def keys_of(self, udt, record, group, member, struct):
        """The keys of a record. `member` is what fault texts call all of them; None: each by its own name."""
        for declared in record.members:
            if not declared.name:
                yield from self.keys_of(udt, declared.inline, group, member, struct)
                continue
            path = f"{group}.{declared.name}" if group else declared.name
            place = (member or declared.name, struct)
            where = self.layout[udt][path]
            if declared.inline:
                inside = (None, "inline struct") if (udt, path) in OVERLAID else place
                yield Key("group", declared.name, "", where, place,
                          inner=list(self.keys_of(udt, declared.inline, path, *inside)))
            elif declared.bits is not None:
                offset, ones = where
                yield Key("flag", declared.name, "vx_uint32", offset, place,
                          mask=int.from_bytes(bytes.fromhex(ones), sys.byteorder))
            else:
                yield self.key_of(udt, declared, path, where, place)

    def key_of(self, udt, declared, path, offset, place):
        what = self.interface.resolve(declared.type)
        count, is_array = (declared.bounds[0].value, True) if declared.bounds else (1, False)
        if isinstance(what, tuple):
            what, inner = what
            count, is_array = count * inner, True
        spelled = SPELLED.get((udt, path), declared.type)
        key = Key("", declared.name, spelled, offset, place, count=count)
        key.departs = (udt, path) in LISTS or (udt, path) in SPELLED or place[1] != udt
        if isinstance(what, headers.Record):
            key.kind = "nested" if not is_array else "list" if (udt, path) in LISTS else "udts"
            key.inner = declared.type
        else:
            key.scalar = what
            key.kind = "wide" if what.size == 8 else "elements" if is_array else "int"
            if is_array and what.name == "char":
                key.kind, key.type = "string", f"{declared.type} *"
        return key

    # Memory to wire.

    def encoded(self, udt, memory, base=0):
        return {key.name: self.encoded_key(key, memory, base) for key in self.keys(udt)}

    def encoded_key(self, key, memory, base):
        at = base + key.offset
        if key.kind == "int":
            return scalar_in(memory, at, key.scalar)
        if key.kind == "wide":
            return I8(int.from_bytes(memory[at:at + 8], sys.byteorder, signed=True))
        if key.kind == "string":
            return memory[at:memory.index(0, at)].decode()
        if key.kind == "elements":
            return elements_in(memory, at, key.scalar, key.count)
        if key.kind == "nested":
            return self.encoded(key.inner, memory, at)
        if key.kind in ("udts", "list"):
            return [self.encoded(key.inner, memory, at + i * self.size(key.inner)) for i in range(key.count)]
        if key.kind == "group":
            return {inner.name: self.encoded_key(inner, memory, base) for inner in key.inner}
        word = int.from_bytes(memory[at:at + width(key.mask)], sys.byteorder)
        return wrapped((word & key.mask) // lowest(key.mask))

    # Wire to memory. The value is one that must be accepted.

    def decode(self, udt, value, memory, base=0):
        self.decode_keys(self.keys(udt), value, memory, base)

    def decode_keys(self, keys, value, memory, base):
        for key in keys:
            if key.name in value:
                self.decode_key(key, value[key.name], memory, base)

    def decode_key(self, key, value, memory, base):
        at = base + key.offset
        if key.kind in ("int", "wide"):
            put(memory, at, value, key.scalar.size)
        elif key.kind == "string":
            text = value.encode() + b"\0"
            memory[at:at + len(text)] = text
        elif key.kind == "elements":
            for i, item in enumerate(value if isinstance(value, list) else [value]):
                put(memory, at + i * key.scalar.size, item, key.scalar.size)
        elif key.kind == "nested":
            self.decode(key.inner, value, memory, at)
        elif key.kind in ("udts", "list"):
            for i, item in enumerate(value if isinstance(value, list) else [value]):
                self.decode(key.inner, item, memory, at + i * self.size(key.inner))
        elif key.kind == "group":
            self.decode_keys(key.inner, value, memory, base)
        else:
            word = int.from_bytes(memory[at:at + width(key.mask)], sys.byteorder)
            put(memory, at, word & ~key.mask | value * lowest(key.mask) & key.mask, width(key.mask))

    def memory(self, udt, values):
        """The block for an array of structs, with the one zeroed element behind it."""
        block = bytearray(self.size(udt) * (len(values) + 1))
        for i, value in enumerate(values):
            self.decode(udt, value, block, i * self.size(udt))
        return bytes(block)

    # Values to send.

    def samples(self, key):
        """Accepted values of a key that is no group, each with a trace of its own."""
        if key.kind == "int":
            return [0x12345679, -2]
        if key.kind == "wide":
            return [I8(0x123456789ABCDEF1), I8(-3), -2]
        if key.kind == "string":
            return ["ab", "c" * (key.count - 1)]
        if key.kind == "elements":
            full = [wrapped(0x11223344 + 0x01010101 * i) for i in range(key.count)]
            return [full, full[:1], 511, []]
        if key.kind == "nested":
            return [self.sample(key.inner)]
        if key.kind in ("udts", "list"):
            full = [self.sample(key.inner, 7 + i) for i in range(key.count)]
            return [full, full[:1], full[0] if key.kind == "udts" else full[:1], []]
        # All ones, and the bit above alone, which is not of the flag.
        ones = key.mask // lowest(key.mask)
        return [wrapped(ones), wrapped(ones + 1)]

    def alone(self, keys):
        """Structs with one key each, at the first of its samples."""
        for key in keys:
            for value in self.alone(key.inner) if key.kind == "group" else self.samples(key)[:1]:
                yield {key.name: value}

    def together(self, keys, turn):
        """A struct of all keys, each at another of its samples than its neighbours: what lies over another member and
        is shorter must leave the rest of it alone. Four turns show every sample."""
        value = {}
        for i, key in enumerate(keys, turn):
            samples = [self.together(key.inner, turn)] if key.kind == "group" else self.samples(key)
            value[key.name] = samples[i % len(samples)]
        return value

    def sample(self, udt, number=7):
        """A struct with one key, which holds the number."""
        key = self.keys(udt)[0]
        return {key.name: self.sample_key(key, number)}

    def sample_key(self, key, number):
        if key.kind == "nested":
            return self.sample(key.inner, number)
        if key.kind in ("udts", "list"):
            return [self.sample(key.inner, number)]
        if key.kind == "group":
            return {key.inner[0].name: self.sample_key(key.inner[0], number)}
        return {"wide": I8(number), "string": "s", "flag": 1}.get(key.kind, number)

    def noise(self, udt, random):
        """Random bytes for a UDT, with texts where it has strings."""
        memory = bytearray(random.randbytes(self.size(udt)))
        self.add_texts(udt, memory, 0)
        return bytes(memory)

    def add_texts(self, udt, memory, base):
        def add(keys):
            for key in keys:
                at = base + key.offset
                if key.kind == "string":
                    memory[at:at + key.count] = b"t" * (key.count - 1) + b"\0"
                elif key.kind == "group":
                    add(key.inner)
                elif key.kind in ("nested", "udts", "list"):
                    for i in range(key.count):
                        self.add_texts(key.inner, memory, at + i * self.size(key.inner))

        add(self.keys(udt))

    # Values to be refused.

    def refusals(self, key):
        """What the value of a key must not be: the form, such a value and the fault text."""
        member, struct = key.place
        said = f"Member {member} of struct type {struct}: "
        expected = f"{said}expected a {key.type} but got something else"
        if key.kind in ("int", "flag"):
            return wrong(expected, "an int")
        if key.kind == "wide":
            return wrong(expected, "an int", "an i8")
        if key.kind == "string":
            too_long = f"{said}strlen of {key.name} larger than defined maximum of {key.count}"
            return wrong(expected, "a string") + [("too long", "x" * (key.count + 1), too_long)]
        if key.kind == "elements":
            pointer = f"{key.scalar.name} *"
            return (wrong(expected, "an int", "an array", "a struct")
                    + [("a struct", {}, f"{said}is a struct, but I expected a {pointer}")]
                    + wrong_entries(pointer, key.type, "an int"))
        if key.kind == "nested":
            return wrong(expected, "a struct")
        if key.kind == "group":
            return wrong(f"{said}expected an inline struct for member {key.name} but got something else", "a struct")
        entries = wrong_entries(f"{key.type} *", key.inner, "a struct")
        if key.kind == "list":
            return wrong(f"{said}expected a {key.type} * but got something else", "an array") + entries
        return wrong(f"{said}expected an array or a struct, but got something else", "an array", "a struct") + entries

    def every_key(self, udt):
        """The keys of a UDT and of its inline structs, each with what puts a struct of that key into its place."""
        def walk(keys, inside):
            for key in keys:
                yield key, inside
                if key.kind == "group":
                    yield from walk(key.inner, lambda value, name=key.name: inside({name: value}))

        return walk(self.keys(udt), lambda value: value)

    def parameters(self, function):
        return [Parameter(self, argument, position) for position, argument in enumerate(function.arguments, 1)]


class Parameter:
    """One argument of a driver function: what it is handed and what is echoed for what a client sends."""

    def __init__(self, oracle, argument, position):
        self.oracle = oracle
        self.type = argument.type
        self.position = position
        what = None if argument.type == "void" else oracle.interface.resolve(argument.type)
        self.unit = 1
        if what is None:
            self.kind = "cookie"
        elif isinstance(what, tuple):
            self.kind, self.scalar, self.unit = "elements", what[0], what[0].size * what[1]
        elif isinstance(what, headers.Record):
            self.kind = "udt"
        else:
            self.kind, self.scalar, self.unit = "elements" if argument.pointer else "value", what, what.size

    @property
    def wire_type(self):
        return {"value": "int", "udt": "struct"}.get(self.kind, "array")

    def right(self):
        """An accepted value that no other position has."""
        number = 16 * self.position
        if self.kind == "value":
            return number
        if self.kind == "elements":
            return [number + i for i in range(1, 4)]
        return self.oracle.sample(self.type, number) if self.kind == "udt" else []

    def units(self, value):
        """Elements of the block, as many as it is sure to have."""
        if self.kind == "value":
            return 0
        return len(value) + 1 if isinstance(value, list) else 2

    def handed(self, value):
        """What the driver gets: a number, a block, or None for NULL."""
        if self.kind == "value":
            narrow = bytearray(8)
            put(narrow, 0, value, self.scalar.size)
            return int.from_bytes(narrow[:self.scalar.size], sys.byteorder, signed=self.scalar.signed)
        if value == []:
            return None
        if self.kind == "udt":
            return self.oracle.memory(self.type, value if isinstance(value, list) else [value])
        block = bytearray(self.unit * self.units(value))
        if isinstance(value, list):
            for i, item in enumerate(value):
                put(block, i * self.scalar.size, item, self.scalar.size)
            return bytes(block)
        # A single int is stored whole, whatever the element's width, and over the end of a block of two bytes.
        whole = bytearray(block + bytes(4))
        put(whole, 0, value, 4)
        return bytes(whole[:len(block)])

    def echo(self, value, left):
        """The echo of a value, with what the driver left."""
        if self.kind == "value":
            return wrapped(left)
        if left is None:
            return None
        count = len(value) if isinstance(value, list) else 1
        if self.kind == "udt":
            size = self.oracle.size(self.type)
            echo = [self.oracle.encoded(self.type, left, i * size) for i in range(count)]
        else:
            echo = elements_in(left, 0, self.scalar, count)
        return echo if isinstance(value, list) else echo[0]

    def refusals(self):
        """What a client must not send here, each with the fault text."""
        said = f"Function input {self.position}: "
        something = f"{said}expected a {self.type} but got something else"
        if self.kind == "value":
            refusals = wrong(something, "an int")
        elif self.kind == "udt":
            refusals = wrong(f"{said}expected an array or a struct, but got something else", "an array", "a struct")
            refusals += wrong_entries(f"{self.type} *", self.type, "a struct")
        else:
            # A pointer value has no form on the wire, so a cookie takes nothing but the empty array.
            pointer, accepted = (f"{self.scalar.name} *", "an int") if self.kind == "elements" else ("void *", None)
            refusals = wrong(something, "an array", "a struct", accepted)
            refusals += [("a struct", {}, f"{said}is a struct, but I expected a {pointer}")]
            refusals += wrong_entries(pointer, self.type, accepted)
        return [(value, text) for _, value, text in refusals]


def wrong(text, *accepted):
    """The forms but those accepted: the form, a value and the text."""
    return [(form, value, text) for form, value in FORMS.items() if form not in accepted]


def wrong_entries(pointer, type, accepted=None):
    """Arrays with an entry of a wrong form behind a right one, where there is a right one."""
    ahead = [FORMS[accepted]] if accepted else []
    text = f"Array of {pointer} entry: expected a {type} but got something else"
    return [(f"{form} in an array", [*ahead, value], text) for form, value in FORMS.items() if form != accepted]


def scalar_in(memory, at, scalar):
    value = int.from_bytes(memory[at:at + scalar.size], sys.byteorder, signed=scalar.signed)
    return wrapped(value) if scalar.size == 4 else value


def elements_in(memory, at, scalar, count):
    """Elements of one and two bytes are read unsigned, whatever their type."""
    unsigned = headers.Scalar(scalar.size, False, "")
    return [scalar_in(memory, at + i * scalar.size, unsigned) for i in range(count)]


def wrapped(value):
    """32 bits as the int of the wire has them."""
    return (value & 0xFFFFFFFF ^ 0x80000000) - 0x80000000


def put(memory, at, value, size):
    memory[at:at + size] = (value & (1 << 8 * size) - 1).to_bytes(size, sys.byteorder)


def lowest(mask):
    return mask & -mask


def width(mask):
    return (mask.bit_length() + 7) // 8
