"""Who may call what: heads of requests, users, certificates, filters, the Unix socket, slow and idle clients."""

import base64
import contextlib
import http.client
import os
import pathlib
import resource
import socket
import ssl
import stat
import subprocess
import tempfile
import time
import unittest

from harness import HOST, PLUGIN, XML, call, driver, serve

REFUSED = -507
ECHO = call("test.echo", 1)


def multicall(*methods):
    return call("system.multicall", [{"methodName": method, "params": []} for method in methods])


def not_served(method):
    return REFUSED, f"The method {method} is not served here."


def changes(method):
    return REFUSED, f"The method {method} may change the chip, and this host only reads."


class Heads(unittest.TestCase):
    def test_a_web_page_cannot_call(self):
        foreign = (421, b"This host does not go by the name in the Host header.\n")
        page = (403, b"Pages of this origin may not call.\n")
        with serve("--server-name", "chip.example") as host:
            for name in ("localhost", "LOCALHOST:80", "127.0.0.1:1", "192.0.2.1", "[::1]", "[::1]:8080",
                         socket.gethostname(), "chip.example:8080"):
                self.assertEqual(host.post(ECHO, Host=name)[0], 200, name)
            for name in ("evil.example", "localhost.evil.example", "127.0.0.1.evil.example:8080", "[::1].evil", ""):
                self.assertEqual(host.post(ECHO, Host=name), foreign, name)
            for origin in ("http://evil.example", "null", "http://localhost"):
                self.assertEqual(host.post(ECHO, Origin=origin), page)

    def test_allowed_origin(self):
        page = "https://tool.example"
        with serve("--allow-origin", page) as host, host.connect() as connection:
            for method, body, status in (("OPTIONS", None, 204), ("POST", ECHO, 200)):
                connection.request(method, "/RPC2", body, {**XML, "Origin": page})
                answer = connection.getresponse()
                answer.read()
                self.assertEqual((answer.status, answer.headers["Access-Control-Allow-Origin"]), (status, page))
            self.assertEqual(host.post(ECHO, Origin="https://other.example")[0], 403)


class Filters(unittest.TestCase):
    def test_last_match_wins_and_inner_calls_count(self):
        with serve("--deny", "test.*", "--allow", "test.e*", "--deny", "test.end") as host:
            self.assertEqual(host.proxy().test.echo(1), [1])
            for document, method in ((call("test.end", 11), "test.end"), (call("test.sleep", 1), "test.sleep"),
                                     (multicall("test.echo", "test.end"), "test.end"),
                                     # A method that no glob matches is refused once anything is allowed.
                                     (call("system.listMethods"), "system.listMethods")):
                self.assertEqual(host.fault(document), not_served(method))
            # Whichever of two names the XML-RPC library would take.
            twice = multicall("test.echo").replace(
                b"</struct>", b"<member><name>methodName</name><value>test.end</value></member></struct>")
            self.assertEqual(host.fault(twice), not_served("test.end"))
            self.assertEqual(host.proxy().system.multicall([{"methodName": "test.echo", "params": [1]}]), [[[1]]])

    def test_read_only(self):
        reads = ("system.listMethods", "lmq.listUDTs", "lmq.vx_eth_port_stats_get", "lmq.lmq_get_bridge_config_all",
                 "lmq.lmq_dump_bridge", "lmq.vx_l2_fdb_entry_get_next")
        writes = ("lmq.vx_eth_port_stats_clear", "lmq.lmq_dbg_set_reg_dump", "lmq.vx_reset", "lmq.vx_mdio_read",
                  "test.echo", "lmq.target", "get.vx_reset", "system", "lmq.vx_get_set")
        with serve("--read-only") as host:
            self.assertEqual(host.proxy().test.status_get(), [-7, "argument"])
            for method in reads:
                # It passes the filter: the XML-RPC library does not know it, or answers.
                status, answer = host.post(call(method))
                self.assertNotIn(b"only reads", answer, method)
            for method in writes:
                self.assertEqual(host.fault(call(method)), changes(method))
                self.assertEqual(host.fault(multicall("test.status_get", method)), changes(method))


def make_user(name, password):
    return subprocess.run([HOST, "--make-user", name], input=password + "\n", capture_output=True, text=True, timeout=20)


def basic(name, password):
    return {"Authorization": "Basic " + base64.b64encode(f"{name}:{password}".encode()).decode()}


class Entry(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def refused(self, *options):
        done = subprocess.run([HOST, "--plugin", PLUGIN, "--driver", driver("one"), *options], capture_output=True,
                              text=True, timeout=20)
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        return done.stderr

    def test_other_addresses_need_a_guard(self):
        for address in ("0.0.0.0:0", "[::]:0"):
            self.assertRegex(self.refused("--listen", address), r"\Almq-host: whoever reaches .* --insecure\n\Z")
        checked = subprocess.run([HOST, "--plugin", PLUGIN, "--driver", driver("one"), "--listen", "0.0.0.0:0",
                                  "--insecure", "--check"], capture_output=True, text=True, timeout=20)
        self.assertEqual((checked.returncode, checked.stdout, checked.stderr), (0, "", ""))

    def test_users(self):
        users = self.folder / "users"
        line = make_user("ann", "a secret").stdout
        self.assertRegex(line, r"\Aann:\$\S+\n\Z")
        self.assertNotEqual(line, make_user("ann", "a secret").stdout)  # salted
        self.assertEqual(make_user("a:b", "x").returncode, 1)
        self.assertEqual(make_user("ann", "").returncode, 1)
        for text in ("", "# nobody\n", "ann\n", "ann:\n", ":x\n", "ann:plain text\n"):
            users.write_text(text)
            self.assertRegex(self.refused("--auth", users), r"\Almq-host: the users '.*': .*\n\Z")
        users.write_text("# a comment\n\n" + line)
        wrong = (401, b"A user and a password are needed that this host knows.\n")
        late = (429, b"There were too many wrong passwords; try again in a second.\n")
        with serve("--auth", users, "--access-log", "-", errors=r"(?s).* ann test\.echo 200 .*") as host:
            self.assertEqual(host.post(ECHO, **basic("ann", "a secret"))[0], 200)
            self.assertEqual(host.post(ECHO), wrong)
            self.assertEqual(host.get("/metrics")[0], 401)
            self.assertEqual(host.get("/healthz")[0], 200)
            answers = [host.post(ECHO, **basic(*user)) for user in
                       (("ann", "a secre"), ("ann", ""), ("bob", "a secret"), ("", "")) * 5]
            self.assertEqual(answers[:2], [wrong] * 2)
            self.assertLessEqual(set(answers), {wrong, late})
            self.assertEqual(host.post(ECHO, **basic("ann", "a secret"))[0], 200)  # who is known is not put off

    def test_tls(self):
        def openssl(*arguments):
            subprocess.run(["openssl", *arguments], cwd=self.folder, check=True, capture_output=True, timeout=60)

        for name, subject, signer in (("server", "/CN=127.0.0.1", ()), ("ca", "/CN=authority", ()),
                                      ("stranger", "/CN=stranger", ())):
            openssl("req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-days", "2",
                    "-subj", subject, "-addext", "subjectAltName=IP:127.0.0.1", "-keyout", name + ".key", "-out",
                    name + ".pem")
        openssl("req", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-subj", "/CN=carol",
                "-keyout", "carol.key", "-out", "carol.csr")
        openssl("x509", "-req", "-in", "carol.csr", "-CA", "ca.pem", "-CAkey", "ca.key", "-days", "2", "-out", "carol.pem")
        file = lambda name: str(self.folder / name)  # noqa: E731
        server = ("--tls-cert", file("server.pem"), "--tls-key", file("server.key"))

        def post(host, certificate=None):
            context = ssl.create_default_context(cafile=file("server.pem"))
            if certificate:
                context.load_cert_chain(file(certificate + ".pem"), file(certificate + ".key"))
            with contextlib.closing(http.client.HTTPSConnection("127.0.0.1", host.port, context=context,
                                                                timeout=10)) as connection:
                connection.request("POST", "/RPC2", ECHO, XML)
                return connection.getresponse().status

        self.assertRegex(self.refused(*server[:2]), "--tls-cert and --tls-key go together")
        self.assertRegex(self.refused(*server, "--tls-client-ca", file("none")), "cannot read '.*none'")
        with serve(*server) as host:
            self.assertEqual(post(host), 200)
        log = r"(?s).* carol test\.echo 200 .*"
        with serve(*server, "--tls-client-ca", file("ca.pem"), "--access-log", "-", errors=log) as host:
            self.assertEqual(post(host, "carol"), 200)
            for certificate in (None, "stranger"):
                with contextlib.suppress(OSError, http.client.HTTPException):
                    self.assertEqual(post(host, certificate), 403)

    def test_unix_socket(self):
        path = self.folder / "socket"
        for _ in range(2):  # the second host finds what the first one, killed, has left
            process = subprocess.Popen([HOST, "--plugin", PLUGIN, "--driver", driver("one"), "--socket", path],
                                       stdout=subprocess.PIPE, text=True)
            with process:
                self.assertEqual(process.stdout.readline(), f"Listening on {path}\n")
                self.assertEqual(stat.S_IMODE(os.stat(path).st_mode), 0o600)
                with socket.socket(socket.AF_UNIX) as client:
                    client.connect(str(path))
                    client.sendall(b"POST /RPC2 HTTP/1.1\r\nHost: any.name\r\nContent-Type: text/xml\r\n"
                                   b"Connection: close\r\nContent-Length: %d\r\n\r\n%s" % (len(ECHO), ECHO))
                    self.assertIn(b" 200 OK", client.makefile("rb").readline())
                self.assertRegex(self.refused("--socket", path), "somebody serves there already")
                process.kill()

    def test_options_from_a_file(self):
        config = self.folder / "lmq-host.conf"
        config.write_text('# limits\nmax-values=5\nread-only=true\nallow=["test.status_get","test.echo"]\n')
        with serve("--config", config) as host:
            self.assertEqual(host.fault(call("test.status_get", [1] * 5))[1], "The call holds more than 5 values.")
            self.assertEqual(host.fault(ECHO), changes("test.echo"))
            self.assertEqual(host.fault(call("test.driver")), not_served("test.driver"))
        config.write_text("bogus=1\n")
        self.assertIn("bogus", self.refused("--config", config))


class SlowClients(unittest.TestCase):
    def test_idle_and_dripping_clients_hold_nobody_up(self):
        count = 2000
        resource.setrlimit(resource.RLIMIT_NOFILE, (max(4 * count, 4096), resource.getrlimit(resource.RLIMIT_NOFILE)[1]))
        with serve() as host, contextlib.ExitStack() as stack, host.connect() as connection:
            clients = [stack.enter_context(host.socket()) for _ in range(count)]
            for client in clients[:100]:
                client.sendall(b"POST /RPC2 HTTP/1.1\r\nHost: localhost\r\nContent-Type: text/xml\r\n"
                               b"Content-Length: 100\r\n\r\n<")
            for _ in range(300):
                connection.request("POST", "/RPC2", ECHO, XML)
                self.assertEqual(connection.getresponse().read(), host.post(ECHO)[1])
            for client in clients[:100]:
                client.sendall(b"x")

    def test_time_for_head_and_body_is_limited(self):
        head = b"POST /RPC2 HTTP/1.1\r\nHost: localhost\r\nContent-Type: text/xml\r\n"
        with serve("--request-time", "1") as host, host.socket() as client:
            client.sendall(head + b"Content-Length: 100000\r\n\r\n")
            self.assertLess(self.dripped(client, b"x"), 5)
        # A head has the time that a connection may be idle in addition.
        with serve("--request-time", "1") as host, host.socket() as client:
            client.sendall(head)
            self.assertLess(self.dripped(client, b"X-Header: x\r\n"), 40)

    def dripped(self, client, what):
        """Sends again and again until the host hangs up; for how many seconds it did not."""
        start = time.monotonic()
        with self.assertRaises(OSError):
            while time.monotonic() - start < 45:
                client.sendall(what)
                time.sleep(0.1)
        return time.monotonic() - start

    def test_the_longest_idle_connection_makes_room(self):
        with serve("--max-connections", "10") as host, contextlib.ExitStack() as stack:
            idle = [stack.enter_context(host.socket()) for _ in range(9)]
            time.sleep(0.2)
            for _ in range(3):
                self.assertEqual(host.post(ECHO)[0], 200)
            self.assertEqual(idle[0].recv(1), b"")
            idle[-1].setblocking(False)
            with self.assertRaises(BlockingIOError):
                idle[-1].recv(1)

    def test_connections_of_one_address_are_limited(self):
        with serve("--max-per-address", "3") as host, contextlib.ExitStack() as stack:
            for _ in range(3):
                stack.enter_context(host.socket())
            time.sleep(0.2)
            with self.assertRaises((OSError, http.client.HTTPException)):
                host.post(ECHO)
            stack.close()
            time.sleep(0.2)
            self.assertEqual(host.post(ECHO)[0], 200)

    def test_bodies_together_are_limited(self):
        head = b"POST /RPC2 HTTP/1.1\r\nHost: localhost\r\nContent-Type: text/xml\r\nContent-Length: 100000\r\n\r\n"
        with serve("--max-bodies", "150KB") as host, host.socket() as first:
            first.sendall(head + b"x" * 99_999)
            time.sleep(0.2)
            self.assertEqual(host.post(call("test.echo", "x" * 99_000)),
                             (503, b"Too many calls are waiting; try again later.\n"))
            self.assertEqual(host.post(ECHO)[0], 200)
            first.close()
            time.sleep(0.2)
            self.assertEqual(host.post(call("test.echo", "x" * 99_000))[0], 200)


if __name__ == "__main__":
    unittest.main()
