"""The two processes: a driver that crashes, hangs or grows, and what the callers see of it."""

import concurrent.futures
import contextlib
import os
import pathlib
import re
import signal
import struct
import tempfile
import threading
import time
import unittest
import xmlrpc.client

from harness import LIBRARY_OPTIONS, XML, Gate, call, eventually, has_answer, refused, request, run, serve


def lost(how, method="test.end"):
    return (f"The process of the driver {how} in {method}. Whether the call had an effect is not known; "
            "another process follows.")


def died(how, where):
    return f"lmq-host: the worker {how} {where}\n"


class Crash(unittest.TestCase):
    def test_caller_gets_a_fault_and_the_next_call_a_new_worker(self):
        cases = [(signal.SIGSEGV, "was ended by SIGSEGV"), (signal.SIGABRT, "was ended by SIGABRT"),
                 (-3, "ended with status 3")]
        errors = "".join(died(how, "in test.end") for _, how in cases)
        with serve(errors=errors) as host:
            before = host.proxy().test.process()
            self.assertNotEqual(before, host.process.pid)
            for number, how in cases:
                status, answer = host.post(call("test.end", int(number)))
                self.assertEqual(status, 502)
                with self.assertRaises(xmlrpc.client.Fault) as caught:
                    xmlrpc.client.loads(answer)
                self.assertEqual((caught.exception.faultCode, caught.exception.faultString), (-500, lost(how)))
                self.assertNotEqual(host.proxy().test.process(), before)

    def test_under_load_only_the_call_in_hand_is_lost(self):
        # Eight clients call while the worker is killed from outside, ten times. Each kill costs one answer at the most.
        kills, counts, threads = 10, [0, 0], []
        done = threading.Event()
        with serve(errors=".*") as host:
            def client():
                with host.connect() as connection:
                    while not done.is_set():
                        connection.request("POST", "/RPC2", call("test.echo", 1), {"Content-Type": "text/xml"})
                        answer = connection.getresponse()
                        answer.read()
                        counts[{200: 0, 502: 1}[answer.status]] += 1

            with concurrent.futures.ThreadPoolExecutor(8) as pool:
                threads = [pool.submit(client) for _ in range(8)]
                for number in range(kills):
                    time.sleep(0.15)
                    worker = host.proxy().test.process()
                    os.kill(worker, signal.SIGKILL if number % 2 else signal.SIGSEGV)
                time.sleep(0.3)
                done.set()
            for thread in threads:
                thread.result()
            host.expected_errors = rf"(lmq-host: the worker was ended by SIG(KILL|SEGV) (in test.\w+|between two calls)\n){{{kills}}}"
        self.assertLessEqual(counts[1], kills)
        self.assertGreater(counts[0], 100)

    def test_driver_that_dies_again_and_again_is_backed_off_and_comes_back(self):
        how = "was ended by SIGSEGV"
        with serve(errors=died(how, "in test.end") * 7) as host:
            for _ in range(7):
                self.assertEqual(host.post(call("test.end", int(signal.SIGSEGV)))[0], 502)
            # The next one comes after 1.6 s, and the call waits for it.
            self.assertEqual(host.get("/healthz")[0], 503)
            self.assertEqual(host.proxy().test.echo(1), [1])
            self.assertEqual(host.get("/healthz")[0], 200)

    def test_in_process_there_is_one(self):
        with serve("--in-process") as host:
            self.assertEqual(host.proxy().test.process(), host.process.pid)

    def test_worker_ends_with_the_host(self):
        def is_gone(process):
            try:
                return pathlib.Path(f"/proc/{process}/stat").read_text(encoding="ascii").split()[2] == "Z"
            except (FileNotFoundError, ProcessLookupError):
                return True

        # In a call too, when it does not look whether the host is there.
        with tempfile.TemporaryDirectory() as folder:
            for calls in False, True:
                with self.subTest(calls), serve(stop=signal.SIGKILL) as host, host.connect() as client:
                    host.status = -signal.SIGKILL
                    worker = host.proxy().test.process()
                    if calls:
                        client.request("POST", "/RPC2", Gate(folder).call, XML)
                        self.assertTrue(eventually(lambda: b"in a call" in host.get("/healthz")[1]))
                    host.process.kill()
                    self.assertTrue(eventually(lambda: is_gone(worker)), "the worker lives on")


def frame(kind, number, size, text=b""):
    return struct.pack("=IIQQqQ", 0x6c6d7131, kind, number, size, 0, 0) + text


class Line(unittest.TestCase):
    """What stands between the two processes."""

    def test_a_worker_that_speaks_out_of_turn_is_ended_and_named(self):
        answer = b"<methodResponse/>"
        how = "sent what it was not asked for and was ended"
        cases = [b"init done\n" * 3, frame(3, 7, len(answer), answer), frame(1, 1, len(answer), answer), frame(9, 1, 0),
                 frame(3, 1, 1 << 40), frame(3, 1, 1 << 30)]
        for bytes_ in cases:
            # The answer may be there before anybody looks at the socket.
            with self.subTest(bytes=bytes_), serve(errors=died(how, "(in test.speak|between two calls)")) as host:
                status, text = host.post(call("test.speak", xmlrpc.client.Binary(bytes_), False))
                self.assertIn((status, how.encode() in text), ((502, True), (200, False)))
                self.assertTrue(eventually(host.printed))
                self.assertEqual(host.proxy().test.echo(1), [1])
        for bytes_ in (b"x", frame(3, 1, len(answer), answer)):
            with self.subTest(later=bytes_), serve(errors=died(how, "between two calls")) as host:
                worker = host.proxy().test.process()
                host.proxy().test.speak(xmlrpc.client.Binary(bytes_), True)
                self.assertTrue(eventually(host.printed))
                self.assertEqual(host.proxy().test.echo(1), [1])
                self.assertNotEqual(host.proxy().test.process(), worker)

    def test_a_driver_that_overwrites_the_shared_memory_harms_itself_alone(self):
        how = "lmq-host: the worker sent what it was not asked for and was ended in test.(echo|scribble)\n"
        for byte in (0, 1, 0xff):
            with self.subTest(byte=byte), serve(errors=f"({how}){{1,2}}") as host:
                for _ in range(3):
                    host.proxy().test.echo(1)
                self.assertIn(host.post(call("test.scribble", byte))[0], (200, 502))
                host.post(call("test.echo", 1))
                for number in range(3):
                    self.assertEqual(host.proxy().test.echo(number), [number])

    def test_a_call_that_no_worker_has_read_is_made_by_the_next(self):
        for size in (1, 3_000_000):
            with serve(errors=died("was ended by SIGKILL", "between two calls")) as host, host.connect() as client:
                worker = host.proxy().test.process()
                os.kill(worker, signal.SIGSTOP)
                client.request("POST", "/RPC2", call("test.echo", "x" * size), XML)
                self.assertTrue(eventually(lambda: b"in a call" in host.get("/healthz")[1]))
                os.kill(worker, signal.SIGKILL)
                self.assertEqual(xmlrpc.client.loads(client.getresponse().read())[0], (["x" * size],))

    def test_a_call_whose_client_has_gone_is_not_made_by_the_next(self):
        log = rf"(?s)(?=.* test\.touch 499 )(?=.*{died('was ended by SIGKILL', 'between two calls')}).*"
        with tempfile.TemporaryDirectory() as folder, serve("--access-log", "-", errors=log) as host:
            file = pathlib.Path(folder, "file")
            worker = host.proxy().test.process()
            os.kill(worker, signal.SIGSTOP)
            with host.socket() as client:
                client.sendall(request(call("test.touch", str(file))))
                self.assertTrue(eventually(lambda: b"in a call" in host.get("/healthz")[1]))
            self.assertTrue(eventually(lambda: host.sample("lmq_connections") == 2))  # the proxy, and this question
            os.kill(worker, signal.SIGKILL)
            self.assertEqual(host.post(call("test.echo", 1))[0], 200)
            self.assertFalse(file.exists())

    def test_the_driver_has_signals_as_a_program_expects_them(self):
        with serve() as host:
            worker = host.proxy().test.process()
            status = pathlib.Path(f"/proc/{worker}/status").read_text()
            self.assertEqual(re.findall(r"^Sig(?:Blk|Ign):\s*(\S+)$", status, re.M), ["0" * 16] * 2)
            # A Ctrl-C goes to the front alone.
            self.assertNotEqual(os.getpgid(worker), os.getpgid(host.process.pid))

    def test_loading_is_limited_in_time(self):
        late = died(r"took longer than 1 s \(--load-time\) and was ended", "while it loaded the driver and the plug-in")
        killed = died("was ended by SIGKILL", "between two calls")
        with tempfile.TemporaryDirectory() as folder:
            hang = pathlib.Path(folder, "hang")
            with serve("--load-time", "1", errors=f"{killed}({late})+", HOST_TEST_HANG=str(hang)) as host:
                worker = host.proxy().test.process()
                hang.touch()
                os.kill(worker, signal.SIGKILL)
                self.assertTrue(eventually(lambda: "took longer" in host.printed()))
                self.assertTrue(eventually(lambda: host.get("/healthz")[0] == 503))
                hang.unlink()
                self.assertEqual(host.proxy().test.echo(1), [1])
            hang.touch()
            self.assertIn("took longer than 1 s", refused(*LIBRARY_OPTIONS, "--load-time", "1", HOST_TEST_HANG=str(hang)))

    def test_a_worker_that_loads_for_long_is_none(self):
        with tempfile.TemporaryDirectory() as folder:
            hang = pathlib.Path(folder, "hang")
            with serve(errors=died("was ended by SIGKILL", "between two calls"), HOST_TEST_HANG=str(hang)) as host:
                worker = host.proxy().test.process()
                hang.touch()
                os.kill(worker, signal.SIGKILL)
                self.assertTrue(eventually(lambda: host.get("/healthz")[0] == 503))
                hang.unlink()
                self.assertTrue(eventually(lambda: host.get("/healthz") == (200, b"ok\n")))

    def test_without_the_process_that_starts_workers_the_host_ends(self):
        with serve(errors=r"(?s).*lmq-host: the process that starts workers has ended\n") as host:
            host.status = 1
            children = pathlib.Path(f"/proc/{host.process.pid}/task/{host.process.pid}/children").read_text()
            os.kill(int(children), signal.SIGKILL)
            host.process.wait(20)


class Output(unittest.TestCase):
    """What the driver prints."""

    STAMP = r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z"

    def print(self, host, text, count):
        """Calls test.print. Returns the path of what it printed."""
        with host.connect() as connection:
            connection.request("POST", "/RPC2", call("test.print", text, count), XML)
            answer = connection.getresponse()
            self.assertEqual(xmlrpc.client.loads(answer.read())[0], (count,))
            return answer.headers["Lmq-Output"]

    def test_it_is_passed_on_and_kept(self):
        errors = rf"{self.STAMP} test\.print: err a\n{self.STAMP} test\.print: err b\n"
        with serve(errors=errors) as host:
            host.expected_output = errors.replace("err", "out")
            first, second = self.print(host, "a\n", 1), self.print(host, "b", 1)
            self.assertEqual(sorted(host.get(first)[1].splitlines()), [b"err a", b"out a"])
            status, text = host.get(second)
            self.assertEqual((status, sorted([text[:5], text[5:]])), (200, [b"err b", b"out b"]))
            for path in ("/output/0", "/output/99", "/output/x", "/output/"):
                self.assertEqual(host.get(path)[0], 404)
            self.assertIsNone(self.print(host, "nothing", 0))
            with host.connect() as connection:
                connection.request("POST", "/RPC2", call("test.echo", 1), XML)
                self.assertIsNone(connection.getresponse().headers["Lmq-Output"])

    def test_megabytes_harm_nobody(self):
        # Nobody reads the host's standard output here: it holds 64 KiB.
        with serve(errors="(?s).*") as host:
            host.expected_output = "(?s).*"
            path = self.print(host, "x" * 99 + "\n", 100_000)
            text = host.get(path)[1]
            self.assertLess(len(text), 300 * 1024)
            self.assertRegex(text[-40:], rb"\n\[\d+ more bytes\]\n\Z")
            self.assertGreater(host.sample("lmq_output_dropped_bytes_total"), 1_000_000)
            # The oldest texts go.
            for _ in range(30):
                self.print(host, "x" * 99 + "\n", 5000)
            self.assertEqual(host.get(path)[0], 404)

    def test_a_call_that_ends_the_worker_leaves_its_text(self):
        crashed = rf"{self.STAMP} test\.end: ending\n" + died("ended with status 4", "in test.end")
        with serve(errors=crashed) as host, host.connect() as connection:
            connection.request("POST", "/RPC2", call("test.end", -4), XML)
            answer = connection.getresponse()
            self.assertEqual(answer.status, 502)
            self.assertEqual(host.get(answer.headers["Lmq-Output"])[1], b"ending\n")

    def test_it_asks_for_the_password(self):
        with tempfile.NamedTemporaryFile("w") as users:
            users.write(run("--make-user", "ann", input="a secret\n").stdout)
            users.flush()
            with serve("--auth", users.name) as host:
                self.assertEqual(host.get("/output/1")[0], 401)


class Ahead(unittest.TestCase):
    """Calls that are handed to the worker before the ones in front of them are answered."""

    def crowd(self, host, stack):
        """Clients whose calls come together, so that the worker gets them in advance."""
        clients = [stack.enter_context(host.connect()) for _ in range(8)]
        for _ in range(30):
            for client in clients:
                client.request("POST", "/RPC2", call("test.echo", 1), XML)
            for client in clients:
                self.assertEqual(xmlrpc.client.loads(client.getresponse().read())[0], ([1],))
        return clients

    def test_each_has_its_own_output(self):
        def client(host, number):
            texts = []
            with host.connect() as connection:
                for at in range(60):
                    text = f"{number} {at} "
                    prints = (number + at) % 5 == 0
                    connection.request("POST", "/RPC2", call("test.print", text, 3 if prints else 0), XML)
                    answer = connection.getresponse()
                    answer.read()
                    path = answer.headers["Lmq-Output"]
                    self.assertEqual(path is not None, prints)
                    if prints:
                        texts.append((f"out {text}err {text}" * 3, host.get(path)[1].decode()))
            return texts

        # Nothing but what was printed: no worker has ended.
        lines = rf"({Output.STAMP} test\.print: WHICH .*\n)*"
        with serve(errors=lines.replace("WHICH", "err")) as host:
            host.expected_output = lines.replace("WHICH", "out")
            with concurrent.futures.ThreadPoolExecutor(8) as pool:
                for texts in pool.map(lambda number: client(host, number), range(8)):
                    for printed, text in texts:
                        self.assertEqual(sorted(text.split()), sorted(printed.split()))

    def test_behind_one_that_prints_they_are_declined_and_made_all_the_same(self):
        lines = rf"({Output.STAMP} test\.print: WHICH \d+ *\n)*"
        with serve(errors=lines.replace("WHICH", "err")) as host, contextlib.ExitStack() as stack:
            host.expected_output = lines.replace("WHICH", "out")
            clients = self.crowd(host, stack)
            for _ in range(20):
                # The front finds all requests at once.
                host.process.send_signal(signal.SIGSTOP)
                for number, one in enumerate(clients):
                    one.request("POST", "/RPC2", call("test.print", f"{number}\n", 1 - number % 2), XML)
                host.process.send_signal(signal.SIGCONT)
                for number, one in enumerate(clients):
                    answer = one.getresponse()
                    self.assertEqual(xmlrpc.client.loads(answer.read())[0], (1 - number % 2,))
                    path = answer.headers["Lmq-Output"]
                    text = sorted(host.get(path)[1].decode().splitlines()) if path else []
                    self.assertEqual(text, [] if number % 2 else [f"err {number}", f"out {number}"])

    def test_long_and_short_answers_take_turns(self):
        """A long answer comes by the socket, a short one by the board, and what wakes the front for it by the socket too."""
        def client(host, number):
            with host.connect() as connection:
                for at in range(1000):
                    size = 20_000 if (number + at) % 2 else 10
                    connection.request("POST", "/RPC2", call("test.text", size), XML)
                    self.assertEqual(xmlrpc.client.loads(connection.getresponse().read())[0], ("x" * size,))

        with serve() as host, concurrent.futures.ThreadPoolExecutor(8) as pool:
            list(pool.map(lambda number: client(host, number), range(8)))

    def test_behind_a_slow_one_they_wait_in_the_front(self):
        with tempfile.TemporaryDirectory() as folder, serve() as host, contextlib.ExitStack() as stack:
            clients = self.crowd(host, stack)
            gate = Gate(folder)
            files = [pathlib.Path(folder, str(number)) for number in range(7)]
            clients[0].request("POST", "/RPC2", gate.call, XML)
            self.assertTrue(eventually(lambda: b"in a call" in host.get("/healthz")[1]))
            for file, one in zip(files, clients[1:]):
                one.request("POST", "/RPC2", call("test.touch", str(file)), XML)
            self.assertTrue(eventually(lambda: host.sample("lmq_waiting_calls") == 7))
            for one in clients[1:7]:
                one.close()
            self.assertTrue(eventually(lambda: host.sample("lmq_waiting_calls") == 1))
            gate.open()
            self.assertEqual(clients[7].getresponse().status, 200)
            self.assertEqual([file.exists() for file in files], [False] * 6 + [True])

    def test_those_behind_a_crash_are_made_by_the_next_worker(self):
        with serve(errors=died("was ended by SIGSEGV", "in test.end")) as host, contextlib.ExitStack() as stack:
            clients = self.crowd(host, stack)
            clients[0].request("POST", "/RPC2", call("test.end", int(signal.SIGSEGV)), XML)
            for number, one in enumerate(clients[1:]):
                one.request("POST", "/RPC2", call("test.echo", number), XML)
            self.assertEqual(clients[0].getresponse().status, 502)
            for number, one in enumerate(clients[1:]):
                self.assertEqual(xmlrpc.client.loads(one.getresponse().read())[0], ([number],))


class Hang(unittest.TestCase):
    def test_front_goes_on_while_a_call_hangs(self):
        warning = "lmq-host: test.until for 127.0.0.1 has been in the driver for more than 100 ms\n"
        with tempfile.TemporaryDirectory() as folder, \
                serve("--slow", "100", errors=warning) as host, host.connect() as slow:
            gate = Gate(folder)
            slow.request("POST", "/RPC2", gate.call, XML)
            self.assertTrue(eventually(host.printed))
            self.assertRegex(host.get("/healthz")[1], rb"\Aok, in a call for \d+ ms\n\Z")
            self.assertIn(b"\nlmq_waiting_calls 0\n", host.get("/metrics")[1])
            self.assertEqual(host.fault(b"<x/>")[0], -503)
            self.assertEqual(host.post(b"", **{"Content-Type": "text/plain"})[0], 400)
            self.assertFalse(has_answer(slow))
            gate.open()
            self.assertEqual(slow.getresponse().status, 200)
            self.assertEqual(host.get("/healthz"), (200, b"ok\n"))


class Spin(unittest.TestCase):
    def test_who_has_to_wait_for_long_sleeps(self):
        def processor_seconds(*processes):
            fields = [pathlib.Path(f"/proc/{one}/stat").read_text().rsplit(")", 1)[1].split() for one in processes]
            return sum(int(user) + int(system) for *_, user, system in (one[:13] for one in fields)) / os.sysconf("SC_CLK_TCK")

        with serve("--spin", "10000") as host, host.connect() as slow:
            processes = host.process.pid, host.proxy().test.process()
            for _ in range(50):
                host.proxy().test.echo(1)
            before = processor_seconds(*processes)
            time.sleep(0.5)
            slow.request("POST", "/RPC2", call("test.sleep", 500), {"Content-Type": "text/xml"})
            self.assertEqual(slow.getresponse().status, 200)
            self.assertLess(processor_seconds(*processes) - before, 0.2)


class Memory(unittest.TestCase):
    def test_recycling_replaces_the_worker_between_two_calls(self):
        with serve("--recycle-rss", "150MB") as host:
            proxy = host.proxy()
            before = proxy.test.process()
            for _ in range(20):
                proxy.test.echo(1)
            self.assertEqual(proxy.test.process(), before)
            proxy.test.lose(200)
            for number in range(50):
                self.assertEqual(proxy.test.echo(number), [number])
            self.assertNotEqual(proxy.test.process(), before)
            self.assertIn(b"\nlmq_worker_recycled_total 1\n", host.get("/metrics")[1])

    def test_what_is_allocated_is_told_to_whoever_looks_for_leaks(self):
        with tempfile.NamedTemporaryFile() as gauge:
            gauge.truncate(16)

            def told():
                return struct.unpack("=QQ", os.pread(gauge.fileno(), 16, 0))

            with serve(LMQ_HEAP_GAUGE=gauge.name) as host:
                sizes = []
                test = host.proxy().test
                for number, make_call in enumerate((lambda: test.echo(1), lambda: test.lose(8), lambda: test.echo(1)), 1):
                    make_call()
                    self.assertTrue(eventually(lambda: told()[0] == number))  # the answer may be here before
                    sizes.append(told()[1])
                self.assertTrue(all(size >= sizes[0] + (8 << 20) for size in sizes[1:]), sizes)


class Watching(unittest.TestCase):
    def test_metrics_count_what_happened(self):
        with serve(errors=died("was ended by SIGSEGV", "in test.end")) as host:
            proxy = host.proxy()
            proxy.test.echo(1)
            proxy.test.status_get()
            for status in (0, 0x7005, 0x7100, 0x7100):
                proxy.test.echo(status)
            host.fault(call("test.none"))
            host.fault(b"<x/>")
            host.post(call("test.end", int(signal.SIGSEGV)))
            status, text = host.get("/metrics")
            self.assertEqual(status, 200)
            for line in ('lmq_http_responses_total{status="200"} 8', 'lmq_http_responses_total{status="502"} 1',
                         'lmq_faults_total{code="-506"} 1', 'lmq_faults_total{code="-503"} 1',
                         'lmq_faults_total{code="-500"} 1', 'lmq_driver_statuses_total{status="other"} 2',
                         'lmq_driver_statuses_total{status="VX_SUCCESS"} 1',
                         'lmq_driver_statuses_total{status="VX_ERR_GLBL_NULL_PTR"} 1',
                         # A family's base and its first status are the same number.
                         'lmq_driver_statuses_total{status="VX_ERR_DEV_ID_INVALID"} 2',
                         "lmq_worker_restarts_total 1", 'lmq_call_seconds_bucket{le="+Inf"} 8',
                         "lmq_call_seconds_count 8", 'lmq_method_calls_total{method="test.echo"} 5',
                         'lmq_method_calls_total{method="other"} 1', 'lmq_method_faults_total{method="test.end"} 1',
                         'lmq_method_driver_statuses_total{method="test.echo",status="VX_ERR_DEV_ID_INVALID"} 2',
                         "lmq_worker_up 1", "lmq_call_age_seconds 0"):
                self.assertIn(f"\n{line}\n".encode(), text)
            # Each bucket holds what is in those before it.
            buckets = [int(count) for count in re.findall(rb"lmq_call_seconds_bucket\{.*\} (\d+)\n", text)]
            self.assertEqual(buckets, sorted(buckets))
            self.assertEqual(buckets[-2:], [8, 8])
            # Each line is a comment or a sample.
            for line in text.decode().splitlines():
                self.assertRegex(line, r'\A(# (HELP|TYPE) lmq_\w+ .+|lmq_\w+(\{\w+="[^"]*"(,\w+="[^"]*")*\})? [-+.e\d]+)\Z')

    def test_the_calls_in_a_multicall_are_seen(self):
        inner = [("test.status_get", []), ("test.echo", [0x7005, "</value><value>"]), ("test.none", []), ("test.echo", []),
                 ("test.echo", [[[[{"a": [0x7005]}]]]])]
        body = call("system.multicall", [{"methodName": name, "params": params} for name, params in inner])
        log = "".join(rf"\S+Z 127\.0\.0\.1 - {line}\n" for line in (
            r"system\.multicall 200 [\d.e-]+ms", r"test\.status_get 200 driver=-7 in=system\.multicall",
            r"test\.echo 200 driver=VX_ERR_GLBL_NULL_PTR in=system\.multicall",
            r"test\.none 200 fault=-506 in=system\.multicall", r"test\.echo 200 in=system\.multicall",
            r"test\.echo 200 in=system\.multicall", "GET:/metrics .*"))
        with serve("--access-log", "-", errors=log) as host:
            self.assertEqual(host.post(body)[0], 200)
            text = host.get("/metrics")[1].decode()
            for line in ('lmq_method_calls_total{method="test.echo"} 3', 'lmq_method_calls_total{method="system.multicall"} 1',
                         'lmq_method_faults_total{method="other"} 1', 'lmq_faults_total{code="-506"} 1',
                         'lmq_method_driver_statuses_total{method="test.echo",status="VX_ERR_GLBL_NULL_PTR"} 1'):
                self.assertIn(f"\n{line}\n", text)

    def test_names_that_clients_make_up_are_counted_together(self):
        with serve() as host:
            for number in range(50):
                host.fault(call(f"made.up{number}"))
            text = host.get("/metrics")[1].decode()
            self.assertIn('\nlmq_method_calls_total{method="other"} 50\n', text)
            self.assertNotIn("made", text)

    def test_access_log(self):
        stamp = r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z"
        text = (rf"{stamp} 127\.0\.0\.1 - test\.status_get 200 driver=-7 [\d.e-]+ms\n"
                rf"{stamp} 127\.0\.0\.1 - test\.echo 200 driver=VX_ERR_GLBL_NULL_PTR [\d.e-]+ms\n"
                rf"{stamp} 127\.0\.0\.1 - test\.none 200 fault=-506 [\d.e-]+ms\n"
                rf"{stamp} 127\.0\.0\.1 - POST:/RPC2 200 fault=-503 [\d.e-]+ms\n"
                rf"{stamp} 127\.0\.0\.1 - GET:/a%20b%0A 404 [\d.e-]+ms\n")
        json = (rf'{{"time":"{stamp}","peer":"127\.0\.0\.1","method":"test\.status_get","status":200,"driver":-7,'
                r'"ms":[\d.e-]+}\n'
                rf'{{"time":"{stamp}","peer":"127\.0\.0\.1","method":"test\.echo","status":200,"driver":28677,'
                r'"driver_name":"VX_ERR_GLBL_NULL_PTR","ms":[\d.e-]+}\n'
                rf'{{"time":"{stamp}","peer":"127\.0\.0\.1","method":"test\.none","status":200,"fault":-506,'
                r'"ms":[\d.e-]+}\n'
                rf'{{"time":"{stamp}","peer":"127\.0\.0\.1","request":"POST:/RPC2","status":200,"fault":-503,"ms":[\d.e-]+}}\n'
                rf'{{"time":"{stamp}","peer":"127\.0\.0\.1","request":"GET:/a b\\n","status":404,"ms":[\d.e-]+}}\n')
        for form, expected in (("text", text), ("json", json)):
            with serve("--access-log", "-", "--log-format", form, errors=expected) as host:
                host.post(call("test.status_get"))
                host.post(call("test.echo", 0x7005))
                host.fault(call("test.none"))
                host.fault(b"<x/>")
                host.get("/a%20b%0A")

    def test_a_long_column_is_cut(self):
        whole, longer = ("/" + "x" * length for length in (195, 196))  # behind GET: these are 200 and 201
        with serve("--access-log", "-", errors=rf"\S+ \S+ - GET:{whole} 404 .*\n\S+ \S+ - GET:{whole}\.\.\. 404 .*\n") as host:
            host.get(whole)
            host.get(longer)


if __name__ == "__main__":
    unittest.main()
