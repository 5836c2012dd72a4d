"""The C of the driver interface: the text of the headers in include/lmq/, read without a compiler.

The contract is made of it, and the tests compare the plug-in with it, so nothing of the plug-in's own tables is used.
The reader knows the C that the headers are written in and no more: whatever else it meets, it refuses with the file and
the line. What the comments say is read by contract.py.
"""

import dataclasses
import pathlib
import re
import typing


class Refused(Exception):
    """Something in a header that this reader does not understand."""


class Token(typing.NamedTuple):
    kind: str
    text: str
    where: str  # for messages: what comes out of a macro stands where the macro was used
    glued: bool  # no space before it
    origin: tuple = ("", 0)  # file and line where it is written


TOKEN = re.compile(
    r"""(?P<space>(?:[ \t]|\\\n)+) | (?P<newline>\n) | (?P<comment>/\*.*?\*/|//[^\n]*)
      | (?P<name>[A-Za-z_]\w*) | (?P<number>\d\w*) | (?P<string>"(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)+')
      | (?P<mark><<|>>|::|->|\S)""",
    re.VERBOSE | re.DOTALL)


def tokens(path):
    """The tokens of a file with the ends of its lines, without comments."""
    return tokenized(path.read_text() + "\n", path.name)


def tokenized(text, name):
    """The tokens of a text that stands in the file of this name."""
    at, line, glued = 0, 1, False
    while at < len(text):
        match = TOKEN.match(text, at)
        at = match.end()
        if match.lastgroup in ("space", "comment"):
            glued = False
        else:
            yield Token(match.lastgroup, match.group(), f"{name}:{line}", glued, (name, line))
            glued = match.lastgroup != "newline"
        line += match.group().count("\n")


@dataclasses.dataclass
class Macro:
    parameters: list | None  # None: an object-like macro
    body: list


class Preprocessor:
    """Includes, conditions on names, and macros without # and ##. What stands in brackets is left as it is spelled."""

    def __init__(self, folder):
        self.folder = folder  # where "lmq/types.h" is looked for; None: includes are passed over
        self.macros = {}

    def read(self, path):
        """The tokens of a file after preprocessing."""
        out, run, conditions = [], [], []
        stream = list(tokens(path))
        at = 0
        while at < len(stream):
            line_end = next(i for i in range(at, len(stream)) if stream[i].kind == "newline")
            line, at = stream[at:line_end], line_end + 1
            if line and line[0].text == "#":
                out += self.expand(run)
                run = []
                self.directive(line, conditions, out)
            elif all(conditions):
                run += line
        if conditions:
            raise Refused(f"{path.name}: an #if without an #endif")
        return out + self.expand(run)

    def directive(self, line, conditions, out):
        where, word = line[0].where, line[1].text
        if word in ("ifdef", "ifndef"):
            conditions.append((line[2].text in self.macros) == (word == "ifdef"))
        elif word == "else":
            conditions[-1] = not conditions[-1]
        elif word == "endif":
            conditions.pop()
        elif not all(conditions):
            pass
        elif word == "define":
            self.macros[line[2].text] = self.macro(line[3:])
        elif word == "undef":
            del self.macros[line[2].text]
        elif word == "include":
            if self.folder is None:
                return
            if len(line) != 3 or line[2].kind != "string":
                raise Refused(f"{where}: an #include of something else than the interface")
            out += self.read(self.folder / line[2].text[1:-1])
        elif word != "pragma" or line[2].text != "once":
            raise Refused(f"{where}: #{word}")

    @staticmethod
    def macro(rest):
        if not rest or rest[0].text != "(" or not rest[0].glued:
            return Macro(None, rest)
        end = next(i for i, token in enumerate(rest) if token.text == ")")
        return Macro([token.text for token in rest[1:end] if token.text != ","], rest[end + 1:])

    def expand(self, run, hidden=frozenset()):
        out, at, brackets = [], 0, 0
        while at < len(run):
            token = run[at]
            at += 1
            brackets += (token.text == "[") - (token.text == "]")
            candidate = token.kind == "name" and token.text not in hidden and not brackets
            macro = self.macros.get(token.text) if candidate else None
            if macro is None:
                out.append(token)
                continue
            body = macro.body
            if macro.parameters is not None:
                if at == len(run) or run[at].text != "(":
                    out.append(token)
                    continue
                arguments, at = split(run, at)
                if len(arguments) != len(macro.parameters):
                    raise Refused(f"{token.where}: {token.text} takes {len(macro.parameters)} arguments")
                values = dict(zip(macro.parameters, arguments))
                body = [part for item in body for part in values.get(item.text, [item])]
            # What comes out of a macro is reported where the macro was used.
            out += self.expand([part._replace(where=token.where) for part in body], hidden | {token.text})
        return out


def split(run, at):
    """The parts between the parenthesis at `at` and its partner, cut at the commas, and the place behind it."""
    parts, depth, begin = [[]], 0, run[at].where
    while True:
        if at == len(run):
            raise Refused(f"{begin}: a parenthesis without its partner")
        token = run[at]
        at += 1
        closing = token.text in ")}]"
        depth -= closing
        if depth == 0 and closing:
            return ([] if parts == [[]] else parts), at
        if depth == 1 and token.text == ",":
            parts.append([])
        elif depth > 0:
            parts[-1].append(token)
        depth += token.text in "({["


def spell(run):
    """Tokens as a text: words with one space between them."""
    return re.sub(r" ?(::|[^\w\s\"]) ?", r"\1", " ".join(token.text for token in run)).replace(",", ", ")


@dataclasses.dataclass(frozen=True)
class Scalar:
    size: int  # in bytes
    signed: bool
    name: str  # in C


@dataclasses.dataclass(frozen=True)
class Bound:
    text: str  # as the header spells it
    value: int


@dataclasses.dataclass
class Member:
    name: str  # "" for an anonymous struct or union, whose members count as those of the record around it
    type: str  # "" for a struct or union declared in place
    inline: typing.Optional["Record"]
    bounds: list  # of one Bound for an array, else empty
    bits: int | None
    where: str
    begin: tuple = ("", 0)  # where its declaration begins: file and line
    end: tuple = ("", 0)  # where its name stands


@dataclasses.dataclass
class Record:
    kind: str  # "struct" or "union"
    members: list
    tag: str = ""  # the name behind the keyword, if there is one


@dataclasses.dataclass(frozen=True)
class Argument:
    type: str
    name: str
    pointer: bool  # declared with an asterisk; an array typedef is a pointer too, but is declared without


@dataclasses.dataclass(frozen=True)
class Function:
    returns: str
    name: str
    arguments: tuple
    begin: tuple = ("", 0)


BASE = {name: Scalar(size, signed, name) for name, size, signed in (
    ("char", 1, True), ("signed char", 1, True), ("unsigned char", 1, False), ("short", 2, True),
    ("unsigned short", 2, False), ("int", 4, True), ("unsigned int", 4, False), ("long long", 8, True),
    ("unsigned long long", 8, False))}
BASE_WORDS = {word for name in BASE for word in name.split()} | {"void"}


class Headers:
    """All headers of a folder, but for what no driver has: remote.h.

    functions, records, enums (enumerators with their values) and typedefs (type name and bounds) by name, in the order
    of declaration. A second name of a record stands among the records; seconds has the first name of each.
    """

    def __init__(self, include):
        self.functions, self.records, self.enums, self.typedefs, self.constants = {}, {}, {}, {}, {}
        self.origins = {}  # of records, enums, typedefs and enumerators by name: where the declaration begins
        self.seconds = {}
        self.preprocessor = Preprocessor(pathlib.Path(include))
        self.run = []
        for path in sorted(pathlib.Path(include, "lmq").glob("*.h")):
            if path.name != "remote.h":
                self.run += self.preprocessor.read(path)
        self.at = 0
        while self.at < len(self.run):
            self.declaration()

    # What a type name stands for.

    def resolve(self, name):
        """A Scalar, a Record, or for an array typedef a pair of the element's Scalar and the number of elements."""
        if name in BASE:
            return BASE[name]
        if name in self.enums:
            return BASE["int"]
        if name in self.records:
            return self.records[name]
        if name not in self.typedefs:
            raise Refused(f"no header declares the type {name}")
        target, bounds = self.typedefs[name]
        if not bounds:
            return self.resolve(target)
        if not isinstance(self.resolve(target), Scalar):
            raise Refused(f"the type {name} is no array of scalars")
        return self.resolve(target), bounds[0].value

    # The parser. Each function takes one thing off the front of the run.

    def peek(self, ahead=0):
        place = self.at + ahead
        return self.run[place].text if place < len(self.run) else ""

    def take(self, expected=None, kind=None):
        if self.at == len(self.run):
            raise Refused("the headers end in the middle of a declaration")
        token = self.run[self.at]
        if expected is not None and token.text != expected or kind is not None and token.kind != kind:
            raise Refused(f"{token.where}: '{token.text}' stands where {expected or 'a ' + kind} was expected")
        self.at += 1
        return token

    def declare(self, table, token, what):
        if token.text in table:
            raise Refused(f"{token.where}: {token.text} is declared twice")
        table[token.text] = what

    def declaration(self):
        begin = self.run[self.at].origin
        typedef = self.peek() == "typedef"
        if typedef:
            self.take()
        what = self.specifier()
        pointer = typedef and self.peek() == "*" and self.take().text
        name = self.take(kind="name")
        if typedef:
            self.origins[name.text] = begin
        if pointer:
            self.declare(self.typedefs, name, (f"{what} *", []))
        elif not typedef:
            if not isinstance(what, str):
                raise Refused(f"{name.where}: a struct, union or enum that is no typedef")
            self.declare(self.functions, name, Function(what, name.text, self.arguments(), begin))
        elif isinstance(what, dict):
            self.declare(self.enums, name, what)
        elif isinstance(what, Record):
            self.declare(self.records, name, what)
        elif what in self.records:
            self.declare(self.records, name, self.records[what])
            self.seconds[name.text] = what
        else:
            self.declare(self.typedefs, name, (what, self.bounds()))
        self.take(";")

    def specifier(self):
        """A type's name, or the Record or the enumerators that stand in its place."""
        if self.peek() in ("struct", "union"):
            return self.record()
        if self.peek() == "enum":
            return self.enum()
        first = self.take(kind="name")
        words = [first.text]
        while words[0] in BASE_WORDS and self.peek() in BASE_WORDS:
            words.append(self.take().text)
        name = " ".join(words)
        if name != "void":
            try:
                self.resolve(name)
            except Refused as refused:
                raise Refused(f"{first.where}: {refused}") from None
        return name

    def record(self):
        kind, tag = self.take().text, ""
        if self.peek() != "{":
            tag = self.take(kind="name").text
        self.take("{")
        members = []
        while self.peek() != "}":
            where, begin = self.run[self.at].where, self.run[self.at].origin
            what = self.specifier()
            named, inline = (what, None) if isinstance(what, str) else ("", what)
            if inline and self.peek() == ";":
                members.append(Member("", "", inline, [], None, where, begin, self.run[self.at].origin))
            while self.peek() != ";":
                name = self.take(kind="name")
                bits = self.constant(self.until(",", ";")) if self.peek() == ":" and self.take() else None
                members.append(Member(name.text, named, inline, self.bounds(), bits, where, begin, name.origin))
                if inline and members[-1].bounds:
                    raise Refused(f"{where}: an array of a struct or union that has no name")
                if self.peek() != ";":
                    self.take(",")
            self.take(";")
        self.take("}")
        return Record(kind, members, tag)

    def enum(self):
        self.take("enum")
        if self.peek() != "{":
            self.take(kind="name")
        self.take("{")
        enumerators, following = {}, 0
        while self.peek() != "}":
            name = self.take(kind="name")
            if self.peek() == "=":
                self.take()
                following = self.constant(self.until(",", "}"))
            enumerators[name.text] = following
            self.origins[name.text] = name.origin
            self.declare(self.constants, name, following)
            following += 1
            if self.peek() != "}":
                self.take(",")
        self.take("}")
        return enumerators

    def arguments(self):
        self.take("(")
        arguments = []
        if self.peek() == "void" and self.peek(1) == ")":
            self.take()
        while self.peek() != ")":
            what = self.specifier()
            pointer = self.peek() == "*" and bool(self.take())
            name = self.take(kind="name")
            if not isinstance(what, str) or what == "void" and not pointer:
                raise Refused(f"{name.where}: the type of the argument {name.text}")
            arguments.append(Argument(what, name.text, pointer))
            if self.peek() != ")":
                self.take(",")
        self.take(")")
        return tuple(arguments)

    def bounds(self):
        bounds = []
        while self.peek() == "[":
            self.take()
            run = self.until("]")
            self.take("]")
            bounds.append(Bound(spell(run), self.constant(run)))
        if len(bounds) > 1:
            raise Refused(f"{self.run[self.at].where}: an array of arrays")
        return bounds

    def until(self, *ends):
        begin, depth = self.at, 0
        while self.peek() not in ends or depth:
            depth += (self.peek() == "(") - (self.peek() == ")")
            self.take()
        return self.run[begin:self.at]

    def constant(self, run):
        """The value of a constant expression. Casts are passed over, as the numbers fit them."""
        text, run, at = "", self.preprocessor.expand(run), 0
        while at < len(run):
            token = run[at]
            at += 1
            behind = [each.text for each in run[at:at + 2]]
            if token.text == "(" and behind[1:] == [")"] and behind[0] in self.typedefs:
                at += 2
            elif token.kind == "number":
                text += str(int(token.text.rstrip("uUlL"), 0))
            elif token.text in self.constants:
                text += f"({self.constants[token.text]})"
            elif token.text in ("+", "-", "*", "|", "&", "~", "<<", ">>", "(", ")"):
                text += token.text
            else:
                raise Refused(f"{token.where}: '{token.text}' in a constant expression")
        if not text:
            raise Refused("a constant expression is missing")
        return eval(text, {"__builtins__": {}})  # digits and operators alone, as tested above
