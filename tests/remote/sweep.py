"""Every function of the simulated chip, here and through the remote driver: the same calls, the same statuses, the same
memory. The calls are those of the contract's own sweep (tests/contract/sweep.py), so buffers stand between guards here too.

LMQ_HOST, LMQ_PLUGIN, LMQ_HOST_DRIVER, LMQ_DRIVER, LMQ_REMOTE, LMQ_INTERFACE_JSON and LMQ_LAYOUT say where everything is.
"""

import ctypes
import os
import pathlib
import sys
import unittest

TESTS = pathlib.Path(__file__).resolve().parent.parent
sys.path[:0] = [str(TESTS), str(TESTS / "contract")]
import hosting  # noqa: E402
import sweep  # noqa: E402
import values  # noqa: E402

ROUNDS = int(os.environ.get("LMQ_ROUNDS", 20))


class Seen(values.Generator):
    """What of C's memory is said by the interface: no padding, of a union the alternative that counts, of a text what
    stands before its end."""

    def __init__(self, contract):
        super().__init__(contract, None)

    def members(self, members, layout, path, buffer, at):
        for member in members:
            place = f"{path}.{member['name']}".strip(".")
            if member.get("flag"):
                first, bits = layout[place]
                ones = int.from_bytes(bytes.fromhex(bits), "little")
                yield place, int.from_bytes(buffer[at + first:at + first + len(bits) // 2], "little") & ones
            elif "members" in member:
                yield from self.members(self.counting(member, members, layout, path, buffer, at), layout, place, buffer, at)
            else:
                size = self.contract.size(member["type"])
                for index in range(member.get("count", 1)):
                    yield f"{place}[{index}]", self.value(member["type"], buffer, at + layout[place] + index * size)
                    if member["type"] == "vx_char" and not buffer[at + layout[place] + index]:
                        break

    def counting(self, union, siblings, layout, path, buffer, at):
        """The members of a struct, or the alternative of a union that another member selects."""
        for member in siblings:
            if member["name"] == union.get("by"):
                where = at + layout[f"{path}.{member['name']}".strip(".")]
                selector = int.from_bytes(buffer[where:where + self.contract.size(member["type"])], "little")
                for alternative in union["members"]:
                    if selector in map(self.enumerator, alternative.get("if", [])):
                        return [alternative]
        return union["members"]

    def value(self, type_name, buffer, at):
        if type_name in self.contract.structs:
            members = self.contract.structs[type_name]["members"]
            return dict(self.members(members, self.contract.layout[type_name], "", buffer, at))
        return buffer[at:at + self.contract.size(type_name)]

    def argument(self, said, buffer):
        size = self.contract.size(said["type"])
        return buffer and [self.value(said["type"], buffer, at) for at in range(0, len(buffer), size)]


class Texts(values.Generator):
    """Characters are those that a text has; a text may fill its member to the last one."""

    def scalar(self, said):
        return self.random.choice([0, 38, 60, 62, *range(32, 127)]) if said["type"] == "vx_char" else super().scalar(said)


class Both(sweep.Chip):
    """The driver of this process, and behind each of its calls the same one through the remote driver."""

    def __init__(self, contract, seed):
        super().__init__(os.environ["LMQ_DRIVER"], contract, seed)
        self.generator = Texts(contract, self.generator.random)
        self.remote = ctypes.CDLL(os.environ["LMQ_REMOTE"])
        self.remote.lmq_remote_error.restype = ctypes.c_char_p
        self.seen = Seen(contract)
        self.calls = 0

    def call(self, name, sent=None):
        method = self.contract.methods[name]
        sent = self.generator.arguments(method) if sent is None else sent
        status, contents = super().call(name, sent)
        passed = [self.argument(said, value) for said, value in zip(method["arguments"], sent)]
        function = getattr(self.remote, name)
        function.restype = None if method["returns"] == "void" else ctypes.c_int32
        answered = function(*[each for each, _ in passed])
        self.calls += 1
        if answered != status:
            why = self.remote.lmq_remote_error().decode() if (answered or 0) >> 8 == 0x4C4D51 else ""
            self.findings.add(f"{name} answers {answered:#x} through the remote driver and not {status:#x}: {why}")
            return status, contents
        for said, here, (_, kept) in zip(method["arguments"], contents, passed):
            there = kept and self.check(f"remote {name}", said, *kept)
            if here != there and self.seen.argument(said, here) != self.seen.argument(said, there):
                self.findings.add(f"{name} leaves another {said['name']} through the remote driver, status {status:#x}")
        return status, contents


class Sweep(unittest.TestCase):
    maxDiff = None

    def test_the_same_here_and_there(self):
        os.environ.update(LMQ_SIM_CLOCK="1", LMQ_SIM_TRAFFIC="1", LMQ_REMOTE_QUIET="1")
        contract = values.Contract(os.environ["LMQ_INTERFACE_JSON"], os.environ["LMQ_LAYOUT"])
        with hosting.Host(plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_HOST_DRIVER"], LMQ_SIM_CLOCK="1",
                          LMQ_SIM_TRAFFIC="1", ASAN_OPTIONS="detect_leaks=0") as host:
            os.environ["LMQ_URL"] = host.url
            chip = Both(contract, 3)
            with sweep.silent():
                chip.sweep(ROUNDS)
        ours = [finding for finding in sorted(chip.findings) if "remote" in finding]
        self.assertEqual("\n".join(ours), "")
        self.assertGreater(chip.calls, ROUNDS * len(contract.methods) / 2)
        succeeded = sum(map(bool, chip.succeeded.values()))
        self.assertGreater(succeeded, 0.75 * len(contract.methods), "functions that succeeded at least once")


if __name__ == "__main__":
    unittest.main()
