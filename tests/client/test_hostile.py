"""lmqctl against hosts that mean it no good, or are broken: nothing that they say moves a terminal, ends the program or
makes a shell do something."""

import http.server
import json
import os
import pathlib
import ssl
import subprocess
import threading
import unittest
import xmlrpc.client
import xmlrpc.server

from ctl import CONNECTION, FAULT, OK, USAGE, CtlTest

EVIL = "a$(touch pwned)`touch pwned`;\u009b2J\u202e\x7f"
SEQUENCES = ("\x1b", "\x9b", "\u202e", "\x7f", "\r")


def value(xml):
    return f"<?xml version='1.0'?><methodResponse><params><param><value>{xml}</value></param></params></methodResponse>"


class Answering(http.server.BaseHTTPRequestHandler):
    """Answers all calls with what the server has, in order; the last stays."""
    protocol_version = "HTTP/1.1"

    def do_POST(self):
        self.server.calls.append(self.rfile.read(int(self.headers["Content-Length"])))
        answer = self.server.answers.pop(0) if len(self.server.answers) > 1 else self.server.answers[0]
        if answer is None:
            self.close_connection = True
            return
        self.reply(200, answer.encode())

    def do_GET(self):
        self.server.asked.append((self.path, self.headers["If-None-Match"]))
        told = self.server.told.get(self.path)
        if told is None:
            return self.reply(404, b"")
        if self.headers["If-None-Match"] == '"1"':
            return self.reply(304, b"")
        self.reply(200, told, ETag='"1"')

    def reply(self, status, body, **fields):
        self.send_response(status)
        for name, text in {**fields, "Content-Length": str(len(body))}.items():
            self.send_header(name, text)
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        pass


class Calls(xmlrpc.server.SimpleXMLRPCRequestHandler):
    """Nothing beside its calls."""
    do_GET = lambda self: Answering.reply(self, 404, b"")


class Hostile(CtlTest):
    def answering(self, *answers, context=None, told=None):
        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Answering)
        server.answers, server.calls, server.asked, server.told = list(answers), [], [], told or {}
        if context:
            server.socket = context.wrap_socket(server.socket, server_side=True)
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        server.url = f"http{'s' if context else ''}://127.0.0.1:{server.server_address[1]}/RPC2"
        return server

    def describing(self, udts=(), enums=(), typedefs=(), help_text="", answers=None, parameter="int"):
        """A host that describes a method `look`, which takes a parameter of a type."""
        server = xmlrpc.server.SimpleXMLRPCServer(("127.0.0.1", 0), allow_none=True, logRequests=False,
                                                  requestHandler=Calls)
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        server.register_introspection_functions()
        server.register_multicall_functions()
        udts = dict(udts)
        server.register_function(lambda: list(udts), "x.listUDTs")
        server.register_function(lambda name: udts[name][0], "x.UDTSignature")
        server.register_function(lambda name: udts[name][1], "x.UDTMalloc")
        server.register_function(lambda: list(enums), "x.listEnums")
        server.register_function(lambda: [{"name": EVIL, "value": EVIL}], "x.listDefines")
        server.register_function(lambda: dict(typedefs), "x.listTypedefs")
        server.register_function(lambda name: help_text, "system.methodHelp")
        server.register_function(lambda name: self.signature(parameter) if name == "x.look" else [], "x.methodSignature")
        server.register_function(lambda *given: answers, "x.look")
        threading.Thread(target=server.serve_forever, daemon=True).start()
        return f"http://127.0.0.1:{server.server_address[1]}/RPC2"

    @staticmethod
    def signature(parameter):
        return [{"application_type": type, "primative_type": type, "declaration_name": name, "isUDT": is_udt, "doc": ""}
                for type, name, is_udt in (("int", None, False), (parameter, "p_it", parameter.startswith("T")))]

    def survives(self, *words):
        """A run that ends in order, whatever it says, without a sequence in it."""
        status, printed, errors = self.run_ctl(*words)
        self.assertIn(status, (OK, 1, FAULT, CONNECTION, USAGE), (words, status, errors))
        for sequence in SEQUENCES:
            self.assertNotIn(sequence, printed + errors, words)
        return printed + errors

    def test_texts(self):
        """In names, help, definitions, answers and faults; and in the body of a refusal."""
        url = self.describing(help_text=f"Title\n{EVIL}\np_it : {EVIL}\n", answers=[0, EVIL],
                              enums=[{"type": "e", "values": [{"name": "X" + EVIL, "value": 1}]}])
        for words in (("list",), ("describe", "look"), ("describe", EVIL), ("describe", "e"), ("search", "a"),
                      ("call", "look", "1"), ("--json", "call", "look", "1"), ("explain", "1"), ("template", "look"),
                      ("complete", "--", "describe", ""), ("batch", "-")):
            self.survives("--url", url, *words)
        self.assertIn("Title", self.ok("--url", url, "describe", "look"))
        # JSON says the same, in its own way.
        self.assertIn(EVIL, json.loads(self.ok("--url", url, "--json", "call", "look", "1"))["arguments"].values())
        fault = (f"<?xml version='1.0'?><methodResponse><fault><value><struct><member><name>faultCode</name><value><int>1"
                 f"</int></value></member><member><name>faultString</name><value><string>{EVIL}</string></value>"
                 f"</member></struct></value></fault></methodResponse>")
        self.assertIn(r"\u009b2J\u202e\u007f", self.survives("--url", self.answering(fault).url, "list"))

    def test_documents(self):
        """What is too much for the XML-RPC library never reaches it."""
        bomb = "<!DOCTYPE a [<!ENTITY a 'aaaaaaaaaa'>" + "".join(
            f"<!ENTITY {name} '{f'&{before};' * 10}'>" for before, name in zip("abcdefgh", "bcdefghi")) + "]>"
        many = "".join(f" a{number}=''" for number in range(20000))
        for document, why in ((value("<string>&i;</string>").replace("<methodResponse>", bomb + "<methodResponse>"), "a document type"),
                              ("<a>" * 2000000, "within each other"),
                              (value("<array><data><value>" * 200 + "</value></data></array>" * 200), "within each other"),
                              (value(f"<int{many}>1</int>"), "longer than"),
                              (value("<i8>99999999999999999999</i8>"), "no number of 64 bits"),
                              (value("<i8>none</i8>"), "no number of 64 bits"), (value("<i8/>"), "no number of 64 bits"),
                              (value("<i8>1<!-- -->x</i8>"), "no number of 64 bits"), ("<!--", "does not speak XML-RPC")):
            self.refused(CONNECTION, why, "--url", self.answering(document).url, "list")
        # Texts that only look like markup are none.
        url = self.describing(answers=[0, "<!DOCTYPE " + "<a>" * 1000])
        self.assertIn("<!DOCTYPE <a>", self.ok("--url", url, "call", "look", "1"))

    def test_rings(self):
        """Types behind themselves and structs within themselves come to an end."""
        typedefs = {"a_t": "b_t", "b_t": "a_t", "T1": "T1"}
        inside = [{"type": "T2", "name": "again", "doc": ""}]
        udts = {"T2": (inside, {"again": {"again": {"again": 0}}}), "T3": ([{"type": "T2", "name": "x", "doc": ""}], {"x": {}})}
        for parameter in ("a_t", "T1", "T2", "T3"):
            url = self.describing(typedefs=typedefs, udts=udts, parameter=parameter + " *")
            for words in (("describe", "look"), ("describe", "a_t"), ("--json", "describe", "a_t"), ("describe", "T2"),
                          ("--json", "describe", "T3"), ("--json", "describe", "look"), ("template", "look"),
                          ("call", "look", "{}"), ("complete", "--", "call", "look", "p_it.again."), ("uses", "T2")):
                self.survives("--url", url, *words)

    def test_a_host_that_forgets(self):
        """A description without what belongs into it is named as such."""
        url = self.describing(enums=[{"type": "e"}])
        self.refused(CONNECTION, "answered something unexpected", "--url", url, "list")

    def test_completion(self):
        """What bash gets back is one word of the command line, whatever is in it."""
        folder = self.folder / "completing"
        folder.mkdir()
        url = self.describing(enums=[{"type": "e", "values": [{"name": "X" + EVIL.replace(" ", ""), "value": 1},
                                                              {"name": "X'\"\\|y", "value": 2}]}])
        for typed, quote in (("", ""), ("'", "'"), ('"', '"')):
            line = f"lmqctl --url {url} explain {typed}X"
            script = ('eval "$(lmqctl completion bash)"; COMP_LINE=$1 COMP_POINT=${#1} COMP_WORDS=(lmqctl --url "$2" explain "$3")\n'
                      'COMP_CWORD=4; _lmqctl; for each in "${COMPREPLY[@]}"; do eval "printf \'%s\\n\' $4$each$4"; done')
            environment = dict(self.environment, LMQ_URL=url,
                               PATH=f"{pathlib.Path(os.environ['LMQ_CTL']).parent}:{os.environ['PATH']}")
            done = subprocess.run(["bash", "--norc", "-c", script, "bash", line, url, typed + "X", quote], cwd=folder,
                                  env=environment, capture_output=True, text=True, timeout=60)
            self.assertEqual((done.stderr, len(done.stdout.splitlines())), ("", 2), done.stdout)
            self.assertIn("X'\"\\|y", done.stdout)
            self.assertEqual(list(folder.iterdir()), [])

    def test_urls(self):
        """A password in a URL is refused, and not repeated."""
        for scheme in ("http", "https"):
            status, _, errors = self.run_ctl("--url", f"{scheme}://me:secret@127.0.0.1:1/RPC2", "list")
            self.assertEqual(status, USAGE)
            self.assertIn("--user", errors)
            self.assertNotIn("secret", errors)


class Tls(Hostile):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                        "-days", "2", "-subj", "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1", "-keyout",
                        "host.key", "-out", "host.pem"], cwd=cls.folder, check=True, capture_output=True, timeout=60)
        cls.context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        cls.context.load_cert_chain(cls.folder / "host.pem", cls.folder / "host.key")
        cls.trusting = ("--cacert", str(cls.folder / "host.pem"))

    def test_never_sent_twice(self):
        """A kept connection that breaks instead of answering leaves the call lost: it may have been carried out."""
        empty = value("<array><data></data></array>")
        for context in (None, self.context):
            server = self.answering(empty, None, empty, context=context)
            status, _, errors = self.run_ctl("--url", server.url, *self.trusting, "repl", stdin="list\nlist\n")
            self.assertEqual(status, CONNECTION, errors)
            self.assertEqual(len(server.calls), 2, errors)

    def test_contract(self):
        """It is fetched over TLS, and asked for again by its tag."""
        interface = pathlib.Path(os.environ["LMQ_INTERFACE"]).read_bytes()
        host = xmlrpc.client.ServerProxy(self.url)
        outer = self

        class Relay(Answering):
            def do_POST(self):
                body = self.rfile.read(int(self.headers["Content-Length"]))
                parameters, method = xmlrpc.client.loads(body)
                self.reply(200, xmlrpc.client.dumps((getattr(host, method)(*parameters),), methodresponse=True,
                                                    allow_none=True).encode())

        server = http.server.HTTPServer(("127.0.0.1", 0), Relay)
        server.asked, server.told = [], {"/interface": interface}
        server.socket = outer.context.wrap_socket(server.socket, server_side=True)
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        way = ("--url", f"https://127.0.0.1:{server.server_address[1]}/RPC2", *self.trusting)
        for _ in range(2):
            self.assertIn("Effect: reads", self.ok(*way, "describe", "vx_watchdog_get"))
        self.assertEqual(server.asked, [("/interface", None), ("/interface", '"1"')])


# Of the ways alone.
for each in [name for name in vars(Hostile) if name.startswith("test_")]:
    setattr(Tls, each, None)


if __name__ == "__main__":
    unittest.main()
