"""Who may call what: heads of requests, users, certificates, filters, the Unix socket, slow and idle clients."""

import base64
import contextlib
import fcntl
import http.client
import os
import pathlib
import pty
import resource
import signal
import socket
import ssl
import stat
import subprocess
import tempfile
import termios
import time
import unittest
import xmlrpc.client

from harness import (HEAD, HOST, LIBRARY_OPTIONS, XML, Gate, call, eventually, hosting, multicall, refused, request, run,
                     serve)

REFUSED = -507
ECHO = call("test.echo", 1)


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
            for origin in ("http://evil.example", "null", "http://localhost", ""):
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
        # Introspection reads, and of the interface's functions those whose contract says so; all else may change something.
        reads = ("system.listMethods", "lmq.dictionary", "lmq.lmq_get_bridge_config_all",
                 "lmq.lmq_dump_bridge", "lmq.vx_l2_fdb_entry_get_next")
        writes = ("lmq.vx_eth_port_stats_clear", "lmq.lmq_dbg_set_reg_dump", "lmq.vx_reset", "lmq.vx_mdio_read", "test.status_get",
                  "test.echo", "lmq.host_test_driver_id", "lmq.target", "get.vx_reset", "system", "lmq.vx_get_set")
        with serve("--read-only") as host:
            for method in reads:
                # It passes the filter: the XML-RPC library does not know it, or answers.
                status, answer = host.post(call(method))
                self.assertNotIn(b"only reads", answer, method)
            for method in writes:
                self.assertEqual(host.fault(call(method)), changes(method))
                self.assertEqual(host.fault(multicall("lmq.dictionary", method)), changes(method))


def make_user(name, password):
    return run("--make-user", name, input=password + "\n")


def basic(name, password):
    return {"Authorization": "Basic " + base64.b64encode(f"{name}:{password}".encode()).decode()}


class Entry(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))

    def refused(self, *options):
        return refused(*LIBRARY_OPTIONS, *options)

    def test_other_addresses_need_a_guard(self):
        for address in ("0.0.0.0:0", "[::]:0"):
            self.assertRegex(self.refused("--listen", address), r"\Almq-host: whoever reaches .* --insecure\n\Z")
        checked = run(*LIBRARY_OPTIONS, "--listen", "0.0.0.0:0", "--insecure", "--check")
        self.assertEqual((checked.returncode, checked.stdout, checked.stderr), (0, "", ""))

    def test_users(self):
        users = self.folder / "users"
        line = make_user("ann", "a secret").stdout
        self.assertRegex(line, r"\Aann:\$\S+\n\Z")
        self.assertNotEqual(line, make_user("ann", "a secret").stdout)  # salted
        self.assertEqual(make_user("a:b", "x").returncode, 1)
        self.assertEqual(make_user("ann", "").returncode, 1)
        for text in ("", "# nobody\n", "ann\n", "ann:\n", ":x\n", "ann:plain text\n", "ann:password\n",
                     "ann:passwordclear\n", "ann:abJnggxhB/yWI\n", line[:-5] + "\n"):
            users.write_text(text)
            self.assertRegex(self.refused("--auth", users), r"\Almq-host: the users '.*': .*\n\Z")
        users.write_text("# a comment\n\n" + line + make_user("eve", "another").stdout)
        wrong = (401, b"A user and a password are needed that this host knows.\n")
        late = (429, b"There were too many wrong passwords; try again in a second.\n")
        with serve("--auth", users, "--access-log", "-", errors=r"(?s).* ann test\.echo 200 .*") as host:
            self.assertEqual(host.post(ECHO, **basic("ann", "a secret"))[0], 200)
            self.assertEqual(host.post(ECHO), wrong)
            self.assertEqual(host.get("/metrics")[0], 401)
            self.assertEqual(host.get("/healthz")[0], 200)
            right = {"Authorization": basic("ann", "a secret")["Authorization"].replace("Basic", "bAsIC ")}
            self.assertEqual(host.post(ECHO, **right)[0], 200)
            # More wrong passwords than a second lets through. Who is known is not put off, others are for a while.
            answers = [host.post(ECHO, **basic(*user)) for user in
                       (("ann", "a secre"), ("ann", ""), ("bob", "a secret"), ("", "")) * 50]
            self.assertEqual(answers[:2], [wrong] * 2)
            self.assertEqual(set(answers), {wrong, late})
            self.assertEqual(host.post(ECHO, **basic("ann", "a secret"))[0], 200)
            self.assertTrue(eventually(lambda: host.post(ECHO, **basic("eve", "another"))[0] == 200))

    def test_roles(self):
        users = self.folder / "users"
        line = {name: make_user(name, "a secret").stdout.strip() for name in ("ann", "bob", "eve")}
        users.write_text(f"{line['ann']}\n{line['bob']}:read-only\n{line['eve']}:allow=test.* allow=lmq.dictionary deny=test.end read-only\n")
        with serve("--auth", users, "--deny", "test.sleep") as host:
            def may(name, body):
                return b"-507" not in host.post(body, **basic(name, "a secret"))[1]

            for body, who in ((ECHO, "ann"), (call("lmq.dictionary"), "ann bob eve"), (call("test.sleep", 1), ""),
                              (call("system.listMethods"), "ann bob"), (call("test.end", "x"), "ann"),
                              (multicall("lmq.dictionary", "test.echo"), "ann"),
                              (multicall("lmq.dictionary", "lmq.dictionary"), "ann bob eve")):
                with self.subTest(body=body):
                    self.assertEqual([name for name in line if may(name, body)], who.split())
        for text, expected in ((f"{line['ann']}:readonly\n", "line 1: a role is words"),
                               (f"{line['ann']}\n{line['ann']}\n", "line 2 has the user 'ann' again"),
                               (f"{line['ann']}:deny=nosuch*\n", "the role of the user 'ann': --deny 'nosuch\\*' matches no")):
            users.write_text(text)
            self.assertRegex(self.refused("--auth", users), expected)

    def test_a_guesser_does_not_keep_others_out(self):
        users = self.folder / "users"
        users.write_text("".join(make_user(name, "a secret").stdout for name in ("ann", "bob", "eve")))
        with serve("--auth", users) as host:
            for name in ("ann", "bob", "eve"):
                self.assertTrue(eventually(lambda: [host.post(ECHO, **basic("ann", "guess"))[0]
                                                    for _ in range(20)].count(429) >= 10))
                self.assertEqual(host.post(ECHO, source="127.0.0.2", **basic(name, "a secret"))[0], 200)

    def test_the_log_names_who_has_sent_the_request(self):
        users = self.folder / "users"
        users.write_text(make_user("ann", "a secret").stdout)
        lines = "".join(rf"\S+ \S+ {user} {what} {status} .*\n" for user, what, status in
                        (("ann", r"test\.echo", 200), ("-", "POST:/RPC2", 401), ("-", "POST:/RPC2", 401)))
        with serve("--auth", users, "--access-log", "-", errors=lines) as host, host.connect() as connection:
            for headers in (basic("ann", "a secret"), basic("bob", "a secret"), {}):
                connection.request("POST", "/RPC2", ECHO, {**XML, **headers})
                connection.getresponse().read()

    def test_a_connection_that_has_logged_in_needs_its_password_again(self):
        users = self.folder / "users"
        users.write_text(make_user("ann", "a secret").stdout)
        with serve("--auth", users) as host, host.connect() as connection:
            for headers, status in ((basic("ann", "a secret"), 200), (basic("ann", "wrong"), 401), ({}, 401)):
                connection.request("POST", "/RPC2", ECHO, {**XML, **headers})
                answer = connection.getresponse()
                answer.read()
                self.assertEqual(answer.status, status)
                asked = answer.headers["WWW-Authenticate"]
                self.assertEqual(asked, None if status == 200 else 'Basic realm="lmq-host", charset="UTF-8"')

    def test_a_signal_at_the_password_leaves_the_terminal_with_its_echo(self):
        master, terminal = pty.openpty()
        self.addCleanup(os.close, master)
        self.addCleanup(os.close, terminal)
        echoes = lambda: termios.tcgetattr(terminal)[3] & termios.ECHO  # noqa: E731
        # The terminal has to be that of the program, as readpassphrase() opens /dev/tty.
        process = subprocess.Popen([HOST, "--make-user", "ann"], stdin=terminal, stdout=terminal, stderr=terminal,
                                   start_new_session=True, env=hosting.environment(),
                                   preexec_fn=lambda: fcntl.ioctl(0, termios.TIOCSCTTY, 0))
        self.assertTrue(eventually(lambda: not echoes()))
        os.write(master, b"\x03")
        self.assertEqual(process.wait(20), -signal.SIGINT)
        self.assertTrue(echoes())

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
        self.assertRegex(self.refused(*server, "--tls-client-ca", file("ca.key")), "--tls-client-ca '.*' holds no certif")
        self.assertRegex(self.refused("--tls-cert", file("server.pem"), "--tls-key", file("carol.key")),
                         "--tls-key '.*carol.key' is not the key of --tls-cert '.*server.pem'")
        self.assertRegex(self.refused("--tls-cert", file("server.key"), "--tls-key", file("server.key")),
                         "--tls-cert '.*' and --tls-key '.*' cannot be used: ")
        with serve(*server) as host:
            self.assertEqual(post(host), 200)
            for version, works in ((ssl.TLSVersion.TLSv1_1, False), (ssl.TLSVersion.TLSv1_2, True)):
                context = ssl.create_default_context(cafile=file("server.pem"))
                context.set_ciphers("ALL:@SECLEVEL=0")
                context.minimum_version = context.maximum_version = version
                try:
                    with socket.create_connection(("127.0.0.1", host.port)) as raw:
                        context.wrap_socket(raw, server_hostname="127.0.0.1").close()
                    self.assertTrue(works, version)
                except ssl.SSLError:
                    self.assertFalse(works, version)
        # A name cannot make columns or lines of its own, and a certificate for servers is none for a client.
        for name, extensions in (("forger", ()), ("service", ("-addext", "extendedKeyUsage=serverAuth"))):
            openssl("req", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes", "-subj",
                    "/CN=ann test.echo 200\nx" if name == "forger" else "/CN=service", "-keyout", name + ".key", "-out",
                    name + ".csr", *extensions)
            openssl("x509", "-req", "-in", name + ".csr", "-copy_extensions", "copy", "-CA", "ca.pem", "-CAkey", "ca.key",
                    "-days", "2", "-out", name + ".pem")
        log = r"(?s).* carol test\.echo 200 .* ann%20test\.echo%20200%0Ax test\.echo 200 .*"
        with serve(*server, "--tls-client-ca", file("ca.pem"), "--access-log", "-", errors=log) as host:
            self.assertEqual(post(host, "carol"), 200)
            self.assertEqual(post(host, "forger"), 200)
            for certificate in (None, "stranger", "service"):
                self.assertEqual(post(host, certificate), 403)

    def test_the_worker_never_holds_a_secret(self):
        def memory(process):
            with open(f"/proc/{process}/maps", encoding="utf-8") as maps, open(f"/proc/{process}/mem", "rb") as file:
                for line in maps:
                    begin, end = (int(part, 16) for part in line.split()[0].split("-"))
                    # Those of the system cannot be read, and those of the sanitizers have no end.
                    if begin < 1 << 63 and end - begin < 1 << 30:
                        with contextlib.suppress(OSError):
                            file.seek(begin)
                            yield file.read(end - begin)

        def holds(process, secret):
            return any(secret in part for part in memory(process))

        subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj", "/CN=127.0.0.1",
                        "-keyout", "key", "-out", "pem"], cwd=self.folder, check=True, capture_output=True, timeout=60)
        users, password = self.folder / "users", "a password of some length"
        users.write_text(make_user("ann", password).stdout)
        key = (self.folder / "key").read_bytes().splitlines()[5]
        secrets = [key, users.read_text().split(":")[1].strip().encode(), password.encode(),
                   basic("ann", password)["Authorization"].encode()]
        options = ("--auth", users, "--tls-cert", self.folder / "pem", "--tls-key", self.folder / "key")
        killed = "lmq-host: the worker was ended by SIGKILL between two calls\n"
        with serve(*options, errors=killed) as host:
            def worker():
                context = ssl.create_default_context()
                context.check_hostname, context.verify_mode = False, ssl.CERT_NONE
                with contextlib.closing(http.client.HTTPSConnection("127.0.0.1", host.port, context=context)) as client:
                    client.request("POST", "/RPC2", call("test.process"), {**XML, **basic("ann", password)})
                    return xmlrpc.client.loads(client.getresponse().read())[0][0]

            self.assertTrue(holds(os.getpid(), key))  # the search finds what is there
            first = worker()
            os.kill(first, signal.SIGKILL)
            second = worker()
            self.assertNotEqual(first, second)
            for secret in secrets:
                self.assertFalse(holds(second, secret), secret)
            # Nor does the front leave them in a file when it crashes.
            limits = pathlib.Path(f"/proc/{host.process.pid}/limits").read_text(encoding="ascii")
            self.assertRegex(limits, r"Max core file size +0 +0 ")

    def test_unix_socket(self):
        path = self.folder / "socket"
        for _ in range(2):  # the second host finds what the first one, killed, has left
            with serve("--socket", path, listen=None, stop=signal.SIGKILL) as host:
                host.status = -signal.SIGKILL
                self.assertEqual(host.url, str(path))
                self.assertEqual(stat.S_IMODE(os.stat(path).st_mode), 0o600)
                with socket.socket(socket.AF_UNIX) as client:
                    client.connect(str(path))
                    client.sendall(request(ECHO).replace(b"localhost", b"any.name"))
                    self.assertIn(b" 200 OK", client.makefile("rb").readline())
                self.assertRegex(self.refused("--socket", path), "somebody serves there already")

    def test_options_from_a_file(self):
        config = self.folder / "lmq-host.conf"
        config.write_text('# limits\nmax-values=5\nread-only=true\nallow=["test.status_get","test.echo"]\n')
        with serve("--config", config) as host:
            self.assertEqual(host.fault(call("test.status_get", [1] * 5))[1], "The call holds more than 5 values.")
            self.assertEqual(host.fault(ECHO), changes("test.echo"))
            self.assertEqual(host.fault(call("test.driver")), not_served("test.driver"))


class SlowClients(unittest.TestCase):
    def test_idle_and_dripping_clients_hold_nobody_up(self):
        count = 2000
        resource.setrlimit(resource.RLIMIT_NOFILE, (max(4 * count, 4096), resource.getrlimit(resource.RLIMIT_NOFILE)[1]))
        with serve() as host, contextlib.ExitStack() as stack, host.connect() as connection:
            clients = [stack.enter_context(host.socket()) for _ in range(count)]
            for client in clients[:100]:
                client.sendall(HEAD + b"Content-Length: 100\r\n\r\n<")
            for _ in range(300):
                connection.request("POST", "/RPC2", ECHO, XML)
                self.assertEqual(connection.getresponse().read(), host.post(ECHO)[1])
            for client in clients[:100]:
                client.sendall(b"x")

    def test_time_for_head_and_body_is_limited(self):
        with serve("--request-time", "1") as host, host.socket() as client:
            client.sendall(HEAD + b"Content-Length: 100000\r\n\r\n")
            self.drip(client, b"x")
        # A head has the time that a connection may be idle in addition.
        with serve("--request-time", "1") as host, host.socket() as client:
            client.sendall(HEAD)
            self.drip(client, b"X-Header: x\r\n")

    def drip(self, client, what):
        """Sends again and again until the host hangs up, as it must."""
        with self.assertRaises(OSError):
            for _ in range(600):
                client.sendall(what)
                time.sleep(0.1)

    def test_a_call_may_take_longer_than_its_request(self):
        with tempfile.TemporaryDirectory() as folder, serve("--request-time", "1") as host, host.connect() as client:
            gate = Gate(folder)
            client.request("POST", "/RPC2", gate.call, XML)
            time.sleep(3)
            gate.open()
            self.assertEqual(client.getresponse().status, 200)

    def test_the_longest_idle_connection_makes_room(self):
        with serve("--max-connections", "10") as host, contextlib.ExitStack() as stack:
            def stays(client):
                client.setblocking(False)
                with self.assertRaises(BlockingIOError):
                    client.recv(1)
                client.setblocking(True)

            idle = [stack.enter_context(host.socket()) for _ in range(10)]
            time.sleep(0.2)
            idle[-1].sendall(request(ECHO))
            self.assertTrue(idle[-1].recv(10_000).startswith(b"HTTP/1.1 200 "))
            stays(idle[0])  # there are not too many yet
            for _ in range(3):
                self.assertTrue(eventually(lambda: host.post(ECHO)[0] == 200))
            self.assertEqual(idle[0].recv(1), b"")
            stays(idle[-1])

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
        with serve("--max-bodies", "150KB") as host, host.socket() as first:
            first.sendall(HEAD + b"Content-Length: 100000\r\n\r\n" + b"x" * 99_999)
            time.sleep(0.2)
            self.assertEqual(host.post(call("test.echo", "x" * 99_000)),
                             (503, b"Too many calls are waiting; try again later.\n"))
            self.assertEqual(host.post(ECHO)[0], 200)
            first.close()
            time.sleep(0.2)
            self.assertEqual(host.post(call("test.echo", "x" * 99_000))[0], 200)


if __name__ == "__main__":
    unittest.main()
