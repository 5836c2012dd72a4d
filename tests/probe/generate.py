"""Writes two C sources from the headers: the functions of the probe driver, and a program that prints as JSON where the
compiler puts the members of each UDT: offsets, the size under the empty name, and for each bit-field the offset and the
bytes of all that a UDT with nothing but ones in that field holds.

Usage: generate.py INCLUDE FUNCTIONS.C LAYOUT.C
"""

import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / "interface"))
import headers  # noqa: E402


def function(interface, declared):
    """The C of one function of the probe driver."""
    parameters, lines = [], []
    for position, argument in enumerate(declared.arguments):
        parameters.append(f"{argument.type} {'*' * argument.pointer}{argument.name}")
        unit = 1 if argument.type == "void" else f"sizeof({argument.type})"
        if argument.pointer or isinstance(interface.resolve(argument.type), tuple):
            lines.append(f"probe_pointer({position}, {argument.name}, {unit});")
        else:
            # The compiler may give an enum the range of an unsigned int.
            cast = "(int)" if argument.type in interface.enums else ""
            lines.append(f"probe_value({position}, {cast}{argument.name});")
    if declared.returns != "void":
        lines.append(f"return ({declared.returns})probe_result();")
    body = "".join(f"    {line}\n" for line in lines)
    return (f"{declared.returns} {declared.name}({', '.join(parameters) or 'void'})\n{{\n"
            f'    probe_call("{declared.name}", {len(declared.arguments)});\n{body}}}\n')


def layout(name, record):
    """The C that prints the layout of one UDT: a function, and the call of it."""
    members, flags = [], []

    def walk(record, group):
        for member in record.members:
            path = f"{group}.{member.name}" if group and member.name else group or member.name
            if member.bits is not None:
                flags.append(f"    FLAG({path});")
            elif member.name:
                members.append(f"    MEMBER({path});")
            if member.inline:
                walk(member.inline, path)

    walk(record, "")
    udt = [f"    UDT({name});"] if flags else [f"    typedef {name} T;"]
    body = "\n".join([*udt, *members, *flags])
    call = f'    udt("{name}", sizeof({name}), layout_{name});\n'
    return f"static void layout_{name}(void)\n{{\n{body}\n}}\n", call


FUNCTIONS = """#include "probe.h"

#include "lmq/lmq.h"

{}"""

LAYOUT = """#include <stddef.h>
#include <stdio.h>
#include <string.h>

#include "lmq/lmq.h"

static void udt(const char *name, size_t size, void (*members)(void))
{{
    static int udts;
    printf("%s\\"%s\\": {{\\"\\": %zu", udts++ ? ",\\n" : "", name, size);
    members();
    printf("}}");
}}

static void flag(const char *path, const unsigned char *bytes, size_t size)
{{
    size_t first = 0;
    while (!bytes[first]) ++first;
    while (!bytes[size - 1]) --size;
    printf(", \\"%s\\": [%zu, \\"", path, first);
    for (size_t i = first; i < size; ++i) printf("%02x", bytes[i]);
    printf("\\"]");
}}

#define MEMBER(m) printf(", \\"%s\\": %zu", #m, offsetof(T, m))
#define UDT(type) \\
    typedef type T; \\
    T all
/* A decrement turns the field from 0 into all ones. */
#define FLAG(m) (memset(&all, 0, sizeof all), --all.m, flag(#m, (const unsigned char *)&all, sizeof all))

{}
int main(void)
{{
    printf("{{\\"void *\\": {{\\"\\": %zu}},\\n", sizeof(void *));
{}    printf("}}\\n");
}}
"""


def main(include, functions, layouts):
    interface = headers.Headers(include)
    pathlib.Path(functions).write_text(
        FUNCTIONS.format("\n".join(function(interface, declared) for declared in interface.functions.values())))
    pathlib.Path(layouts).write_text(
        LAYOUT.format(*map("".join, zip(*(layout(name, record) for name, record in interface.records.items())))))


if __name__ == "__main__":
    main(*sys.argv[1:])
