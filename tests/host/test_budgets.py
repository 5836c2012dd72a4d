"""Clients that take places and memory: what they cost, and whom they keep out."""

import contextlib
import pathlib
import socket
import tempfile
import unittest

from harness import HEAD, XML, Gate, call, eventually, request, serve

ECHO = call("test.echo", 1)


class Gone(unittest.TestCase):
    """Clients that hang up before their answers."""

    def test_their_calls_are_not_made_and_their_places_are_free(self):
        log = (r"(?s)(\S+ \S+ - GET:/metrics 200 \S+\n)*"
               r"(\S+ 127\.0\.0\.1 - test\.touch 499 \S+\n){5}.*")
        with tempfile.TemporaryDirectory() as folder, serve("--access-log", "-", errors=log) as host, \
                host.connect() as client, contextlib.ExitStack() as stack:
            gate = Gate(folder)
            client.request("POST", "/RPC2", gate.call, XML)
            files = [pathlib.Path(folder, str(number)) for number in range(6)]
            clients = [stack.enter_context(host.socket()) for _ in files]
            for file, one in zip(files, clients):
                one.sendall(request(call("test.touch", str(file))))
            self.assertTrue(eventually(lambda: host.sample("lmq_waiting_calls") == 6))
            for one in clients[:5]:
                one.close()
            self.assertTrue(eventually(lambda: host.sample("lmq_connections") == 3))  # two clients, and this question
            gate.open()
            self.assertTrue(eventually(files[5].exists))
            self.assertEqual([file.exists() for file in files], [False] * 5 + [True])

    def test_a_call_that_has_begun_is_in_the_log(self):
        with tempfile.TemporaryDirectory() as folder, \
                serve("--access-log", "-", errors=r"(?s).* test\.until 499 \S+ms\n.*") as host:
            gate = Gate(folder)
            with host.socket() as client:
                client.sendall(request(gate.call))
                self.assertTrue(eventually(lambda: b"in a call" in host.get("/healthz")[1]))
            self.assertTrue(eventually(lambda: host.sample("lmq_connections") == 1))
            self.assertIn(b"in a call", host.get("/healthz")[1])
            gate.open()
            self.assertTrue(eventually(lambda: "test.until" in host.printed()))


class Places(unittest.TestCase):
    def test_refused_requests_make_room(self):
        with serve("--max-connections", "20") as host, contextlib.ExitStack() as stack:
            for _ in range(40):
                client = stack.enter_context(host.socket())
                client.sendall(HEAD.replace(b"RPC2", b"none") + b"Content-Length: 9\r\n\r\nx")
            self.assertEqual(host.get("/healthz"), (200, b"ok\n"))
            self.assertTrue(eventually(lambda: host.post(ECHO)[0] == 200, 10))

    def test_slow_requests_make_room(self):
        with serve("--max-connections", "20") as host, contextlib.ExitStack() as stack:
            for _ in range(40):
                stack.enter_context(host.socket()).sendall(HEAD + b"Content-Length: 9\r\n\r\nx")
            self.assertTrue(eventually(lambda: host.post(ECHO)[0] == 200, 10))

    def test_health_and_metrics_have_a_place_of_their_own(self):
        with tempfile.TemporaryDirectory() as folder, serve("--max-connections", "5") as host, \
                contextlib.ExitStack() as stack:
            gate = Gate(folder)
            clients = [stack.enter_context(host.connect()) for _ in range(5)]
            for client in clients:
                client.request("POST", "/RPC2", gate.call, XML)
            self.assertTrue(eventually(lambda: host.sample("lmq_waiting_calls") == 4))
            for _ in range(20):
                self.assertRegex(host.get("/healthz")[1], rb"\Aok, in a call")
                self.assertEqual(host.post(ECHO), (503, b"There are too many connections; try again later.\n"))
            gate.open()
            self.assertEqual([client.getresponse().status for client in clients], [200] * 5)


class Answers(unittest.TestCase):
    def test_those_who_do_not_read_make_room(self):
        size = 4_000_000
        # From one address, or each from one of its own.
        for addresses in 1, 12:
            with self.subTest(addresses), serve("--max-answers", "16MB") as host, contextlib.ExitStack() as stack:
                for number in range(12):
                    client = stack.enter_context(host.connect(f"127.0.0.{1 + number % addresses}"))
                    client.request("POST", "/RPC2", call("test.text", size), XML)
                self.assertTrue(eventually(lambda: host.sample("lmq_connections") < 6))
                # Whoever reads gets the whole.
                self.assertGreater(len(host.post(call("test.text", size))[1]), size)
                self.assertGreater(len(host.post(call("test.text", size), source="127.0.0.2")[1]), size)

    def test_an_answer_has_a_limit(self):
        with serve("--max-answer", "1MB", errors="lmq-host: a call could not be answered: .*\n") as host:
            self.assertEqual(host.post(call("test.text", 1 << 20)),
                             (500, b"The call was made, but cannot be answered: The answer is longer than 1048576 bytes.\n"))
            self.assertEqual(host.post(call("test.text", 1_000_000))[0], 200)

    def test_a_slow_reader_is_cut_off(self):
        with serve("--request-time", "1") as host, socket.socket() as client:
            client.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 4096)
            client.connect(("127.0.0.1", host.port))
            client.sendall(request(call("test.text", 6_000_000)))

            def is_cut_off():
                client.recv(10_000)  # so that it is not idle
                return host.sample("lmq_connections") == 1

            self.assertTrue(eventually(is_cut_off, 60))

    def test_an_address_leaves_room_to_others(self):
        with serve("--max-bodies", "400KB") as host, contextlib.ExitStack() as stack:
            body = call("test.echo", "x" * 90_000)

            def is_full():
                # One more that is not whole yet; on a slow machine one that came in pieces may have been refused.
                client = stack.enter_context(host.socket())
                client.sendall(HEAD + b"Content-Length: 100000\r\n\r\n" + b"x" * 99_999)
                return host.post(body)[0] == 503

            self.assertTrue(eventually(is_full))
            self.assertEqual(host.post(body, source="127.0.0.2")[0], 200)


if __name__ == "__main__":
    unittest.main()
