"""The way to a host: XML-RPC over HTTP, on TCP, TLS or a Unix socket; and the interface that it serves, in a cache."""

import base64
import collections
import gzip
import http.client
import json
import os
import select
import socket
import threading
import urllib.parse
import xmlrpc.client

from .errors import Error, Fault, HostError
from .interface import Interface

Reply = collections.namedtuple("Reply", "status headers body")


class Wide(int):
    """A number of 64 bits, which is an i8 on the wire."""


class Marshaller(xmlrpc.client.Marshaller):
    """Python's, and numbers of 64 bits. What comes here has been through codec.py: there are no cycles in it."""

    dispatch = dict(xmlrpc.client.Marshaller.dispatch)

    def dump_wide(self, value, write):
        write(f"<value><i8>{int(value)}</i8></value>")

    dispatch[Wide] = dump_wide


class UnixConnection(http.client.HTTPConnection):
    def __init__(self, path, timeout):
        super().__init__("localhost", timeout=timeout)
        self.path = path

    def connect(self):
        self.sock = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self.sock.settimeout(self.timeout)
        self.sock.connect(self.path)


class Transport:
    """One connection to a host, opened when it is needed. Several threads may use it; they take turns."""

    def __init__(self, board, timeout):
        """board: a Board (boards.py); timeout: seconds for an answer."""
        self.board, self.lock, self.timeout = board, threading.RLock(), timeout
        self.headers = {"Content-Type": "text/xml"}
        if board.user:
            login = f"{board.user}:{board.password or ''}".encode()
            self.headers["Authorization"] = "Basic " + base64.b64encode(login).decode()
        self.connection = self.make_connection()
        self.listeners = []  # called after each call of a method: Chip.on_call()

    def make_connection(self):
        board = self.board
        parts = urllib.parse.urlsplit(board.url)
        if parts.scheme == "unix":
            return UnixConnection(board.url[5:], self.timeout)
        if parts.scheme == "http":
            return http.client.HTTPConnection(parts.hostname, parts.port or 80, timeout=self.timeout)
        import ssl

        try:
            context = ssl.create_default_context(cafile=board.cacert)
            if board.cert:
                context.load_cert_chain(board.cert, board.key)
        except OSError as error:
            raise HostError(f"{board.url}: cannot use {board.cacert or board.cert}: {error}") from None
        return http.client.HTTPSConnection(parts.hostname, parts.port or 443, timeout=self.timeout, context=context)

    def set_timeout(self, seconds):
        """Seconds for each answer from now on."""
        with self.lock:
            self.timeout = self.connection.timeout = seconds
            if self.connection.sock is not None:
                self.connection.sock.settimeout(seconds)

    def exchange(self, verb, path, body=None, headers=None):
        """Sends a request and returns the reply, whatever its status. Nothing is ever sent twice."""
        with self.lock:
            try:
                sock = self.connection.sock
                # A host closes idle connections. Whatever can be read before a request is the end of such a one.
                if sock is not None and select.select([sock], [], [], 0)[0]:
                    self.connection.close()
                self.connection.request(verb, path, body, {**self.headers, **(headers or {})})
                answer = self.connection.getresponse()
                return Reply(answer.status, answer.headers, answer.read())
            except (OSError, http.client.HTTPException) as error:
                self.connection.close()
                reason = str(error) or type(error).__name__
                raise HostError(f"{self.board.url}: {reason}") from error

    def get(self, path, headers=None):
        reply = self.exchange("GET", path, None, headers)
        if reply.status == 404 and path == "/interface":
            raise HostError(f"{self.board.url}: this host does not serve its interface; name a file: interface=...")
        if reply.status not in (200, 304):
            raise self.refusal(reply)
        return reply

    def refusal(self, reply):
        text = reply.body[:200].decode(errors="replace").strip()
        return HostError(f"{self.board.url}: HTTP status {reply.status}: {text}")

    def call(self, method, arguments):
        """Makes a call of XML-RPC with values as they are on the wire. Returns its answer, and where the host keeps
        what the driver printed, or None."""
        body = ("<?xml version='1.0'?>\n<methodCall>\n<methodName>" + method + "</methodName>\n"
                + Marshaller("utf-8").dumps(tuple(arguments)) + "</methodCall>\n").encode()
        reply = self.exchange("POST", "/RPC2", body)
        if not reply.body.startswith(b"<?xml"):
            raise self.refusal(reply)
        parser, unmarshaller = xmlrpc.client.getparser()
        try:
            parser.feed(reply.body)
            parser.close()
            answer = unmarshaller.close()[0]
        except xmlrpc.client.Fault as fault:
            if reply.status != 200:  # the host says in a fault what happened to the driver
                raise HostError(f"{self.board.url}: {method}: {fault.faultString}") from None
            raise Fault(fault.faultCode, fault.faultString, method.partition(".")[2]) from None
        except Exception as error:
            raise HostError(f"{self.board.url}: an answer that is no XML-RPC: {error}") from error
        return answer, reply.headers.get("Lmq-Output")

    def close(self):
        with self.lock:
            self.connection.close()


def cache_folder():
    home = os.environ.get("XDG_CACHE_HOME") or os.path.join(os.path.expanduser("~"), ".cache")
    return os.path.join(home, "lmq")


def fetch_interface(transport, known):
    """The interface that a host serves. `known` holds those of other hosts by their tag, and gets this one. Copies are
    kept in files too, and the host says whether one of them still holds."""
    folder = cache_folder()
    try:
        newest = sorted((each for each in os.scandir(folder) if each.name.endswith(".json")),
                        key=lambda each: each.stat().st_mtime)
        kept = {each.name[:-5]: each.path for each in newest[-8:]}
    except OSError:
        kept = {}
    tags = [tag for tag in {**known, **kept} if tag.isalnum()]
    reply = transport.get("/interface",
                          {"Accept-Encoding": "gzip", "If-None-Match": ", ".join(map('"{}"'.format, tags))})
    tag = (reply.headers.get("ETag") or "").strip('W/"')
    if tag not in known and reply.status == 304:
        try:
            known[tag] = Interface.of_file(kept[tag])
        except (Error, KeyError):  # lost or spoiled: another one comes
            reply = transport.get("/interface", {"Accept-Encoding": "gzip"})
    if tag not in known:
        body = gzip.decompress(reply.body) if reply.headers.get("Content-Encoding") == "gzip" else reply.body
        try:
            known[tag] = Interface(json.loads(body))
        except (ValueError, KeyError, TypeError):
            raise HostError(f"{transport.board.url}: its description of the interface is none") from None
        keep(folder, tag, body)
    return known[tag]


def keep(folder, tag, body):
    """Writes a copy for next time, if that is possible."""
    new = os.path.join(folder, f".{tag}.{os.getpid()}.{os.urandom(4).hex()}")
    try:
        os.makedirs(folder, exist_ok=True)
        with open(new, "wb") as file:
            file.write(body)
        os.replace(new, os.path.join(folder, f"{tag}.json"))
    except OSError:
        pass
