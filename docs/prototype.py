#!/usr/bin/env python3
"""Prints a method as a C prototype with its help, from introspection alone.

    prototype.py http://127.0.0.1:8080/RPC2 vx_watchdog_get
    prototype.py http://127.0.0.1:8080/RPC2 --all

It needs no header and nothing but Python: all it knows is what lmq.methodSignature answers.
"""

import sys
import xmlrpc.client


def prototype(host, method):
    result, *parameters = host.lmq.methodSignature(method)
    declared = [f"{p['application_type']} {p['declaration_name']}".replace("* ", "*") for p in parameters]
    name = method.removeprefix("lmq.")
    return f"{result['application_type']} {name}({', '.join(declared) or 'void'});", result["doc"]


def main(url, *names):
    host = xmlrpc.client.ServerProxy(url, allow_none=True)
    all_of_them = names == ("--all",)
    if all_of_them:
        names = [name for name in host.system.listMethods() if name.startswith("lmq.")]
    for name in names:
        try:
            declaration, text = prototype(host, name if name.startswith("lmq.") else f"lmq.{name}")
        except xmlrpc.client.Fault as fault:
            if all_of_them:
                continue  # a method of the dictionary itself, which has no signature there
            sys.exit(f"{name}: {fault.faultString}")
        except OSError as error:
            sys.exit(f"{url}: {error}")
        print(declaration)
        print("".join(f"    {line}\n" if line.strip() else "\n" for line in text.splitlines()))


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
