"""Calls every API method through the host, with each form that a client can send at each position, and compares what
the driver was handed and what came back with what the headers' text makes of it.
"""

import functools
import random
import unittest

import harness
import introspection
from harness import COUNT_FAULT, TYPE_FAULT, difference
from oracle import Oracle


def for_each_function(test):
    """Runs a test for every function of the headers, with what its parameters have to be."""

    @functools.wraps(test)
    def run(self):
        for function in self.interface.functions.values():
            with self.subTest(function.name):
                test(self, function, self.oracle.parameters(function))

    return run


class Methods(harness.WireTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.interface = harness.interface()
        cls.oracle = Oracle(cls.interface, harness.layout())
        cls.random = random.Random(1)

    def check(self, function, parameters, sent, result=0, leaves=lambda block: b""):
        """One call that must be answered: what the driver got, the return value, and the echo of each argument.

        `leaves` makes of a block what the driver leaves at its start.
        """
        handed = [parameter.handed(value) for parameter, value in zip(parameters, sent)]
        fills = [leaves(block) if isinstance(block, bytes) else b"" for block in handed]
        units = [parameter.units(value) for parameter, value in zip(parameters, sent)]
        got, answer = self.accepted(function.name, sent, units, fills, result)
        said = f"{function.name}{harness.shown(sent)}"
        self.assertEqual("", difference(handed, got), f"{said}: what the driver was handed")
        left = [fill + block[len(fill):] if fill else block for block, fill in zip(handed, fills)]
        echoes = [parameter.echo(*pair) for parameter, *pair in zip(parameters, sent, left)]
        status = 1 if function.returns == "void" else result
        self.assertEqual("", difference([status, *echoes], answer), f"{said}: the answer")

    def test_listing(self):
        """Every function of the headers is a method, and every method is a function of the headers."""
        listed = [name for name in self.ask("system.listMethods", []) if name.startswith("lmq.")]
        self.assertEqual(sorted(listed),
                         sorted(f"lmq.{name}" for name in [*introspection.METHODS, *self.interface.functions]))

    @for_each_function
    def test_signatures(self, function, parameters):
        self.assertEqual(self.ask("system.methodSignature", [f"lmq.{function.name}"]),
                         [["int", *(parameter.wire_type for parameter in parameters)]])

    @for_each_function
    def test_right_calls(self, function, parameters):
        """Each argument at its place and narrowed: arrays, single values, out-of-range values and no values at all."""
        right = [parameter.right() for parameter in parameters]
        self.check(function, parameters, right, result=28677)
        self.check(function, parameters, [self.other_form(parameter) for parameter in parameters], result=-2147483643)
        for number in (511, 74565, -200, 0x7FFFFF00, -0x80000000):
            sent = []
            for parameter, value in zip(parameters, right):
                distinct = number + parameter.position
                sent.append({"value": distinct, "elements": [distinct, number]}.get(parameter.kind, value))
            self.check(function, parameters, sent)
        empty = [value if parameter.kind == "value" else [] for parameter, value in zip(parameters, right)]
        self.check(function, parameters, empty)

    @staticmethod
    def other_form(parameter):
        """The form that right() does not use; for elements an int that is out of range where they are narrow."""
        if parameter.kind == "elements":
            return 0x12345678 + parameter.position
        return [parameter.right(), {}] if parameter.kind == "udt" else parameter.right()

    @for_each_function
    def test_what_the_driver_leaves(self, function, parameters):
        """The echo of a pointer argument shows what the driver left there, in the client's form."""
        for form in (type(parameters[0]).right, self.other_form) if parameters else ():
            sent = [form(parameter) for parameter in parameters]
            pointers = [pair for pair in zip(parameters, sent) if pair[0].kind in ("elements", "udt")]
            if pointers:
                blocks = iter([self.left(*pair) for pair in pointers])
                self.check(function, parameters, sent, leaves=lambda _: next(blocks))

    def left(self, parameter, value):
        count = len(value) if isinstance(value, list) else 1
        if parameter.kind == "udt":
            return b"".join(self.oracle.noise(parameter.type, self.random) for _ in range(count))
        # The high bit is set, so that signs show.
        return bytes(self.random.randrange(128, 256) for _ in range(parameter.scalar.size * count))

    @for_each_function
    def test_counts(self, function, parameters):
        right = [parameter.right() for parameter in parameters]
        text = f'Input argument size mismatch: function "{function.name}" expects {len(right)} argument(s)!'
        self.refused(function.name, right + [1], COUNT_FAULT, text)
        if right:
            self.refused(function.name, right[:-1], COUNT_FAULT, text)

    @for_each_function
    def test_wrong_forms(self, function, parameters):
        right = [parameter.right() for parameter in parameters]
        for at, parameter in enumerate(parameters):
            for value, text in parameter.refusals():
                self.refused(function.name, right[:at] + [value] + right[at + 1:], TYPE_FAULT, text)

    @for_each_function
    def test_first_fault(self, function, parameters):
        """Arguments are read in order, and the first fault ends the reading."""
        for text in [text for parameter in parameters[:1] for value, text in parameter.refusals() if value is None]:
            self.refused(function.name, [None] * len(parameters), TYPE_FAULT, text)


if __name__ == "__main__":
    unittest.main()
