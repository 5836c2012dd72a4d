"""What the compiler says when a header and a row disagree, with our headers and with a real driver's; and what CMake says
of a driver that it cannot use. One header is altered once more for each case, and one file compiled with it.

Usage: disagrees.py BUILD BUILD_WITH_THE_REAL_DRIVER OPTION OF CMAKE...; LMQ_CMAKE, LMQ_SOURCE and LMQ_ALTERED say where
CMake, the sources and the altered headers are.
"""

import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile
import unittest

SOURCE, ALTERED = pathlib.Path(os.environ["LMQ_SOURCE"]), pathlib.Path(os.environ["LMQ_ALTERED"])
OURS, REAL, CONFIGURED = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3:]
FAMILY, HEADER = "families/device/device.cc", pathlib.Path("lmq/device.h")

# A change of the header, and what the compiler says about it.
DISAGREEMENTS = (
    (r"vx_uint32 wd_timer;", "vx_uint64 wd_timer;", "row wd_timer: the header does not declare it as vx_uint32"),
    (r"vx_uint32 wd_timer;", "", r"wd_timer.* is not a member of .*vx_watchdog_cfg_t"),
    (r"\bpri_q_tcont ?\[\w+\]", "pri_q_tcont[99]",
     "row pri_q_tcont: the header does not declare it as an array of elements of vx_uint16 with the bound VX_MAX_NUM_TCONT"),
    (r"vx_uint32 wd_timer : 1;", r"\g<0> vx_uint32 wd_more : 1;",
     "row mask_s: the header declares a flag that has no row"),
    (r"(vx_uint32 wd_timer : 1;)\s*(vx_uint32 wd_action : 1;)", r"\2 \1", "designator order for field .*vx_watchdog_cfg_t"),
    (r"(vx_reset\(vx_dev_id_t dev_id, )vx_reset_mode_t", r"\1vx_uint32",
     "row of vx_reset: the header declares another prototype"),
    (r"vx_status_e (?=vx_reset\()", "vx_uint64 ", "row of vx_reset: the header declares another prototype"),
    (r"vx_reset\(", "vx_reset_chip(", "::vx_reset.* has not been declared"),
)


class Compiler(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def compile(self, build, include, pattern, replacement):
        """Compiles the family against a header with one change. Returns the status and what the compiler said."""
        text, count = re.subn(pattern, replacement, (include / HEADER).read_text(), count=1)
        self.assertEqual(count, 1, pattern)
        (self.folder / HEADER).parent.mkdir(exist_ok=True)
        (self.folder / HEADER).write_text(text)
        commands = json.loads((build / "compile_commands.json").read_text())
        command = next(shlex.split(each["command"]) for each in commands if each["file"] == str(SOURCE / FAMILY))
        at = next(i for i, word in enumerate(command) if word.startswith(("-D", "-I", "-isystem")))
        command[at:at] = [f"-I{self.folder}"]
        del command[command.index("-o"):command.index("-c")]
        done = subprocess.run([*command, "-fsyntax-only"], cwd=build, env=dict(os.environ, LC_ALL="C"),
                              stderr=subprocess.PIPE, text=True)
        return done.returncode, done.stderr

    def test_a_row_that_disagrees_is_named(self):
        for pattern, replacement, message in DISAGREEMENTS:
            with self.subTest(pattern=pattern, replacement=replacement):
                status, said = self.compile(REAL, ALTERED, pattern, replacement)
                self.assertNotEqual(status, 0)
                self.assertRegex(said, f"error: .*{message}")

    def test_of_our_headers_every_member_has_a_row_in_order(self):
        for replacement in (r"\1 vx_uint32 more; \2", r"\2 \1"):
            status, said = self.compile(OURS, SOURCE / "include",
                                        r"(vx_boolean wd_enable;)[^;]*?(vx_uint32 wd_timer;)", replacement)
            self.assertNotEqual(status, 0)
            self.assertIn("rows of vx_watchdog_cfg_t: a member has no row, or the rows are not in the header's order",
                          said)

    def test_of_a_real_drivers_headers_members_without_a_row_are_told(self):
        status, said = self.compile(REAL, ALTERED, r"vx_uint8 lmq_added_first;", r"\g<0>")
        self.assertEqual(status, 0, said)
        self.assertRegex(said, r"warning: .*the header declares a member without a row(.*\n)*.* UDT\(vx_watchdog_cfg_t,")


class Configuration(unittest.TestCase):
    def test_a_driver_that_cannot_be_used_is_refused(self):
        nameless = str(OURS / "lmq_xmlrpc.so")  # a module, which has no SONAME
        for include, library, message in (
                (ALTERED, "", "LMQ_DRIVER_INCLUDE and LMQ_DRIVER_LIBRARY go together"),
                (ALTERED, "/none/libchip.so", "LMQ_DRIVER_LIBRARY: there is no /none/libchip.so"),
                (ALTERED, nameless, f"LMQ_DRIVER_LIBRARY: {nameless} is no shared library with a SONAME"),
                (ALTERED / "lmq", nameless, f"LMQ_DRIVER_INCLUDE: there is no {ALTERED}/lmq/lmq/acl.h")):
            with self.subTest(include=include, library=library):
                done = subprocess.run(
                    [os.environ["LMQ_CMAKE"], "-S", SOURCE, "-B", REAL.parent / "refused", *CONFIGURED,
                     f"-DLMQ_DRIVER_INCLUDE={include}", f"-DLMQ_DRIVER_LIBRARY={library}"],
                    stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
                self.assertNotEqual(done.returncode, 0)
                self.assertIn(message, " ".join(done.stderr.split()))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
