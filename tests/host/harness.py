"""Starts lmq-host with the small drivers and plug-ins of this folder, and holds what all tests of the host share.

CTest sets the three variables that say where the programs are.
"""

import contextlib
import http.client
import os
import pathlib
import re
import signal
import socket
import subprocess
import xmlrpc.client

HOST = pathlib.Path(os.environ["LMQ_HOST"])
LIBRARIES = pathlib.Path(os.environ["LMQ_HOST_TEST_LIBRARIES"])
LIBRARIES_FROM_PROGRAM = os.environ["LMQ_HOST_LIBRARIES_FROM_PROGRAM"]
# A script in the program's place runs it under emulation.
EMULATED = HOST.read_bytes()[:2] == b"#!"

PLUGIN = LIBRARIES / "host_test_plugin.so"
BODY_LIMIT = 4 * 1024 * 1024
XML = {"Content-Type": "text/xml"}


def driver(name):
    return LIBRARIES / name / "liblmq.so"


def call(method, *arguments):
    return xmlrpc.client.dumps(arguments, method).encode()


class Running:
    """A host that serves. It must end with status 0, its one line of output, and no errors but the expected ones."""

    def __init__(self, *options, program=HOST, stop=signal.SIGTERM, listen="127.0.0.1:0", errors="",
                 environment=None):
        self.stop = stop
        self.errors = errors
        self.expected = 0
        self.proxies = contextlib.ExitStack()
        self.process = subprocess.Popen(
            [program, "--listen", listen, *options],
            stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, env=environment)
        self.line = self.process.stdout.readline()
        match = re.fullmatch(r"Listening on (https?://(.*):(\d+)/RPC2)\n", self.line)
        if not match:
            self.process.kill()
            raise AssertionError(self.line + self.process.communicate()[1])
        self.url, self.address, self.port = match[1], match[2], int(match[3])

    def __enter__(self):
        return self

    def __exit__(self, kind, *_):
        self.process.send_signal(self.stop)
        try:
            output, errors = self.process.communicate(timeout=20)
        except subprocess.TimeoutExpired:
            self.process.kill()
            raise
        finally:
            self.proxies.close()
        if EMULATED:  # the emulator tells of a crash itself
            errors = re.sub(r"qemu: uncaught target signal .*\n", "", errors)
        if kind is None:
            assert (self.process.returncode, output) == (self.expected, ""), (self.process.returncode, output, errors)
            assert re.fullmatch(self.errors, errors), errors

    def proxy(self):
        return self.proxies.enter_context(xmlrpc.client.ServerProxy(self.url))

    def connect(self):
        return contextlib.closing(http.client.HTTPConnection("127.0.0.1", self.port, timeout=10))

    def socket(self):
        return socket.create_connection(("127.0.0.1", self.port), timeout=10)


    def post(self, body, **headers):
        """Sends one request and returns its status and its body."""
        with self.connect() as connection:
            connection.request("POST", "/RPC2", body, {**XML, **headers})
            answer = connection.getresponse()
            return answer.status, answer.read()

    def get(self, path, **headers):
        with self.connect() as connection:
            connection.request("GET", path, headers=headers)
            answer = connection.getresponse()
            return answer.status, answer.read()

    def fault(self, body):
        """Sends one document, which must be answered by a fault with status 200; returns its code and its text."""
        status, answer = self.post(body)
        assert status == 200, (status, answer)
        try:
            raise AssertionError(xmlrpc.client.loads(answer)[0])
        except xmlrpc.client.Fault as fault:
            return fault.faultCode, fault.faultString


def serve(*options, **more):
    return Running("--plugin", PLUGIN, "--driver", driver("one"), *options, **more)
