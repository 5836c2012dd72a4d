"""The contract as tables for the remote driver: directions and lengths of arguments, which remote/terms.h includes, and
the selectors of unions, which remote/unions.cc includes. The compiler supplies offsets and widths.
"""


def terms(interface):
    """One constant for each function, which its row finds by the function's name."""
    made = "// Directions and lengths of arguments, made from the headers' comments.\n"
    for name, method in interface["methods"].items():
        names = [argument["name"] for argument in method["arguments"]]
        rows = [row(argument, method["arguments"], names) for argument in method["arguments"]]
        made += f"inline constexpr Terms terms_{name}[] = {{{', '.join(rows) or '{}'}}};\n"
    return made


def row(argument, arguments, names):
    said = [f".direction = Direction::{argument['direction']}"]
    length, number = argument["length"], argument.get("times", 1)
    if isinstance(length, str):
        source = names.index(length.lstrip("*"))
        said.append(f".length = Length::{'pointee' if length.startswith('*') else 'value'}, .from = {source}")
        said.append(f".number = {number}, .if_zero = {argument.get('length_if_zero', 0)}")
        if "range" in arguments[source]:
            said.append(f".most = {arguments[source]['range'][1]}")
    elif argument["pointer"]:
        said.append(f".number = {length * number}")
    if "filled" in argument:
        said.append(f".filled = {names.index(argument['filled'].lstrip('*'))}")
    return "{" + ", ".join(said) + "}"


def unions(interface):
    """The unions that a member of the same struct selects an alternative of, and the values that select each."""
    rows, alternatives = [], []

    def walk(members, struct):
        for member in members:
            if "by" in member:
                chosen = [f"{{{index}, {name}}}" for index, each in enumerate(member["members"])
                          for name in each.get("if", [])]
                rows.append(f"{{&udt_{struct}, \"{member['name']}\", \"{member['by']}\", "
                            f"offsetof({struct}, {member['by']}), sizeof({struct}::{member['by']}), "
                            f"{len(alternatives)}, {len(chosen)}}}")
                alternatives.extend(chosen)
            walk(member.get("members", []), struct)

    for name, struct in interface["structs"].items():
        walk(struct["members"], name)
    made = "// Selectors of unions, made from the headers' comments.\n"
    made += "constexpr Alternative alternatives[] = {\n" + "".join(f"    {each},\n" for each in alternatives) + "};\n"
    return made + "constexpr Union unions[] = {\n" + "".join(f"    {each},\n" for each in rows) + "};\n"
