"""lmqctl reg, i2c and mdio, call --hex, and the doctor."""

import json
import os
import pathlib
import re
import subprocess
import unittest

from ctl import CONNECTION, DRIVER, FAULT, OK, USAGE, CtlTest, Terminal


class Registers(CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start_chip()

    def test_one_and_its_bits(self):
        self.assertEqual(self.ok("reg", "0x1000=0xdeadbeef", "0x1000"),
                         "0x00001000 = 0xdeadbeef\n0x00001000  0xdeadbeef  3735928559\n")
        self.assertEqual(self.ok("reg", "0x1000[7:4]", "0x1000[31]", "0x1000[31:0]"),
                         "0x00001000[7:4]  0xe  14\n0x00001000[31]  0x1  1\n0x00001000[31:0]  0xdeadbeef  3735928559\n")
        self.assertEqual(self.ok("reg", "0x1000[7:4]=3"), "0x00001000[7:4] = 0xdeadbeef -> 0xdeadbe3f\n")
        self.assertEqual(json.loads(self.ok("--json", "reg", "0x1000[15:8]")),
                         {"address": 4096, "bits": [15, 8], "values": [0xbe]})
        self.assertEqual(self.ok("reg", "0x1000[31]=0", "0x1000"),
                         "0x00001000[31] = 0xdeadbe3f -> 0x5eadbe3f\n0x00001000  0x5eadbe3f  1588444735\n")

    def test_ranges(self):
        self.ok("reg", *(f"{0x2000 + 4 * i}={value}" for i, value in enumerate((0x4c4d5158, 1, 2, 3, 0xffffffff))))
        self.assertEqual(self.ok("reg", "0x2000..0x2010"),
                         "0x00002000  4c4d5158 00000001 00000002 00000003  |LMQX............|\n"
                         "0x00002010  ffffffff                             |....|\n")
        self.assertEqual(json.loads(self.ok("--json", "reg", "0x2000..0x2007"))["values"], [0x4c4d5158, 1])
        # More than one request has room for.
        self.assertEqual(len(self.ok("reg", "0x3000..0x3ffc").splitlines()), 256)

    def test_buses(self):
        self.ok("call", "vx_i2c_enable_set", "0", "1", "100")
        text = b"Serial 123".hex()
        self.ok("i2c", "0x50:0x10=" + ",".join(f"0x{text[i:i + 2]}" for i in range(0, len(text), 2)))
        self.assertEqual(self.ok("i2c", "0x50:0x10..0x19"),
                         f"0x10  {' '.join(text[i:i + 2] for i in range(0, len(text), 2))}" + 6 * "   "
                         + "  |Serial 123|\n")
        self.assertEqual(self.ok("i2c", "0x50:0x10[6:4]=7", "0x50:16"),
                         "0x50:0x10[6:4] = 0x53 -> 0x73\n0x50:0x10  0x73  115\n")
        self.assertEqual(len(self.ok("i2c", "0x50:0..0xff").splitlines()), 16)
        self.ok("call", "lmq_enable_mdio", "0")
        self.ok("mdio", "1:5=0x1234,0x5678")
        self.assertEqual(self.ok("mdio", "1:5", "1:6[15:12]"), "0x01:0x05  0x1234  4660\n0x01:0x06[15:12]  0x5  5\n")
        self.assertEqual(len(self.ok("mdio", "1:0..31").splitlines()), 4)

    def test_spi(self):
        self.ok("call", "vx_spi_enable_set", "0", "1", "0")
        self.assertEqual(self.ok("spi", "0=0x5a"), "0 = 0x5a\n")
        self.assertEqual(self.ok("spi", "0"), "0  0x5a\n")
        self.refused(DRIVER, "vx_spi_write answered", "spi", "1:1=2")
        self.ok("call", "vx_spi_set", "0", "1", "p_cfg.cmd_length=32", "p_cfg.data_length=64")
        self.assertEqual(self.ok("spi", "1:0x02001000=0xdeadbeef,0x12345678"),
                         "1:0x02001000 = 0xdeadbeef 0x12345678\n")
        self.assertEqual(self.ok("spi", "1:0x03001000"), "1:0x03001000  0xdeadbeef 0x12345678\n")
        for word in ("x", "0=256", "0:1,2,3,4", "0:1=1,2,3", "0:", "0=1,2"):
            self.refused(USAGE, "expected LINE", "spi", word)

    def test_watch(self):
        """It shows the first sample, and what changes from then on."""
        self.ok("reg", "0x5000=1")
        terminal = Terminal([os.environ["LMQ_CTL"], "reg", "0x5000", "--watch", "--every", "0.01"], self.environment)
        terminal.wait_for("0x00005000  0x00000001  1")
        self.ok("reg", "0x5000=2")
        self.assertNotIn("0x00005000", terminal.wait_for("0x00005000  0x00000002  2"))
        terminal.type("\x03")
        self.assertEqual(terminal.end(), OK)
        self.assertEqual(len(self.ok("reg", "0x5000", "--watch", "--every", "0.01", "--samples", "3").splitlines()), 1)
        self.refused(USAGE, "nothing is written again and again", "reg", "0x5000=1", "--watch")

    def test_what_people_get_wrong(self):
        for command, word, why in (
                ("reg", "here", "here is no number"), ("reg", "0x1001", "a multiple of 4"), ("reg", "0x1000[32]", "no bit"),
                ("reg", "0x1000[0:7]", "the higher bit stands first"), ("reg", "0x1000[7:4]=16", "16 is no value, which goes from 0 to 15"),
                ("reg", "0x1000[7", "the bracket is not closed"), ("reg", "0x1000=", "there is no value"),
                ("reg", "0x1010..0x1000", "it ends before it begins"), ("reg", "0x1000..0x1010=1", "a range can only be read"),
                ("reg", "0x1000..0x1010[3]", "bits are those of one register"), ("reg", "0..0xfffffffc", "too large"),
                ("reg", "0x1000=1,2", "one value is written at a time"), ("reg", "0x100000000", "no address"),
                ("i2c", "0x10", "there is no slave"), ("i2c", "128:0", "no slave"), ("mdio", "1:32", "no address"),
                ("mdio", "1:0=0x10000", "0x10000 is no value")):
            self.refused(USAGE, why, command, word)
        # One word is wrong: nothing is written.
        self.ok("reg", "0x6000=5")
        self.refused(USAGE, "no number", "reg", "0x6000=6", "x")
        self.assertIn("0x00000005", self.ok("reg", "0x6000"))
        self.refused(DRIVER, "vx_mdio_read answered", "--json", "mdio", "--device", "9", "1:0")

    def test_call_in_hexadecimal(self):
        self.ok("reg", "0x7000=0xfedcba98")
        printed = self.ok("call", "--hex", "lmq_read_register", "0", "0x7000")
        self.assertRegex(printed, r"addr +0x00007000\np_reg_data +0xfedcba98\n")
        self.assertNotIn("0x", self.ok("call", "lmq_read_register", "0", "0x7000"))


class Doctor(CtlTest):
    def examined(self, *words, **variables):
        status, printed, errors = self.run_ctl("--json", *words, "doctor", **variables)
        self.assertEqual(errors, "")
        return status, {each["what"]: (each["verdict"], each["told"] + each["advice"]) for each in json.loads(printed)}

    def test_a_chip(self):
        status, found = self.examined()
        self.assertEqual((status, found["chip"][0]), (DRIVER, "wrong"))
        self.assertIn("Initialise it first", found["chip"][1])
        self.start_chip()
        printed = self.ok("doctor")
        self.assertEqual([re.split(" +", line)[:2] for line in printed.splitlines()],
                         [["ok", each] for each in ("connection", "worker", "login", "lease", "interface", "chip")])
        fingerprint = json.loads(pathlib.Path(os.environ["LMQ_INTERFACE"]).read_text())["fingerprint"]
        self.assertIn(f"fingerprint {fingerprint}", printed)
        self.ok("lock", "--name", "ann")
        self.assertIn("ann", self.examined(XDG_RUNTIME_DIR=f"{self.folder}/x")[1]["lease"][1])
        self.ok("unlock")

    def test_what_is_wrong_on_the_way(self):
        status, found = self.examined("--url", "http://nobody.invalid/RPC2")
        self.assertEqual((status, list(found)), (CONNECTION, ["connection"]))
        self.assertIn("cannot connect (nobody.invalid", found["connection"][1])
        line = subprocess.run([os.environ["LMQ_HOST"], "--make-user", "anna"], input="secret\n", capture_output=True,
                              text=True, check=True, start_new_session=True).stdout
        users = self.folder / "users"
        users.write_text(line)
        users.chmod(0o600)
        status, found = self.examined("--url", self.start_host("--auth", str(users), "--listen", "127.0.0.1:0"))
        self.assertEqual((status, found["login"][0]), (CONNECTION, "wrong"))
        self.assertIn("--user NAME", found["login"][1])
        filtered = self.start_host("--listen", "127.0.0.1:0", "--deny", "system.listMethods")
        status, found = self.examined("--url", filtered)
        self.assertEqual((status, found["login"][0]), (FAULT, "wrong"))
        bare = self.start_host("--listen", "127.0.0.1:0", "--interface", "/dev/null")
        _, printed, errors = self.run_ctl("--json", "--url", bare, "doctor")
        self.assertIn("description of its interface cannot be used", errors)
        self.assertIn(["interface", "note"], [[each["what"], each["verdict"]] for each in json.loads(printed)])


if __name__ == "__main__":
    unittest.main()
