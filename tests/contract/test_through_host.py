"""The contract over the wire: every function of the simulated chip through the host, with arrays of the lengths that the
contract says. The guard lets all of it pass, and the worker lives; under the sanitizers nothing is touched beyond.

LMQ_HOST, LMQ_PLUGIN, LMQ_DRIVER, LMQ_INTERFACE_JSON and LMQ_LAYOUT say where everything is.
"""

import os
import pathlib
import random
import sys
import unittest
import xmlrpc.client

sys.path[:0] = [str(pathlib.Path(__file__).resolve().parent), str(pathlib.Path(__file__).resolve().parent.parent)]
import hosting  # noqa: E402
import values  # noqa: E402

ROUNDS = 8


class I8(int):
    """A number of 64 bits, which Python's client knows only to read."""


xmlrpc.client.Marshaller.dispatch[I8] = lambda _, value, write: write(f"<value><i8>{int(value)}</i8></value>")


class ThroughHost(unittest.TestCase):
    def setUp(self):
        self.contract = values.Contract(os.environ["LMQ_INTERFACE_JSON"], os.environ["LMQ_LAYOUT"])
        self.generator = values.Generator(self.contract, random.Random(7))
        host = hosting.Host(plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_DRIVER"], LMQ_SIM_CLOCK="1",
                            LMQ_SIM_TRAFFIC="1", ASAN_OPTIONS="detect_leaks=0")
        self.addCleanup(host.close)
        self.lmq = xmlrpc.client.ServerProxy(host.url, allow_none=True)
        self.addCleanup(self.lmq("close"))

    def wire(self, said, value):
        """A value as a client sends it."""
        if isinstance(value, dict):
            known = said["members"] if "members" in said else self.contract.structs[said["type"]]["members"]
            members = {member["name"]: member for member in self.flat(known)}
            return {name: self.wire(members[name], each) for name, each in value.items()}
        if isinstance(value, list):
            if said["type"] == "vx_char":
                return "".join(chr(32 + each % 90) for each in value[:-1])
            return [self.wire(said, each) for each in value]
        if self.contract.base(said["type"]).endswith("long long"):
            return I8(value - (1 << 64) if value >> 63 else value)
        return value - (1 << 32) if value >> 31 > 0 else value

    def flat(self, members):
        """The members of a struct, and those of structs and unions without a name in it."""
        for member in members:
            yield from self.flat(member["members"]) if not member["name"] else [member]

    def call(self, name):
        arguments = self.contract.methods[name]["arguments"]
        sent = [self.wire(said, value)
                for said, value in zip(arguments, self.generator.arguments(self.contract.methods[name]))]
        status, *echo = getattr(self.lmq, f"lmq.{name}")(*sent)
        if not status:
            for said, answered in zip(arguments, echo):
                if said["direction"] != "in":
                    self.learn(said, answered)

    def learn(self, said, answered):
        if isinstance(answered, list):
            for each in answered:
                self.learn(said, each)
        elif isinstance(answered, dict) and "members" not in said:
            for member in self.flat(self.contract.structs[said["type"]]["members"]):
                if member["name"] in answered and "members" not in member:
                    self.learn(member, answered[member["name"]])
        elif "id" in said and isinstance(answered, int):
            self.generator.learn(said, answered)

    def test_no_call_within_the_contract_is_refused(self):
        names = sorted(self.contract.methods)
        for _ in range(ROUNDS):
            self.generator.random.shuffle(names)
            for name in names:
                with self.subTest(name):
                    self.call(name)
                if self.contract.methods[name]["effect"] == "resets":
                    self.lmq.lmq.lmq_shutdown_system()
                    self.lmq.lmq.lmq_init_system({"num_dev": 1, "dev_cfg": [{"enbl": 1}]})


if __name__ == "__main__":
    unittest.main()
