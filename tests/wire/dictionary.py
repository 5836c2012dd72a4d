"""The dictionary over the wire: its rules, its faults, and the committed dump of all of it.

    dictionary.py                runs the tests
    dictionary.py --write FILE   writes what the plug-in answers, for a change that is meant
"""

import collections
import difflib
import pathlib
import subprocess
import sys
import unittest
import xmlrpc.client

import harness
import introspection
from harness import difference

ROOT = pathlib.Path(__file__).parent.parent.parent
DUMP = pathlib.Path(__file__).parent / "dictionary.txt"
NO_HELP = "No help available"


class Dictionary:
    """All that a client is told."""

    def __init__(self, host):
        self.names = [name for name in host.system.listMethods() if name.startswith("lmq.")]
        self.signatures = {name: host.lmq.methodSignature(name) for name in self.names[len(introspection.METHODS):]}
        self.letters = {name: host.system.methodSignature(name)[0] for name in self.names}
        self.help = {name: host.system.methodHelp(name) for name in self.names}
        self.udts = {name.removeprefix("lmq."): (host.lmq.UDTSignature(name), host.lmq.UDTMalloc(name))
                     for name in host.lmq.listUDTs()}
        self.enums = host.lmq.listEnums()
        self.defines = host.lmq.listDefines()
        self.typedefs = host.lmq.listTypedefs()

    def primitive(self, type):
        """The type rule: an enum is an int, and a typedef what stands behind its chain."""
        base = type.removesuffix(" *")
        if any(enum["type"] == base for enum in self.enums):
            base = "int"
        while base in self.typedefs:
            base = self.typedefs[base]
        return base + type[len(type.removesuffix(" *")):]

    def text(self):
        """The dictionary as lines to read, in the order in which it is answered."""
        for name in self.names:
            yield f"method {name} {' '.join(self.letters[name])}"
            for record in self.signatures.get(name, []):
                isUDT = " UDT" if record["isUDT"] else ""
                yield f"    {record['application_type']} = {record['primative_type']}, {record['declaration_name']}{isUDT}"
            yield from (f"    | {line}" for line in self.help[name].split("\n"))
        for name, (members, prototype) in self.udts.items():
            yield f"udt {name}"
            for member in members:
                value = prototype[member["name"].split("[")[0]]
                keys = f" {shape(value)}" if member["type"] == "inline struct" else ""
                yield f"    {member['type']} {member['name']}{keys}"
        for enum in self.enums:
            yield f"enum {enum['type']}"
            yield from (f"    {value['name']} = {value['value']}" for value in enum["values"])
        yield from (f"define {define['name']} {define['value']}" for define in self.defines)
        yield from (f"typedef {name} = {base}" for name, base in self.typedefs.items())


def shape(value):
    """The keys inside a value, without the zeros."""
    if isinstance(value, dict):
        return "{" + ", ".join(f"{key}{shape(inside)}" for key, inside in value.items()) + "}"
    if isinstance(value, list):
        return f"[{len(value)}]" + (shape(value[0]) if isinstance(value[0], dict) else "")
    return ""


class DictionaryTest(harness.WireTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.dictionary = Dictionary(cls.proxy)

    def test_dump(self):
        """Any change of the interface shows here. One that is meant: run this script with --write, and commit."""
        told = list(self.dictionary.text())
        committed = DUMP.read_text().splitlines()
        changes = list(difflib.unified_diff(committed, told, DUMP.name, "the plug-in", lineterm="", n=1))
        if changes:
            self.fail(f"{len(changes)} lines of difference, which begin:\n" + "\n".join(changes[:40]))

    def test_signatures(self):
        """Every record follows the type rule."""
        for name, (result, *parameters) in self.dictionary.signatures.items():
            with self.subTest(name):
                self.assertEqual((result["declaration_name"], result["isUDT"]), (None, False))
                self.assertEqual(result["doc"], self.dictionary.help[name])
                letters = {"int": 0, "array": 0, "struct": 0}
                for record in parameters:
                    told = record["application_type"]
                    is_udt = told.endswith(" *") and told[:-2] in self.dictionary.udts
                    self.assertEqual(record["doc"], NO_HELP)
                    self.assertEqual(record["isUDT"], is_udt)
                    self.assertEqual(record["primative_type"], self.dictionary.primitive(told))
                    self.assertTrue(record["declaration_name"])
                    kind = "struct" if is_udt else "array" if told.endswith(" *") else "int"
                    letters[kind] += 1
                self.assertEqual(collections.Counter(self.dictionary.letters[name][1:]), collections.Counter(letters))
                self.assertEqual(result["primative_type"], self.dictionary.primitive(result["application_type"]))

    def test_member_lists(self):
        """Each name of a member list is a key of the prototype, in the same order."""
        for name, (members, prototype) in self.dictionary.udts.items():
            keys = [member["name"].split("[")[0] for member in members]
            self.assertEqual(keys, list(prototype), name)
            for key, member in zip(keys, members):
                self.assertEqual(member["doc"], NO_HELP)
                is_array = "[" in member["name"]
                self.assertEqual(is_array, isinstance(prototype[key], list) or member["type"] == "vx_char *", f"{name}.{key}")

    def test_prototypes_can_be_sent_back(self):
        """The prototype of each UDT that a method takes gives itself as its echo. The others stand in one of these as it is
        told on its own."""
        taken = {}
        for name, (_, *parameters) in self.dictionary.signatures.items():
            for position, record in enumerate(parameters):
                if record["isUDT"]:
                    taken.setdefault(record["application_type"][:-2], (name, position, parameters))
        inside = set()

        def walk(udt):
            members, prototype = self.dictionary.udts[udt]
            for member in members:
                type = member["type"]
                type = "vx_acl_mcast_grp_addr_t" if type == "struct vx_acl_mcast_grp_addr_s" else type
                if type in self.dictionary.udts:
                    value = prototype[member["name"].split("[")[0]]
                    expected = self.dictionary.udts[type][1]
                    self.assertEqual(difference(expected, value[0] if isinstance(value, list) else value), "", f"{udt} has {type}")
                    inside.add(type)
                    walk(type)

        for udt, (method, position, parameters) in taken.items():
            prototype = self.dictionary.udts[udt][1]
            arguments = [{} if record["isUDT"] else 0 for record in parameters]
            arguments[position] = prototype
            answer = self.ask(method, arguments)
            self.assertNotIsInstance(answer, xmlrpc.client.Fault, f"{method}: {answer}")
            self.assertEqual(difference(prototype, answer[1 + position]), "", udt)
            walk(udt)
        # Those that only an inline struct holds are told by no member list.
        alternatives = {udt for udt in self.dictionary.udts if udt.startswith(("vx_cl_key_", "lmq_fe_cls_"))}
        addresses = {"vx_in_addr_t", "vx_in6_addr_t"}
        self.assertEqual(set(self.dictionary.udts) - set(taken) - inside, (alternatives | addresses) - inside)

    def test_lookups_refuse(self):
        """The three lookups share their faults, all with one code."""
        for method, known, unknown in (("methodSignature", "lmq.vx_reset", "Function not found"),
                                       ("UDTSignature", "lmq.vx_ip_addr_t", "UDT not found"),
                                       ("UDTMalloc", "lmq.vx_ip_addr_t", "UDT not found")):
            for arguments in ([], [known, known]):
                self.refused(method, arguments, harness.COUNT_FAULT, "Expected one and only one parameter")
            for form, value in harness.FORMS.items():
                if form != "a string":
                    self.refused(method, [value], harness.COUNT_FAULT, "Expected a string as parameter")
            for name in ("", "lmq.", known.removeprefix("lmq."), known.upper(), known + " ", "lmq.listUDTs", "lmq.vx_wd_action_e"):
                self.refused(method, [name], harness.COUNT_FAULT, unknown)

    def test_the_others_look_at_no_parameter(self):
        self.assertEqual(self.ask("lmq.capabilities", [1, "x"]), {"function_ios": 1})
        for method in ("lmq.listEnums", "lmq.listUDTs", "lmq.listDefines", "lmq.listTypedefs"):
            self.assertEqual(self.ask(method, [{}]), self.ask(method, []))

    def test_help_texts(self):
        """Structure of the documented methods' texts, the prototype line against the row."""
        for name, (result, *parameters) in self.dictionary.signatures.items():
            text = self.dictionary.help[name]
            if text == NO_HELP:
                continue
            with self.subTest(name):
                lines = text.split("\n")
                function = name.removeprefix("lmq.")
                names = [record["declaration_name"] for record in parameters]
                self.assertTrue(lines[0].startswith(f"{result['application_type']} {function}( "), lines[0])
                self.assertEqual([word.split()[-1] for word in lines[0][:-2].split("(")[1].split(",") if word.strip()], names)
                self.assertEqual((lines[1], lines[3], lines[-1]), ("", "", ""))
                self.assertTrue(lines[2].strip())
                end = lines.index("  ")
                self.assertTrue(end > 4 and all(line.startswith(" ") for line in lines[4:end]), "the paragraph")
                sections = [line for line in lines[end:] if line in ("INPUTS:", "OUTPUTS:", "Returns:")]
                self.assertEqual(sections, [section for section in ("INPUTS:", "OUTPUTS:", "Returns:") if section in sections])
                self.assertEqual(sections[-1], "Returns:")
                if "INPUTS:" in sections:
                    begin = lines.index("INPUTS:")
                    self.assertEqual((begin, lines[begin + 1]), (end + 1, ""))
                self.assertEqual(lines[lines.index("Returns:") - 1], "")

    def test_the_program_in_docs(self):
        """It prints every method, and says what it cannot find."""
        program = [sys.executable, str(ROOT / "docs/prototype.py"), self.url]
        shown = subprocess.run([*program, "--all"], capture_output=True, text=True, check=True).stdout
        self.assertEqual(sum(line.endswith(");") and not line.startswith(" ") for line in shown.splitlines()),
                         len(self.dictionary.signatures))
        self.assertIn("vx_status_e vx_watchdog_get(vx_dev_id_t dev_id, vx_watchdog_cfg_t *p_cfg);\n    No help available\n", shown)
        missing = subprocess.run([*program, "vx_nobody"], capture_output=True, text=True)
        self.assertEqual((missing.returncode, missing.stderr), (1, "vx_nobody: Function not found\n"))


def write(path):
    DictionaryTest.setUpClass()
    pathlib.Path(path).write_text("".join(f"{line}\n" for line in DictionaryTest.dictionary.text()))
    DictionaryTest.doClassCleanups()


if __name__ == "__main__":
    if sys.argv[1:2] == ["--write"]:
        write(sys.argv[2])
    else:
        unittest.main()
