"""The names of the methods with which the plug-in describes itself, in the order in which a host lists them."""

import pathlib
import re

LIST = pathlib.Path(__file__).parent.parent / "introspect" / "methods.def"
METHODS = re.findall(r"^INTROSPECTION\((\w+)", LIST.read_text(), re.MULTILINE)
