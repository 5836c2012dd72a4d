"""How the host serves the console, without a browser: paths, headers, rights, and how it does without."""

import gzip
import http.client
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent))

from hosting import Host  # noqa: E402

PACK = pathlib.Path(os.environ["LMQ_CONSOLE_PACK"])
CALL = b"<?xml version='1.0'?><methodCall><methodName>system.listMethods</methodName></methodCall>"


def ask(host, path, method="GET", body=None, **headers):
    connection = http.client.HTTPConnection(host.address, host.port, timeout=30)
    connection.request(method, path, body, {name.replace("_", "-"): value for name, value in headers.items()})
    reply = connection.getresponse()
    reply.body = reply.read()
    connection.close()
    return reply


def index():
    return re.findall(r"^(\S+) (\S+) (\S+) \d+$", PACK.read_bytes().partition(b"\n\n")[0].decode(), re.MULTILINE)


class Serving(unittest.TestCase):
    def test_files(self):
        with Host() as host:
            top = ask(host, "/")
            self.assertEqual((top.status, top.headers["Location"]), (302, "/console/"))
            for name, kind, tag in index():
                reply = ask(host, f"/console/{name}", Accept_Encoding="br, gzip")
                self.assertEqual((reply.status, reply.headers["Content-Type"], reply.headers["ETag"]), (200, kind, tag))
                policy = reply.headers["Content-Security-Policy"]
                self.assertTrue(
                    policy.startswith("default-src 'none';") and "unsafe" not in policy and "*" not in policy)
                self.assertEqual(reply.headers["X-Frame-Options"], "DENY")
                self.assertEqual(reply.headers["X-Content-Type-Options"], "nosniff")
                text = gzip.decompress(reply.body).decode()
                # Nothing inline and nothing from elsewhere.
                self.assertNotRegex(text if name == "index.html" else "", r"<style|style=|<script>|\son\w+=|src=\"http")
                again = ask(host, f"/console/{name}", Accept_Encoding="gzip", If_None_Match=tag)
                self.assertEqual((again.status, again.body), (304, b""))
            self.assertEqual(ask(host, "/console/").status, 406)
            self.assertEqual(ask(host, "/console/../options.h", Accept_Encoding="gzip").status, 404)
            self.assertEqual(ask(host, "/consolex").status, 404)
            self.assertEqual(ask(host, "/console/", "POST", b"x").status, 404)

    def test_the_pack_is_small(self):
        self.assertLess(PACK.stat().st_size, 200 * 1024)

    def test_origins(self):
        with Host("--server-name", "chip.example") as host:
            own = f"http://{host.address}:{host.port}"
            here = own.removeprefix("http://")
            for origin, name, status in (
                    (own, here, 200), ("http://chip.example", "chip.example", 200), ("null", here, 403),
                    (own.replace("http", "https"), here, 403), (f"http://{host.address}", here, 403),
                    ("http://evil.example", here, 403), ("http://evil.example", "evil.example", 421)):
                reply = ask(host, "/RPC2", "POST", CALL, Origin=origin, Host=name, Content_Type="text/xml")
                self.assertEqual(reply.status, status, (origin, name))

    def test_a_password_is_for_the_page_too(self):
        with tempfile.TemporaryDirectory() as folder:
            made = subprocess.run([os.environ["LMQ_HOST"], "--make-user", "ann"], input=b"secret\n", check=True,
                                  capture_output=True)
            users = pathlib.Path(folder, "users")
            users.write_bytes(made.stdout)
            with Host("--auth", str(users)) as host:
                for path in ("/", "/console/", "/console/app.js"):
                    self.assertEqual(ask(host, path, Accept_Encoding="gzip").status, 401)

    def without(self, host):
        gone = ask(host, "/console/", Accept_Encoding="gzip")
        self.assertEqual((gone.status, gone.body), (404, b"There is nothing here; calls go to /RPC2.\n"))
        self.assertEqual(ask(host, "/").status, 404)
        own = f"http://{host.address}:{host.port}"
        self.assertEqual(ask(host, "/RPC2", "POST", CALL, Origin=own, Content_Type="text/xml").status, 403)
        self.assertEqual(ask(host, "/RPC2", "POST", CALL, Content_Type="text/xml").status, 200)

    def test_without(self):
        with Host("--no-console") as host:
            self.without(host)

    def test_a_pack_that_is_missing_or_none(self):
        program = pathlib.Path(os.environ["LMQ_HOST"])
        with tempfile.TemporaryDirectory() as folder:
            for name in ("lmq-host", "liblmq.so", "lmq_xmlrpc.so"):
                shutil.copy2(program.parent / name, folder)
            copy = pathlib.Path(folder, "lmq-host")
            with Host(program=str(copy)) as host:
                self.without(host)
            whole = PACK.read_bytes()
            for wrong in (b"", b"no pack", whole[:-1], whole[:40], whole.replace(b"index.html", b"inder.html", 1)):
                pathlib.Path(folder, "console.pack").write_bytes(wrong)
                done = subprocess.run([copy, "--check", "--listen", "127.0.0.1:0"], capture_output=True, text=True)
                self.assertEqual(done.returncode, 1)
                self.assertIn("console.pack' is no pack of the console", done.stderr)


if __name__ == "__main__":
    unittest.main()
