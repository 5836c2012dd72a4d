"""The two processes: a driver that crashes, hangs or grows, and what the callers see of it."""

import concurrent.futures
import os
import signal
import threading
import time
import unittest
import xmlrpc.client

from harness import call, serve


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
            host.errors = rf"(lmq-host: the worker was ended by SIG(KILL|SEGV) (in test.\w+|between two calls)\n){{{kills}}}"
        self.assertLessEqual(counts[1], kills)
        self.assertGreater(counts[0], 100)

    def test_driver_that_dies_again_and_again_is_backed_off_and_comes_back(self):
        how = "was ended by SIGSEGV"
        with serve(errors=died(how, "in test.end") * 5) as host:
            start = time.monotonic()
            for _ in range(5):
                self.assertEqual(host.post(call("test.end", int(signal.SIGSEGV)))[0], 502)
            self.assertEqual(host.proxy().test.echo(1), [1])
            # 0, 50, 100, 200 and 400 ms.
            self.assertGreater(time.monotonic() - start, 0.7)

    def test_in_process_there_is_one(self):
        with serve("--in-process") as host:
            self.assertEqual(host.proxy().test.process(), host.process.pid)

    def test_worker_ends_with_the_host(self):
        with serve(stop=signal.SIGKILL) as host:
            worker = host.proxy().test.process()
            host.process.kill()
            host.process.wait()
            for _ in range(100):
                try:
                    with open(f"/proc/{worker}/stat", encoding="ascii") as stat:
                        if stat.read().split()[2] == "Z":
                            break
                except FileNotFoundError:
                    break
                time.sleep(0.05)
            else:
                self.fail("the worker lives on")
            host.expected = -signal.SIGKILL


class Hang(unittest.TestCase):
    def test_front_goes_on_while_a_call_hangs(self):
        warning = "lmq-host: test.sleep for 127.0.0.1 has been in the driver for more than 100 ms\n"
        with serve("--slow", "100", errors=warning) as host, host.connect() as slow:
            slow.request("POST", "/RPC2", call("test.sleep", 1500), {"Content-Type": "text/xml"})
            time.sleep(0.3)
            start = time.monotonic()
            self.assertRegex(host.get("/healthz")[1], rb"\Aok, in a call for \d+ ms\n\Z")
            self.assertIn(b"\nlmq_waiting_calls 0\n", host.get("/metrics")[1])
            self.assertEqual(host.fault(b"<x/>")[0], -503)
            self.assertEqual(host.post(b"", **{"Content-Type": "text/plain"})[0], 400)
            self.assertLess(time.monotonic() - start, 0.5)
            self.assertEqual(slow.getresponse().status, 200)
            self.assertEqual(host.get("/healthz"), (200, b"ok\n"))


class Spin(unittest.TestCase):
    def test_who_has_to_wait_for_long_sleeps(self):
        def processor_seconds(*processes):
            fields = [open(f"/proc/{one}/stat").read().rsplit(")", 1)[1].split() for one in processes]
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
                         "lmq_call_seconds_count 8"):
                self.assertIn(f"\n{line}\n".encode(), text)
            # Each line is a comment or a sample.
            for line in text.decode().splitlines():
                self.assertRegex(line, r'\A(# (HELP|TYPE) lmq_\w+ .+|lmq_\w+(\{\w+="[^"]*"\})? [-+.e\d]+)\Z')

    def test_access_log(self):
        stamp = r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z"
        text = (rf"{stamp} 127\.0\.0\.1 - test\.status_get 200 driver=-7 [\d.e-]+ms\n"
                rf"{stamp} 127\.0\.0\.1 - test\.echo 200 driver=VX_ERR_GLBL_NULL_PTR [\d.e-]+ms\n"
                rf"{stamp} 127\.0\.0\.1 - test\.none 200 fault=-506 [\d.e-]+ms\n"
                rf"{stamp} 127\.0\.0\.1 - - 404 [\d.e-]+ms\n")
        json = (rf'{{"time":"{stamp}","peer":"127\.0\.0\.1","method":"test\.status_get","status":200,"driver":-7,'
                r'"ms":[\d.e-]+}\n'
                rf'{{"time":"{stamp}","peer":"127\.0\.0\.1","method":"test\.echo","status":200,"driver":28677,'
                r'"driver_name":"VX_ERR_GLBL_NULL_PTR","ms":[\d.e-]+}\n'
                rf'{{"time":"{stamp}","peer":"127\.0\.0\.1","method":"test\.none","status":200,"fault":-506,'
                r'"ms":[\d.e-]+}\n'
                rf'{{"time":"{stamp}","peer":"127\.0\.0\.1","status":404,"ms":[\d.e-]+}}\n')
        for form, expected in (("text", text), ("json", json)):
            with serve("--access-log", "-", "--log-format", form, errors=expected) as host:
                host.post(call("test.status_get"))
                host.post(call("test.echo", 0x7005))
                host.fault(call("test.none"))
                host.get("/none")


if __name__ == "__main__":
    unittest.main()
