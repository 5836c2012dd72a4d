"""Words of the reference: names that link to their pages, and what the contract says of a value, as Markdown.

Every page of the reference lies at reference/KIND/NAME.md, so that "../KIND/NAME.md" leads from each to any other.
"""

import re

NAME = re.compile(r"[A-Za-z_][A-Za-z0-9_]{3,}")
CODE = re.compile(r"(`[^`]*`)")
KINDS = ("methods", "structs", "enums")


class Words:
    """What a name leads to."""

    def __init__(self, interface, constants):
        """@param constants The names of the headers' constants."""
        self.interface = interface
        self.places = {name: f"../{kind}/{name}.md" for kind in KINDS for name in interface[kind]}
        self.places |= {name: f"../types/README.md#{name}" for name in interface["typedefs"]}
        self.places |= {name: f"../constants/README.md#{name}" for name in constants}
        for enum, said in interface["enums"].items():
            self.places |= {name: f"../enums/{enum}.md#{name}" for name in said["values"]}

    def name(self, name, own=None, behind=""):
        """A name as code, with a link unless it is the page's own, and with what stands behind it."""
        place = self.places.get(name)
        return f"[`{name}{behind}`]({place})" if place and name != own else f"`{name}{behind}`"

    def text(self, text, own=None):
        """A sentence or paragraphs of a comment: names of the interface become links."""
        parts = CODE.split(text)
        for at in range(0, len(parts), 2):
            plain = re.sub(r"([\\*<|\[\]])", r"\\\1", parts[at])
            parts[at] = NAME.sub(lambda found: self.name(found[0], own) if found[0] in self.places else found[0], plain)
        for at in range(1, len(parts), 2):
            known = parts[at].strip("`")
            parts[at] = self.name(known, own) if known in self.places else parts[at].replace("|", "\\|")
        return "".join(parts)

    def scalar(self, type_name):
        """The C type behind a typedef: int for an enum, None for a struct or `void`."""
        while type_name in self.interface["typedefs"]:
            type_name = self.interface["typedefs"][type_name]["type"]
        if type_name in self.interface["enums"]:
            return "int"
        return None if type_name in self.interface["structs"] or type_name in ("", "void") else type_name

    def type(self, item, own=None):
        """The C type of an argument or a member, for a cell of a table."""
        if not item["type"]:
            return "flags" if item.get("mask") else item["kind"]
        pointer = " *" if item.get("pointer") and not self.is_array(item["type"]) else ""
        bound = f" \\[{self.bound(item)}\\]" if "bound" in item else ""
        return self.name(item["type"], own, pointer) + bound

    def bound(self, item):
        """The number of elements, with the constant that says it."""
        return item["bound"] if item["bound"].isdigit() else f"{self.text(item['bound'])} = {item['count']}"

    def is_array(self, type_name):
        return "count" in self.interface["typedefs"].get(type_name, {})

    def wire(self, item):
        """The form of a value in XML-RPC."""
        if item["type"] == "void":
            return "empty array"
        base = self.scalar(item["type"])
        many = item.get("count") or (item["length"] if item.get("pointer") else 1)
        single = "struct" if base is None else "i8" if "long long" in base else "int"
        if base == "char" and many != 1:
            return "string"
        if many == 1:
            return single
        return f"array of {single if isinstance(many, str) else f'{many} {single}'}s"

    def facts(self, item, selector=None):
        """What the contract says of an argument's or member's values, as phrases.

        @param selector The member that selects among the alternatives that the item is one of.
        """
        facts = []
        if "if" in item:
            facts.append(f"when `{selector}` is " + " or ".join(self.name(each) for each in item["if"]))
        if "by" in item:
            facts.append(f"`{item['by']}` selects the alternative")
        if item.get("overlaid"):
            facts.append("several views of the same bytes")
        if "enum" in item and item["enum"] != item["type"]:
            facts.append(f"one of {self.name(item['enum'])}")
        if "bits_of" in item:
            facts.append(f"flags of {self.name(item['bits_of'])}")
        if "range" in item:
            low, high = item["range"]
            span = f"{low}" if low == high else f"{low} to {high}"
            facts.append(f"{span} {item.get('unit', '')}".strip() + "".join(f", or {each}" for each in item.get("or", [])))
        else:
            facts += [f"in {item['unit']}"] if "unit" in item else []
            facts += [f"or {each}" for each in item.get("or", [])]
        if "id" in item:
            facts.append(f"id: [{item['id']}](../ids/README.md#{item['id']})")
        facts += [word for key, word in (("counter", "counter"), ("bitmap", "bitmap"), ("mac", "MAC address"),
                                         ("ipv4", "IPv4 address"), ("ipv6", "IPv6 address"), ("text", "text"))
                  if item.get(key)]
        return facts + self.length(item)

    @staticmethod
    def length(item):
        length = item.get("length")
        facts = []
        if length is not None and length != 1 and "mac" not in item:
            times = f" × {item['times']}" if "times" in item else ""
            facts.append(f"`{length}`{times} elements" if isinstance(length, str) else f"{length} elements")
            if "length_if_zero" in item:
                facts.append(f"{item['length_if_zero']} when that is 0")
        if "filled" in item:
            facts.append(f"the driver fills `{item['filled']}` of them")
        return facts

    def meaning(self, item, own=None, selector=None):
        """The sentence of an argument or a member, and the facts behind it."""
        facts = "; ".join(self.facts(item, selector))
        sentence = self.text(item["brief"], own).replace("\n\n", " ")
        return sentence + (f"<br>{facts}" if facts else "")


def table(heads, rows):
    """A table in Markdown; nothing where there are no rows."""
    if not rows:
        return ""
    lines = [heads, ["---"] * len(heads), *rows]
    return "".join("| " + " | ".join(line) + " |\n" for line in lines) + "\n"


def anchor(name):
    return f'<a id="{name}"></a>'
