"""The interface as a host describes it: its enums as Python's, and what shape each argument and member has."""

import enum
import json

from .errors import Error, did_you_mean


class Interface:
    """What interface.json holds. The dicts in it are used as they are; `interface/contract.py` tells what they mean."""

    def __init__(self, said):
        self.methods, self.structs, self.typedefs = said["methods"], said["structs"], said["typedefs"]
        self.enum_values, self.ids, self.fingerprint = said["enums"], said["ids"], said["fingerprint"]
        self.enums = Enums(self)
        self._owners = None

    @classmethod
    def of_file(cls, path):
        """The interface that an interface.json describes."""
        try:
            with open(path, "rb") as file:
                return cls(json.load(file))
        except (OSError, ValueError, KeyError, TypeError) as error:
            reason = error.strerror if isinstance(error, OSError) else "this describes no interface"
            raise Error(f"{path}: {reason}") from None

    def base(self, type_name):
        """The C type behind a name of a type."""
        while type_name in self.typedefs:
            type_name = self.typedefs[type_name]["type"]
        return "int" if type_name in self.enum_values else type_name

    def limits(self, type_name):
        """The smallest and the largest number of an integer type."""
        base = self.base(type_name)
        bits = {"char": 8, "short": 16, "long long": 64}.get(base.replace("unsigned ", "").replace("signed ", ""), 32)
        return (0, (1 << bits) - 1) if base.startswith("unsigned") else (-(1 << bits - 1), (1 << bits - 1) - 1)

    def shape(self, said, is_array):
        """What an argument or member is to Python: struct, string, mac, ipv6, octets, flags, enum, ipv4, boolean or
        integer; of an array of the last five, of one of its elements."""
        if said["type"] in self.structs:
            return "struct"
        if is_array:
            base = self.base(said["type"])
            if base == "char":
                return "string"
            for shape in ("mac", "ipv6"):
                if said.get(shape):
                    return shape
            if base == "unsigned char" and not {"enum", "bits_of"} & said.keys() and said["type"] != "vx_boolean":
                return "octets"
        if "enum" in said and "bits_of" not in said:
            return "enum"
        if "bits_of" in said:
            return "flags"
        return "ipv4" if said.get("ipv4") else "boolean" if said["type"] == "vx_boolean" else "integer"

    def enumerator(self, name):
        """The member of an enum that has this name; AttributeError if none has."""
        if self._owners is None:
            self._owners = {each: owner for owner, said in self.enum_values.items() for each in said["values"]}
        if name not in self._owners:
            raise AttributeError(f"there is no enumerator {name}{did_you_mean(name, self._owners)}")
        return self.enums[self._owners[name]][name]


class Enums:
    """The enums of an interface as attributes: IntEnum, and IntFlag where enumerators are or'ed together."""

    def __init__(self, interface):
        self._interface, self._made, self._bits = interface, {}, None

    def __getattr__(self, name):
        if name.startswith("_") or name not in self._interface.enum_values:
            raise AttributeError(f"there is no enum {name}{did_you_mean(name, self._interface.enum_values)}")
        return self[name]

    def __dir__(self):
        return list(self._interface.enum_values)

    def __getitem__(self, name):
        if name not in self._made:
            self._made[name] = self._make(name)
        return self._made[name]

    def _make(self, name):
        said = self._interface.enum_values[name]
        # Of two with the same number the first gives the name; the base of a family and an end marker are no good one.
        pairs = sorted(((each, value["value"]) for each, value in said["values"].items()),
                       key=lambda pair: pair[0] in said.get("base", ())
                       or pair[0].endswith(("_MIN", "_BASE", "_MAX", "_END", "_NUM")))
        kind = enum.IntFlag if name in self._bit_enums() else enum.IntEnum
        made = kind(name, pairs, module="lmq")
        made.__doc__ = said["brief"]
        return made

    def _bit_enums(self):
        """The enums whose enumerators something takes or'ed together."""
        if self._bits is None:
            interface = self._interface
            values = list(interface.typedefs.values())
            for each in interface.methods.values():
                values += each["arguments"]
            for each in interface.structs.values():
                values += each["members"]
            for each in values:  # it grows by the members of structs in place
                values += each.get("members", ())
            self._bits = {each["bits_of"] for each in values if "bits_of" in each}
        return self._bits
