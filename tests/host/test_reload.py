"""What SIGHUP reads anew."""

import base64
import os
import pathlib
import signal
import ssl
import subprocess
import tempfile
import unittest

from harness import call, eventually, run, serve

ECHO = call("test.echo", 1)


class Reload(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.reloads = 0

    def reload(self, host):
        self.reloads += 1
        host.process.send_signal(signal.SIGHUP)
        self.assertTrue(eventually(lambda: host.printed().count("been read anew\n") == self.reloads))

    def basic(self, name):

        return {"Authorization": "Basic " + base64.b64encode(f"{name}:a secret".encode()).decode()}

    def test_users_rules_and_log(self):
        users, config, log = (self.folder / name for name in ("users", "config", "log"))
        lines = {name: run("--make-user", name, input="a secret\n").stdout for name in ("ann", "bob")}
        users.write_text(lines["ann"])
        config.write_text("deny=test.process\n")
        with serve("--auth", users, "--config", config, "--access-log", log, errors="(?s).*") as host:
            statuses = lambda: [host.post(ECHO, **self.basic(name))[0] for name in ("ann", "bob")]  # noqa: E731
            worker = lambda: b"is not served" not in host.post(call("test.process"), **self.basic("bob"))[1]  # noqa: E731
            self.assertEqual(statuses(), [200, 401])
            users.write_text(lines["bob"])
            config.write_text("deny=test.sleep\n")
            log.rename(self.folder / "old")
            self.reload(host)
            self.assertEqual(statuses(), [401, 200])
            self.assertTrue(worker())
            self.assertIn("bob test.echo", log.read_text())
            self.assertNotIn("bob test.echo", (self.folder / "old").read_text())
            # Mistakes change nothing, and are named.
            for bad_users, bad_rules, mistake in (("ann:clear\n", "", f"'{users}': line 1"),
                                                  (lines["bob"], "deny=nosuch*\n", "--deny 'nosuch*' matches no method")):
                users.write_text(bad_users)
                config.write_text(bad_rules)
                self.reload(host)
                self.assertEqual(statuses(), [401, 200])
                self.assertTrue(worker())
                self.assertIn(mistake, host.printed())
            config.write_text("bogus=1\n")
            self.reload(host)
            self.assertIn(f"{config}:1: 'bogus=1' is no option", host.printed())
            self.assertTrue(worker())

    def test_certificates(self):
        def make(name):
            subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
                            "-nodes", "-days", "2", "-subj", f"/CN={name}", "-keyout", "key", "-out", "pem"],
                           cwd=self.folder, check=True, capture_output=True, timeout=60)
            return (self.folder / "pem").read_text()

        first = make("first")
        files = ("--tls-cert", self.folder / "pem", "--tls-key", self.folder / "key")
        with serve(*files, errors="(?s).*stays in force: --tls-key .*") as host:
            shown = lambda: ssl.get_server_certificate(("127.0.0.1", host.port)).split()  # noqa: E731
            self.assertEqual(shown(), first.split())
            second = make("second")
            self.reload(host)
            self.assertEqual(shown(), second.split())
            os.rename(self.folder / "key", self.folder / "good")
            make("third")
            os.rename(self.folder / "good", self.folder / "key")
            self.reload(host)
            self.assertEqual(shown(), second.split())


if __name__ == "__main__":
    unittest.main()
