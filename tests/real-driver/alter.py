"""Makes a real driver's headers out of ours: the same interface with other layouts. In every struct, within others and
unions too, the members stand in another order and new ones between them; some types and bounds are wider. Masks are left
as they are: their flags have fixed bits.

Usage: alter.py INCLUDE OUT
"""

import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / "interface"))
import headers  # noqa: E402

WIDER = {"vx_uint8": "vx_uint16", "vx_uint16": "vx_uint32"}
WIDENED = ("vx_dev_id_t", "vx_port_id_t", "vx_vid_t")


def statements(body):
    """The declarations in a struct's body, each with its semicolon."""
    depth, run = 0, []
    for token in body:
        depth += (token == "{") - (token == "}")
        run.append(token)
        if token == ";" and not depth:
            yield run
            run = []
    assert not "".join(run).strip(), run


def altered(words):
    """The tokens of a header with every struct altered."""
    out, at = [], 0
    while at < len(words):
        if words[at] != "{":
            out.append(words[at])
            at += 1
            continue
        end, depth = at, 0
        while True:
            depth += (words[end] == "{") - (words[end] == "}")
            end += 1
            if not depth:
                break
        kind = next((word for word in reversed(out) if word in ("struct", "union", "enum", "{", ";")), "")
        body = words[at + 1:end - 1]
        out.append("{")
        if kind == "enum" or kind == "struct" and ":" in body and "{" not in body:
            out += body
        elif kind in ("struct", "union"):
            members = [altered(statement) for statement in statements(body)]
            if kind == "struct":
                members.reverse()
                members.insert(0, ["vx_uint8", " ", "lmq_added_first", ";"])
                members.insert(len(members) // 2, ["vx_uint64", " ", "lmq_added_between", ";"])
                members.append(["vx_uint16", " ", "lmq_added_last", "[", "3", "]", ";"])
            out += [word for member in members for word in member]
        else:  # extern "C"
            out += altered(body)
        out.append("}")
        at = end
    return out


def words(path):
    """The tokens of a header as texts, with spaces where there were any."""
    for token in headers.tokens(path):
        if not token.glued:
            yield " "
        yield token.text


def main(include, out):
    texts = {path.relative_to(include): "".join(altered(list(words(path)))) for path in sorted(include.glob("lmq/*.h"))}
    bounds = {bound for text in texts.values() for bound in re.findall(r"\[ ?([A-Z]\w+) ?\]", text)}
    for path, text in texts.items():
        text = re.sub(r"(# ?define (\w+) )(\d+)(?= ?\n)",
                      lambda found: found[1] + str(int(found[3]) + (found[2] in bounds)), text)
        text = re.sub(r"typedef (\w+) (\w+) ?;",
                      lambda found: f"typedef {WIDER[found[1]]} {found[2]};" if found[2] in WIDENED else found[0], text)
        (out / path).parent.mkdir(parents=True, exist_ok=True)
        (out / path).write_text(text)


if __name__ == "__main__":
    main(*map(pathlib.Path, sys.argv[1:]))
