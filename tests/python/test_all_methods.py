"""Every method through the package, with values made of the contract, beside the raw call on a second host that is in
the same state: the same goes over the wire, and what comes back means the same.
"""

import os
import random
import socket
import xmlrpc.client

import conftest
import lmq
import values
from lmq.transport import Wide

ROUNDS = 4
START = {"num_dev": 1, "dev_cfg": [{"enbl": 1}]}

xmlrpc.client.Marshaller.dispatch[Wide] = lambda _, value, write: write(f"<value><i8>{int(value)}</i8></value>")


class Pair:
    """The two hosts, and the calls that go to both."""

    def __init__(self, package, raw):
        self.contract = values.Contract(os.environ["LMQ_INTERFACE_JSON"], os.environ["LMQ_LAYOUT"])
        self.generator = values.Generator(self.contract, random.Random(18))
        self.chip, self.raw = lmq.connect(package.url), xmlrpc.client.ServerProxy(raw.url).lmq
        self.chip.on_call(self.hear)
        self.succeeded = set()

    def hear(self, method, arguments, outcome, seconds):
        self.answer = None if isinstance(outcome, Exception) else outcome[0]

    def members(self, said):
        def flat(members):
            for member in members:
                yield from [member] if member["name"] else flat(member["members"])
        return {member["name"]: member for member in flat(
            said["members"] if "members" in said else self.contract.structs[said["type"]]["members"])}

    def is_character(self, said):
        return self.contract.base(said["type"]) == "char"

    def wire(self, said, value):
        """A value as the raw client sends it."""
        if isinstance(value, dict):
            members = self.members(said)
            return {name: self.wire(members[name], each) for name, each in value.items()}
        if isinstance(value, list):
            return "".join(map(chr, value)) if self.is_character(said) else [self.wire(said, v) for v in value]
        if self.contract.size(said["type"]) == 8:
            return Wide(value - (1 << 64) if value >> 63 > 0 else value)
        return value - (1 << 32) if value >> 31 > 0 else value

    def python(self, said, value):
        """The same value as somebody would write it in Python."""
        if isinstance(value, dict):
            members = self.members(said)
            return {name: self.python(members[name], each) for name, each in value.items()}
        if isinstance(value, list):
            if said.get("mac"):
                return ":".join(f"{each:02x}" for each in value)
            if said.get("ipv6"):
                return socket.inet_ntop(socket.AF_INET6, bytes(value))
            is_text = self.is_character(said) or said.get("text")
            return bytes(value) if is_text else [self.python(said, each) for each in value]
        if said["type"] == "vx_boolean" and value in (0, 1):
            return bool(value)
        if said.get("ipv4"):
            return socket.inet_ntoa(value.to_bytes(4, "big"))
        if "enum" in said and "bits_of" not in said:
            names = [name for name, each in self.contract.enums[said["enum"]]["values"].items()
                     if each["value"] == value]
            return names[-1] if names else value
        return value

    def prepare(self, said, value):
        """Characters that can be sent as text."""
        if isinstance(value, dict):
            members = self.members(said)
            return {name: self.prepare(members[name], each) for name, each in value.items()}
        if isinstance(value, list) and self.is_character(said):
            return [33 + each % 90 for each in value[:-1]]
        return [self.prepare(said, each) for each in value] if isinstance(value, list) else value

    def call(self, name):
        method = self.contract.methods[name]
        arguments = method["arguments"]
        made = self.generator.arguments(method)
        for index, (said, value) in enumerate(zip(arguments, made)):
            made[index] = self.prepare(said, value)
            if said["pointer"] and isinstance(value, list) and len(value) == 1 and said["length"] == 1:
                made[index] = made[index][0]
            if said["direction"] == "out":  # room for what comes
                made[index] = [{} if isinstance(each, dict) else 0 for each in value]
                if said["length"] == 1:
                    made[index] = made[index][0]
        raw = getattr(self.raw, name)(*map(self.wire, arguments, made))
        given = {said["name"]: self.python(said, value) for said, value in zip(arguments, made)
                 if said["direction"] != "out" and said["type"] != "void"}
        try:
            try:
                result = getattr(self.chip, name)(**given)
            except lmq.ArgumentError as error:
                # An id that a call answered may lie outside of the range that another call takes.
                assert "is not within" in error.text, error
                result = getattr(self.chip.unchecked, name)(**given)
        except lmq.StatusError as error:
            assert error.status == raw[0] != 0
            result = None
        assert self.answer == raw, given
        if result is not None:
            self.succeeded.add(name)
            self.generator.accept(method, made)
            for said, value in zip(arguments, raw[1:]):
                if said["direction"] != "out" or said["type"] == "void":
                    continue
                self.learn(said, value)
                shown = getattr(result, said["name"])
                if "filled" in said:
                    counter = [each["name"] for each in arguments].index(said["filled"].lstrip("*"))
                    value = value[:raw[1 + counter]]
                self.same(said, shown, value)
        if method["effect"] == "resets":
            self.raw.lmq_shutdown_system()
            self.raw.lmq_init_system(START)
            try:
                self.chip.lmq_shutdown_system()
            except lmq.StatusError:
                pass
            self.chip.lmq_init_system(**START)

    def learn(self, said, value):
        for each in value if isinstance(value, list) else [value]:
            if isinstance(each, dict) and "members" not in said:
                for name, member in self.members(said).items():
                    if "members" not in member and name in each:
                        self.learn(member, each[name])
            elif "id" in said and isinstance(each, int) and 0 <= each < 250:  # 255 and 65535 stand for none
                self.generator.learn(said, each)

    def same(self, said, shown, raw):
        """Compares what the package shows with what came, member by member."""
        if isinstance(shown, dict):
            assert shown, said
            members = self.members(said)
            # Of a union what is not selected is left out, and so is the number over the flags of a mask.
            left_out = set(raw) - set(shown)
            assert not left_out or said.get("kind") == "union" or set(members) >= {"mask", "mask_s"}, left_out
            for name, each in shown.items():
                self.same(members[name], each, raw[name])
        elif isinstance(shown, list):
            assert len(shown) == len(raw)
            for left, right in zip(shown, raw):
                self.same(said, left, right)
        elif isinstance(shown, bytes):
            assert list(shown) == raw
        elif isinstance(shown, str) and said.get("mac"):
            assert list(bytes.fromhex(shown.replace(":", ""))) == raw
        elif isinstance(shown, str) and said.get("ipv6"):
            assert list(socket.inet_pton(socket.AF_INET6, shown)) == raw
        elif isinstance(shown, str) and said.get("ipv4"):
            assert socket.inet_aton(shown) == (raw & (1 << 32) - 1).to_bytes(4, "big")
        elif isinstance(shown, str):
            text = raw.encode() if isinstance(raw, str) else bytes(raw).rstrip(b"\0")
            assert text == shown.encode("utf-8", "surrogateescape")
        else:
            bits = 8 * self.contract.size(said["type"])
            assert (int(shown) - raw) % (1 << bits) == 0
            assert shown >= 0 or self.contract.signed(said["type"])


def test_every_method_sends_and_shows_what_the_raw_call_does():
    variables = {"LMQ_SIM_CLOCK": "1", "LMQ_SIM_TRAFFIC": "1"}
    options = "--interface", os.environ["LMQ_INTERFACE_JSON"]
    with conftest.serve(*options, **variables) as first, conftest.serve(*options, **variables) as second:
        pair = Pair(first, second)
        names = sorted(pair.contract.methods)
        assert len(names) == 426
        pair.raw.lmq_init_system(START)
        pair.chip.lmq_init_system(**START)
        for _ in range(ROUNDS):
            pair.generator.random.shuffle(names)
            for name in names:
                try:
                    pair.call(name)
                except Exception as error:
                    raise AssertionError(f"{name}: {error!r}") from error
        # What fails is compared too, but proves little.
        assert len(pair.succeeded) > 280
