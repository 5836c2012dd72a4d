"""The remote driver in this process, as a C program has it, and hosts that answer what a test wants."""

import ctypes
import os
import pathlib
import re
import socket
import ssl
import sys
import threading
import unittest

TESTS = pathlib.Path(__file__).resolve().parent.parent
sys.path[:0] = [str(TESTS), str(TESTS / "contract")]
import values  # noqa: E402

NOT_SENT, REFUSED, LOST, MISFIT = range(0x4C4D5101, 0x4C4D5105)
SUCCESS = 0


class Options(ctypes.Structure):
    _fields_ = [*((name, ctypes.c_char_p) for name in ("url", "user", "password", "cacert", "cert", "key")),
                ("timeout", ctypes.c_double)]


def options(url, timeout=0.0, **others):
    return ctypes.byref(Options(url.encode(), timeout=timeout, **{key: each.encode() for key, each in others.items()}))


class Canned:
    """A host that reads calls and answers with documents of the test's choice. An answer is the XML, a whole answer of
    HTTP as bytes, or None: then it closes the connection."""

    def __init__(self, *answers, context=None):
        self.answers, self.calls, self.context = list(answers), [], context
        self.server = socket.create_server(("127.0.0.1", 0))
        self.url = f"http{'s' if context else ''}://127.0.0.1:{self.server.getsockname()[1]}"
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            try:
                connection = self.server.accept()[0]
                if self.context:
                    connection = self.context.wrap_socket(connection, server_side=True)
                with connection:
                    while self.answer(connection):
                        pass
            except (ssl.SSLError, ConnectionError):
                continue
            except OSError:
                return

    def answer(self, connection):
        request = b""
        while b"\r\n\r\n" not in request:
            if not (more := connection.recv(65536)):
                return False
            request += more
        head, _, body = request.partition(b"\r\n\r\n")
        length = re.search(rb"Content-Length: (\d+)", head)
        while length and len(body) < int(length[1]):
            body += connection.recv(65536)
        self.calls.append(body.decode())
        answer = self.answers.pop(0) if len(self.answers) > 1 else self.answers[0]
        if callable(answer):
            answer = answer()
        if answer is None:
            return False
        if isinstance(answer, str):
            body = answer.encode()
            answer = b"HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nContent-Length: %d\r\n\r\n%s" % (len(body), body)
        connection.sendall(answer)
        return b"Content-Length" in answer or b"chunked" in answer

    def close(self):
        self.server.close()


def document(*values):
    """An answer that holds an array of values, each in XML."""
    return ("<?xml version='1.0'?><methodResponse><params><param><value><array><data>"
            + "".join(f"<value>{value}</value>" for value in values)
            + "</data></array></value></param></params></methodResponse>")


def fault(code, text):
    return (f"<?xml version='1.0'?><methodResponse><fault><value><struct><member><name>faultCode</name><value><i4>{code}"
            f"</i4></value></member><member><name>faultString</name><value><string>{text}</string></value></member>"
            "</struct></value></fault></methodResponse>")


def i4(number):
    return f"<i4>{number}</i4>"


def array(*values):
    return "<array><data>" + "".join(f"<value>{value}</value>" for value in values) + "</data></array>"


class RemoteTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        os.environ["LMQ_REMOTE_QUIET"] = "1"
        self.driver = ctypes.CDLL(os.environ["LMQ_REMOTE"])
        self.driver.lmq_remote_error.restype = ctypes.c_char_p

    def error(self):
        return self.driver.lmq_remote_error().decode()

    def canned(self, *answers, timeout=5.0, context=None, **others):
        """Puts a host with these answers in the place of chip 0's."""
        host = Canned(*answers, context=context)
        self.addCleanup(host.close)
        self.driver.lmq_remote_connect(options(host.url, timeout, **others))
        return host

    def start(self, *drivers):
        """Starts the system with its device, here and there."""
        contract = values.Contract(os.environ["LMQ_INTERFACE_JSON"], os.environ["LMQ_LAYOUT"])
        image = bytearray(contract.size("vx_startup_cfg_t"))
        devices = next(each["count"] for each in contract.structs["vx_startup_cfg_t"]["members"]
                       if each["name"] == "dev_cfg")
        values.Memory(contract).put("vx_startup_cfg_t", {"num_dev": 1, "dev_cfg": [{"enbl": 1}, *[{}] * (devices - 1)]},
                                    image, 0)
        for driver in drivers:
            driver.lmq_shutdown_system()
            self.assertEqual(driver.lmq_init_system(bytes(image)), SUCCESS, self.error())

    def buffer(self, size, pattern=0xA5):
        return ctypes.create_string_buffer(bytes([pattern]) * size, size)
