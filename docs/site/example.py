"""Calls to copy: a method as a line for lmqctl and as a line of Python, with arguments that the contract allows."""

import json
import shlex


class Examples:
    def __init__(self, words):
        self.words = words
        self.interface = words.interface

    def lmqctl(self, name):
        """The line; what the driver writes alone is left out, and so are flags, which lmqctl sets."""
        line, named = ["lmqctl", "call", name], False
        for argument, value in self.values(name).items():
            if isinstance(value, dict) and value:
                line += [f"{argument}.{member}={self.plain(each)}" for member, each in value.items()]
                named = True
            else:
                word = self.plain(value)
                line.append(f"{argument}={word}" if named else word)
        return " ".join(shlex.quote(word) for word in line)

    def python(self, name):
        """The line; the members of the one struct stand as keywords."""
        values = self.values(name)
        structs = [argument for argument, value in values.items() if isinstance(value, dict)]
        given, named = [], False
        for argument, value in values.items():
            if structs == [argument] and value and not value.keys() & values.keys():
                given += [f"{key}={member!r}" for key, member in value.items()]
                named = True
            else:
                given.append(f"{argument}={value!r}" if named else repr(value))
        return f"chip.{name}({', '.join(given)})"

    @staticmethod
    def plain(value):
        return "NULL" if value is None else value if isinstance(value, str) else json.dumps(value)

    def values(self, name):
        """The arguments that a caller gives, with a value each. A count and its list agree."""
        inputs = [each for each in self.interface["methods"][name]["arguments"] if each["direction"] != "out"]
        values = {each["name"]: self.value(each) for each in inputs}
        for each in inputs:
            count = str(each.get("length")).lstrip("*")
            if count in values and isinstance(values[each["name"]], list):
                values[count] = max(values[count], 1)
                values[each["name"]] *= values[count] * each.get("times", 1)
        return values

    def value(self, item):
        base = self.words.scalar(item["type"])
        if item["type"] == "void":
            return None
        if item["type"] in self.interface["structs"]:
            single = self.members(self.interface["structs"][item["type"]])
        elif item.get("mac"):
            return "02:00:5e:10:00:01"
        else:
            single = self.number(item)
        many = item.get("count") or (item["length"] if item.get("pointer") else 1)
        if base == "char" and many != 1:
            return "text"
        if many == 1:
            return single
        return [single] * (1 if isinstance(many, str) else many)

    def number(self, item):
        said = {**self.interface["ids"].get(item.get("id"), {}), **item}
        enum = item.get("enum") or item.get("bits_of")
        if enum:
            values = self.interface["enums"][enum]["values"]
            low, high = said.get("range", (min(each["value"] for each in values.values()), 1 << 32))
            return next(each for each, value in values.items() if low <= value["value"] <= high)
        if "range" in said:
            return max(said["range"][0], min(said["range"][1], 0))
        return 1 if item["type"] == "vx_boolean" or item.get("id") in ("flow", "bridge-port") else 0

    def members(self, struct):
        """The first two members of a struct that are plain values."""
        plain = [each for each in struct["members"]
                 if each["type"] and each["type"] not in self.interface["structs"] and "flag" not in each
                 and "count" not in each and not each["name"].startswith("reserved")]
        return {each["name"]: self.number(each) for each in plain[:2] if not each.get("mac")}

