"""Compares the names in the plug-in's rows with the text of the headers. The compiler checks all that a row says but
the names of typedefs: vx_boolean and vx_uint8 are one type to it.
"""

import os
import pathlib
import unittest

import harness
import headers


def macro_calls(run):
    """The macro calls that a run of tokens consists of, at its top level: name, arguments and place of each."""
    at = 0
    while at < len(run):
        if run[at].kind == "name" and run[at].text.isupper() and at + 1 < len(run) and run[at + 1].text == "(":
            name = run[at]
            arguments, at = headers.split(run, at + 1)
            yield name.text, arguments, name.where
        else:
            at += 1


def rows_told(interface, arguments):
    """What the rows of a UDT say, flat: path, type and bound of each, an inline struct before its keys."""
    for name, inside, where in (next(macro_calls(run), (headers.spell(run), [], "rows")) for run in arguments):
        words = [headers.spell(part) for part in inside]
        if name in ("SCALAR", "NESTED"):
            yield words[1], words[0], ""
        elif name in ("ELEMENTS", "UDT_ARRAY", "UDT_LIST"):
            # The bound of an array typedef belongs to the typedef.
            _, bounds = interface.typedefs.get(words[0], ("", []))
            yield words[1], words[0], "" if bounds else words[2]
        elif name == "UDT_ARRAY_SPELLED":
            yield words[2], words[0], words[3]
        elif name == "STRING":
            yield words[0], "vx_char", words[1]
        elif name in ("INLINE", "OVERLAID"):
            yield words[0], "", ""
            yield from rows_told(interface, inside[1:])
        elif name == "FLAGS":
            yield words[0], "", ""
            for flag in words[1:]:
                yield f"{words[0]}.{flag}", "a flag", ""
        elif name == "MASK":
            yield words[0], "", ""
            yield f"{words[0]}.mask_s", "", ""
            for flag in words[2:]:
                yield f"{words[0]}.mask_s.{flag}", "a flag", ""
            yield f"{words[0]}.mask", words[1], ""
        else:
            raise AssertionError(f"{where}: {name} is no row that this test knows")


def rows_declared(record, group=""):
    """The same, as the header declares it."""
    for member in record.members:
        path = f"{group}.{member.name}" if group and member.name else group or member.name
        if member.bits is not None:
            yield path, "a flag", ""
        elif member.name:
            yield path, member.type, "".join(bound.text for bound in member.bounds)
        if member.inline:
            yield from rows_declared(member.inline, path)


class Names(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.interface = harness.interface()
        cls.calls = []
        for path in sorted(pathlib.Path(os.environ["LMQ_FAMILIES"]).glob("*/*.cc")):
            cls.calls += macro_calls(headers.Preprocessor(None).read(path))

    def test_members(self):
        told = set()
        for name, arguments, where in self.calls:
            if name not in ("UDT", "UDT_AS"):
                continue
            udt = arguments[0][0].text
            told.add(udt)
            with self.subTest(f"{where}: {udt}"):
                self.assertIn(udt, self.interface.records)
                declared = self.interface.records[udt]
                if name == "UDT":
                    self.assertEqual(list(rows_told(self.interface, arguments[1:])), list(rows_declared(declared)))
                else:
                    self.assertIs(self.interface.records[arguments[1][0].text], declared, "a second name of the same")
        self.assertEqual(told, set(self.interface.records), "UDTs with rows, and structures of the headers")

    def test_arguments(self):
        described = set()
        kinds = {"VALUE": False, "ELEMENT_PTR": True, "UDT_PTR": True}
        for name, arguments, where in self.calls:
            if name != "METHOD":
                continue
            function = arguments[0][0].text
            described.add(function)
            with self.subTest(f"{where}: {function}"):
                told = []
                for kind, words, _ in (next(macro_calls(run)) for run in arguments[2:]):
                    words = [headers.spell(part) for part in words]
                    told.append(("void", words[0], True) if kind == "COOKIE" else (*words, kinds[kind]))
                declared = []
                for argument in self.interface.functions[function].arguments:
                    # An array typedef is a pointer that is declared without an asterisk.
                    is_array = argument.type != "void" and isinstance(self.interface.resolve(argument.type), tuple)
                    declared.append((argument.type, argument.name, argument.pointer or is_array))
                self.assertEqual(told, declared)
        self.assertEqual(described, set(self.interface.functions), "methods with a row, and functions of the headers")


if __name__ == "__main__":
    unittest.main()
