"""The host's start, its HTTP and its end, through real sockets."""

import contextlib
import http.client
import os
import pathlib
import re
import resource
import shutil
import signal
import socket
import tempfile
import time
import unittest
import xmlrpc.client

from harness import (BODY_LIMIT, EMULATED, HEAD, HOST, LIBRARIES, LIBRARIES_FROM_PROGRAM, LIBRARY_OPTIONS, PLUGIN, XML, Gate, Running, call,
                     driver, eventually, has_answer, refused, request, run, serve)


class Start(unittest.TestCase):
    def test_errors_are_one_line_that_names_the_culprit(self):
        with socket.create_server(("127.0.0.1", 0)) as taken:
            busy = "127.0.0.1:%d" % taken.getsockname()[1]
            cases = [
                (("--plugin", PLUGIN, "--driver", "/none/liblmq.so"),
                 "cannot load the driver '/none/liblmq.so': .*No such file"),
                (("--plugin", PLUGIN, "--driver", driver("nameless")), r"driver '.*nameless/.*SONAME\) liblmq\.so"),
                (("--plugin", "none.so", "--driver", driver("one")),
                 f"cannot load the plug-in '{os.getcwd()}/none.so': .*No such file"),
                (("--plugin", PLUGIN, "--driver", driver("hollow")),
                 f"cannot load the plug-in '{PLUGIN}': undefined symbol: host_test_driver_"),
                (("--plugin", driver("two"), "--driver", driver("one")), "plug-in '.*two/.*' does not export xrpc_init"),
                (("--plugin", LIBRARIES / "host_test_plugin_refused.so", "--driver", driver("one")),
                 "plug-in '.*refused.so' cannot register its methods: .*test.echo"),
                ((*LIBRARY_OPTIONS, "--listen", busy), f"cannot listen on {busy}: Address already in use"),
                ((*LIBRARY_OPTIONS, "--insecure", "--listen", "192.0.2.1:80"), "cannot listen on 192.0.2.1:80: Cannot assign"),
                ((*LIBRARY_OPTIONS, "--listen", "8080"), "'8080': no port"),
                ((*LIBRARY_OPTIONS, "--listen", ":8080"), "':8080': '' is not an IPv4 address"),
                ((*LIBRARY_OPTIONS, "--listen", "::1:8080"), "'::1:8080': an IPv6 address stands in brackets"),
                ((*LIBRARY_OPTIONS, "--listen", "[127.0.0.1]:80"), "'127.0.0.1' is not an IPv6 address"),
                ((*LIBRARY_OPTIONS, "--listen", "localhost:80"), "'localhost' is not an IPv4 address"),
                *(((*LIBRARY_OPTIONS, "--listen", "127.0.0.1:" + port), "the port is a number from 0 to 65535")
                  for port in ("", "65536", "-1", "80x")),
            ]
            for options, expected in cases:
                with self.subTest(options=options):
                    self.assertRegex(refused(*options), rf"\Almq-host: .*{expected}.*\n\Z")

    def test_options_that_cannot_work_are_refused(self):
        for options, expected in (
                (("--bogus",), "not expected: --bogus"), (("--listen",), "--listen: "),
                (("--max-body", "-1"), "--max-body: '-1' is no size from 1KB to 1GB"),
                (("--max-body", "0"), "--max-body: '0' is no size"), (("--max-bodies", "5XB"), "--max-bodies: '5XB'"),
                (("--max-depth", "65"), "--max-depth: '65' is no number from 1 to 64"),
                (("--max-values", "-1"), "--max-values: '-1'"), (("--max-connections", "ten"), "--max-connections: 'ten'"),
                (("--request-time", "0"), "--request-time: '0'"), (("--log-format", "xml"), "--log-format: "),
                (("--allow-origin", "foo"), "--allow-origin: 'foo' is no origin"),
                (("--allow-origin", "https://a.example/page"), "is no origin"),
                ((*LIBRARY_OPTIONS, "--allow", "nosuch*"), "--allow 'nosuch\\*' matches no method"),
                ((*LIBRARY_OPTIONS, "--allow", "test.*", "--deny", "lmq.vx_reset"), "--deny 'lmq.vx_reset' matches no"),
                ((*LIBRARY_OPTIONS, "--recycle-rss", "1"), "--recycle-rss is less than the .*MB that")):
            with self.subTest(options=options):
                self.assertRegex(refused(*options), expected)

    def test_mistakes_in_a_file_name_file_and_line(self):
        with tempfile.NamedTemporaryFile("w") as file:
            for text, line, expected in (
                    ("bogus=1\n", 1, "'bogus=1' is no option"), ("# a comment\n\n[part]\n", 3, r"'\[part\]' is no option"),
                    ("max-depth=3\nslow=1\nmax-depth=4\n", 3, "max-depth stands in line 1 already"),
                    ("allow=test.echo\nallow=test.sleep\n", 2, "allow stands in line 1 already"),
                    ("slow=1\nmax-depth=x\n", 2, "--max-depth: 'x' is no number"),
                    ("config=other\n", 1, "'config=other' is no option")):
                file.seek(0)
                file.truncate()
                file.write(text)
                file.flush()
                with self.subTest(text=text):
                    self.assertRegex(refused(*LIBRARY_OPTIONS, "--config", file.name),
                                     rf"\Almq-host: {file.name}:{line}: {expected}")
        self.assertIn("/none", refused("--config", "/none"))

    def test_help_and_version(self):
        for option, expected in (("--help", "--plugin PATH"), ("--version", "lmq-host ")):
            done = run(option)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            self.assertIn(expected, done.stdout)

    @unittest.skipIf(EMULATED, "the script in the program's place cannot be moved")
    def test_libraries_beside_the_program_go_before_the_installed_ones(self):
        with tempfile.TemporaryDirectory() as root:
            program = pathlib.Path(root, "bin", HOST.name)
            installed = program.parent / LIBRARIES_FROM_PROGRAM
            program.parent.mkdir()
            shutil.copy(HOST, program)
            self.assertRegex(refused(program=program), r"\Almq-host: no driver: neither .* nor .*--driver")
            for folder, name in ((installed, "one"), (program.parent, "two")):
                folder.mkdir(parents=True, exist_ok=True)
                shutil.copy(PLUGIN, folder / "lmq_xmlrpc.so")
                shutil.copy(driver(name), folder)
                with Running(program=program) as host:
                    self.assertEqual(host.proxy().test.driver(), {"one": 1, "two": 2}[name])

    def test_driver_is_the_one_that_is_named(self):
        for name, number in (("one", 1), ("two", 2)):
            with Running(plugin=PLUGIN, driver=driver(name)) as host:
                self.assertEqual(host.proxy().test.driver(), number)

    @unittest.skipUnless(os.path.exists("/proc/net/if_inet6"), "no IPv6 here")
    def test_ipv6(self):
        with serve(listen="[::1]:0") as host:
            self.assertEqual(host.address, "[::1]")
            self.assertEqual(host.proxy().test.echo(1), [1])


class Service(unittest.TestCase):
    def test_the_worker_has_nothing_of_the_front(self):
        reader, writer = os.pipe()
        self.addCleanup(os.close, reader)
        self.addCleanup(os.close, writer)
        with serve(pass_fds=(writer,)) as host, host.connect() as client:
            client.connect()
            folder = pathlib.Path(f"/proc/{host.proxy().test.process()}/fd")
            # Beside the standard ones it has one descriptor: a socket, where no driver writes by accident.
            own = [entry for entry in folder.iterdir() if int(entry.name) > 2]
            self.assertEqual([os.readlink(entry).split(":")[0] for entry in own], ["socket"])
            self.assertGreaterEqual(int(own[0].name), 1000)

    def test_a_service_manager_is_told(self):
        with tempfile.TemporaryDirectory() as folder, socket.socket(socket.AF_UNIX, socket.SOCK_DGRAM) as manager:
            path = os.path.join(folder, "notify")
            manager.bind(path)
            manager.settimeout(30)
            gate = Gate(folder)
            with serve(NOTIFY_SOCKET=path, WATCHDOG_USEC="400000") as host, host.connect() as connection:
                self.assertEqual(manager.recv(100), b"READY=1")
                # A call that hangs in the driver does not keep the watchdog hungry.
                connection.request("POST", "/RPC2", gate.call, XML)
                self.assertEqual([manager.recv(100) for _ in range(4)], [b"WATCHDOG=1"] * 4)
                self.assertFalse(has_answer(connection))
                gate.open()
                self.assertEqual(connection.getresponse().status, 200)
            manager.setblocking(False)
            messages = []
            with contextlib.suppress(BlockingIOError):
                while True:
                    messages.append(manager.recv(100))
            self.assertEqual(set(messages) - {b"WATCHDOG=1"}, {b"STOPPING=1"})

    def test_help_fits_a_screen_and_the_man_page_has_all_of_it(self):
        text = run("--help").stdout
        self.assertLessEqual(len(text.splitlines()), 60)
        self.assertLessEqual(max(map(len, text.splitlines())), 110)
        page = pathlib.Path(__file__).parents[2].joinpath("packaging", "lmq-host.8").read_text(encoding="utf-8")
        paragraphs = page.replace(r"\-", "-").split("\n.TP\n")
        for option, rest in re.findall(r"^ +(?:-h,)?(--[a-z-]+)(.*)", text, re.M):
            if option in ("--help", "--version"):
                continue
            with self.subTest(option=option):
                described = [paragraph for paragraph in paragraphs if re.match(rf"\S+ {option}\b(?!-)", paragraph)]
                self.assertEqual(len(described), 1)
                default = re.search(r"\(default: (.*)\)", rest)
                self.assertEqual(re.findall(r"Default: (\S+)\.(?:\s|$)", described[0]), [default[1]] if default else [])


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
            ("POST", "/elsewhere", good, XML, 404, "/RPC2"),
            ("GET", "/RPC2/", None, {}, 404, "/RPC2"),
            ("GET", "/RPC2", None, {}, 405, "POST"),
            ("PUT", "/RPC2", good, XML, 405, "POST"),
            ("POST", "/healthz", good, XML, 405, "GET"),
            ("PUT", "/metrics", None, {}, 405, "GET"),
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
                    allowed = "POST" if path == "/RPC2" else "GET, HEAD"
                    self.assertEqual(answer.headers["Allow"], allowed if status == 405 else None)
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

    def test_the_host_writes_answers_as_the_library_does(self):
        """The host has seen how test.echo was registered, and calls it by itself; test.old_echo goes by the library."""
        arguments = [-2**31, 8, True, False, None, "", "a<b>&\n\t\x7f'\"", "\u00e4\u4e2d", 1.5, b"\0\xff", [], {},
                     [[{"": [None]}]], {"a&b<": 1, "inner": {"list": [1, "x", {}]}}]
        with serve() as host:
            for sent in (arguments, arguments[:8] + arguments[10:]):  # the library has to read fractions and bytes
                body = xmlrpc.client.dumps(tuple(sent), "test.echo", allow_none=True).encode()
                body = body.replace(b"<int>8</int>", b"<i8>-9223372036854775808</i8>")
                answer = host.post(body)
                self.assertIn(b"<i8>-9223372036854775808</i8>", answer[1])
                self.assertEqual(host.post(body.replace(b"test.echo", b"test.old_echo")), answer)

    def test_a_method_without_a_result(self):
        with serve(errors="lmq-host: a call could not be answered: The method has no result.\n") as host:
            self.assertEqual(host.post(call("test.nothing"))[0], 500)
            self.assertEqual(host.proxy().test.echo(1), [1])

    def test_result_without_an_xml_form(self):
        with serve(errors="lmq-host: a call could not be answered: .*\n") as host, host.connect() as connection:
            connection.request("POST", "/RPC2", call("test.unprintable"), XML)
            answer = connection.getresponse()
            self.assertEqual(answer.status, 500)
            self.assertIn(b"cannot be answered", answer.read())
            self.assertEqual(host.proxy().test.echo(1), [1])

    def test_a_result_that_is_no_xml_is_not_sent(self):
        with serve(errors="(lmq-host: a call could not be answered: .*\n)*") as host:
            for text, byte in ((b"a\2b", "0x02"), (b"\x1b", "0x1B"), (b"a" * 50 + b"\xff" + b"b" * 50, "0xFF")):
                status, answer = host.post(call("test.raw", xmlrpc.client.Binary(text)))
                # The library may be the first to notice.
                self.assertEqual(status, 500 if b"cannot be answered" in answer else 200, answer)
                self.assertTrue(byte.encode() in answer or b"<fault>" in answer, answer)
                self.assertNotIn(text, answer)
            for text in ("\t plain \u00e9\u20ac\uffef", "x" * 1000, "\u0080"):
                self.assertEqual(host.proxy().test.raw(xmlrpc.client.Binary(text.encode())), text)
            status, answer = host.post(call("system.multicall", [
                {"methodName": "test.raw", "params": [xmlrpc.client.Binary(b"\2")]}]))
            self.assertNotIn(b"\2", answer)

    def test_heads_that_a_proxy_may_read_in_another_way_are_refused(self):
        body = call("test.echo", 1)
        length = b"Content-Length: %d\r\n" % len(body)
        start = b"POST /RPC2 HTTP/1.1\r\nContent-Type: text/xml\r\n"
        chunked = b"Transfer-Encoding: chunked\r\n"
        chunks = b"%x\r\n%s\r\n0\r\n\r\n" % (len(body), body)
        host_header = b"Host: localhost\r\n"
        cases = [(HEAD + length + chunked, chunks), (HEAD + chunked + length, chunks),
                 (HEAD + length + b"Content-Length: 1\r\n", body), (HEAD + length + length, body),
                 (HEAD + length + b"Transfer-Encoding: identity\r\n", body),
                 (HEAD + b"Transfer-Encoding: gzip, chunked\r\n", chunks), (HEAD + chunked + chunked, chunks),
                 (start + length, body), (start + host_header + host_header + length, body)]
        with serve() as host:
            for head, rest in cases:
                with self.subTest(head=head), host.socket() as client:
                    client.sendall(head + b"\r\n" + rest)
                    answer = client.makefile("rb").read()  # the connection is closed
                    self.assertTrue(answer.startswith(b"HTTP/1.1 400 "), answer)
                    self.assertEqual(answer.count(b"HTTP/1.1"), 1)
            for head, rest in ((HEAD + length, body), (HEAD + chunked, chunks),
                               (start.replace(b"1.1", b"1.0") + length, body)):
                with self.subTest(head=head), host.socket() as client:
                    client.sendall(head + b"Connection: close\r\n\r\n" + rest)
                    self.assertIn(b" 200 OK", client.makefile("rb").readline())

    def test_a_head_that_is_too_long_is_told_so(self):
        cookies = b"; ".join(b"c%d=%s" % (number, 20 * b"v") for number in range(300))
        with serve() as host:
            for rest in (b"<", 60000 * b"<"):
                with self.subTest(body=len(rest)), host.socket() as client:
                    client.sendall(HEAD + b"Content-Length: %d\r\nCookie: %s\r\n\r\n%s" % (len(rest), cookies, rest))
                    self.assertTrue(client.recv(100).startswith(b"HTTP/1.1 431 "))

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
            proxy = host.proxy()
            for number in range(20):
                self.assertEqual(proxy.test.echo(number), [number])

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
        with tempfile.TemporaryDirectory() as folder, serve() as host, contextlib.ExitStack() as stack:
            gate = Gate(folder)
            clients = [stack.enter_context(host.connect()) for _ in range(4)]
            for number, client in enumerate(clients):
                client.request("POST", "/RPC2", call("test.echo", number) if number else gate.call, XML)
                self.assertTrue(eventually(lambda: b"in a call" in host.get("/healthz")[1]))
            self.assertTrue(eventually(lambda: host.sample("lmq_waiting_calls") == 3))
            self.assertFalse(any(map(has_answer, clients)))
            gate.open()
            for number, client in enumerate(clients):
                self.assertEqual(xmlrpc.client.loads(client.getresponse().read())[0], ([number] if number else 1,))


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

    def test_a_driver_that_hangs_does_not_hold_up_the_end(self):
        given_up = "lmq-host: the call under way is given up\n"
        with tempfile.TemporaryDirectory() as folder:
            for options, signals in ((("--stop-time", "0"), 1), (("--stop-time", "3600"), 2)):
                with serve(*options, errors=given_up) as host, host.connect() as client:
                    client.request("POST", "/RPC2", Gate(folder).call, XML)
                    self.assertTrue(eventually(lambda: b"in a call" in host.get("/healthz")[1]))
                    for _ in range(signals):
                        host.process.terminate()
                        time.sleep(0.3)
                    host.process.wait(20)

    def test_in_process_an_answer_under_way_is_sent_to_its_end(self):
        text = "x" * (3 * 1024 * 1024)
        with serve("--in-process") as host, host.connect() as connection:
            connection.request("POST", "/RPC2", call("test.echo", text), XML)
            self.assertTrue(eventually(lambda: has_answer(connection)))
            host.process.send_signal(signal.SIGTERM)
            time.sleep(0.3)
            self.assertEqual(xmlrpc.client.loads(connection.getresponse().read())[0], ([text],))

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

    def test_a_client_that_does_not_take_its_answer_does_not_hold_up_the_end(self):
        with serve() as host, host.socket() as client:
            client.sendall(request(call("test.text", 30_000_000)))
            self.assertTrue(client.recv(1))
            host.process.terminate()
            host.process.wait(20)

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
