"""Every function, called with what nobody would send: it must answer with a status, and the host must live on.

What no driver of this interface can see is left out: an int in place of an array is one element, and a count may be
larger than the array that goes with it. Both let the driver run on behind the block. So an array is never an int here,
and what may be a count stays within the ROOM of the arrays.
"""

import contextlib
import functools
import random
import unittest
import xmlrpc.client

from harness import SimTest

REFUSED = -507
ROOM, BYTES = 8, 64  # structures and plain elements in an array
ROUNDS = 2
STARTS = {"lmq_init_system", "vx_init"}


class Sweep(SimTest):
    no_round_trip = "it ends wherever random calls have led, through shutdowns, and by many that nothing reads back"
    clock = 7
    environment = {"LMQ_SIM_TRAFFIC": "1"}

    def setUp(self):
        super().setUp()
        self.random = random.Random(1)
        names = (name[len("lmq."):] for name in self.proxy.system.listMethods() if name.startswith("lmq."))
        self.signatures = {}
        for name in names:
            with contextlib.suppress(xmlrpc.client.Fault):  # of the dictionary itself there is no signature
                self.signatures[name] = self.proxy.lmq.methodSignature(f"lmq.{name}")
        self.assertGreater(len(self.signatures), 400)

    def number(self):
        small = self.random.randrange(-1, 20)
        return self.random.choice((small, small, small, self.random.randrange(-1 << 31, 1 << 31)))

    def filled(self, value):
        """A structure with a number for each one in it."""
        if isinstance(value, dict):
            return {name: self.filled(member) for name, member in value.items()}
        if isinstance(value, list):
            return [self.filled(element) for element in value]
        return self.number() if isinstance(value, int) else value

    @functools.cache
    def structure(self, kind):
        return self.proxy.lmq.UDTMalloc(f"lmq.{kind}")

    def argument(self, parameter, form):
        kind = parameter["primative_type"]
        count = any(part in parameter["declaration_name"] for part in ("cnt", "count", "num", "len", "size"))
        number = (lambda: 0) if form == "zeros" else (lambda: self.random.randrange(9)) if count else self.number
        if not kind.endswith("*"):
            return number()
        if form == "empty arrays" or kind == "void *":
            return []
        if not parameter["isUDT"]:
            return [number() for _ in range(BYTES)]
        structure = self.structure(parameter["application_type"].rstrip("* "))
        return [structure if form == "zeros" else self.filled(structure) for _ in range(ROOM)]

    def sweep(self, form, but=()):
        for function, (result, *parameters) in self.signatures.items():
            if function in but:
                continue
            arguments = [self.argument(parameter, form) for parameter in parameters]
            with self.subTest(function, form=form):
                try:
                    answer, echo = self.call(function, *arguments)
                except xmlrpc.client.Fault as fault:
                    # The host refuses what is longer than the arrays here.
                    self.assertEqual(fault.faultCode, REFUSED, fault)
                    continue
                self.assertEqual(len(echo), len(arguments))
                yield function, result["application_type"], answer

    def test_while_the_system_is_down(self):
        for form in "zeros", "empty arrays", "numbers":
            self.proxy.lmq.lmq_shutdown_system()
            for function, kind, answer in self.sweep(form, STARTS):
                if kind == "vx_status_e":
                    self.assertEqual(self.name_of(answer), "VX_ERR_GLBL_SYS_UNINTIALIZED", function)

    def test_while_it_is_up(self):
        for form in ["zeros", "empty arrays"] + ["numbers"] * ROUNDS:
            for function, kind, answer in self.sweep(form):
                if kind == "vx_status_e":
                    self.assertIn(answer, self.STATUS.values(), function)
                if self.call("vx_mac_addr_get", 0, [0] * 6)[0] != 0:
                    self.proxy.lmq.lmq_shutdown_system()
                    self.start()
        self.assertNotIn("internal error", self.printed())


if __name__ == "__main__":
    unittest.main()
