"""Sessions on a pipe and on a terminal, and what Tab offers: asked of lmqctl, and in the shells that are installed."""

import json
import os
import pathlib
import re
import shutil
import socket
import subprocess
import unittest

from ctl import CONNECTION, DRIVER, OK, USAGE, CtlTest, Terminal


def fingerprint(text):
    """What the cache names files by: FNV-1a of 64 bits."""
    value = 14695981039346656037
    for byte in text.encode():
        value = (value ^ byte) * 1099511628211 % (1 << 64)
    return f"{value:016x}"


class Session(CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.environment.update(XDG_STATE_HOME=str(cls.folder / "state"), TERM="xterm", COLUMNS="100", NO_COLOR="1",
                               HOME=str(cls.folder), PATH=os.path.dirname(os.environ["LMQ_CTL"]) + ":/usr/bin:/bin")
        cls.start_chip()

    def test_pipe(self):
        lines = ("# a comment\n\nvx_watchdog_set 0 '{\"wd_timer\": 7}'\n--json lmqctl\nvx_watchdog_get 0 --json\n"
                 "lmqctl explain 0x7002\nvx_watchdog_get 0\n")
        status, printed, errors = self.run_ctl("repl", stdin=lines)
        self.assertEqual(status, USAGE)
        self.assertIn("lmqctl is neither a command nor a method", errors)
        self.assertIn('"wd_timer": 7', printed)
        self.assertIn("VX_ERR_GLBL_SYS_UNINTIALIZED", printed)
        # --json was for its line alone, and the errors did not end the session.
        self.assertRegex(printed, r"wd_timer +7\n +wd_action +VX_WD_ACTION_WARNING\n[^\n]*\n$")
        for expected, line, message in (
                (OK, "quit\nfrobnicate", ""), (DRIVER, "vx_watchdog_get 9\nvx_watchdog_get 0", ""),
                (USAGE, "vx_watchdgo_get 0", "did you mean vx_watchdog_get"), (USAGE, "repl", "a session already"),
                (USAGE, "explain 'x", "the quote ' is not closed"), (USAGE, "list --url x", "--url"),
                (USAGE, "call", "METHOD")):
            status, _, errors = self.run_ctl("repl", stdin=line)
            self.assertEqual(status, expected, line)
            self.assertIn(message, errors)
        status, _, errors = self.run_ctl("--url", "http://127.0.0.1:1/RPC2", "repl", stdin="list\nexit")
        self.assertEqual(status, CONNECTION)
        self.assertIn("cannot connect", errors)

    def test_terminal(self):
        terminal = Terminal([os.environ["LMQ_CTL"], "repl"], self.environment)
        prompt = "lmqctl> "
        terminal.wait_for(prompt)
        terminal.type("vx_watchdog_s\t")
        terminal.wait_for("et ")
        terminal.type("0 p_cfg.wd_\t")
        terminal.type("\t")
        self.assertIn("wd_enable=", terminal.wait_for("wd_action="))
        terminal.type("act\tVX_WD_ACTION_R\t")
        terminal.wait_for("EBOOT ")
        terminal.type("--dry-run\n")
        terminal.wait_for('"wd_action": 1')
        terminal.wait_for(prompt)
        terminal.type("this is no command\x03")
        terminal.wait_for("^C")
        terminal.wait_for(prompt)
        terminal.type("frobnicate\n")
        terminal.wait_for("frobnicate is neither a command nor a method")
        terminal.wait_for(prompt)
        terminal.type("\x1b[A\x1b[A\x01list \x0b")  # up to the call, all of it but "list" cut away
        terminal.type("*watchdog*\n")
        terminal.wait_for("vx_watchdog_get(")
        terminal.wait_for(prompt)
        terminal.type("\x04")
        self.assertEqual(terminal.end(), OK)
        history = (self.folder / "state" / "lmqctl" / "history").read_text()
        self.assertIn("VX_WD_ACTION_REBOOT", history.replace("\\137", "_"))
        self.assertNotIn("this", history)
        # The next session remembers.
        terminal = Terminal([os.environ["LMQ_CTL"], "repl"], self.environment)
        terminal.wait_for(prompt)
        terminal.type("\x1b[A")
        terminal.wait_for("*watchdog*")
        terminal.type("\x03\x04")
        self.assertEqual(terminal.end(), OK)

    def test_defaults(self):
        def sent(*lines):
            printed = self.ok("repl", stdin="\n".join(lines) + "\n")
            return [json.loads(each) for each in re.findall(r"(?ms)^lmq\.\w+ (\[.*?^\])$", printed)]
        enable = "call --dry-run vx_l2_traffic_block_set "
        self.assertEqual(sent("set device 0", enable + "3 1", "set port 4", enable + "1", enable + "3 0", enable + "0 3 1",
                              enable + "enbl=on", enable + "port_id=3 1", "call --dry-run vx_gpon_onu_port_enable_set 0 1",
                              "set port none", enable + "3 0"),
                         [[0, 3, 1], [0, 4, 1], [0, 3, 0], [0, 3, 1], [0, 4, 1], [0, 3, 1],
                          # The PON port is no port 4.
                          [0, 0, 1], [0, 3, 0]])
        printed = self.ok("repl", stdin="set\nset port 0x3\nset\nvx_l2_port_stp_state_get 0\n")
        self.assertTrue(printed.startswith("nothing is set; set device N, set port N\nport 3\nVX_SUCCESS\n"), printed)
        self.assertRegex(printed, r"port_id +3\n")
        for line, message in (("set port", "expected a number, or none"), ("set port x", "neither a number nor none"),
                              ("set port 9", "9 is out of range, which is 0 to 5"), ("set flow 1", "device,port"),
                              ("set device 0\nvx_l2_traffic_block_set", "missing argument port_id")):
            status, _, errors = self.run_ctl("repl", stdin=line)
            self.assertEqual(status, USAGE, line)
            self.assertIn(message, errors)
        self.refused(USAGE, "set is for the lines of a session", "set", "port", "3")
        # The prompt shows them, and Ctrl-R finds an earlier line.
        terminal = Terminal([os.environ["LMQ_CTL"], "repl"], self.environment)
        terminal.wait_for("lmqctl> ")
        terminal.type("set port 3\n")
        terminal.wait_for("lmqctl port 3> ")
        terminal.type("explain VX_WD_ACTION_REBOOT\n")
        terminal.wait_for("of vx_wd_action_e")
        terminal.wait_for("lmqctl port 3> ")
        terminal.type("\x12set p\n")
        terminal.wait_for("lmqctl port 3> ")
        terminal.type("exit\n")
        self.assertEqual(terminal.end(), OK)

    def test_interrupted_call(self):
        """Ctrl-C gives the prompt back while a host takes its time; here one that never answers."""
        with socket.create_server(("127.0.0.1", 0)) as server:
            url = f"http://127.0.0.1:{server.getsockname()[1]}/RPC2"
            terminal = Terminal([os.environ["LMQ_CTL"], "--url", url, "repl"], self.environment)
            terminal.wait_for("lmqctl> ")
            terminal.type("list\n")
            connection = server.accept()[0]
            with connection:
                connection.recv(1)
                terminal.type("\x03")
                terminal.wait_for("interrupted")
                terminal.wait_for("lmqctl> ")
            terminal.type("exit\n")
            self.assertEqual(terminal.end(), OK)

    def offered(self, *words, **variables):
        return [line.split("\t")[0] for line in self.ok("complete", "--", *words, **variables).splitlines()]

    def test_complete(self):
        call = ("call", "vx_watchdog_set", "0")
        for words, expected in (
                (("expl",), ["explain "]), (("--js",), ["--json "]), (("--url", "unix:/x", "expl"), ["explain "]),
                (("call", "--dr"), ["--dry-run "]), (("call", "--as", "p"), ["python "]), (("completion", "z"), ["zsh "]),
                (("call", "vx_watchdog_"), ["vx_watchdog_set ", "vx_watchdog_get "]),
                (("call", "lmq.vx_watchdog_g"), ["lmq.vx_watchdog_get "]),
                (("describe", "vx_watchdog_cfg"), ["vx_watchdog_cfg_t "]), (("uses", "vx_watchdog_"), ["vx_watchdog_cfg_t "]),
                (("explain", "VX_WD_ACTION_R"), ["VX_WD_ACTION_REBOOT "]), (("describe", "LMQ_MAX_CO"), ["LMQ_MAX_COS "]),
                (("call", "vx_watchdog_set", ""), ["dev_id=", "p_cfg."]), ((*call, ""), ["p_cfg."]),
                (("call", "vx_watchdog_get", ""), ["dev_id="]), (("call", "vx_watchdog_get", "0", "p"), ["p_cfg."]),
                (("call", "vx_watchdog_get", "0", ""), []),
                ((*call, "p_cfg.wd_enable=1", "p_cfg.wd_"), ["p_cfg.wd_timer=", "p_cfg.wd_action="]),
                ((*call, "p_cfg.wd_action=VX_WD_ACTION_W"), ["p_cfg.wd_action=VX_WD_ACTION_WARNING "]),
                ((*call, "p_cfg.mask_s=wd_enable|wd_"), [f"p_cfg.mask_s=wd_enable|wd_{one} " for one in ("timer", "action")]),
                (("call", "lmq_init_system", "p_cfg.dev_c"), ["p_cfg.dev_cfg[0]."]),
                (("call", "lmq_init_system", "p_cfg.dev_cfg[0].sni_mode=LMQ_SNI_MODE_N"),
                 ["p_cfg.dev_cfg[0].sni_mode=LMQ_SNI_MODE_NORMAL "]),
                (("call", "vx_flow_us_add", "p_key.key_type=VX_CL_KEY_MAC_VLAN", "p_key.key_s."), ["p_key.key_s.mac_vlan."]),
                # Integers whose enum the contract knows, as members and as arguments; booleans.
                (("call", "lmq_create_bridge", "0", "1", "p_cfg.brg_type=LMQ_BRG_TYPE_N"), [f"p_cfg.brg_type=LMQ_BRG_TYPE_{end} " for end in ("NONE", "N_1")]),
                (("call", "vx_l2_port_stp_state_set", "0", "3", "VX_L2_STP_STATE_F"), ["VX_L2_STP_STATE_FORWARDING "]),
                ((*call, "p_cfg.wd_enable=o"), ["p_cfg.wd_enable=on ", "p_cfg.wd_enable=off "]),
                # A call in one word goes on inside of it.
                (("watch", "vx_watchdog_g"), ["vx_watchdog_get"]), (("watch", "vx_watchdog_get 0", "vx_watchdog_s"), ["vx_watchdog_set"]),
                (("watch", "vx_eth_port_stats_get 0 4 cl"), ["vx_eth_port_stats_get 0 4 clear="]),
                (("watch", "vx_watchdog_set 0 p_cfg.wd_action=VX_WD_ACTION_W"),
                 ["vx_watchdog_set 0 p_cfg.wd_action=VX_WD_ACTION_WARNING"]),
                (("list", "gpon"), ["gpon ", "gpon_tm "]), (("set", "d"), ["device "]),
                (("call", "vx_nobody", ""), []), ((*call, "p_cfg.nobody."), []), ((*call, "p_cfg[.x["), []), (("nobody", ""), []),
                ((), [])):
            self.assertEqual(self.offered(*words) if words else [], expected, words)

    def test_complete_files(self):
        folder = self.folder / "files"
        folder.mkdir()
        for name in ("one.json", "other.json", ".hidden"):
            (folder / name).write_text("{}")
        (folder / "over").mkdir()
        for words, expected in ((("call", "vx_watchdog_set", "0", f"@{folder}/o"), [f"@{folder}/one.json ", f"@{folder}/other.json ", f"@{folder}/over/"]),
                                (("call", "vx_watchdog_set", f"@{folder}/on"), [f"@{folder}/one.json "]),
                                (("call", "vx_watchdog_set", "0", f"p_cfg=@{folder}/on"), [f"p_cfg=@{folder}/one.json "]),
                                (("call", "vx_watchdog_set", "0", f"@{folder}/.h"), [f"@{folder}/.hidden "]),
                                (("call", "vx_watchdog_set", "0", "@/none/o"), [])):
            self.assertEqual(self.offered(*words), expected, words)

    def test_complete_without_a_host(self):
        """From the cache while the host is down; without a cache nothing, and without a word."""
        url = "http://127.0.0.1:1/RPC2"
        self.assertEqual(self.offered("--url", url, "call", "vx_watchdog_g"), [])
        # As if it had been there before.
        folder = self.folder / "lmqctl"
        (ours,) = (link for link in folder.glob("url-*") if link.name == f"url-{fingerprint(self.url)}")
        (folder / f"url-{fingerprint(url)}").symlink_to(os.readlink(ours))
        self.assertEqual(self.offered("--url", url, "call", "vx_watchdog_g"), ["vx_watchdog_get "])

    def test_complete_with_a_slow_host(self):
        """It is asked, and given up; a session as a shell, neither with a word."""
        with socket.create_server(("127.0.0.1", 0)) as deaf:
            url = f"http://127.0.0.1:{deaf.getsockname()[1]}/RPC2"
            self.assertEqual(self.offered("--timeout", "0", "call", "vx_", LMQ_URL=url), [])
            with deaf.accept()[0] as connection:
                self.assertIn(b"system.listMethods", connection.recv(65536))
            terminal = Terminal([os.environ["LMQ_CTL"], "--url", url, "--timeout", "0", "repl"], self.environment)
            terminal.wait_for("lmqctl> ")
            terminal.type("vx_\t")
            with deaf.accept()[0] as connection:
                connection.recv(65536)
                terminal.type("\x15quit\n")
                terminal.wait_for("quit")
                self.assertEqual(terminal.end(), OK)

    def in_bash(self, line, point=None):
        """What bash has in COMPREPLY: words taken apart as its line editor does."""
        words = [word for word in re.findall(r"[=:]+|[^ =:]+", line)] + ([""] if line.endswith((" ", "=")) else [])
        script = ('eval "$(lmqctl completion bash)"; COMP_LINE=$1 COMP_POINT=${#1}; shift; COMP_WORDS=("$@")\n'
                  'COMP_CWORD=$(($# - 1)); _lmqctl; ((${#COMPREPLY[@]} == 0)) || printf "%s\\n" "${COMPREPLY[@]}"')
        return subprocess.run(["bash", "--norc", "-c", script, "bash", line, *words], env=self.environment, text=True,
                              capture_output=True, check=True).stdout.splitlines()

    def test_bash(self):
        for line, expected in (
                ("lmqctl expl", ["explain "]), ("lmqctl call vx_watchdog_set 0 p_cfg.wd_e", ["p_cfg.wd_enable="]),
                ("lmqctl call vx_watchdog_set dev_id=0 p_cfg.wd_enable=1 p_cfg.wd_t", ["p_cfg.wd_timer="]),
                ("lmqctl call vx_watchdog_set 0 p_cfg.wd_action=VX_WD_ACTION_W", ["VX_WD_ACTION_WARNING "]),
                ("lmqctl call vx_watchdog_set 0 p_cfg.wd_action=", ["VX_WD_ACTION_WARNING ", "VX_WD_ACTION_REBOOT "]),
                ("lmqctl call vx_watchdog_set 0 p_cfg.mask_s='wd_enable|wd_t", ["wd_enable|wd_timer"]),
                ("lmqctl watch 'vx_watchdog_g", ["vx_watchdog_get", "vx_watchdog_get "]),
                (f"lmqctl --url {self.url} uses vx_watchdog_", ["vx_watchdog_cfg_t "]), ("lmqctl nobody x", [])):
            self.assertEqual(self.in_bash(line), expected, line)

    def test_bash_at_its_prompt(self):
        terminal = Terminal(["bash", "--norc", "-i"], dict(self.environment, PS1="$ "))
        terminal.type('eval "$(lmqctl completion bash)"\n')
        terminal.type("lmqctl call vx_watchdog_set 0 p_cfg.wd_a\tVX_WD_ACTION_R\t--dry-run\n")
        terminal.wait_for('"wd_action": 1')
        # Inside quotes, and behind an @, at which bash breaks words.
        (self.folder / "timer.json").write_text('{"wd_timer": 4711}')
        terminal.type(f"lmqctl call --dry-run vx_watchdog_set 0 @{self.folder}/tim\t\n")
        terminal.wait_for('"wd_timer": 4711')
        terminal.type("lmqctl watch --samples 1 'vx_watchdog_set 0 p_cfg.wd_action=VX_WD_ACTION_W\t' --columns wd_timer\n")
        terminal.wait_for("every 1 s")
        terminal.type("exit\n")
        terminal.end()

    @unittest.skipUnless(shutil.which("zsh"), "there is no zsh")
    def test_zsh(self):
        terminal = Terminal(["zsh", "-f", "-i"], dict(self.environment, PS1="$ "))
        terminal.type('autoload -U compinit && compinit -D; eval "$(lmqctl completion zsh)"; echo rea""dy\n')
        terminal.wait_for("ready")
        terminal.type("lmqctl call vx_watchdog_set 0 p_cfg.wd_a\tVX_WD_ACTION_R\t--dry-run\n")
        terminal.wait_for('"wd_action": 1')
        terminal.type("exit\n")
        terminal.end()

    @unittest.skipUnless(shutil.which("fish"), "there is no fish")
    def test_fish(self):
        for line, expected in (("lmqctl expl", "explain"), ("lmqctl call vx_watchdog_set 0 p_cfg.wd_a", "p_cfg.wd_action="),
                               ("lmqctl call vx_watchdog_set 0 p_cfg.wd_action=VX_WD_ACTION_R",
                                "p_cfg.wd_action=VX_WD_ACTION_REBOOT"),
                               ('lmqctl call vx_watchdog_set 0 "p_cfg.mask_s=wd_enable|wd_t', "p_cfg.mask_s=wd_enable|wd_timer")):
            printed = subprocess.run(["fish", "--no-config", "-c", f"lmqctl completion fish | source; complete -C '{line}'"],
                                     env=self.environment, capture_output=True, text=True, check=True).stdout
            self.assertEqual([each.split("\t")[0] for each in printed.splitlines()], [expected], line)

    def test_help(self):
        for command in ("repl", "completion"):
            self.assertIn(f"Example:\n  lmqctl {command}", self.ok(command, "--help"))
        self.assertNotIn("  complete ", self.ok("--help"))
        page = pathlib.Path(__file__).parents[2].joinpath("packaging", "lmqctl.1").read_text()
        # A macro of the page takes words with blanks in quotes: it loses those between others.
        self.assertEqual(re.findall(r"(?m)^\.[BIR]{2} (?:[^\"\n ]+ ){6}.*", page.replace("bash | zsh | fish", "")), [])
        commands = re.findall(r"^  ([a-z]+) ", self.ok("--help").split("Subcommands:")[1], re.M)
        self.assertIn("repl", commands)
        for command in commands:
            self.assertRegex(page, rf"(?m)^\.BI?R? {command}\b")
        for text in (self.ok(*command, "--help") for command in ([], *([name] for name in commands))):
            for option in re.findall(r"^ +(?:-\w,)?(--[a-z-]+)", text, re.M):
                self.assertIn(option.replace("-", r"\-"), page)
        self.refused(USAGE, "tcsh", "completion", "tcsh")
        self.refused(USAGE, "SHELL", "completion")


if __name__ == "__main__":
    unittest.main()
