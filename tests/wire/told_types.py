"""Compares the enums, macros and typedefs that clients are told with the text of the headers, both ways."""

import re
import unittest

import departures
import harness
import headers
from oracle import wrapped


def offsets(name, enumerators):
    """The enumerators of a type as they are told."""
    base = 0
    for enumerator, value in enumerators.items():
        if name in departures.BASED and enumerator.endswith("_BASE") and enumerator not in departures.INNER_BASES:
            base = value
        yield enumerator, wrapped(value if value == base else value - base)


def unspaced(text):
    return re.sub(r"\s", "", text)


class ToldTypes(harness.WireTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.interface = harness.interface()

    def test_enums(self):
        told = {enum["type"]: [(each["name"], each["value"]) for each in enum["values"]]
                for enum in self.ask("lmq.listEnums", [])}
        declared = {name: [] if name in departures.BARE_ENUMS else list(offsets(name, enumerators))
                    for name, enumerators in self.interface.enums.items()}
        self.assertEqual(set(told), set(declared), "enum types that are told, and those of the headers")
        for name, enumerators in declared.items():
            with self.subTest(name):
                self.assertEqual(told[name], enumerators)

    def test_defines(self):
        told = {define["name"]: unspaced(define["value"]) for define in self.ask("lmq.listDefines", [])}
        macros = self.interface.preprocessor.macros.items()
        # What guards a header has no body.
        declared = {name: unspaced(headers.spell(macro.body)) for name, macro in macros
                    if macro.body and name not in departures.UNTOLD_MACROS}
        self.assertEqual(told, declared | departures.MACROS_OF_C)

    def test_typedefs(self):
        read = self.interface
        declared = {name: target for name, (target, _) in read.typedefs.items()}
        declared |= {name: f"{record.kind} {record.tag}" for name, record in read.records.items() if record.tag}
        declared |= read.seconds
        told = self.ask("lmq.listTypedefs", [])
        self.assertEqual(told, declared | departures.UNDECLARED_TYPEDEFS)


if __name__ == "__main__":
    unittest.main()
