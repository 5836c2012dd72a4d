"""The memory of the front: how much the heaviest load takes, and what happens when there is none."""

import collections
import contextlib
import http.client
import pathlib
import re
import resource
import tempfile
import unittest

from harness import Gate, call, eventually, request, serve

MEBIBYTE = 1 << 20


def memory(host, name):
    text = pathlib.Path(f"/proc/{host.process.pid}/status").read_text()
    return int(re.search(rf"^{name}:\s*(\d+) kB$", text, re.M)[1]) * 1024


class Memory(unittest.TestCase):
    def test_the_heaviest_load_stays_within_the_budgets(self):
        """Answers that nobody reads and bodies that wait, from two addresses, up to the limits and beyond."""
        options = ("--max-bodies", "32MB", "--max-answers", "32MB", "--max-connections", "200")
        with tempfile.TemporaryDirectory() as folder, serve(*options) as host, contextlib.ExitStack() as stack:
            sources = ["127.0.0.1", "127.0.0.2"]
            start, gate, large = memory(host, "VmHWM"), Gate(folder), call("test.echo", "x" * 4_000_000)

            def send(body, source):
                client = stack.enter_context(host.connect(source))
                with contextlib.suppress(OSError):  # a body that is too much may be refused before its end
                    client.connect()
                    client.sock.sendall(request(body))

            for number in range(30):
                send(call("test.text", 4_000_000), sources[number % 2])
            self.assertTrue(eventually(lambda: host.get("/healthz")[1] == b"ok\n"))
            send(gate.call, sources[0])
            for number in range(30):
                send(large, sources[number % 2])
            peak = memory(host, "VmHWM")
            gate.open()
            print(f"at the start {start / MEBIBYTE:.1f} MiB, at the peak {peak / MEBIBYTE:.1f} MiB")
            self.assertGreater(peak, 50 * MEBIBYTE)  # or the load was none
            # Both budgets, a document and what the pre-pass makes of it, and what the allocator keeps.
            self.assertLess(peak, start + 2 * 32 * MEBIBYTE + 32 * MEBIBYTE)

    def test_without_memory_requests_are_refused_and_the_front_lives(self):
        for room in (1, 8, 16):
            with self.subTest(room=room), serve(errors="(lmq-host: a call could not be answered: .*\n)*") as host, \
                    contextlib.ExitStack() as stack:
                most = memory(host, "VmSize") + room * MEBIBYTE
                resource.prlimit(host.process.pid, resource.RLIMIT_AS, (most, most))
                for _ in range(12):
                    stack.enter_context(host.socket()).sendall(request(call("test.text", 8_000_000)))
                outcomes = collections.Counter()
                for _ in range(12):
                    try:
                        outcomes[host.post(call("test.echo", "x" * 4_000_000))[0]] += 1
                    except (OSError, http.client.HTTPException):
                        outcomes["closed"] += 1
                self.assertGreater(sum(outcomes.values()) - outcomes[200], 0, outcomes)
                self.assertEqual(host.get("/healthz")[0], 200)
                stack.close()
                self.assertTrue(eventually(lambda: host.post(call("test.echo", 1))[0] == 200))


if __name__ == "__main__":
    unittest.main()
