"""Writes what editors and mypy need to know the methods, members and enumerators of an interface:

    python3 -m lmq.stubs [--out typings] [HOST | interface.json]

The folder is where Pyright looks by itself; for mypy it is `mypy_path = typings`.
"""

import argparse
import pathlib
import sys

import lmq
from lmq.codec import Codecs
from lmq.method import Method

# What does not depend on the interface. Whoever changes the package's own functions changes them here too.
HEAD = '''"""Made by python3 -m lmq.stubs of the interface {fingerprint}. Do not edit."""

from typing import Any, Callable, Dict, Generic, Iterable, List, Optional, Sequence, Tuple, Type, TypeVar, Union
from types import TracebackType
from . import enums as _e, results as _r, structs as _s

T = TypeVar("T")

class Error(Exception): ...
class ArgumentError(Error, ValueError):
    text: str
    path: str
    method: str
class HostError(Error, OSError): ...
class Fault(Error):
    code: int
    text: str
    method: Optional[str]
class WaitTimeout(Error, TimeoutError):
    last: Any
class StatusError(Error):
    status: _e.vx_status_e
    method: str
    @property
    def output(self) -> Optional[str]: ...

Struct = _s.Struct
Result = _r.Result

class Interface:
    fingerprint: str

class Future(Generic[T]):
    def result(self) -> T: ...
    def exception(self) -> Optional[Error]: ...

class Snapshot:
    def __len__(self) -> int: ...
    def differences(self, other: Snapshot) -> List[Tuple[Any, ...]]: ...
    def restore(self) -> List[Tuple[str, Tuple[int, ...], Any]]: ...

def connect(target: Optional[str] = ..., *, user: Optional[str] = ..., password: Optional[str] = ...,
            cacert: Optional[Any] = ..., cert: Optional[Any] = ..., key: Optional[Any] = ..., timeout: float = ...,
            interface: Optional[Any] = ..., checked: bool = ...) -> Chip: ...

class _Context:
    def __enter__(self: T) -> T: ...
    def __exit__(self, kind: Optional[Type[BaseException]], value: Optional[BaseException],
                 traceback: Optional[TracebackType]) -> None: ...
'''
CHIP = '''
class Chip(_Context):
    url: str
    interface: Interface
    enums: Any
    simulated: Any
    @property
    def unchecked(self) -> Chip: ...
    def close(self) -> None: ...
    def raw(self, name: str, *arguments: Any) -> Tuple[List[Any], Optional[str]]: ...
    def on_call(self, heard: Callable[[str, Sequence[Any], Any, float], Any]) -> Callable[[], None]: ...
    def batch(self) -> Batch: ...
    def wait_until(self, name: str, *args: Any, timeout: float = ..., interval: float = ..., **members: Any) -> Any: ...
    def snapshot(self, methods: str = ...) -> Snapshot: ...
'''
BATCH = '''
class Batch(_Context):
    def __len__(self) -> int: ...
    def run(self) -> None: ...
'''
STRUCT = """class Struct(Dict[str, Any]):
    def flags(self) -> Optional[List[str]]: ...
    def __str__(self) -> str: ...
"""
IMPORTS = "from typing import Any, Dict, Iterable, List, Literal, Optional, Sequence, TypedDict, Union\n"


class Stubs:
    def __init__(self, interface):
        self.interface, self.codecs = interface, Codecs(interface)
        self.structs = {"Struct": STRUCT}

    def shape(self, said, count):
        return self.interface.shape(said, count is not None)

    # Types. `prefix` leads from the file that a type is named in to the one that declares it.

    def given(self, said, count, prefix="_s."):
        """The type of what can be given for an argument or member."""
        shape = self.shape(said, count)
        if shape == "struct":
            name = prefix + said["type"]
            text = ", str" if self.codecs.struct(said["type"]).is_address else ""
            one = f"Union[{name}, {name}_in{text}]"
        else:
            one = {"string": "Union[str, bytes]", "mac": "Union[str, bytes, Sequence[int]]", "ipv4": "Union[str, int]",
                   "ipv6": "Union[str, bytes, Sequence[int]]", "octets": "Union[str, bytes, Sequence[int]]",
                   "boolean": "int", "integer": "int", "enum": f"_e.{said.get('enum')}_in",
                   "flags": f"_e.{said.get('bits_of')}_in"}[shape]
        return one if count is None or shape in ("string", "mac", "ipv6", "octets") else f"Iterable[{one}]"

    def answered(self, said, count, prefix="_s."):
        """The type of what a result has."""
        shape = self.shape(said, count)
        if shape == "octets":
            return "str" if said.get("text") else "List[int]" if "count" in said else "bytes"
        one = {"struct": prefix + said["type"], "boolean": "bool", "integer": "int", "enum": f"_e.{said.get('enum')}",
               "flags": f"_e.{said.get('bits_of')}"}.get(shape, "str")
        return one if count is None or shape in ("string", "mac", "ipv6") else f"List[{one}]"

    def struct(self, name, members):
        """Declares a struct: a class for results, and a TypedDict for what is given."""
        fields = list(self.flat(name, members))
        self.structs[name] = (
            f"class {name}(Struct):\n" + ("".join(f"    {key}: {out}\n" for key, _, out in fields) or "    ...\n")
            + f"{name}_in = TypedDict({name + '_in'!r}, {{"
            + ", ".join(f"{key!r}: {given}" for key, given, _ in fields) + "}, total=False)\n")

    def flat(self, owner, members, prefix=""):
        """(name, type given, type answered) of the members, those of what has no name among them."""
        for member in members:
            name = member["name"]
            if "members" in member:
                if not name:
                    yield from self.flat(owner, member["members"], prefix)
                    continue
                inner = f"{owner}_{name}"
                if not prefix:
                    self.struct(inner, member["members"])
                yield name, f"Union[{prefix}{inner}, {prefix}{inner}_in]", prefix + inner
            elif member.get("flag"):
                yield name, "int", "bool" if member["bits"] == 1 else "int"
            else:
                count = member.get("count")
                yield name, self.given(member, count, prefix), self.answered(member, count, prefix)

    # Files.

    def enums_file(self):
        parts = ["from enum import IntEnum, IntFlag\n" + IMPORTS]
        for name in self.interface.enum_values:
            made = self.interface.enums[name]
            kind = made.__mro__[1].__name__
            values = self.interface.enum_values[name]["values"]
            members = "".join(f"    {each} = {said['value']}\n" for each, said in values.items())
            parts.append(f"class {name}({kind}):\n{members}")
            names = ", ".join(map(repr, values))
            more = ", str, Iterable[Union[int, str]]" if kind == "IntFlag" else ""
            parts.append(f"{name}_in = Union[{name}, int, Literal[{names}]{more}]\n")
        return "\n".join(parts)

    def structs_file(self):
        for name, said in self.interface.structs.items():
            self.struct(name, said["members"])
        return "\n".join([IMPORTS + "from . import enums as _e\n", *self.structs.values()])

    def methods(self):
        """The methods' signatures without what they answer, and the file of the results."""
        results = [IMPORTS + "from . import enums as _e, structs as _s\n",
                   "class Result(_s.Struct):\n    method: str\n    returned: Optional[int]\n"
                   "    @property\n    def output(self) -> Optional[str]: ...\n"]
        signatures = {}
        for name, said in self.interface.methods.items():
            method = Method(name, said, self.codecs)
            outputs = {each: self.answered(method.arguments[each], self.count(method.arguments[each]))
                       for each, *_ in method.outputs}
            base = f"{outputs[method.sole]}, Result" if method.sole else "Result"
            taken = self.codecs.struct(method.arguments[method.sole]["type"]).fields if method.sole else ()
            body = "".join(f"\n    {each}: {out}" for each, out in outputs.items() if each not in taken)
            results.append(f"class {name}_result({base}):{body or ' ...'}\n")
            signatures[name] = ", ".join(self.parameters(method)), said["brief"]
        return signatures, "\n".join(results)

    @staticmethod
    def count(argument):
        return None if argument["length"] in (None, 1) else argument["length"]

    def parameters(self, method):
        yield "self"
        signature = method.signature().parameters.values()
        optional = {each.name for each in signature if each.default is not each.empty}
        for name in method.inputs:
            argument = method.arguments[name]
            none = "Optional[{}]" if argument["pointer"] else "{}"
            default = " = ..." if name in optional else ""
            yield f"{name}: {none.format(self.given(argument, self.count(argument)))}{default}"
        if method.struct:
            struct = method.arguments[method.struct]["type"]
            members = [f"{name}: {given} = ..." for name, given, _ in
                       self.flat(struct, self.interface.structs[struct]["members"], "_s.") if name not in method.inputs]
            yield from ["*", *members] if members else []

    def main_file(self, signatures):
        status = self.interface.enums["vx_status_e"]
        parts = [HEAD.format(fingerprint=self.interface.fingerprint)]
        parts += [f"class {each.name}(StatusError): ...\n" for each in status if each.name.startswith("VX_ERR")]
        aliases = [(name, each.name) for name, each in status.__members__.items() if name != each.name]
        parts += [f"{name} = {canonical}\n" for name, canonical in aliases if canonical.startswith("VX_ERR")]
        parts += [f"{each}: _e.{name}\n" for name, said in self.interface.enum_values.items() for each in said["values"]
                  if name != "vx_status_e" or not each.startswith("VX_ERR")]
        for head, answer in ((CHIP, "_r.{}_result"), (BATCH, "Future[_r.{}_result]")):
            parts.append(head)
            parts += [f"    def {name}({parameters}) -> {answer.format(name)}:\n        {brief!r}\n"
                      for name, (parameters, brief) in signatures.items()]
        return "".join(parts)

    def write(self, folder):
        """Writes the package of stubs into a folder."""
        folder = pathlib.Path(folder, "lmq")
        folder.mkdir(parents=True, exist_ok=True)
        files = {"enums": self.enums_file(), "structs": self.structs_file()}
        signatures, files["results"] = self.methods()
        files["__init__"] = self.main_file(signatures)
        for name, text in files.items():
            (folder / f"{name}.pyi").write_text(text)
        return folder


def main():
    parser = argparse.ArgumentParser(prog="python3 -m lmq.stubs", description="Writes type stubs of an interface.")
    parser.add_argument("source", nargs="?",
                        help="a host's URL or a board's name, or interface.json (default: LMQ_URL)")
    parser.add_argument("--out", default="typings", metavar="DIR", help="the folder for them (default: typings)")
    options = parser.parse_args()
    try:
        if options.source and options.source.endswith(".json"):
            interface = lmq.Interface.of_file(options.source)
        else:
            interface = lmq.connect(options.source).interface
        print(Stubs(interface).write(options.out))
    except (lmq.Error, OSError) as error:
        sys.exit(f"lmq.stubs: {error}")


if __name__ == "__main__":
    main()
