"""lmq-host with the small drivers and plug-ins of this folder, and what all tests of the host share.

CTest sets the three variables that say where the programs are.
"""

import contextlib
import http.client
import os
import pathlib
import re
import select
import socket
import subprocess
import sys
import time
import xmlrpc.client

sys.path.insert(0, str(pathlib.Path(__file__).parents[1]))
import hosting  # noqa: E402

HOST = pathlib.Path(os.environ["LMQ_HOST"])
LIBRARIES = pathlib.Path(os.environ["LMQ_HOST_TEST_LIBRARIES"])
LIBRARIES_FROM_PROGRAM = os.environ["LMQ_HOST_LIBRARIES_FROM_PROGRAM"]
EMULATED = hosting.is_emulated(HOST)

# A line of what a worker says when it crashes.
BACKTRACE = r"SIG\w+( at address \S+)? in:|\S+\(.*\) ?\[0x[0-9a-f]+\]"

# How a line begins that tells of the calls before a crash.
LAST_CALLS = "lmq-host: the last calls to it: "

PLUGIN = LIBRARIES / "host_test_plugin.so"
BODY_LIMIT = 4 * 1024 * 1024
XML = {"Content-Type": "text/xml"}
HEAD = b"POST /RPC2 HTTP/1.1\r\nHost: localhost\r\nContent-Type: text/xml\r\n"


def driver(name):
    return LIBRARIES / name / "liblmq.so"


# What a start needs.
LIBRARY_OPTIONS = ("--plugin", PLUGIN, "--driver", driver("one"))


def call(method, *arguments):
    return xmlrpc.client.dumps(arguments, method).encode()


def multicall(*methods):
    return call("system.multicall", [{"methodName": method, "params": []} for method in methods])


def request(body):
    """The bytes of a whole request."""
    return HEAD + b"Content-Length: %d\r\n\r\n%s" % (len(body), body)


def run(*options, program=HOST, input=None, **variables):
    """Runs the host to its end."""
    return subprocess.run([program, *options], capture_output=True, text=True, timeout=30, input=input,
                          env=hosting.environment(**variables))


def refused(*options, program=HOST, **variables):
    """A start that must fail. Returns what the host says about it, which must be one line."""
    done = run(*options, program=program, **variables)
    assert (done.returncode, done.stdout) == (1, ""), done
    assert re.fullmatch(r"lmq-host: .*\n", done.stderr), done.stderr
    return done.stderr


def eventually(condition, seconds=20):
    """Waits until the condition holds. Its last value is returned whatever it is, for an assertion."""
    end = time.monotonic() + seconds
    while not (value := condition()) and time.monotonic() < end:
        time.sleep(0.01)
    return value


class Gate:
    """A call that lasts until open() is called."""

    def __init__(self, folder, name="gate"):
        self.path = pathlib.Path(folder, name)
        self.call = call("test.until", str(self.path))

    def open(self):
        self.path.touch()


def has_answer(connection):
    """Whether something has arrived on the connection of an HTTP client."""
    return bool(select.select([connection.sock], [], [], 0)[0])


class Running(hosting.Host):
    """A host that serves. It must end with status 0, its one line of output, and no errors but the expected ones."""

    def __init__(self, *options, errors="", **more):
        super().__init__(*options, **more)
        self.expected_errors = errors
        self.expected_output = ""
        self.proxies = contextlib.ExitStack()

    def __exit__(self, kind, *_):
        with self.errors, self.proxies:
            if kind is not None:
                self.process.kill()
                self.process.communicate()
                sys.stderr.write(self.printed())
                return
            output, errors = self.stop(), self.printed()
            if EMULATED:  # the emulator reports a crash itself
                errors = re.sub(r"qemu: uncaught target signal .*\n", "", errors)
            # Where a crash was, and what was called before, is for test_trace.py.
            errors = re.sub(rf"^\S+Z \S+: ({BACKTRACE})\n|^{LAST_CALLS}.*\n", "", errors, flags=re.M)
            assert re.fullmatch(self.expected_output, output), output
            assert re.fullmatch(self.expected_errors, errors), errors

    def proxy(self):
        return self.proxies.enter_context(xmlrpc.client.ServerProxy(self.url))

    def connect(self, source=None):
        """A client; `source` is its address, if that matters."""
        return contextlib.closing(http.client.HTTPConnection("127.0.0.1", self.port, timeout=30,
                                                             source_address=source and (source, 0)))

    def socket(self):
        return socket.create_connection(("127.0.0.1", self.port), timeout=30)

    def post(self, body, source=None, **headers):
        """Sends one request and returns its status and its body."""
        with self.connect(source) as connection:
            connection.request("POST", "/RPC2", body, {**XML, **headers})
            answer = connection.getresponse()
            return answer.status, answer.read()

    def get(self, path, **headers):
        with self.connect() as connection:
            connection.request("GET", path, headers=headers)
            answer = connection.getresponse()
            return answer.status, answer.read()

    def sample(self, name):
        """A metric without labels, or with those that `name` has."""
        return float(re.search(rf"^{re.escape(name)} (\S+)$", self.get("/metrics")[1].decode(), re.M)[1])

    def fault(self, body):
        """Sends one document, which must be answered by a fault with status 200; returns its code and its text."""
        status, answer = self.post(body)
        assert status == 200, (status, answer)
        try:
            raise AssertionError(xmlrpc.client.loads(answer)[0])
        except xmlrpc.client.Fault as fault:
            return fault.faultCode, fault.faultString


def serve(*options, **more):
    return Running(*options, **{"plugin": PLUGIN, "driver": driver("one"), **more})
