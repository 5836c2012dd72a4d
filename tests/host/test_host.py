"""The host's start, its HTTP and its end, through real sockets."""

import concurrent.futures
import contextlib
import http.client
import os
import pathlib
import re
import resource
import shutil
import signal
import socket
import subprocess
import tempfile
import time
import unittest
import xmlrpc.client

from harness import (BODY_LIMIT, EMULATED, HOST, LIBRARIES, LIBRARIES_FROM_PROGRAM, PLUGIN, XML, Running, call, driver,
                     serve)


class Start(unittest.TestCase):
    def refused(self, *options, program=HOST):
        done = subprocess.run([program, *options], capture_output=True, text=True, timeout=20)
        self.assertEqual((done.returncode, done.stdout), (1, ""), done.stderr)
        return done.stderr

    def test_errors_are_one_line_that_names_the_culprit(self):
        with socket.create_server(("127.0.0.1", 0)) as taken:
            busy = "127.0.0.1:%d" % taken.getsockname()[1]
            one = ("--plugin", PLUGIN, "--driver", driver("one"))
            cases = [
                (("--plugin", PLUGIN, "--driver", "/none/liblmq.so"),
                 "cannot load the driver '/none/liblmq.so': .*No such file"),
                (("--plugin", PLUGIN, "--driver", driver("nameless")), r"driver '.*nameless/.*SONAME\) liblmq\.so"),
                (("--plugin", "none.so", "--driver", driver("one")),
                 f"cannot load the plug-in '{os.getcwd()}/none.so': .*No such file"),
                (("--plugin", PLUGIN, "--driver", driver("hollow")),
                 f"cannot load the plug-in '{PLUGIN}': undefined symbol: host_test_driver_id"),
                (("--plugin", driver("two"), "--driver", driver("one")), "plug-in '.*two/.*' does not export xrpc_init"),
                (("--plugin", LIBRARIES / "host_test_plugin_refused.so", "--driver", driver("one")),
                 "plug-in '.*refused.so' cannot register its methods: .*test.echo"),
                ((*one, "--listen", busy), f"cannot listen on {busy}: Address already in use"),
                ((*one, "--insecure", "--listen", "192.0.2.1:80"), "cannot listen on 192.0.2.1:80: Cannot assign"),
                ((*one, "--listen", "8080"), "'8080': no port"),
                ((*one, "--listen", ":8080"), "':8080': '' is not an IPv4 address"),
                ((*one, "--listen", "::1:8080"), "'::1:8080': an IPv6 address stands in brackets"),
                ((*one, "--listen", "[127.0.0.1]:80"), "'127.0.0.1' is not an IPv6 address"),
                ((*one, "--listen", "localhost:80"), "'localhost' is not an IPv4 address"),
                *(((*one, "--listen", "127.0.0.1:" + port), "the port is a number from 0 to 65535")
                  for port in ("", "65536", "-1", "80x")),
            ]
            for options, expected in cases:
                with self.subTest(options=options):
                    self.assertRegex(self.refused(*options), rf"\Almq-host: .*{expected}.*\n\Z")

    def test_wrong_usage(self):
        self.assertIn("--bogus", self.refused("--bogus"))
        self.assertIn("--listen", self.refused("--listen"))

    def test_help_and_version(self):
        for option, expected in (("--help", "--plugin PATH"), ("--version", "lmq-host ")):
            done = subprocess.run([HOST, option], capture_output=True, text=True, timeout=20)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertIn(expected, done.stdout)

    @unittest.skipIf(EMULATED, "the script in the program's place cannot be moved")
    def test_libraries_beside_the_program_go_before_the_installed_ones(self):
        with tempfile.TemporaryDirectory() as root:
            program = pathlib.Path(root, "bin", HOST.name)
            installed = program.parent / LIBRARIES_FROM_PROGRAM
            program.parent.mkdir()
            shutil.copy(HOST, program)
            self.assertRegex(self.refused(program=program), r"\Almq-host: no driver: neither .* nor .*--driver")
            for folder, name in ((installed, "one"), (program.parent, "two")):
                folder.mkdir(parents=True, exist_ok=True)
                shutil.copy(PLUGIN, folder / "lmq_xmlrpc.so")
                shutil.copy(driver(name), folder)
                with Running(program=program) as host:
                    self.assertEqual(host.proxy().test.driver(), {"one": 1, "two": 2}[name])

    def test_driver_is_the_one_that_is_named(self):
        for name, number in (("one", 1), ("two", 2)):
            with Running("--plugin", PLUGIN, "--driver", driver(name)) as host:
                self.assertEqual(host.proxy().test.driver(), number)

    @unittest.skipUnless(os.path.exists("/proc/net/if_inet6"), "no IPv6 here")
    def test_ipv6(self):
        with serve(listen="[::1]:0") as host:
            self.assertEqual(host.address, "[::1]")
            self.assertEqual(host.proxy().test.echo(1), [1])


class Service(unittest.TestCase):
    def test_a_service_manager_is_told(self):
        with tempfile.TemporaryDirectory() as folder, socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM) as manager:
            path = os.path.join(folder, "notify")
            manager.bind(path)
            manager.settimeout(10)
            environment = {**os.environ, "NOTIFY_SOCKET": path, "WATCHDOG_USEC": "400000"}
            with serve(environment=environment) as host, host.connect() as connection:
                self.assertEqual(manager.recv(100), b"READY=1")
                # A call that hangs in the driver does not keep the watchdog hungry.
                connection.request("POST", "/RPC2", call("test.sleep", 800), XML)
                start = time.monotonic()
                self.assertEqual([manager.recv(100) for _ in range(4)], [b"WATCHDOG=1"] * 4)
                self.assertLess(time.monotonic() - start, 2)
                self.assertEqual(connection.getresponse().status, 200)
            manager.setblocking(False)
            messages = []
            with contextlib.suppress(BlockingIOError):
                while True:
                    messages.append(manager.recv(100))
            self.assertEqual(set(messages) - {b"WATCHDOG=1"}, {b"STOPPING=1"})

    def test_help_fits_a_screen_and_the_man_page_has_all_of_it(self):
        text = subprocess.run([HOST, "--help"], capture_output=True, text=True, check=True).stdout
        self.assertLessEqual(len(text.splitlines()), 50)
        self.assertLessEqual(max(map(len, text.splitlines())), 110)
        page = pathlib.Path(__file__).parents[2].joinpath("packaging", "lmq-host.8").read_text(encoding="utf-8")
        for option in re.findall(r"^ +(?:-h,)?(--[a-z-]+)", text, re.M):
            if option not in ("--help", "--version"):
                self.assertIn(option.replace("-", r"\-"), page)


class Http(unittest.TestCase):
    def test_many_calls_on_one_connection(self):
        with serve() as host, host.connect() as connection:
            connection.connect()
            before = connection.sock
            for number in range(20):
                connection.request("POST", "/RPC2", call("test.echo", number), {"Content-Type": "Text/XML ; charset=x"})
                answer = connection.getresponse()
                self.assertEqual(answer.status, 200)
                self.assertEqual(answer.headers["Content-Type"], "text/xml; charset=utf-8")
                body = answer.read()
                self.assertEqual(int(answer.headers["Content-Length"]), len(body))
                self.assertEqual(xmlrpc.client.loads(body)[0], ([number],))
            self.assertIs(connection.sock, before)

    def test_faults_are_answers(self):
        with serve() as host:
            with self.assertRaisesRegex(xmlrpc.client.Fault, "test.none"):
                host.proxy().test.none()
            with host.connect() as connection:
                connection.request("POST", "/RPC2", b"<not xml", XML)
                answer = connection.getresponse()
                self.assertEqual(answer.status, 200)
                with self.assertRaises(xmlrpc.client.Fault):
                    xmlrpc.client.loads(answer.read())

    def test_refusals_leave_the_connection_usable(self):
        good = call("test.echo", 1)
        cases = [
            ("POST", "/", good, XML, 404, "/RPC2"),
            ("GET", "/RPC2/", None, {}, 404, "/RPC2"),
            ("GET", "/RPC2", None, {}, 405, "POST"),
            ("PUT", "/RPC2", good, XML, 405, "POST"),
            ("POST", "/RPC2", good, {"Content-Type": "text/xmlish"}, 415, "text/xml"),
            ("POST", "/RPC2", good, {"Content-Type": "application/xml; x=text/xml"}, 415, "text/xml"),
            ("POST", "/RPC2", good, {}, 415, "text/xml"),
            ("POST", "/RPC2", None, XML, 400, "no body"),
            ("POST", "/RPC2", b"", {}, 400, "no body"),
            ("POST", "/RPC2", iter([]), XML, 400, "empty"),
            ("POST", "/RPC2", iter([b"x" * BODY_LIMIT, b"x"]), XML, 413, str(BODY_LIMIT)),
            ("POST", "/none", b"x" * BODY_LIMIT, XML, 404, "/RPC2"),
        ]
        with serve() as host, host.connect() as connection:
            connection.connect()
            before = connection.sock
            for method, path, body, headers, status, text in cases:
                with self.subTest(method=method, path=path, headers=headers, status=status):
                    connection.request(method, path, body, headers)
                    answer = connection.getresponse()
                    why = answer.read().decode()
                    self.assertEqual(answer.status, status, why)
                    self.assertEqual(answer.headers["Content-Type"], "text/plain; charset=utf-8")
                    self.assertEqual(answer.headers["Allow"], "POST" if status == 405 else None)
                    self.assertRegex(why, rf"\A.*{text}.*\n\Z")
                    self.assertIs(connection.sock, before)

    def test_body_limit(self):
        with serve() as host:
            with host.connect() as connection:
                document = call("test.echo", "")
                connection.request("POST", "/RPC2", document + b" " * (BODY_LIMIT - len(document)), XML)
                self.assertEqual(connection.getresponse().status, 200)
            # Nothing of the body is sent: the announcement alone is refused.
            for length in (BODY_LIMIT + 1, 2**63):
                with host.socket() as client:
                    client.sendall(b"POST /RPC2 HTTP/1.1\r\nHost: localhost\r\nContent-Type: text/xml\r\n"
                                   b"Content-Length: %d\r\n\r\n" % length)
                    answer = client.makefile("rb").read()
                    self.assertTrue(answer.startswith(b"HTTP/1.1 413 "), answer)
            # A client that never ends is hung up on.
            with host.socket() as client, self.assertRaises(OSError):
                client.sendall(b"POST /none HTTP/1.1\r\nHost: localhost\r\nTransfer-Encoding: chunked\r\n\r\n")
                for _ in range(1000):
                    client.sendall(b"10000\r\n" + b"x" * 0x10000 + b"\r\n")

    def test_large_answers(self):
        text = "x" * (3 * 1024 * 1024)
        with serve() as host:
            self.assertEqual(host.proxy().test.echo(text), [text])

    def test_result_without_an_xml_form(self):
        with serve(errors="lmq-host: a call could not be answered: .*\n") as host, host.connect() as connection:
            connection.request("POST", "/RPC2", call("test.unprintable"), XML)
            answer = connection.getresponse()
            self.assertEqual(answer.status, 500)
            self.assertIn(b"cannot be answered", answer.read())
            self.assertEqual(host.proxy().test.echo(1), [1])

    def test_idle_and_vanished_connections_disturb_nobody(self):
        with serve() as host, contextlib.ExitStack() as stack:
            idle = [stack.enter_context(host.socket()) for _ in range(100)]
            for client in idle[:50]:
                client.sendall(b"POST /RPC2 HTTP/1.1\r\nHost: localhost\r\nContent-Type: text/xml\r\nContent-Length: 99\r\n\r\n<")
            for client in idle[:25]:
                client.close()
            with host.socket() as gone:
                body = call("test.sleep", 100)
                gone.sendall(b"POST /RPC2 HTTP/1.1\r\nHost: localhost\r\nContent-Type: text/xml\r\n"
                             b"Content-Length: %d\r\n\r\n%s" % (len(body), body))
            start = time.monotonic()
            proxy = host.proxy()
            for number in range(20):
                self.assertEqual(proxy.test.echo(number), [number])
            self.assertLess(time.monotonic() - start, 3)

    def test_more_connections_than_descriptors(self):
        with serve() as host, contextlib.ExitStack() as stack:
            resource.prlimit(host.process.pid, resource.RLIMIT_NOFILE, (32, 32))
            for _ in range(60):
                stack.enter_context(host.socket())
            time.sleep(0.2)
            stack.close()
            with host.connect() as connection:
                connection.request("POST", "/RPC2", call("test.echo"), XML)
                self.assertEqual(connection.getresponse().status, 200)

    def test_one_call_at_a_time(self):
        with serve() as host, concurrent.futures.ThreadPoolExecutor(4) as pool:
            start = time.monotonic()
            self.assertEqual(list(pool.map(lambda ms: host.proxy().test.sleep(ms), [100] * 4)), [100] * 4)
            self.assertGreaterEqual(time.monotonic() - start, 0.4)


class Stop(unittest.TestCase):
    def test_idle(self):
        for number in (signal.SIGINT, signal.SIGTERM):
            with serve(stop=number) as host, host.socket():
                self.assertEqual(host.proxy().test.echo(1), [1])

    def test_call_in_hand_is_answered_and_no_other_begins(self):
        with serve() as host, host.connect() as slow, host.connect() as late:
            slow.request("POST", "/RPC2", call("test.sleep", 1000), XML)
            late.connect()
            time.sleep(0.3)
            host.process.send_signal(signal.SIGTERM)
            late.request("POST", "/RPC2", call("test.sleep", 60000), XML)
            answer = slow.getresponse()
            self.assertEqual(answer.headers["Connection"], "close")
            self.assertEqual(xmlrpc.client.loads(answer.read())[0], (1000,))
            # It is refused, or never read: that depends on which of the two the host came to first.
            with contextlib.suppress(http.client.RemoteDisconnected, ConnectionError):
                self.assertEqual(late.getresponse().status, 503)

    def test_waiting_calls_are_refused(self):
        with serve() as host, host.connect() as first, host.connect() as second, host.connect() as third:
            first.request("POST", "/RPC2", call("test.sleep", 500), XML)
            time.sleep(0.2)
            for client in (second, third):
                client.request("POST", "/RPC2", call("test.sleep", 500), XML)
            # The second call begins when the first is answered, and with that the third has been read.
            self.assertEqual(first.getresponse().status, 200)
            time.sleep(0.2)
            host.process.send_signal(signal.SIGTERM)
            self.assertEqual(second.getresponse().status, 200)
            answer = third.getresponse()
            self.assertEqual((answer.status, answer.read()), (503, b"The host is being stopped.\n"))

    def test_a_large_answer_is_sent_to_its_end(self):
        text = "x" * (3 * 1024 * 1024)
        with serve() as host, host.connect() as connection:
            connection.request("POST", "/RPC2", call("test.echo", text), XML)
            time.sleep(0.3)
            host.process.send_signal(signal.SIGTERM)
            time.sleep(0.3)
            self.assertEqual(xmlrpc.client.loads(connection.getresponse().read())[0], ([text],))


if __name__ == "__main__":
    unittest.main()
