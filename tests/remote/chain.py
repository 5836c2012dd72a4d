"""A gateway: a host whose driver is the remote driver, in front of a host with the probe driver. What tests/wire/ proves of
the plug-in holds through both, as far as the contract goes: what differs is worked out in Chain.expected().

- What an argument holds on the way in counts for [in] and [in,out], on the way out for [out] and [in,out].
- An array is as long as the contract says, and a count that a test would make up is one that fits.
- Of a union the alternative that is selected travels, if one is.

The variables are those of tests/wire/, with LMQ_REMOTE and LMQ_INTERFACE_JSON.
"""

import os
import pathlib
import random
import sys
import unittest
import xmlrpc.client

TESTS = pathlib.Path(__file__).resolve().parent.parent
sys.path[:0] = [str(TESTS), str(TESTS / "wire"), str(TESTS / "contract")]
import hosting  # noqa: E402
import sweep_methods  # noqa: E402
import sweep_udts  # noqa: E402
import values  # noqa: E402
from harness import difference  # noqa: E402


class Chain:
    @classmethod
    def setUpClass(cls):
        cls.contract = values.Contract(os.environ["LMQ_INTERFACE_JSON"], os.environ["LMQ_LAYOUT"])
        super().setUpClass()
        cls.enumerator = values.Generator(cls.contract, None).enumerator
        far = cls.host
        cls.host = hosting.Host("--no-guard", plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_REMOTE"],
                                LMQ_URL=far.url, ASAN_OPTIONS="detect_leaks=0")
        cls.addClassCleanup(cls.host.close)
        cls.proxy = xmlrpc.client.ServerProxy(cls.host.url, allow_none=True)
        cls.addClassCleanup(cls.proxy("close"))

    # What the contract makes of a call.

    def counts(self, function):
        """The arguments that say how many elements others stand for."""
        said = self.contract.methods[function.name]["arguments"]
        return {str(each.get(key)).lstrip("*") for each in said for key in ("length", "filled")}

    def conforming(self, function, parameters, sent):
        """The same arguments with lengths and counts that the contract allows."""
        said = self.contract.methods[function.name]["arguments"]
        counts = self.counts(function)
        sent = list(sent)
        for at, (each, parameter) in enumerate(zip(said, parameters)):
            if each["name"] in counts and sent[at] != []:
                fits = each.get("range", [2])[0] or 1
                sent[at] = [fits] if each["pointer"] else fits
        known = {each["name"]: value for each, value in zip(said, sent)}
        for at, each in enumerate(said):
            if each["pointer"] and sent[at] != [] and parameters[at].kind != "cookie":
                length = values.Generator.length(each, {**known, **{name: 0 for name, value in known.items() if value == []}})
                given = sent[at] if isinstance(sent[at], list) else [sent[at]]
                sent[at] = [given[i % len(given)] for i in range(max(length, 1))]
                if length == 1 and parameters[at].kind == "udt":
                    sent[at] = sent[at][0]
        return sent

    def select(self, udt, value, members=None, whole=None):
        """Of each union in a struct the alternative that is selected."""
        members = self.contract.structs[udt]["members"] if members is None else members
        whole = value if whole is None else whole
        made = dict(value)
        for member in members:
            name = member["name"]
            inner = made if not name else made[name]
            if "members" in member:
                chosen = [each for each in member["members"]
                          if whole.get(member.get("by")) in map(self.enumerator, each.get("if", []))]
                kept = chosen or member["members"]
                if name and chosen:
                    inner = {each["name"]: inner[each["name"]] for each in chosen}
                inner = self.select(udt, inner, kept, whole)
                made.update({name: inner} if name else inner)
            elif member["type"] in self.contract.structs:
                made[name] = ([self.select(member["type"], each) for each in inner] if isinstance(inner, list)
                              else self.select(member["type"], inner))
        return made

    def as_list(self, value):
        return value if isinstance(value, list) else [value]

    def expected(self, said, parameter, value, fill, failed):
        """What the far driver is handed, what is left there, and what is echoed here."""
        here = parameter.handed(value)
        if parameter.kind in ("value", "cookie") or value == []:
            return here, here, parameter.echo(value, here)
        count = len(self.as_list(value))
        if said["direction"] == "out":
            there = [{} if parameter.kind == "udt" else 0] * count
        elif parameter.kind == "udt":
            size = self.oracle.size(parameter.type)
            there = [self.select(parameter.type, self.oracle.encoded(parameter.type, here, at * size)) for at in range(count)]
        else:
            there = value
        if isinstance(value, dict):
            there = there[0]
        handed = parameter.handed(there)
        left = fill + handed[len(fill):]
        if said["direction"] != "in" and not (failed and said["direction"] == "out" and self.is_blank(parameter, left, count)):
            here = bytearray(here)
            if parameter.kind == "udt":
                size = self.oracle.size(parameter.type)
                for at in range(count):
                    echo = self.oracle.encoded(parameter.type, left, at * size)
                    self.oracle.decode(parameter.type, self.select(parameter.type, echo), here, at * size)
            else:
                size = parameter.scalar.size * count
                here[:size] = left[:size]
            here = bytes(here)
        return handed, there, parameter.echo(value, here)

    def is_blank(self, parameter, left, count):
        zeros = bytes(len(left))
        kind = [{}] * count if parameter.kind == "udt" else [0] * count
        return parameter.echo(kind, left) == parameter.echo(kind, zeros)

    def check(self, function, parameters, sent, result=0, leaves=lambda block: b""):
        said = self.contract.methods[function.name]["arguments"]
        sent = self.conforming(function, parameters, sent)
        counts = self.counts(function)
        failed = result != 0 and function.returns in ("vx_status_e", "vx_int32")
        fills, handed, units, echoes = [], [], [], []
        for each, parameter, value in zip(said, parameters, sent):
            block = parameter.handed(value)
            fill = leaves(block) if isinstance(block, bytes) else b""
            if each["name"] in counts and isinstance(block, bytes):
                fill = block[:parameter.scalar.size]
            count = len(self.as_list(value))
            size = self.oracle.size(parameter.type) if parameter.kind == "udt" else parameter.unit
            fill = (fill * count)[:count * size] if each["direction"] != "in" else b""
            got, there, echo = self.expected(each, parameter, value, fill, failed)
            fills.append(fill)
            handed.append(got)
            units.append(parameter.units(there if isinstance(block, bytes) else value))
            echoes.append(echo)
        got, answer = self.accepted(function.name, sent, units, fills, result)
        shown = f"{function.name}{sent}"[:400]
        self.assertEqual("", difference(handed, got), f"{shown}: what the driver was handed")
        self.assertEqual("", difference([1 if function.returns == "void" else result, *echoes], answer), f"{shown}: the answer")


class Methods(Chain, sweep_methods.Methods):
    pass


class Udts(Chain, sweep_udts.Udts):
    """By arguments of one direction, which may be [in,out] too."""

    # An array that is longer than its member, over the members behind it.
    test_overrun = None

    @classmethod
    def direction(cls, function, parameter):
        return cls.contract.methods[function.name]["arguments"][parameter.position - 1]["direction"]

    @classmethod
    def find_ways(cls):
        parameters = cls.oracle.parameters
        cls.oracle.parameters = lambda function: [
            each for each in parameters(function) if cls.direction(function, each) in (cls.way, "inout")]
        try:
            return super().find_ways()
        finally:
            cls.oracle.parameters = parameters


class UdtsIn(Udts):
    way = "in"

    def check(self, function, parameter, values):
        for value in values:
            Chain.check(self, function, self.oracle.parameters(function),
                        self.arguments(function, parameter.position, value))

    test_round_trips = None  # nothing comes back


class UdtsOut(Udts):
    way = "out"

    def leave(self, function, parameter, left):
        """A call whose driver leaves a struct."""
        sent = self.arguments(function, parameter.position, {})
        Chain.check(self, function, self.oracle.parameters(function), sent,
                    leaves=lambda block: left if block == parameter.handed({}) else b"")

    def check(self, function, parameter, values):
        for value in values:
            self.leave(function, parameter, self.oracle.memory(parameter.type, [value])[:self.oracle.size(parameter.type)])

    @sweep_udts.for_each_udt
    def test_round_trips(self, udt, function, parameter, path):
        if not path:  # else it comes inside its outer UDT
            self.leave(function, parameter, self.oracle.noise(udt, random.Random(udt)))

    test_refusals = None  # they are the near host's, whatever the direction


# What has tests only where it is derived from.
del Udts


if __name__ == "__main__":
    unittest.main()
