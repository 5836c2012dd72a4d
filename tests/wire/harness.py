"""A host with the probe driver behind the plug-in, and Python's own XML-RPC client in front of it.

CTest sets the variables that say where the host, the plug-in, the probe driver, the headers and the layout of the UDTs
are. The other end of the probe is tests/probe/probe.h.
"""

import dataclasses
import json
import mmap
import os
import pathlib
import struct
import sys
import tempfile
import unittest
import xmlrpc.client

TESTS = pathlib.Path(__file__).parent.parent
sys.path[:0] = [str(TESTS), str(TESTS.parent / "interface")]
import headers  # noqa: E402
import hosting  # noqa: E402

TYPE_FAULT = -501
COUNT_FAULT = -509


def interface():
    """The headers, as interface/headers.py reads them, with what clients see of them: a real driver's may declare more,
    and members in another order than that in which they travel."""
    read = headers.Headers(os.environ["LMQ_INCLUDE"])
    seen = headers.Headers(os.environ["LMQ_CLIENT_INCLUDE"])
    arranged = {}  # by the record's identity, which two names may share

    def arrange(record, like):
        if id(record) not in arranged:
            arranged[id(record)] = headers.Record(record.kind, list(members(record, like)), record.tag)
        return arranged[id(record)]

    def members(record, like):
        for member in like.members:
            same = [each for each in like.members if each.name == member.name].index(member)  # several without a name
            found = [each for each in record.members if each.name == member.name][same]
            yield dataclasses.replace(found, inline=arrange(found.inline, member.inline)) if found.inline else found

    read.functions = {name: read.functions[name] for name in seen.functions}
    read.records = {name: arrange(read.records[name], like) for name, like in seen.records.items()}
    return read


def layout():
    """Where the compiler put the members of each UDT; see tests/probe/generate.py. It must be the plug-in's compiler."""
    layouts = json.loads(pathlib.Path(os.environ["LMQ_LAYOUT"]).read_text())
    with open(os.environ["LMQ_PLUGIN"], "rb") as plugin:
        elf_class = plugin.read(5)[4]  # 1: of 32 bits, 2: of 64
    if layouts.pop("void *")[""] != 4 * elf_class:
        raise AssertionError("the layouts were made for another target than the plug-in")
    return layouts


class I8(int):
    """An i8 on the wire, in either direction. Python's client sends every int as an int and reads both alike."""


xmlrpc.client.Marshaller.dispatch[I8] = lambda _, value, write: write(f"<value><i8>{int(value)}</i8></value>")


def read_i8(unmarshaller, text):
    unmarshaller.append(I8(text))
    unmarshaller._value = 0


xmlrpc.client.Unmarshaller.dispatch["i8"] = read_i8

# One value of each form that a client can send.
FORMS = {
    "an int": 7,
    "a boolean": True,
    "a double": 1.5,
    "a string": "7",
    "a date": xmlrpc.client.DateTime("20200102T03:04:05"),
    "a base64": xmlrpc.client.Binary(b"\x07"),
    "a nil": None,
    "an i8": I8(7),
    "an array": [7],
    "a struct": {},
}


class Probe:
    """The file that the probe driver shares with the test: what it was handed, and what it is to do."""

    BYTES = 1 << 20
    HEAD = struct.Struct("=q64sII")
    ARGUMENT = struct.Struct("=qIIII")
    ARGUMENTS = 8

    def __init__(self, path):
        with open(path, "w+b") as file:
            file.truncate(self.HEAD.size + self.ARGUMENTS * self.step)
            self.memory = mmap.mmap(file.fileno(), 0)

    @property
    def step(self):
        return self.ARGUMENT.size + 2 * self.BYTES

    def order(self, result, units, fills):
        """What the next call returns; for each argument, how many elements to record and the bytes to leave in them."""
        struct.pack_into("=q", self.memory, 0, result)
        for position, (count, fill) in enumerate(zip(units, fills)):
            at = self.HEAD.size + position * self.step
            self.ARGUMENT.pack_into(self.memory, at, 0, 0, 0, count, len(fill))
            at += self.ARGUMENT.size + self.BYTES
            self.memory[at:at + len(fill)] = fill

    def calls(self):
        return self.HEAD.unpack_from(self.memory)[2]

    def record(self):
        """The last call: the function's name and its arguments, as an int, the bytes of a block, or None for NULL."""
        _, name, _, count = self.HEAD.unpack_from(self.memory)
        arguments = []
        for position in range(count):
            at = self.HEAD.size + position * self.step
            value, is_null, size, units, _ = self.ARGUMENT.unpack_from(self.memory, at)
            at += self.ARGUMENT.size
            arguments.append(None if is_null else self.memory[at:at + size] if units else value)
        return name.split(b"\0")[0].decode(), arguments


def difference(expected, got, path=""):
    """Where two values of the wire first differ: in form, value, length or order of keys. "" if nowhere."""
    if type(expected) is not type(got):
        return f"{path}: {got!r}, expected {expected!r}"
    if isinstance(expected, dict):
        if list(expected) != list(got):
            return f"{path}: keys {list(got)}, expected {list(expected)}"
        return next(filter(None, (difference(expected[key], got[key], f"{path}.{key}") for key in expected)), "")
    if isinstance(expected, list):
        if len(expected) != len(got):
            return f"{path}: {len(got)} items, expected {len(expected)}"
        return next(filter(None, (difference(*pair, f"{path}[{i}]") for i, pair in enumerate(zip(expected, got)))), "")
    return "" if expected == got else f"{path}: {got!r}, expected {expected!r}"


class WireTest(unittest.TestCase):
    """Tests that share one host. A host that ends early, or not in order, is a failure of its own."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.probe = Probe(pathlib.Path(folder.name, "probe"))
        # A faulted call's values are lost: that is a rule of the interface, not a leak to report.
        # What the plug-in does with arrays of any length is looked at here, so the host does not guard.
        cls.host = hosting.Host("--no-guard", plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_PROBE_DRIVER"],
                                LMQ_PROBE=str(pathlib.Path(folder.name, "probe")), ASAN_OPTIONS="detect_leaks=0")
        cls.addClassCleanup(cls.host.close)
        cls.url = cls.host.url
        cls.proxy = xmlrpc.client.ServerProxy(cls.url, allow_none=True)
        cls.addClassCleanup(cls.proxy("close"))

    def ask(self, method, arguments):
        """Calls a method. Returns its answer, or a Fault."""
        try:
            return getattr(self.proxy, method)(*arguments)
        except xmlrpc.client.Fault as fault:
            return fault
        except (OSError, xmlrpc.client.ProtocolError) as error:
            self.host.check()
            raise AssertionError(f"{method}{shown(arguments)}: {error!r}") from error

    def refused(self, function, arguments, code, text):
        """A call must be answered with this fault, and the driver not be called."""
        before = self.probe.calls()
        answer = self.ask(f"lmq.{function}", arguments)
        said = f"{function}{shown(arguments)}"
        if not isinstance(answer, xmlrpc.client.Fault):
            self.fail(f"{said}: no fault, but {answer}")
        self.assertEqual((answer.faultCode, answer.faultString), (code, text), said)
        self.assertEqual(self.probe.calls(), before, f"{said}: the driver was called before the fault")

    def accepted(self, function, arguments, units, fills, result=0):
        """A call must reach the driver once. Returns the arguments that it was handed, and the answer."""
        said = f"{function}{shown(arguments)}"
        before = self.probe.calls()
        self.probe.order(result, units, fills)
        answer = self.ask(f"lmq.{function}", arguments)
        if isinstance(answer, xmlrpc.client.Fault):
            self.fail(f"{said}: fault {answer.faultCode}, {answer.faultString}")
        self.assertEqual(self.probe.calls(), before + 1, f"{said}: calls of the driver")
        name, handed = self.probe.record()
        self.assertEqual(name, function, f"{said}: another driver function was called")
        return handed, answer


def shown(arguments):
    """Arguments for a message, cut where they are long."""
    text = ", ".join(repr(argument) for argument in arguments)
    return f"({text if len(text) < 300 else text[:300] + ' ...'})"
