"""Boards by name, and many of them at once."""

import json
import os
import pathlib
import socket
import subprocess
import unittest

from ctl import CONNECTION, DRIVER, OK, USAGE, CtlTest

GET = ("call", "vx_watchdog_get", "0")


def dead_url():
    """An address at which nothing listens."""
    with socket.create_server(("127.0.0.1", 0)) as server:
        return f"http://127.0.0.1:{server.getsockname()[1]}"


class BoardsTest(CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start_chip()
        cls.idle = cls.start_host("--listen", "127.0.0.1:0")  # its chip was never started
        del cls.environment["LMQ_URL"]
        cls.environment["XDG_CONFIG_HOME"] = cls.folder
        cls.file = cls.folder / "lmqctl/boards.toml"
        cls.file.parent.mkdir(exist_ok=True)

    def boards(self, text):
        self.file.write_text(text)

    def some(self):
        """Three boards: one that serves, one that nothing answers for, one whose driver refuses."""
        self.boards(f'''[boards.rack2-09]
url = "{self.url}"
groups = ["rack2", "lab"]
[boards.rack2-01]
url = "{dead_url()}"
groups = ["rack2"]
[boards.bench]
url = "{self.idle}"
''')


class Named(BoardsTest):
    def test_which_host_is_meant(self):
        self.some()
        both = {"LMQ_URL": self.url, "LMQ_BOARD": "rack2-01"}
        self.assertIn("VX_SUCCESS", self.ok("--board", "rack2-09", *GET))
        self.assertIn("VX_SUCCESS", self.ok(*GET, LMQ_BOARD="rack2-09"))
        self.assertIn("VX_SUCCESS", self.ok(*GET, **both))
        self.assertIn("VX_SUCCESS", self.ok(*GET, "--board", "rack2-09", LMQ_URL=dead_url()))
        self.assertIn("VX_SUCCESS", self.ok("--url", self.url, *GET, LMQ_BOARD="nowhere"))
        self.refused(USAGE, "exclude each other", "--url", self.url, "--board", "rack2-09", *GET)
        self.refused(USAGE, "rack2-9 is no board of " + str(self.file), "--board", "rack2-9", *GET)
        self.refused(USAGE, "did you mean rack2-09", *GET, LMQ_BOARD="rack2-9")
        self.assertIn("rack2-09 \t", self.ok("complete", "--", "--board", ""))
        self.assertEqual([line.split("\t")[0] for line in self.ok("complete", "--", "--on", "r").splitlines()],
                         ["rack2-09 ", "rack2 ", "rack2-01 "])

    def test_a_program_at_a_board(self):
        self.some()
        self.assertEqual(self.ok("run", "--board", "rack2-09", "--", "sh", "-c", "echo $LMQ_URL"), self.url + "\n")

    def test_what_is_wrong_is_named_with_its_line(self):
        for text, why in ((f'[boards.a]\nurl = "{self.url}"\nport = 7\n', ":3: board a has an unknown key port"),
                          ("\n[boards.a]\nuser = 'x'\n", ":2: board a has no url"),
                          ("[boards.a]\nurl = 7\n", ":2: board a has no text for url"),
                          ("[boards.a]\nurl = 'http://a'\npassword = 'x'\n", ":3: board a has a password"),
                          ("[boards.a]\nurl = 'http://a'\ngroups = 'x'\n", ":3: board a has no list for groups"),
                          ("[boards.all]\nurl = 'http://a'\n", ':1: a board cannot be called "all"'),
                          ("[board.a]\nurl = 'http://a'\n", ":1: board is not known"),
                          ("boards = 3\n", ":1: boards is no table"),
                          ("[boards.a\n", ":1: ")):
            self.boards(text)
            self.refused(USAGE, str(self.file) + why, "--board", "a", *GET)
        self.file.unlink()
        self.refused(USAGE, "there are no boards", "--board", "a", *GET)

    def test_password_and_certificates(self):
        users = self.folder / "users"
        users.write_text(subprocess.run([os.environ["LMQ_HOST"], "--make-user", "ann"], input="geheim\n", text=True,
                                        capture_output=True, check=True, start_new_session=True).stdout)
        users.chmod(0o600)
        url = self.start_host("--listen", "127.0.0.1:0", "--auth", str(users))
        (self.folder / "secret").write_text("geheim\n")
        self.boards(f'''[boards.locked]
url = "{url}"
user = "ann"
password-command = "cat {self.folder}/secret"
[boards.no-command]
url = "{url}"
user = "ann"
password-command = "exit 3"
[boards.tls]
url = "https://127.0.0.1:1"
cacert = "lab.pem"
''')
        self.ok("--board", "locked", "list")
        self.ok("--board", "no-command", "list", LMQ_PASSWORD="geheim")
        self.refused(USAGE, "password-command failed: exit 3", "--board", "no-command", "list")
        self.assertEqual(self.ok("run", "--board", "locked", "--", "sh", "-c", "echo $LMQ_USER $LMQ_PASSWORD"), "ann geheim\n")
        self.assertEqual(self.ok("run", "--board", "tls", "--", "sh", "-c", "echo $LMQ_CACERT"),
                         f"{self.file.parent}/lab.pem\n")


class Many(BoardsTest):
    def test_list(self):
        self.some()
        status, printed, errors = self.run_ctl("boards")
        self.assertEqual((status, errors), (CONNECTION, ""))
        lines = [line.split() for line in printed.splitlines()]
        self.assertEqual([line[0] for line in lines], ["BOARD", "rack2-09", "rack2-01", "bench"])
        self.assertEqual(lines[1][2:], ["rack2,", "lab", *lines[1][4:]])
        self.assertRegex(printed, r"rack2-09 .* \d+ methods\n")
        self.assertIn("(cannot connect", printed)
        self.assertEqual([each["board"] for each in json.loads(self.ok("--json", "boards", "lab,b*"))], ["rack2-09", "bench"])
        self.refused(USAGE, "rack3 matches no board or group", "boards", "rack3")

    def test_table(self):
        """In the order of the file, with those that do not answer, or not well."""
        self.some()
        status, printed, errors = self.run_ctl("--on", "all", *GET, "--columns", "wd_enable,p_cfg.wd_action")
        self.assertEqual(status, CONNECTION, errors)
        rows = [line.split(None, 1) for line in printed.splitlines()]
        self.assertEqual([row[0] for row in rows], ["BOARD", "rack2-09", "rack2-01", "bench"])
        self.assertEqual(rows[0][1].split(), ["WD_ENABLE", "P_CFG.WD_ACTION"])
        self.assertEqual(rows[1][1].split(), ["0", "VX_WD_ACTION_WARNING"])
        self.assertEqual(rows[2][1], "(no connection)")
        self.assertIn("(VX_ERR_", rows[3][1])
        self.assertIn("rack2-01: lmqctl: http://127.0.0.1:", errors)
        status, printed, _ = self.run_ctl("--on", "bench,lab", *GET, "--columns", "wd_enable")
        self.assertEqual((status, len(printed.splitlines())), (DRIVER, 3))
        status, _, errors = self.run_ctl("--on", "lab", *GET, "--columns", "wd_enabel")
        self.assertEqual(status, USAGE)
        self.assertIn("rack2-09: lmqctl: --columns: vx_watchdog_get answers no wd_enabel; did you mean wd_enable?", errors)

    def test_objects_and_texts(self):
        self.some()
        status, printed, _ = self.run_ctl("--json", "--on", "all", *GET)
        lines = [json.loads(line) for line in printed.splitlines()]
        self.assertEqual([(line["board"], line["exit"]) for line in lines],
                         [("rack2-09", OK), ("rack2-01", CONNECTION), ("bench", DRIVER)])
        self.assertEqual(lines[0]["answer"]["status"], "VX_SUCCESS")
        self.assertIn("cannot connect", lines[1]["error"])
        self.assertEqual(status, CONNECTION)
        status, printed, errors = self.run_ctl("--on", "rack2", *GET)
        self.assertIn("rack2-09\n  VX_SUCCESS\n  dev_id ", printed)
        self.assertIn("rack2-01  (no connection)\n", printed)
        self.assertIn("rack2-01: lmqctl: ", errors)

    def test_files_are_not_shared(self):
        self.some()
        self.refused(USAGE, "{board} in it", "--on", "lab", "snapshot", f"{self.folder}/s.json")
        self.ok("--on", "lab", "snapshot", f"{self.folder}/" + "{board}.json", "*watchdog*")
        self.assertIn("vx_watchdog_get", (self.folder / "rack2-09.json").read_text())
        self.refused(USAGE, "watch is for one board", "--on", "lab", "watch", "vx_watchdog_get 0")
        self.refused(USAGE, "standard input", "--on", "lab", "batch", "-")
        self.refused(USAGE, "no board or group", "--on", "", *GET)

    def test_each_has_its_interface(self):
        """Whoever learns an interface first learns it for all that have the same, and for nobody else."""
        interface = json.loads(pathlib.Path(os.environ["LMQ_INTERFACE"]).read_text())
        interface["methods"]["vx_watchdog_get"]["brief"] = "Reads the other watchdog."
        other, broken = self.folder / "other.json", self.folder / "broken.json"
        other.write_text(json.dumps(interface))
        broken.write_text("{}")
        urls = {"same": self.url, "idle": self.idle, "dead": dead_url()}
        for file in (other, broken):
            urls[file.stem] = self.start_host("--listen", "127.0.0.1:0", "--interface", str(file))
        self.boards("".join(f'[boards.{name}-{number}]\nurl = "{url}"\n' for number in range(4) for name, url in urls.items()))
        cache = self.folder / "empty"
        for what in ("cold", "warm"):
            status, printed, _ = self.run_ctl("--json", "--on", "all", "describe", "vx_watchdog_get", XDG_CACHE_HOME=str(cache))
            self.assertEqual(status, CONNECTION)
            lines = [json.loads(line) for line in printed.splitlines()]
            self.assertEqual(len(lines), 4 * len(urls))
            for line in lines:
                with self.subTest(what, board=line["board"]):
                    name = line["board"].split("-")[0]
                    said = {"other": "Reads the other watchdog.", "dead": "cannot connect",
                            "broken": "cannot be used"}.get(name, "Reads the watchdog.")
                    self.assertIn(said, json.dumps(line))
        self.assertEqual(len(list((cache / "lmqctl").glob("*.dict"))), 3)

    def test_fifty(self):
        names = [f"b{number:02}" for number in range(50)]
        dead = names[3::10]
        self.boards("".join(f'[boards.{name}]\nurl = "{dead_url() if name in dead else self.url}"\n' for name in names[::-1]))
        status, printed, _ = self.run_ctl("--on", "all", "--timeout", "20", *GET, "--columns", "wd_timer")
        self.assertEqual(status, CONNECTION)
        rows = [line.split() for line in printed.splitlines()[1:]]
        self.assertEqual([row[0] for row in rows], names[::-1])
        self.assertEqual([row[0] for row in rows if row[1:] == ["(no", "connection)"]], dead[::-1])


if __name__ == "__main__":
    unittest.main()
