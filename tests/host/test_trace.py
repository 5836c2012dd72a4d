"""What the host keeps of its calls: the trace, and the last calls to a driver that died."""

import base64
import concurrent.futures
import os
import pathlib
import re
import resource
import signal
import subprocess
import tempfile
import unittest
import xmlrpc.client

import trace_file
from harness import BACKTRACE, HOST, LAST_CALLS, XML, call, eventually, multicall, refused, serve
from trace_file import CALL, DIED, STARTED

PRINTS_BACKTRACES = "LMQ_HOST_TEST_NO_BACKTRACE" not in os.environ


class WithFolder(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.file = self.folder / "calls.trace"


class Trace(WithFolder):
    def serve(self, *options, **more):
        return serve("--trace", str(self.file), *options, **more)

    def test_every_call_and_its_answer(self):
        with self.serve() as host:
            host.expected_output = r"\S+ test.print: out x\n"
            host.expected_errors = r"\S+ test.print: err x\n(.*could not be answered.*\n)"
            answers = [host.post(body)[1] for body in (
                call("test.echo", 5, "<&>", [True, {"a": -1}]), call("test.print", "x\n", 1), multicall("test.driver", "none"),
                call("test.none"), call("test.echo", xmlrpc.client.Binary(b"bytes")), b"<methodCall/>", call("test.unprintable"))]
            worker = host.proxy().test.process()
            host.post(b"")  # no call
            host.get("/healthz")
        head, started, *calls = trace_file.read(self.file)
        self.assertRegex(head["maker"].decode(), r"^lmq-host \d")
        self.assertRegex(head["fingerprint"].decode(), r"^[0-9a-f]+$")
        self.assertEqual((started["kind"], started["pid"]), (STARTED, worker))
        self.assertTrue(started["driver"].endswith(b"/one/liblmq.so"))
        self.assertEqual([each.get("method") for each in calls],
                         [b"test.echo", b"test.print", b"system.multicall", b"test.none", b"test.echo", None,
                          b"test.unprintable", b"test.process"])
        self.assertEqual([each["answer"] for each in calls[:6]], answers[:6])
        self.assertEqual([each["status"] for each in calls], [200] * 6 + [500, 200])
        self.assertEqual({each["client"] for each in calls}, {b"127.0.0.1"})
        self.assertEqual(sorted(calls[1]["printed"].splitlines()), [b"err x", b"out x"])
        self.assertEqual(trace_file.first_number(calls[0]), 5)
        self.assertIn(b"base64", calls[4]["call"])
        numbers = [each["number"] for each in calls]
        self.assertEqual(numbers, sorted(set(numbers)))
        self.assertEqual(self.file.stat().st_mode & 0o777, 0o600)

    def test_no_password_gets_in(self):
        line = subprocess.run([HOST, "--make-user", "ann"], input="dragonfly\n", capture_output=True, text=True, check=True).stdout
        users = self.folder / "users"
        users.write_text(line)
        secret = base64.b64encode(b"ann:dragonfly").decode()
        with self.serve("--auth", str(users)) as host:
            self.assertEqual(host.post(call("test.echo", 1), Authorization=f"Basic {secret}")[0], 200)
        self.assertEqual([each["user"] for each in trace_file.calls(self.file)], [b"ann"])
        for text in ("dragonfly", secret, line.strip()):
            self.assertNotIn(text.encode(), self.file.read_bytes())

    def test_a_kill_loses_at_most_the_record_in_hand(self):
        with self.serve(stop=signal.SIGKILL) as host:
            host.status = -signal.SIGKILL

            def client(begin):
                answered = []
                try:
                    with host.connect() as connection:
                        for number in range(begin, begin + 100_000):
                            connection.request("POST", "/RPC2", call("test.echo", number), XML)
                            connection.getresponse().read()
                            answered.append(number)
                except OSError:
                    pass
                except Exception as error:  # the connection ended within an answer
                    self.assertRegex(type(error).__name__, "Disconnected|IncompleteRead|BadStatusLine")
                return answered

            with concurrent.futures.ThreadPoolExecutor(4) as pool:
                clients = [pool.submit(client, n * 1_000_000) for n in range(4)]
                # Before the first answer there is no such line.
                answers = re.compile(rb'^lmq_http_responses_total{status="200"} (?!([0-4]?\d{1,2})$)', re.M)
                self.assertTrue(eventually(lambda: answers.search(host.get("/metrics")[1])))
                host.process.kill()
                answered = {number for each in clients for number in each.result()}
        kept = {trace_file.first_number(record) for record in trace_file.calls(self.file)}
        self.assertGreater(len(answered), 400)
        self.assertLessEqual(len(answered - kept), 1)
        # The next host goes on behind it.
        last = trace_file.read(self.file)[-1]["number"]
        with self.serve() as host:
            host.proxy().test.echo(1)
        self.assertEqual([each["number"] for each in trace_file.read(self.file)[-2:]], [last + 1, last + 2])

    def test_a_full_disk_stops_the_trace_and_not_the_host(self):
        stopped = r"lmq-host: cannot write the trace '.*': File too large; nothing is traced until SIGHUP\n"
        anew = r"lmq-host: users, .* have been read anew\n"
        with self.serve(errors=stopped + anew) as host:
            limits = resource.prlimit(host.process.pid, resource.RLIMIT_FSIZE)
            resource.prlimit(host.process.pid, resource.RLIMIT_FSIZE, (1 << 20, limits[1]))
            proxy = host.proxy()
            for number in range(30):
                self.assertEqual(proxy.test.text(60_000), "x" * 60_000)
            self.assertTrue(eventually(lambda: "cannot write" in host.printed()))
            kept = trace_file.read(self.file)
            resource.prlimit(host.process.pid, resource.RLIMIT_FSIZE, limits)
            host.process.send_signal(signal.SIGHUP)
            self.assertTrue(eventually(lambda: "read anew" in host.printed()))
            self.assertEqual(proxy.test.echo(7), [7])
        again = trace_file.read(self.file)
        self.assertGreater(len(kept), 10)
        self.assertTrue(again[:len(kept)] == kept)
        self.assertEqual(again[-1]["method"], b"test.echo")

    def test_two_files_take_turns_and_one_can_be_moved_away(self):
        with self.serve("--trace-limit", "16KB", errors=r"lmq-host: users.* anew\n") as host:
            proxy = host.proxy()
            for number in range(300):
                proxy.test.echo(number)
            self.assertTrue(eventually(lambda: trace_file.first_number(trace_file.calls(self.file)[-1]) == 299))
            older = pathlib.Path(f"{self.file}.1")
            for path in (self.file, older):
                self.assertLessEqual(path.stat().st_size, 16 << 10)
            kept = [trace_file.first_number(record) for path in (older, self.file) for record in trace_file.calls(path)]
            self.assertEqual(kept, list(range(300 - len(kept), 300)))
            self.file.rename(self.folder / "moved")
            host.process.send_signal(signal.SIGHUP)
            self.assertTrue(eventually(self.file.exists))
            proxy.test.echo(300)
        self.assertEqual([trace_file.first_number(record) for record in trace_file.calls(self.file)], [300])

    def test_what_cannot_be_written_ends_the_start(self):
        self.file.write_text("a letter")
        self.assertIn(f"'{self.file}' is no trace", refused(*self.options("--trace", str(self.file))))
        self.assertEqual(self.file.read_text(), "a letter")
        self.assertIn("No such file", refused(*self.options("--trace", str(self.folder / "no" / "file"))))
        self.assertIn("--post-mortem", refused(*self.options("--post-mortem", str(self.folder / "no"))))
        self.assertIn("--post-mortem", refused("--post-mortem", str(self.folder), "--in-process"))
        other = self.folder / "other"
        with serve("--trace", str(other)):
            self.assertIn("another process", refused(*self.options("--trace", str(other))))

    @staticmethod
    def options(*options):
        from harness import LIBRARY_OPTIONS
        return (*LIBRARY_OPTIONS, "--listen", "127.0.0.1:0", *options)

    def test_in_process(self):
        with self.serve("--in-process", stop=signal.SIGKILL) as host:
            host.status = -signal.SIGSEGV
            host.proxy().test.echo(3)
            with self.assertRaises(OSError):
                host.post(call("test.end", int(signal.SIGSEGV)))
            host.process.wait(20)
        self.assertEqual([each["method"] for each in trace_file.calls(self.file)], [b"test.echo"])


class PostMortem(WithFolder):
    def serve(self, *options, errors):
        return serve("--post-mortem", str(self.folder), *options, errors=errors)

    def died(self, how):
        return rf"lmq-host: the worker {how}\nlmq-host: the last calls to it are in {self.folder}/\S+\n"

    def files(self):
        return sorted(self.folder.glob("lmq-host-*.trace"))

    def test_the_calls_since_the_process_began_and_how_it_ended(self):
        segv, status = "was ended by SIGSEGV", "ended with status 3"
        errors = self.died(f"{segv} in test.end") + self.died(f"{status} in test.end")
        with self.serve(errors=errors) as host:
            worker = host.proxy().test.process()
            host.proxy().test.echo(1)
            host.post(call("test.end", int(signal.SIGSEGV)))
            host.proxy().test.echo(2)
            host.post(call("test.end", -3))
        first, second = self.files()
        _, started, *calls, end, death = trace_file.read(first)
        self.assertEqual((started["kind"], started["pid"]), (STARTED, worker))
        self.assertEqual([each["method"] for each in calls], [b"test.process", b"test.echo"])
        self.assertEqual((end["method"], end["status"], trace_file.first_number(end)), (b"test.end", 502, 11))
        self.assertEqual((death["kind"], death["pid"], death["signal"], death["how"], death["method"]),
                         (DIED, worker, signal.SIGSEGV, segv.encode(), b"test.end"))
        _, started, echo, end, death = trace_file.read(second)
        self.assertEqual(trace_file.first_number(echo), 2)
        self.assertEqual((death["exit_status"], death.get("signal")), (3, None))
        self.assertEqual(first.stat().st_mode & 0o777, 0o600)

    def test_one_that_was_killed_between_two_calls(self):
        with self.serve(errors=self.died("was ended by SIGKILL between two calls")) as host:
            os.kill(host.proxy().test.process(), signal.SIGKILL)
            self.assertTrue(eventually(self.files))
            self.assertEqual(host.proxy().test.echo(1), [1])
        *_, process, death = trace_file.read(self.files()[0])
        self.assertEqual((process["method"], death["signal"]), (b"test.process", signal.SIGKILL))

    def test_no_more_is_kept_than_was_asked_for_but_the_call_in_hand(self):
        with self.serve("--last-calls", "20000", errors=self.died("ended with status 3 in test.end") * 2) as host:
            proxy = host.proxy()
            for number in range(1000):
                proxy.test.echo(number)
            host.post(call("test.end", -3))
            host.post(call("test.end", -3, "x" * 50_000))  # one argument too many: a fault
            host.post(multicall("test.echo") + b" " * 50_000)
            host.post(b"<?xml version='1.0'?>" + b" " * 50_000 + call("test.end", -3)[22:])
        kept = [trace_file.first_number(record) for record in trace_file.calls(self.files()[0])[:-1]]
        self.assertEqual(kept, list(range(1000 - len(kept), 1000)))
        self.assertGreater(len(kept), 20)
        self.assertLess(self.files()[0].stat().st_size, 30_000)
        self.assertEqual(trace_file.calls(self.files()[1])[-1]["status"], 502)

    def test_introspection_pushes_no_call_out(self):
        asked = ("system.listMethods", "system.capabilities")
        with self.serve("--last-calls", "8000", errors=self.died("ended with status 3 in test.end")) as host:
            for number in range(5):
                host.proxy().test.echo(number)
            for _ in range(50):
                host.post(call(asked[0]))
                host.post(multicall(*asked))
            host.post(multicall(asked[0], "test.none"))  # not that alone
            host.post(call("test.end", -3))
        methods = [record["method"].decode() for record in trace_file.calls(self.files()[0])]
        self.assertEqual(methods[0], "test.echo")
        self.assertNotIn(asked[0], methods)
        self.assertIn("system.multicall", methods)
        self.assertEqual(methods[-1], "test.end")

    def test_without_a_folder_a_line_tells_the_last_calls(self):
        secret = "dragonfly"
        with serve(errors="lmq-host: the worker ended with status 3 in test.end\n") as host:
            proxy = host.proxy()
            for number in range(20):
                proxy.test.echo(number)
            proxy.test.echo(7, True, [secret], {"key": secret}, secret)
            proxy.test.echo(8)
            proxy.test.echo(8)
            proxy.system.listMethods()
            host.post(call("test.echo", xmlrpc.client.Binary(b"")))
            host.post(multicall("test.echo"))
            host.post(call("test.end", -3))
            self.assertTrue(eventually(lambda: LAST_CALLS in host.printed()))
            printed = host.printed()
        self.assertIn(LAST_CALLS + "test.echo(18), test.echo(19), test.echo(7, true, [...], {...}, '...'), "
                      "test.echo(8) (2 times), test.echo(...), system.multicall(...), test.end(-3); --post-mortem keeps more of them\n",
                      printed)
        self.assertNotIn(secret, printed)
        with serve("--last-calls", "0", errors=r"lmq-host: the worker ended with status 3 in test.end\n") as host:
            host.post(call("test.end", -3))
            self.assertNotIn(LAST_CALLS, host.printed())

    def test_the_oldest_files_make_room(self):
        for number in range(40):
            (self.folder / f"lmq-host-20200101T000000.{number:03}Z-1.trace").touch()
        mine = self.folder / "mine.trace"
        mine.touch()
        with self.serve(errors=self.died("ended with status 3 in test.end")) as host:
            host.post(call("test.end", -3))
        files = self.files()
        self.assertEqual(len(files), 32)
        self.assertEqual(files[0].name, "lmq-host-20200101T000000.009Z-1.trace")
        self.assertTrue(mine.exists() and trace_file.calls(files[-1]))

    def test_the_driver_has_its_usual_end_when_nothing_was_called(self):
        # A process that dies over its first steps leaves no file: there may be many of them.
        with self.serve(errors=r"(lmq-host: the worker was ended by SIGKILL .*\n)+") as host:
            worker = int(re.search(r"\d+", subprocess.check_output(
                ["pgrep", "-P", subprocess.check_output(["pgrep", "-P", str(host.process.pid)], text=True).strip()],
                text=True))[0])
            os.kill(worker, signal.SIGKILL)
            self.assertTrue(eventually(lambda: "SIGKILL" in host.printed()))
        self.assertEqual(self.files(), [])

    @unittest.skipUnless(PRINTS_BACKTRACES, "the sanitizers say it themselves")
    def test_a_crash_says_where_it_was(self):
        cases = [(call("test.crash", 0), b"SIGSEGV at address (nil) in:", b"host_test_driver_crash"),
                 (call("test.crash", 1), b"SIGSEGV at address 0x", b"host_test_driver_recurse"),
                 (call("test.end", int(signal.SIGABRT)), b"SIGABRT in:", b"host_test_plugin.so"),
                 (call("test.end", int(signal.SIGBUS)), b"SIGBUS in:", b"host_test_plugin.so"),
                 (call("test.end", int(signal.SIGILL)), b"SIGILL in:", b"host_test_plugin.so"),
                 (call("test.end", int(signal.SIGFPE)), b"SIGFPE in:", b"host_test_plugin.so")]
        for body, begin, name in cases:
            with self.subTest(begin), self.serve(errors=r"(lmq-host: .*\n)*") as host:
                host.post(body)
                printed = host.printed()
            end = trace_file.calls(self.files()[-1])[-1]
            lines = end["printed"].splitlines()
            self.assertTrue(lines[0].startswith(begin), lines)
            # The first is where it was; a signal that the driver raises itself comes from the C library.
            where = lines[1] if end["method"] == b"test.crash" else b" ".join(lines[1:4])
            self.assertIn(name, where)
            self.assertRegex(printed, rf"(?m)^\S+Z test\.\w+: ({BACKTRACE})$")


if __name__ == "__main__":
    unittest.main()
