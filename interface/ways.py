"""What is made, and not only set: how a call is read back, undone and changed, from the paragraphs of its comment.

    @par Read back: READER(ARGUMENT=CONSTANT, ...): ARGUMENT=WHERE, ... if WHERE!=CONSTANT
    @par Undone by: FUNCTION(ARGUMENT=WHAT, ...)
    @par Changed by: FUNCTION(KEY, ...)

CONTRIBUTING.md describes them. What they leave open follows from names, types and kinds of ids; here it is worked out,
so that interface.json has an entry for each argument.
"""

import re

TITLES = {"Read back": "read_back", "Undone by": "undone_by", "Changed by": "changed_by"}
PATH = re.compile(r"(#?)(\w+)((?:\.\w+|\[\w*\]|\{\})*)")


class Wrong(Exception):
    """What is wrong, for people."""


class Ways:
    """Resolves the paragraphs of one method."""

    def __init__(self, reader, name, texts):
        self.reader, self.name, self.texts = reader, name, texts
        self.methods, self.structs = reader.interface["methods"], reader.interface["structs"]
        self.method = self.methods[name]
        self.arguments = {argument["name"]: argument for argument in self.method["arguments"]}

    def resolve(self):
        """Adds to the method what its paragraphs say."""
        for title, text in self.texts.items():
            try:
                if self.method["effect"] != "changes":
                    raise Wrong("only goes with what changes")
                self.method[TITLES[title]] = getattr(self, TITLES[title])(text)
            except Wrong as wrong:
                self.reader.problems.add(self.reader.c.functions[self.name].begin,
                                         f"{self.name}: '@par {title}:' {wrong}")
        if ("undone_by" in self.method or "changed_by" in self.method) and "read_back" not in self.method:
            self.reader.problems.add(self.reader.c.functions[self.name].begin,
                                     f"{self.name}: what can be undone or changed has to be read back, too")

    def called(self, text):
        """NAME(INSIDE)REST, taken apart; the method with its arguments by name."""
        match = re.fullmatch(r"(\w+)(?:\(([^()]*)\))?(.*)", text)
        if not match or match.group(1) not in self.methods:
            raise Wrong(f"names no function: {text}")
        name, inside, rest = match.groups()
        arguments = {argument["name"]: argument for argument in self.methods[name]["arguments"]}
        return name, re.split(r"\s*,\s*", inside) if inside else [], rest, arguments

    def number(self, text):
        problems = len(self.reader.problems)
        value = self.reader.constant(text, self.reader.c.functions[self.name].begin)
        if value is None:
            del self.reader.problems[problems:]
            raise Wrong(f"has neither a place nor a constant: {text}")
        return value

    # Places inside arguments.

    def members(self, entry):
        return {member["name"]: member
                for member in entry.get("members") or self.structs.get(entry["type"], {}).get("members", [])}

    def place(self, text, arguments):
        """The entry that a path leads to."""
        match = PATH.fullmatch(text)
        if not match or match.group(2) not in arguments:
            raise Wrong(f"names no argument: {text}")
        entry, around = arguments[match.group(2)], arguments
        for step in re.findall(r"\.\w+|\[\w*\]|\{\}", match.group(3)):
            if step.startswith("."):
                around = self.members(entry)
                if step[1:] not in around:
                    raise Wrong(f"has no member {step[1:]} in {text}")
                entry = around[step[1:]]
            elif step.startswith("[") and step != "[]" and step[1:-1] not in around:
                raise Wrong(f"counts by {step[1:-1]}, which is not beside it, in {text}")
        return entry

    def from_place(self, target, path, source, given, what):
        """The source of a value: the path, or for another struct the paths of its members."""
        struct = self.structs.get(target["type"])
        if path.startswith("#") or not struct or source["type"] == target["type"]:
            return path
        theirs, members = self.members(source), {}
        for member in struct["members"]:
            if member.get("mask") or f"{what}.{member['name']}" in given:
                continue
            if member["name"] not in theirs:
                raise Wrong(f"does not say where {what}.{member['name']} is")
            members[member["name"]] = f"{path}.{member['name']}"
        return members

    @staticmethod
    def same_kind(entry, arguments):
        """The one argument that holds an id of the same kind."""
        found = [each["name"] for each in arguments.values() if "id" in entry and each.get("id") == entry["id"]]
        return found[0] if len(found) == 1 else None

    # The paragraphs.

    def read_back(self, text):
        name, inside, rest, theirs = self.called(text)
        match = re.fullmatch(r"(?:: (.*?))?(?: if (\S+?)(!?=)(\w+))?", rest)
        if not match:
            raise Wrong(f"is not in its form: {rest}")
        made = {"by": name, "with": {}, "walk": {}, "arguments": {}}
        if self.methods[name]["effect"] != "reads":
            raise Wrong(f"names {name}, which does not only read")
        for each in inside:
            argument, _, value = each.partition("=")
            if argument not in theirs:
                raise Wrong(f"names no argument of {name}: {argument}")
            key, value = ("walk", value) if value in theirs else ("with", self.number(value))
            made[key][argument] = value
        given = dict(each.split("=", 1) for each in re.split(r"\s*,\s*", match.group(1))) if match.group(1) else {}
        for target, argument in self.arguments.items():
            source = given.get(target) or (target if target in theirs else self.same_kind(argument, theirs))
            inner = {key: each for key, each in given.items() if key.startswith(target + ".")}
            if argument["direction"] != "in" and (source is None or "id" not in argument):
                continue
            if source is None and not inner:
                raise Wrong(f"does not say where {target} is")
            value = {} if source is None else self.source(argument, source, theirs, given, target)
            for key, each in inner.items():
                value[key[len(target) + 1:]] = self.source(self.place(key, self.arguments), each, theirs, given, key)
            made["arguments"][target] = value
        if unknown := [key for key in given if key.split(".")[0] not in self.arguments]:
            raise Wrong(f"names no argument: {unknown[0]}")
        if match.group(2):
            self.place(match.group(2), theirs)
            made["if"] = [match.group(2), match.group(3), self.number(match.group(4))]
        return {key: value for key, value in made.items() if value or key == "arguments"}

    def source(self, target, text, theirs, given, what):
        match = PATH.fullmatch(text)
        if not match or match.group(2) not in theirs:
            return self.number(text)
        return self.from_place(target, text, self.place(text, theirs), given, what)

    def arguments_of(self, name, theirs, given):
        """What a call takes that undoes or changes: places in the arguments of this one, or numbers."""
        made = {}
        for target, argument in theirs.items():
            if argument["direction"] != "in":
                continue
            source = given.get(target) or (target if target in self.arguments
                                           else self.same_kind(argument, self.arguments))
            if source is None:
                raise Wrong(f"does not say what {target} of {name} is")
            match = PATH.fullmatch(source)
            made[target] = source if match and match.group(2) in self.arguments else self.number(source)
            if made[target] == source:
                self.place(source, self.arguments)
        for target, source in given.items():
            if "." in target:  # a member that is otherwise
                self.place(target, theirs)
                made[target] = self.number(source)
            elif target not in theirs:
                raise Wrong(f"names no argument of {name}: {target}")
        return made

    def undone_by(self, text):
        name, inside, rest, theirs = self.called(text)
        if rest or any("=" not in each for each in inside):
            raise Wrong(f"is not in its form: {text}")
        return {"by": name, "arguments": self.arguments_of(name, theirs, dict(each.split("=", 1) for each in inside))}

    def changed_by(self, text):
        name, inside, rest, theirs = self.called(text)
        if rest or not inside or any(each not in self.arguments for each in inside):
            raise Wrong(f"is not FUNCTION(ARGUMENT, ...): {text}")
        return {"by": name, "keys": inside, "arguments": self.arguments_of(name, theirs, {})}
