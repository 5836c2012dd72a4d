"""Between Python's values and those on the wire. A codec is made for each argument and member when it is first needed.

encode() checks a value and returns what is sent; it raises ArgumentError with the path to the culprit. decode() takes
whatever a host answers.
"""

import collections.abc
import operator
import socket

from .errors import ArgumentError, did_you_mean
from .transport import Wide
from .values import Struct, Structs

Codec = collections.namedtuple("Codec", "encode decode")


def wrong(expected, value):
    text = repr(value)
    return ArgumentError(f"{expected} was expected, not {text if len(text) < 60 else type(value).__name__}")


def octets_of(value, expected):
    """Bytes of bytes, text or a list of numbers."""
    try:
        if isinstance(value, str):
            return value.encode("utf-8", "surrogateescape")
        return bytes(value) if not isinstance(value, int) else bytes([value])
    except (TypeError, ValueError):
        raise wrong(expected, value) from None


def mac_of(value):
    try:
        octets = bytes.fromhex(value.replace(":", "").replace("-", "")) if isinstance(value, str) else bytes(value)
    except (TypeError, ValueError):
        octets = b""
    if len(octets) != 6:
        raise wrong("a MAC address, as 02:00:5e:10:00:01 or six octets,", value)
    return list(octets)


def ipv6_of(value):
    try:
        octets = socket.inet_pton(socket.AF_INET6, value) if isinstance(value, str) else bytes(value)
    except (OSError, TypeError, ValueError):
        octets = b""
    if len(octets) != 16:
        raise wrong("an IPv6 address, as 2001:db8::1 or 16 octets,", value)
    return list(octets)


def text_of(octets):
    return bytes(each & 255 for each in octets).rstrip(b"\0").decode("utf-8", "surrogateescape")


class Codecs:
    """The codecs of one interface."""

    def __init__(self, interface, checked=True):
        """checked: whether numbers have to be in the ranges and enums of the interface, beyond their types."""
        self.interface, self.checked, self.structs = interface, checked, {}

    def value(self, said, count=None):
        """The codec of an argument or member: of an array of at most `count` elements, or of one if that is None."""
        shape = self.interface.shape(said, count is not None)
        if shape == "struct":
            one = self.struct(said["type"])
        elif shape in ("string", "mac", "ipv6", "octets"):
            return getattr(self, shape)(said, count)
        else:
            one = self.scalar(said, shape)
        return one if count is None else self.array(one, count, Structs if shape == "struct" else list)

    # Arrays.

    def array(self, one, count, made):
        encode_one, decode_one = one

        def encode(value):
            if isinstance(value, collections.abc.Mapping) or not isinstance(value, collections.abc.Iterable) or \
                    isinstance(value, str):
                raise wrong("a list", value)
            value = list(value)
            if len(value) > count:
                raise ArgumentError(f"{len(value)} elements are more than the {count} that there is room for")
            wire = []
            for index, each in enumerate(value):
                try:
                    wire.append(encode_one(each))
                except ArgumentError as error:
                    raise error.at(f"[{index}]")
            return wire

        def decode(wire):
            return made(map(decode_one, wire if isinstance(wire, list) else [wire]))

        return Codec(encode, decode)

    def octets(self, said, count):
        expected = f"text, bytes or a list of at most {count} octets"

        def encode(value):
            octets = octets_of(value, expected)
            if len(octets) > count:
                raise ArgumentError(f"{len(octets)} octets are more than the {count} that there is room for")
            return list(octets)

        # Of an argument nobody says that its zeros at the end count for nothing.
        decode = text_of if said.get("text") else list if "count" in said else bytes
        return Codec(encode, decode)

    def string(self, said, count):
        def encode(value):
            if not isinstance(value, str):
                value = octets_of(value, "text").decode("utf-8", "replace")
            if len(value.encode()) >= count:
                raise ArgumentError(f"{value!r} is longer than the {count - 1} octets that there is room for")
            if "\0" in value or not value.isprintable():
                raise ArgumentError(f"{value!r} holds characters that cannot be sent")
            return value

        return Codec(encode, str)

    def mac(self, said, count):
        return Codec(mac_of, lambda wire: bytes(each & 255 for each in wire).hex(":"))

    def ipv6(self, said, count):
        return Codec(ipv6_of, lambda wire: socket.inet_ntop(socket.AF_INET6, bytes(each & 255 for each in wire)))

    # Numbers.

    def scalar(self, said, shape):
        low, high = self.interface.limits(said["type"])
        as_number = {"enum": self.from_enumerator, "flags": self.from_flags, "ipv4": self.from_ipv4}.get(shape)
        parse = as_number(said) if as_number else None
        bounds = said.get("range") or self.interface.ids.get(said.get("id"), {}).get("range") if self.checked else None
        also = said.get("or", ())
        unsigned_32 = (low, high) == (0, 0xFFFFFFFF)
        wide = high > 0xFFFFFFFF or low < -0x80000000

        def encode(value):
            if type(value) is not int:
                if parse is not None:
                    value = parse(value)
                else:
                    try:
                        value = operator.index(value)
                    except TypeError:
                        raise wrong("true or false" if shape == "boolean" else "a number", value) from None
            elif shape == "enum":
                value = parse(value)
            if bounds and not bounds[0] <= value <= bounds[1] and value not in also:
                raise ArgumentError(f"{value} is not within {bounds[0]}..{bounds[1]}"
                                    + (f" {said['unit']}" if "unit" in said else ""))
            if not low <= value <= high:
                raise ArgumentError(f"{value} is no {said['type']}, which goes from {low} to {high}")
            if value > 0x7FFFFFFF and unsigned_32:
                return value - (1 << 32)
            return Wide(value - (1 << 64) if value >> 63 > 0 else value) if wide else int(value)

        return Codec(encode, self.decoder(said, shape, high))

    def decoder(self, said, shape, high):
        # What is unsigned and as wide as a number on the wire comes with a sign.
        plain = high.__and__ if high in (0xFFFFFFFF, 0xFFFFFFFFFFFFFFFF) else int
        if shape == "boolean":
            return lambda wire: bool(wire) if wire in (0, 1) else wire
        if shape == "ipv4":
            return lambda wire: socket.inet_ntoa((wire & 0xFFFFFFFF).to_bytes(4, "big"))
        if shape not in ("enum", "flags"):
            return plain
        known = []

        def enumerator(wire):
            if not known:
                known.append(self.interface.enums[said["bits_of"] if shape == "flags" else said["enum"]])
            try:
                return known[0](plain(wire))
            except ValueError:  # a number without a name
                return wire

        return enumerator

    def from_enumerator(self, said):
        name = said["enum"]
        values = {each: value["value"] for each, value in self.interface.enum_values[name]["values"].items()}
        numbers = {*values.values(), *said.get("or", ())}

        def parse(value):
            if isinstance(value, str):
                if value not in values:
                    raise ArgumentError(f"{value} is no enumerator of {name}{did_you_mean(value, values)}")
                return values[value]
            if type(value) is bool or not isinstance(value, int):
                raise wrong(f"an enumerator of {name}", value)
            if type(value).__name__ in self.interface.enum_values and type(value).__name__ != name \
                    and value.name not in values:
                raise ArgumentError(f"{value.name} is an enumerator of {type(value).__name__}, not of {name}")
            if self.checked and value not in numbers:
                raise ArgumentError(f"{value} is no value of {name}{did_you_mean('', values)}")
            return int(value)

        return parse

    def from_flags(self, said):
        name = said["bits_of"]
        values = {each: value["value"] for each, value in self.interface.enum_values[name]["values"].items()}

        def parse(value):
            if isinstance(value, int):
                return int(value)
            names = value.split("|") if isinstance(value, str) else value
            made = 0
            if not isinstance(names, collections.abc.Iterable):
                raise wrong(f"enumerators of {name}", value)
            for each in names:
                each = each.strip() if isinstance(each, str) else each
                if each not in values and not isinstance(each, int):
                    raise ArgumentError(f"{each} is no enumerator of {name}{did_you_mean(each, values)}")
                made |= values.get(each, each)
            return made

        return parse

    def from_ipv4(self, said):
        def parse(value):
            try:
                return int.from_bytes(socket.inet_pton(socket.AF_INET, str(value)), "big")
            except OSError:
                raise wrong("an IPv4 address", value) from None

        return parse

    # Structs.

    def struct(self, name):
        if name not in self.structs:
            self.structs[name] = StructCodec(self, self.interface.structs[name]["members"], name)
        return self.structs[name]

    def flag(self, member):
        high = (1 << member["bits"]) - 1

        def encode(value):
            if not isinstance(value, int) or not 0 <= value <= high:
                raise wrong("true or false" if high == 1 else f"a number up to {high}", value)
            return int(value)

        return Codec(encode, bool if high == 1 else int)


class StructCodec:
    """A struct, a union, or a mask. What has no name in the header counts as part of what is around it."""

    def __init__(self, codecs, members, name):
        self.name, self.interface = name, codecs.interface
        self.fields = {}  # by name: the Codec of a member
        self.flags = {}  # by name of a member: where its flag is, from here
        self.selected = {}  # by name of a union: its selector, and by alternative the numbers that select it
        self.addresses = set()  # names of members that are one
        self.is_mask_union = {"mask_s", "mask"} == {member["name"] for member in members}
        self.add(codecs, members)
        self.is_address = len(self.selected) == 1 and len(self.fields) == 2 and bool(self.address("::"))
        self.unpack = list((name, codec.decode) for name, codec in self.fields.items())

    def __iter__(self):
        return iter((self.encode, self.decode))

    def add(self, codecs, members):
        for member in members:
            name = member["name"]
            if "members" in member:
                if not name:
                    self.add(codecs, member["members"])
                    continue
                kind = " (mask)" if member.get("mask") else ""
                self.fields[name] = StructCodec(codecs, member["members"], f"{self.name.split()[0]}.{name}{kind}")
                if member.get("mask"):
                    self.note_flags(member["members"], (name,))
                if "by" in member:
                    self.selected[name] = member["by"], self.alternatives(member)
            elif member.get("flag"):
                self.fields[name] = codecs.flag(member)
            else:
                self.fields[name] = codecs.value(member, member.get("count"))
                if member.get("ipv4") or member.get("ipv6"):
                    self.addresses.add(name)

    def note_flags(self, members, path):
        for member in members:
            if member.get("flag"):
                self.flags[member["name"]] = (*path, member["name"])
            elif "members" in member:
                self.note_flags(member["members"], (*path, member["name"]) if member["name"] else path)

    def alternatives(self, union):
        return {each["name"]: [int(name) if name.isdigit() else int(self.interface.enumerator(name))
                               for name in each.get("if", [])] for each in union["members"]}

    def encode(self, value):
        if isinstance(value, str) and self.is_address:
            value = self.address(value)
        if not isinstance(value, collections.abc.Mapping):
            raise wrong(f"a dict with members of {self.name}", value)
        wire = {}
        for name, each in value.items():
            try:
                field = self.fields[name]
            except KeyError:
                raise ArgumentError(f"{self.name} has no member {name}{did_you_mean(name, self.fields)}") from None
            try:
                wire[name] = field.encode(each)
            except ArgumentError as error:
                raise error.at(name)
        for union, (selector, alternatives) in self.selected.items():
            if union in wire and selector not in wire and selector in self.fields and len(wire[union]) == 1:
                numbers = alternatives[next(iter(wire[union]))]
                if numbers:
                    wire[selector] = numbers[0]
        if self.flags:
            self.set_flags(wire, value)
        return wire

    def address(self, text):
        """An address that is text, as the members of a struct that holds either kind; None if it is no address."""
        for name, field in self.fields.items():
            if isinstance(field, StructCodec):
                inner = field.address(text)
                if inner is not None:
                    return {name: inner}
            elif name in self.addresses:
                try:
                    field.encode(text)
                    return {name: text}
                except ArgumentError:
                    pass
        return None

    def set_flags(self, wire, value):
        """Flags the members that are given, unless the caller did so."""
        for name in list(wire):
            path = self.flags.get(name)
            if path is None or path[0] in value:
                continue
            inner = wire
            for each in path[:-1]:
                inner = inner.setdefault(each, {})
            inner[path[-1]] = 1

    def decode(self, wire):
        value = Struct((), self.name)
        skip = "mask" if self.is_mask_union else None
        for name, decode in self.unpack:
            if name in wire and name != skip:
                each = wire[name]
                if name in self.selected:
                    each = self.chosen(name, each, wire)
                value[name] = decode(each)
        return value

    def chosen(self, union, alternatives, wire):
        """Of a union the alternatives that its selector selects, and all where it selects none."""
        selector, numbers = self.selected[union]
        chosen = {name: each for name, each in alternatives.items() if wire.get(selector) in numbers[name]}
        return chosen or alternatives
