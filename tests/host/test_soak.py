"""Memory over many calls of the real plug-in with the simulated driver, one in ten of them faulty. What the plug-in loses
by design is a list of ten pointers with each call; nothing else may grow. LMQ_SOAK_CALLS says how many calls."""

import http.client
import os
import pathlib
import re
import unittest

from harness import XML, Running, call

CALLS = int(os.environ.get("LMQ_SOAK_CALLS", "20000"))
LIBRARIES = {"plugin": os.environ["LMQ_PLUGIN"], "driver": os.environ["LMQ_DRIVER"]}

# What a call may cost: ten pointers (and what the allocator adds to them), and in the mean over all calls the values
# that the faulty ones were reading. A block that was not given back would show: those of FAULTS are of some 3,000 bytes.
MOST_OF_A_CALL = 130
LEAST_OF_A_CALL = 50

# The wrong number of arguments, no method, and text for an int, in the first argument and in a struct.
FAULTS = [call("lmq.vx_watchdog_get", 0, {}, 1), call("lmq.no_such_method"), call("lmq.vx_watchdog_get", "text", {}),
          call("lmq.lmq_init_system", {"num_dev": "text"})]
CALLS_THAT_WORK = [call("lmq.vx_watchdog_get", 0, {}), call("lmq.vx_mac_addr_get", 0, [0] * 6),
                   call("lmq.vx_watchdog_set", 0, {"wd_timer": 30, "mask_s": {"wd_timer": 1}}),
                   call("lmq.lmq_read_register", 0, 16, 0), call("lmq.lmq_init_system", {}),
                   call("lmq.vx_eth_port_stats_get", 0, 0, {}, 0), call("lmq.methodSignature", "lmq.vx_reset"),
                   call("lmq.listTypedefs")]


def number_in(path, name):
    """A number of kB in a file of /proc, in bytes."""
    return int(re.search(rf"^{name}:\s*(\d+) kB$", pathlib.Path(path).read_text(), re.M)[1]) * 1024


def private_bytes(process):
    """What a process alone has written. Unwritten pages of files are its own whenever nobody else happens to map them."""
    return number_in(f"/proc/{process}/smaps_rollup", "Private_Dirty")


def front_bytes(host):
    """The same for the front, which does not let others look into its memory."""
    return number_in(f"/proc/{host.process.pid}/status", "RssAnon")


def sample(host, name):
    return re.search(rf"^{name} (\S+)$", host.get("/metrics")[1].decode(), re.M)[1]


def resident_bytes(host):
    return int(sample(host, "lmq_worker_resident_bytes"))


def worker_of(host):
    children = lambda process: int(pathlib.Path(f"/proc/{process}/task/{process}/children").read_text())  # noqa: E731
    return children(children(host.process.pid))


def send(host, count):
    """Sends so many calls over one connection; every tenth is one of FAULTS and answered by a fault."""
    connection = http.client.HTTPConnection("127.0.0.1", host.port, timeout=30)
    for number in range(count):
        faulty = number % 10 == 9
        kind = FAULTS if faulty else CALLS_THAT_WORK
        connection.request("POST", "/RPC2", kind[number // 10 % len(kind)] if faulty else kind[number % len(kind)], XML)
        answer = connection.getresponse()
        text = answer.read()
        assert answer.status == 200 and (b"<fault>" in text) == faulty, (number, answer.status, text)
    connection.close()


class Soak(unittest.TestCase):
    def test_what_grows_is_the_list_of_each_call(self):
        with Running(**LIBRARIES) as host:
            send(host, 5000)
            worker, before, front = worker_of(host), private_bytes(worker_of(host)), front_bytes(host)
            send(host, CALLS)
            self.assertEqual(worker_of(host), worker)
            growth = (private_bytes(worker) - before) / CALLS
            print(f"{CALLS} calls: the worker grew by {growth:.1f} bytes a call, the front by "
                  f"{front_bytes(host) - front} bytes in all")
            # Introspection and a method that does not exist take no list, hence the lower end.
            self.assertGreater(growth, LEAST_OF_A_CALL)
            self.assertLess(growth, MOST_OF_A_CALL)
            self.assertLess(front_bytes(host) - front, 1 << 20)

    def test_recycling_bounds_it(self):
        room = 1 << 20
        with Running(**LIBRARIES) as host:
            send(host, 1000)
            start, resident = private_bytes(worker_of(host)), resident_bytes(host)
        most = 0
        with Running("--recycle-rss", str(resident + room), **LIBRARIES) as host:
            for _ in range(20):
                send(host, CALLS // 20)
                most = max(most, private_bytes(worker_of(host)))
            recycled = int(sample(host, "lmq_worker_recycled_total"))
        print(f"{CALLS} calls: at most {(most - start) >> 10} KiB above the start, with {recycled} new workers")
        self.assertGreater(recycled, 0)
        self.assertLess(most, start + 2 * room)


if __name__ == "__main__":
    unittest.main()
