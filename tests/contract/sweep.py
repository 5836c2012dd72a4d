"""Proof that the contract is true: every function of the simulated chip, called through C, over and over.

Each buffer is cut to the length that the contract says and stands between guard bytes. Nothing outside may be written, no
input may be changed, and a call that succeeds leaves no output unwritten. The values are random ones within the contract,
from a fixed seed; what the chip gives out comes back as ids.

LMQ_DRIVER, LMQ_INTERFACE_JSON and LMQ_LAYOUT say where driver, contract and layouts are.
"""

import contextlib
import copy
import ctypes
import os
import pathlib
import random
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import values  # noqa: E402

GUARD = 512  # more than the longest transfer, so that what runs over is seen and harms nothing else
PATTERNS = (0xA5, 0x5A)

# Functions that may never succeed here, and why. All others must.
UNREACHED = {
    "lmq_init_device": "the device is up", "vx_init": "the device is up",
    "lmq_add_nat_entry": "not supported by the chip", "lmq_del_nat_entry": "not supported by the chip",
    "vx_tod_send": "not supported by the chip", "vx_tod_string_update": "not supported by the chip",
    "vx_gpon_onu_ploam_ds_get": "no message is there",
    **dict.fromkeys(("vx_mcast_vlan_config_set", "vx_mcast_ip_entry_add", "vx_mcast_ip_entry_delete",
                     "vx_mcast_l2_entry_delete", "vx_mcast_acl_add", "vx_mcast_acl_delete",
                     "lmq_dbg_set_mcast_filter_config"), "random addresses are no multicast groups of a VLAN that is there"),
    **dict.fromkeys(("lmq_delete_port_from_cpu_pkt_trap", "vx_rate_policer_group_member_delete", "lmq_delete_dev_ip_addr",
                     "lmq_delete_dev_ip_gateway", "vx_l3_ipintf_port_del", "vx_vid_pbit_2gem_get", "vx_sw_vlan_del"),
                    "seldom is what they name there"),
}


class Finding(Exception):
    """Something that the contract does not allow."""


class Chip:
    """The driver in this process, as a C program calls it."""

    def __init__(self, library, contract, seed):
        self.library = ctypes.CDLL(library)
        self.contract, self.memory = contract, values.Memory(contract)
        self.generator = values.Generator(contract, random.Random(seed))
        self.pattern = PATTERNS[0]  # what the outputs hold before a call
        self.succeeded = {name: 0 for name in contract.methods}
        self.kept = set()  # the outputs of the last call that kept the pattern, as findings
        self.findings = set()

    def argument(self, said, sent):
        """What C is handed: a number, or a buffer between guards."""
        size = self.contract.size(said["type"])
        if not said["pointer"]:
            kind = {1: ctypes.c_uint8, 2: ctypes.c_uint16, 4: ctypes.c_uint32}[size]
            return kind(sent & (1 << 8 * size) - 1), None
        if not sent:
            return None, None
        image = bytearray([self.pattern]) * (len(sent) * size)
        if said["direction"] != "out":
            image = bytearray(len(sent) * size)
            self.memory.put(said["type"], sent, image, 0)
        whole = bytes([0xC3]) * GUARD + bytes(image) + bytes([0xC3]) * GUARD
        buffer = ctypes.create_string_buffer(whole, len(whole))
        return ctypes.c_void_p(ctypes.addressof(buffer) + GUARD), (buffer, bytes(image))

    def call(self, name, sent=None):
        """Calls a function, by itself with values of the contract. Returns its status and the buffers' contents.

        An output that kept the pattern may hold that value by chance: the same call is made once more with another pattern.
        """
        method = self.contract.methods[name]
        sent = self.generator.arguments(method) if sent is None else sent
        answer = self.once(name, method, sent)
        if self.kept:
            first, usual = self.kept, self.pattern
            self.pattern = PATTERNS[not PATTERNS.index(usual)]
            self.once(name, method, sent)
            self.findings |= first & self.kept
            self.pattern, self.kept = usual, set()
        return answer

    def once(self, name, method, sent):
        self.kept = set()
        passed = [self.argument(said, value) for said, value in zip(method["arguments"], sent)]
        function = getattr(self.library, name)
        function.restype = None if method["returns"] == "void" else ctypes.c_int32
        status = function(*[each for each, _ in passed])
        contents = []
        for said, (_, kept) in zip(method["arguments"], passed):
            contents.append(kept and self.check(name, said, *kept))
        if not status or not method.get("result", "").startswith(("VX_SUCCESS", "VX_OK")):
            self.succeeded[name] += 1
            self.generator.accept(method, sent)
            self.look(name, method, passed, contents)
        return status, contents

    def check(self, name, said, buffer, before):
        """Looks at the guards and at inputs. Returns what the buffer holds."""
        raw = buffer.raw
        inside = raw[GUARD:GUARD + len(before)]
        if raw[:GUARD] != bytes([0xC3]) * GUARD or raw[GUARD + len(before):] != bytes([0xC3]) * GUARD:
            self.findings.add(f"{name} writes outside of {said['name']}")
        if said["direction"] == "in" and inside != before:
            self.findings.add(f"{name} changes its input {said['name']}")
        return inside

    def look(self, name, method, passed, contents):
        """After a success: what was answered, and what was left unwritten."""
        by_name = {said["name"]: (said, inside) for said, inside in zip(method["arguments"], contents)}
        for said, inside in by_name.values():
            if inside is not None and said["direction"] != "in":
                size = self.contract.size(said["type"])
                count = len(inside) // size
                if "filled" in said:
                    other, answered = by_name[said["filled"].lstrip("*")]
                    count = min(count, self.memory.get(other["type"], answered, 0))
                for at in range(0, count * size, size):
                    self.generator.learn(said, self.memory.get(said["type"], inside, at))
                    if said["direction"] == "out":
                        self.unwritten(name, said, inside, at)

    def unwritten(self, name, said, inside, at):
        leaves = list(self.memory.leaves(said["type"])) if said["type"] in self.contract.structs else [("", said, 0)]
        for place, leaf, offset in leaves:
            length = self.contract.size(leaf["type"]) * (leaf.get("count", 1) if place else 1)
            if inside[at + offset:at + offset + length] == bytes([self.pattern]) * length:
                self.kept.add(f"{name} leaves {said['name']}{place and '.'}{place} unwritten")

    def start(self):
        self.call("lmq_shutdown_system")
        config = {"num_dev": 1, "dev_cfg": [{"enbl": 1}, *[{}] * (self.devices() - 1)]}
        status, _ = self.call("lmq_init_system", [[config]])
        if status:
            raise Finding(f"lmq_init_system answered {status:#x}")

    def devices(self):
        members = self.contract.structs["vx_startup_cfg_t"]["members"]
        return next(member["count"] for member in members if member["name"] == "dev_cfg")

    def sweep(self, rounds):
        """Calls everything so many times; what resets, seldom."""
        names = sorted(self.contract.methods)
        shuffle = random.Random(self.generator.random.random())
        self.start()
        for number in range(rounds):
            self.pattern = PATTERNS[number % 2]
            shuffle.shuffle(names)
            for name in names:
                # What takes everything away, seldom, or there would be nothing to look at.
                resets = self.contract.methods[name]["effect"] == "resets"
                seldom = resets or "clear" in name or "delete" in name or name.endswith("_del")
                if seldom and shuffle.random() > (0.03 if resets else 0.3):
                    continue
                self.call(name)
                if resets:
                    self.start()


@contextlib.contextmanager
def silent():
    """What the driver prints goes nowhere."""
    sys.stdout.flush()
    kept = os.dup(1), os.dup(2)
    nowhere = os.open(os.devnull, os.O_WRONLY)
    os.dup2(nowhere, 1), os.dup2(nowhere, 2)
    try:
        yield
    finally:
        for descriptor, copied in zip((1, 2), kept):
            os.dup2(copied, descriptor)
            os.close(copied)
        os.close(nowhere)


def swept(contract, rounds, seed=1):
    os.environ.update(LMQ_SIM_CLOCK="1", LMQ_SIM_TRAFFIC="1")
    chip = Chip(os.environ["LMQ_DRIVER"], contract, seed)
    with silent():
        chip.sweep(rounds)
    return chip


class Sweep(unittest.TestCase):
    contract = values.Contract(os.environ["LMQ_INTERFACE_JSON"], os.environ["LMQ_LAYOUT"])

    def test_the_contract_is_true(self):
        chip = swept(self.contract, 100)
        self.assertEqual(sorted(chip.findings), [])
        never = {name for name, times in chip.succeeded.items() if not times}
        self.assertEqual(never - set(UNREACHED), set(), "functions that never succeed; UNREACHED names those that may")

    def test_a_wrong_contract_is_caught(self):
        """Lengths and directions that are wrong on purpose, each in a process of its own."""
        def shorter(argument):
            argument["length"] = 1

        def other_way(argument):
            argument["direction"] = "in" if argument["direction"] == "out" else "out"

        for name, number, change, finding in (
                ("vx_i2c_read", 4, shorter, "vx_i2c_read writes outside of p_rx_data"),
                ("vx_watchdog_get", 1, other_way, "vx_watchdog_get changes its input p_cfg"),
                ("vx_i2c_write", 4, other_way, "vx_i2c_write leaves p_tx_data unwritten")):
            with self.subTest(name):
                wrong = copy.copy(self.contract)
                wrong.methods = copy.deepcopy(self.contract.methods)
                change(wrong.methods[name]["arguments"][number])
                wrong.methods = {each: wrong.methods[each] for each in
                                 (name, "vx_i2c_enable_set", "lmq_init_system", "lmq_shutdown_system")}
                self.assertIn(finding, self.in_a_process(wrong))

    def in_a_process(self, contract):
        """The findings of a short sweep; a program that has written outside of its buffers is not gone on with."""
        with tempfile.TemporaryFile("w+") as file:
            child = os.fork()
            if child == 0:
                file.write("\n".join(swept(contract, 60).findings))
                file.flush()
                os._exit(0)
            os.waitpid(child, 0)
            file.seek(0)
            return file.read().splitlines()


if __name__ == "__main__":
    unittest.main()
