"""Sends every UDT that a method takes, member by member, and compares the driver's memory and the echo with what the
headers' text and the compiler's layout make of it.
"""

import collections
import functools
import os
import random
import unittest

import harness
from harness import TYPE_FAULT, difference
from oracle import Oracle

BATCH = 16  # UDTs in one call


def for_each_udt(test):
    """Runs a test for every UDT that a method takes, itself or inside another, with the way to it."""

    @functools.wraps(test)
    def run(self):
        for udt, way in self.ways.items():
            with self.subTest(udt):
                test(self, udt, *way)

    return run


class Udts(harness.WireTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.interface = harness.interface()
        cls.oracle = Oracle(cls.interface, harness.layout())
        cls.ways = cls.find_ways()

    @classmethod
    def find_ways(cls):
        """How to reach each UDT: a function, the position of an argument, and the keys from there, by the smallest UDT
        that a function takes."""
        direct = {}
        for function in cls.interface.functions.values():
            for parameter in cls.oracle.parameters(function):
                if parameter.kind == "udt":
                    direct.setdefault(parameter.type, (function, parameter, []))
        ways = dict(direct)
        for udt in sorted(direct, key=cls.oracle.size):
            waiting = collections.deque([udt])
            while waiting:
                function, parameter, path = ways[outer := waiting.popleft()]
                for key, inside in cls.oracle.every_key(outer):
                    if key.kind in ("nested", "udts", "list") and key.inner not in ways:
                        ways[key.inner] = function, parameter, path + [(key, inside)]
                        waiting.append(key.inner)
        return ways

    @staticmethod
    def wrapped(path, value):
        """A struct of the outermost UDT that holds the value at the end of the path."""
        for key, inside in reversed(path):
            value = inside({key.name: value if key.kind == "nested" else [value]})
        return value

    def arguments(self, function, position, value):
        sent = [parameter.right() for parameter in self.oracle.parameters(function)]
        sent[position - 1] = value
        return sent

    def send(self, function, parameter, value, fill=b""):
        """Calls with a value for the UDT argument. Returns the block that the driver was handed, and the echo."""
        sent = self.arguments(function, parameter.position, value)
        parameters = self.oracle.parameters(function)
        units = [each.units(argument) for each, argument in zip(parameters, sent)]
        fills = [fill if each.position == parameter.position else b"" for each in parameters]
        handed, answer = self.accepted(function.name, sent, units, fills)
        return handed[parameter.position - 1], answer[parameter.position]

    def check(self, function, parameter, values):
        """Sends structs of the outermost UDT in arrays, and looks at each."""
        size = self.oracle.size(parameter.type)
        for begin in range(0, len(values), BATCH):
            batch = values[begin:begin + BATCH]
            block, echoes = self.send(function, parameter, batch)
            expected = self.oracle.memory(parameter.type, batch)
            for i, value in enumerate(batch):
                said = f"{function.name}({harness.shown([value])})"
                memory = expected[i * size:(i + 1) * size]
                self.assertEqual(memory.hex(), block[i * size:(i + 1) * size].hex(), f"{said}: the driver's bytes")
                echo = self.oracle.encoded(parameter.type, memory)
                self.assertEqual("", difference(echo, echoes[i]), f"{said}: the echo")
            end = len(batch) * size
            self.assertEqual(expected[end:], block[end:], "the spare element behind the array")

    @for_each_udt
    def test_members(self, udt, function, parameter, path):
        """An empty struct, an unknown key, each member on its own, and all together in each way to write them."""
        keys = self.oracle.keys(udt)
        values = [{}, {"no_such_member": {"nor": [True]}}, *self.oracle.alone(keys)]
        values += [self.oracle.together(keys, turn) for turn in range(4)]
        self.check(function, parameter, [self.wrapped(path, value) for value in values])

    @for_each_udt
    def test_round_trips(self, udt, function, parameter, path):
        """The echo of whatever the driver leaves holds all of it, and decodes to the same when it is sent back."""
        if path:
            return  # it goes there and back inside its outer UDT
        noise = self.oracle.noise(udt, random.Random(udt))
        _, echo = self.send(function, parameter, {}, fill=noise)
        self.assertEqual("", difference(self.oracle.encoded(udt, noise), echo), "the echo of what the driver left")
        self.check(function, parameter, [echo])
        _, again = self.send(function, parameter, echo)
        self.assertEqual("", difference(echo, again), "the echo of the echo")

    def test_refusals(self):
        """A boolean for each member; every wrong form for the first member of each kind and for those that depart."""
        seen = set()

        @for_each_udt
        def refuse(self, udt, function, parameter, path):
            for key, inside in self.oracle.every_key(udt):
                for form, value, text in self.oracle.refusals(key):
                    if key.kind not in seen or key.departs or form == "a boolean":
                        value = self.wrapped(path, inside({key.name: value}))
                        sent = self.arguments(function, parameter.position, value)
                        self.refused(function.name, sent, TYPE_FAULT, text)
                seen.add(key.kind)

        refuse(self)

    @for_each_udt
    def test_word_over_flags(self, udt, function, parameter, path):
        """A mask's word is read after its flags and wins, whatever the order in which a client sends them."""
        groups = [(self.oracle.keys(udt), lambda value: value)]
        groups += [(key.inner, lambda value, key=key, inside=inside: inside({key.name: value}))
                   for key, inside in self.oracle.every_key(udt) if key.kind == "group"]
        for keys, inside in groups:
            views = {key.name: key for key in keys}
            if views.get("mask_s") and views.get("mask"):
                flags = {flag.name: 1 for flag in views["mask_s"].inner}
                value = self.wrapped(path, inside({"mask": 5, "mask_s": flags}))
                self.check(function, parameter, [value])

    def test_overrun(self):
        """No bound of a member array is enforced: what is too long runs on over the members behind it, and a text that
        fills its member runs on into them."""
        udt, letters = "lmq_dev_startup_cfg_s", b"ABCDEFGHIJK"
        function, parameter, path = self.ways[udt]
        value = {"dev_mac_addr": list(letters), "dev_if_name": "d" * 16}
        self.check(function, parameter, [self.wrapped(path, value)])
        # The case itself: bytes beyond the six of the address, read back as the end of the name. In a real driver's
        # headers the two may stand apart.
        if os.environ["LMQ_INCLUDE"] != os.environ["LMQ_CLIENT_INCLUDE"]:
            return
        memory = self.oracle.memory(udt, [value])
        self.assertEqual(self.oracle.encoded(udt, memory)["dev_if_name"], "d" * 16 + letters.decode())


if __name__ == "__main__":
    unittest.main()
