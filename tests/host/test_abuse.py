"""Documents that a client should not send, and the exact answer to each. After all of them the host still serves."""

import unittest
import xmlrpc.client

from harness import call, multicall, serve

MALFORMED, REFUSED, LIMIT = -503, -507, -509


def echo(value, method="test.echo"):
    """A call with the XML of one value."""
    return (f"<methodCall><methodName>{method}</methodName><params><param><value>{value}</value></param></params>"
            "</methodCall>").encode()


def nested(depth):
    return echo("<array><data><value>" * (depth - 1) + "</value></data></array>" * (depth - 1))


def laughs():
    entities = "".join(f'<!ENTITY l{n} "{f"&l{n - 1};" * 10}">' for n in range(1, 9))
    return f'<!DOCTYPE x [<!ENTITY l0 "ha">{entities}]>'.encode() + echo("&l8;")


def not_a(kind, text):
    return MALFORMED, f"'{text}' is not of type {kind}."


def out_of(kind, text):
    return MALFORMED, f"'{text}' is out of the range of type {kind}."


def xml_error(what, line=1):
    return MALFORMED, f"The call is not well-formed XML: {what} in line {line}."


def no_place(name):
    return MALFORMED, f"The element <{name}> has no place where it stands."


DOCTYPE = MALFORMED, "The call declares a document type; neither that nor entities are accepted."
NOT_UTF8 = MALFORMED, "The call is not encoded in UTF-8."
STRAY = "stands beside an element, where no text can be."

BIG = 2**63
HOSTILE = [
    # Entities and encodings.
    (laughs(), DOCTYPE),
    (b'<!DOCTYPE x SYSTEM "file:///etc/passwd">' + echo(""), DOCTYPE),
    (echo("&none;"), xml_error("undefined entity")),
    (b'<?xml version="1.0" encoding="ISO-8859-15"?>' + echo(""),
     (MALFORMED, "The call is encoded in 'ISO-8859-15'; UTF-8, US-ASCII and ISO-8859-1 are accepted.")),
    (b'<?xml version="1.0" encoding="US-ASCII"?>' + echo("\u20ac"),
     (MALFORMED, "The call is declared as US-ASCII and holds something else.")),
    (b'<?xml version="1.0" encoding="ISO-8859-1"?>' + echo("<i8>5x</i8>"), not_a("i8", "5x")),
    (echo("<i8>5x</i8>").decode().encode("utf-16"), NOT_UTF8),
    (echo("<i8>5x</i8>").decode().encode("utf-16-be"), NOT_UTF8),
    (echo("a\0b"), NOT_UTF8),
    (echo("x").replace(b"x", b"\xff"), xml_error("not well-formed (invalid token)")),
    (echo("\x01"), xml_error("not well-formed (invalid token)")),
    (b"\n<methodCall>", xml_error("no element found", 2)),
    (echo("") + b"<x/>", xml_error("junk after document element")),
    # Numbers that are none.
    *((echo(f"<{kind}>{text}</{kind}>"), not_a(kind, text))
      for kind in ("i4", "int", "i8", "ex:i8") for text in ("5x", "", " 5", "5 ", "+", "-", "+-5", "0x5", "5.0", "\u0665")),
    *((echo(f"<{kind}>{text}</{kind}>"), out_of(kind, text))
      for kind in ("i4", "int") for text in (2**31, -2**31 - 1)),
    *((echo(f"<{kind}>{text}</{kind}>"), out_of(kind, text)) for kind in ("i8", "ex:i8") for text in (BIG, -BIG - 1)),
    *((echo(f"<boolean>{text}</boolean>"), not_a("boolean", text)) for text in ("", "2", "01", "true")),
    *((echo(f"<double>{text}</double>"), not_a("double", text))
      for text in ("", "nan", "-NaN", "inf", "Infinity", "0x1p3", "1e", "1.2.3", "--1")),
    *((echo(f"<double>{text}</double>"), out_of("double", text)) for text in ("1e309", "-1e999999999")),
    (echo("<i8><![CDATA[5]]>x</i8>"), not_a("i8", "5x")),
    (echo("<i8>5<!-- -->x</i8>"), not_a("i8", "5x")),
    (echo("<i8>5<?x?>&#120;</i8>"), not_a("i8", "5x")),
    (echo("<i8>" + "5" * 100_000 + "</i8>"), (MALFORMED, f"'{'5' * 40}...' is out of the range of type i8.")),
    (echo("<i8>" + "\u20ac" * 50 + "</i8>"), (MALFORMED, "'" + "\u20ac" * 13 + "...' is not of type i8.")),
    (echo("<dateTime.iso8601>x</dateTime.iso8601>"), not_a("dateTime.iso8601", "x")),
    (echo("<nil>x</nil>"), not_a("nil", "x")),
    # Elements that stand where none may.
    (b"<x/>", no_place("x")),
    (b"<methodCall/>", (MALFORMED, "The element <methodCall> is not complete.")),
    (b"<methodCall><params/></methodCall>", no_place("params")),
    (b"<methodCall><methodName>a</methodName><params/><params/></methodCall>", no_place("params")),
    (b"<methodCall><methodName> test.echo</methodName></methodCall>",
     (MALFORMED, "' test.echo' is not the name of a method.")),
    (echo("<i4><i8>5</i8></i4>"), no_place("i8")),
    (echo("<i4>5</i4><i4>5</i4>"), no_place("i4")),
    (echo("<i2>5</i2>"), no_place("i2")),
    (echo("<x" + "\u00e9" * 50 + "/>"), no_place("x" + "\u00e9" * 19 + "...")),
    (b'<methodCall a="">', (MALFORMED, "The element <methodCall> has attributes.")),
    (b'<methodCall><methodName x:y="1">test.echo</methodName></methodCall>',
     (MALFORMED, "The element <methodName> has attributes.")),
    (call("x" * 201), (MALFORMED, f"'{'x' * 40}...' is not the name of a method.")),
    (echo("5<i4>5</i4>"), (MALFORMED, "'5' " + STRAY)),
    (echo("<i4>5</i4>5"), (MALFORMED, "'5' " + STRAY)),
    (echo("<array><data>x<value/></data></array>"), (MALFORMED, "'x' " + STRAY)),
    (echo("<array/>"), (MALFORMED, "The element <array> is not complete.")),
    (echo("<struct><member><name>a</name></member></struct>"), (MALFORMED, "The element <member> is not complete.")),
    (echo("<struct><member><value/></member></struct>"), no_place("value")),
    # Too much of something.
    (nested(33), (LIMIT, "The call nests values more than 32 deep.")),
    (b"<methodCall>" * 100_000, no_place("methodCall")),
    (echo("<array><data>" + "<value/>" * 100_000 + "</data></array>"),
     (LIMIT, "The call holds more than 100000 values.")),
    (call("test.echo", {str(n): n for n in range(1025)}), (LIMIT, "A struct holds more than 1024 members.")),
    (multicall(*["test.echo"] * 1001), (LIMIT, "The system.multicall holds more than 1000 calls.")),
    (multicall("test.echo", "system.multicall"), (REFUSED, "A system.multicall cannot call system.multicall.")),
    (multicall("test.echo", " test.sleep"), (MALFORMED, "' test.sleep' is not the name of a method.")),
]


class Documents(unittest.TestCase):
    def test_each_hostile_document_has_its_fault(self):
        with serve() as host:
            for document, expected in HOSTILE:
                with self.subTest(document=document[:200]):
                    self.assertEqual(host.fault(document), expected)
            self.assertEqual(host.proxy().test.echo(1), [1])

    def test_what_is_unusual_but_right_passes(self):
        cases = [
            ("<i8>+5</i8>", 5), (f"<i8>{-BIG}</i8>", -BIG), ("<ex:i8>007</ex:i8>", 7), ("<i4>-2147483648</i4>", -2**31),
            ("<i8><![CDATA[5]]><!-- -->6</i8>", 56), ("<double>-1.5e+20</double>", -1.5e20), ("<double>.5</double>", .5),
            ("plain &#60; text", "plain < text"), (" \n<boolean>1</boolean> ", True), ("<array><data/></array>", []),
            ("<ex:nil/>", None), ("<string>methodName</string>", "methodName"), (" \n", " \n"), ("<struct/>", {}),
            ("<struct><member><name>a</name><value>1</value></member><!-- again -->\n"
             "<member> <name>a</name> <value> <i4>2</i4> </value> </member></struct>", {"a": 2}),
            ("<struct><member><name>&lt;\u20ac<![CDATA[&]]></name><value>\u20ac&#9;</value></member></struct>",
             {"<\u20ac&": "\u20ac\t"}),
            # Bytes, dates and fractions take another way through the host than all else.
            ("<array><data><value><base64>AQI=</base64></value><value><nil/></value><value>x</value></data></array>",
             [xmlrpc.client.Binary(b"\1\2"), None, "x"]),
        ]
        with serve() as host:
            for value, expected in cases:
                with self.subTest(value=value):
                    status, answer = host.post(b'<?xml version="1.0" encoding="utf-8"?>\n' + echo(value))
                    self.assertEqual(xmlrpc.client.loads(answer)[0], ([expected],))
            for value in ("\U0001f4a1", "<struct><member><name>\U0001f4a1</name><value/></member></struct>"):
                self.assertRegex(host.fault(echo(value))[1], "Call XML not a proper XML-RPC call.*Basic Multilingual Plane")
            self.assertEqual(host.post(nested(32))[0], 200)
            self.assertEqual(host.proxy().system.multicall([{"methodName": "test.echo", "params": [1]}] * 1000),
                             [[[1]]] * 1000)

    def test_encodings(self):
        """Alike in calls that are packed and in those that are not."""
        latin = '<?xml version="1.0" encoding="%s"?>'
        text = "r\u00e9sum\u00e9 \u00ff\u0080"
        inner = ("<methodCall><methodName>system.multicall</methodName><params><param><value><array><data><value><struct>"
                 "<member><name>methodName</name><value>test.echo</value></member><member><name>params</name>"
                 f"<value><array><data><value>{text}</value></data></array></value></member></struct></value></data></array>"
                 "</value></param></params></methodCall>")
        with serve() as host:
            for document, expected in ((echo(text).decode(), [text]), (inner, [[[text]]])):
                for prefix, encoding in ((latin % "ISO-8859-1", "latin-1"), (latin % "iso-8859-1", "latin-1"),
                                         (latin.replace('"', "'") % "Latin1", "latin-1"), ("\ufeff", "utf-8"),
                                         ("\ufeff" + latin % "UTF-8", "utf-8"), (latin % "utf-8", "utf-8")):
                    with self.subTest(prefix=prefix, document=document):
                        status, answer = host.post((prefix + document).encode(encoding))
                        self.assertEqual(xmlrpc.client.loads(answer)[0], (expected,))
                with self.subTest(document=document):
                    plain = (latin % "US-ASCII" + document.replace(text, "plain")).encode()
                    self.assertIn(b"plain", host.post(plain)[1])

    def test_limits_pass_the_largest_echo(self):
        # 64 flow records, each as large and as deep as the interface's.
        record = {f"a_member_of_usual_length_{n}": {"inner": [2**30 + n] * 9} for n in range(50)}
        for _ in range(6):
            record = {"deeper": record}
        with serve() as host:
            self.assertEqual(host.proxy().test.echo([record] * 64), [[record] * 64])

    def test_each_limit_is_its_own(self):
        for option, document in (("--max-calls", multicall(*["test.echo"] * 3)), ("--max-members", call("test.echo", {"a": 1, "b": 2, "c": 3})),
                                 ("--max-values", call("test.echo", 1, 2, 3)), ("--max-depth", nested(3))):
            with self.subTest(option=option), serve(option, "2") as host:
                self.assertEqual(host.fault(document)[0], LIMIT)
        with serve("--max-members", "2", "--max-depth", "4", "--max-values", "12") as host:
            self.assertEqual(len(host.proxy().system.multicall([{"methodName": "test.echo", "params": []}] * 3)), 3)

    def test_limits_are_options(self):
        options = ("--max-body", "64KB", "--max-depth", "2", "--max-values", "5", "--max-members", "1", "--max-calls", "1")
        with serve(*options) as host:
            for document, expected in (
                    (nested(3), "The call nests values more than 2 deep."),
                    (call("test.echo", [1] * 5), "The call holds more than 5 values."),
                    (call("test.echo", {"a": 1, "b": 2}), "A struct holds more than 1 members.")):
                self.assertEqual(host.fault(document), (LIMIT, expected))
            self.assertEqual(host.post(b"x" * 65537), (413, b"The body is longer than 65536 bytes.\n"))
            self.assertEqual(host.post(iter([b"x" * 65536, b"x"])), (413, b"The body is longer than 65536 bytes.\n"))


if __name__ == "__main__":
    unittest.main()
