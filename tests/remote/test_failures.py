"""What a program sees when a call fails on its way: the status, the words, and memory that nobody has touched."""

import ctypes
import os
import pathlib
import signal
import ssl
import subprocess
import sys
import tempfile
import threading
import unittest

sys.path[:0] = [str(pathlib.Path(__file__).resolve().parent), str(pathlib.Path(__file__).resolve().parent.parent)]
import hosting  # noqa: E402
from remote import (LOST, MISFIT, NOT_SENT, REFUSED, SUCCESS, Canned, RemoteTest, array, document, fault, i4,  # noqa: E402
                    options)

MAC = array(*map(i4, (2, 0, 94, 16, 0, 1)))


class Answers(RemoteTest):
    """A host that answers what it should not."""

    def mac(self):
        """Reads the MAC address into the middle of a buffer. Returns status and buffer."""
        buffer = self.buffer(18)
        status = self.driver.vx_mac_addr_get(0, ctypes.byref(buffer, 6))
        return status, buffer.raw

    def test_an_answer_that_fits(self):
        for answer in (document(i4(0), i4(0), MAC),
                       document("<int>0</int>", "<int>0</int>", MAC).replace("><", ">\r\n <"),
                       b"HTTP/1.1 200 OK\r\ntransfer-encoding: chunked\r\n\r\n" + b"".join(
                           b"%x\r\n%s\r\n" % (len(piece), piece) for piece in
                           (document(i4(0), i4(0), MAC)[:100].encode(), document(i4(0), i4(0), MAC)[100:].encode(), b"")),
                       b"HTTP/1.0 200 OK\r\nContent-Length: 9999\r\n\r\n".replace(
                           b"9999", b"%d" % len(document(i4(0), i4(0), MAC))) + document(i4(0), i4(0), MAC).encode()):
            with self.subTest(answer):
                self.canned(answer)
                self.assertEqual(self.mac(), (SUCCESS, b"\xA5" * 6 + bytes((2, 0, 94, 16, 0, 1)) + b"\xA5" * 6))
        # What a driver wrote before it failed comes too; zeros are what was sent.
        self.canned(document(i4(28674), i4(0), MAC), document(i4(28674), i4(0), array(*[i4(0)] * 6)))
        self.assertEqual(self.mac(), (28674, b"\xA5" * 6 + bytes((2, 0, 94, 16, 0, 1)) + b"\xA5" * 6))
        self.assertEqual(self.mac(), (28674, b"\xA5" * 18))

    def test_answers_that_do_not_fit(self):
        six = [i4(n) for n in (2, 0, 94, 16, 0, 1)]
        for answer, words in (
                (document(i4(0), i4(0), array(*six, i4(7))), "argument p_mac_addr: an array of 7 came, and not of 6"),
                (document(i4(0), i4(0), array(*six[:5])), "an array of 5 came, and not of 6"),
                (document(i4(0), i4(0), array()), "an array of 0 came, and not of 6"),
                (document(i4(0), i4(0), "<nil/>"), "nothing came, and not an array"),
                (document(i4(0), i4(0), i4(2)), "an int came, and not an array"),
                (document(i4(0), i4(0), array(*six[:5], i4(256))), "256 came, which needs more than 8 bits"),
                (document(i4(0), i4(0), array(*six[:5], "<i8>1</i8>")), "an i8 came, and not an int"),
                (document(i4(0), i4(0), array(*six[:5], "<boolean>1</boolean>")), "came, and not an int"),
                (document(i4(0), i4(1), MAC), "argument dev_id: the driver got another value than 0"),
                (document(i4(0), i4(0)), "no array of 3 values"),
                (document(i4(0), i4(0), MAC, MAC), "no array of 3 values"),
                (document("<string>0</string>", i4(0), MAC), "begins with no int"),
                (document(i4(0), i4(0), MAC)[:-30], "cannot be read: it is no XML"),
                (document(i4(0), i4(0), MAC).replace("<i4>94", "<i4>94x"), "a number is none"),
                (document(i4(0), i4(0), MAC).replace("<i4>94", "<i4>9999999999"), "too large for its type"),
                (document(i4(0), i4(0), MAC).replace("i4>", "i5>"), "an element <i5> stands"),
                (document(i4(0), i4(0), MAC).replace("<data>", "<data>text"), "a text stands where none may"),
                (document(i4(0), i4(0), MAC).replace("<methodResponse>", "<!DOCTYPE a [<!ENTITY b 'c'>]><methodResponse>"),
                 "it has a document type"),
                (document(i4(0), i4(0), "<array><data><value>" * 99 + i4(0) + "</value></data></array>" * 99), "too deep"),
                ("<methodResponse></methodResponse>", "it holds no value"),
                ("", "it is no XML"),
                ("404 not here", "it is no XML")):
            with self.subTest(words):
                self.canned(answer)
                self.assertEqual(self.mac(), (MISFIT, b"\xA5" * 18))
                self.assertTrue(self.error().startswith("vx_mac_addr_get: "), self.error())
                self.assertIn(words, self.error())

    def test_structs_that_do_not_fit(self):
        def watchdog(**members):
            given = {"wd_enable": i4(1), "wd_timer": i4(7), "wd_action": i4(0), **members}
            return document(i4(0), i4(0), self.struct({key: each for key, each in given.items() if each}))

        mask = self.struct({"wd_enable": i4(1), "wd_timer": i4(1), "wd_action": i4(0), "reserved": i4(0)})
        self.canned(watchdog(mask_s=mask), watchdog(mask_s=mask, more=i4(1)))
        for _ in range(2):  # a member that this program does not know is passed over
            buffer = self.buffer(16)
            self.assertEqual(self.driver.vx_watchdog_get(0, buffer), SUCCESS)
            self.assertEqual(buffer.raw, bytes.fromhex("01a5a5a5 07000000 00000000 03000000"))
        for answer, words in (
                (watchdog(mask_s=mask, wd_timer=None), "member wd_timer of vx_watchdog_cfg_t: it did not come"),
                (watchdog(mask_s=mask.replace("<i4>1", "<i4>2")), "member wd_enable of vx_watchdog_cfg_t: 2 came, which"),
                (watchdog(mask_s=mask, wd_enable=i4(-129)), "member wd_enable of vx_watchdog_cfg_t: -129 came, which"),
                (watchdog(mask_s=i4(3)), "member mask_s of vx_watchdog_cfg_t: an int came, and not a struct"),
                (watchdog(mask_s=mask, wd_timer="<string>7</string>"), "a text came, and not an int"),
                (document(i4(0), i4(0), array()), "argument p_cfg: an array came, and not a struct")):
            with self.subTest(words):
                self.canned(answer)
                buffer = self.buffer(16)
                self.assertEqual(self.driver.vx_watchdog_get(0, buffer), MISFIT)
                self.assertEqual(buffer.raw, b"\xA5" * 16)
                self.assertIn(words, self.error())

    @staticmethod
    def struct(members):
        return "<struct>" + "".join(f"<member><name>{key}</name><value>{each}</value></member>"
                                    for key, each in members.items()) + "</struct>"

    def test_counts(self):
        """How many elements a host says that it has filled is not believed."""
        count = ctypes.c_uint8(2)
        message = self.buffer(4)
        self.canned(document(i4(0), i4(0), i4(0), array(i4(1), i4(2)), array(i4(3))))
        self.assertEqual(self.driver.vx_gpon_onu_ploam_ds_get(0, 0, message, ctypes.byref(count)), MISFIT)
        self.assertIn("3 elements are said to be filled, and there is room for 2", self.error())
        self.assertEqual((message.raw, count.value), (b"\xA5" * 4, 2))
        self.canned(document(i4(0), i4(0), i4(0), array(i4(1), i4(2)), array(i4(1))))
        self.assertEqual(self.driver.vx_gpon_onu_ploam_ds_get(0, 0, message, ctypes.byref(count)), SUCCESS)
        self.assertEqual((message.raw, count.value), (b"\x01" + b"\xA5" * 3, 1))

    def test_refusals(self):
        for answer, status, words in (
                (fault(-507, "not &lt;here&gt;"), REFUSED, "vx_mac_addr_get: fault -507: not <here>"),
                (b"HTTP/1.1 401 Unauthorized\r\nContent-Length: 9\r\n\r\nwho? you?", REFUSED, "status 401 of HTTP: who? you?"),
                (b"HTTP/1.1 503 Later\r\nContent-Length: 0\r\n\r\n", REFUSED, "status 503"),
                (b"HTTP/1.1 500 Oh\r\nConnection: close\r\n\r\nanything\nat all", LOST, "status 500 of HTTP: anything"),
                (b"HTTP/1.1 502 Gone\r\nContent-Length: %d\r\n\r\n%s" % (
                    len(fault(-500, "the worker died")), fault(-500, "the worker died").encode()), LOST, "the worker died"),
                (b"SSH-2.0 hello\r\n\r\n", LOST, "does not speak HTTP"),
                (b"HTTP/1.1 200 OK\r\nContent-Length: 99999999999\r\n\r\n", LOST, "too large")):
            with self.subTest(words):
                self.canned(answer)
                self.assertEqual(self.mac(), (status, b"\xA5" * 18))
                self.assertIn(words, self.error())

    def test_functions_without_a_status(self):
        self.canned(None)
        self.assertEqual(self.driver.lmq_dump_register(0, 0, 4, 4), 0)
        self.assertEqual(self.driver.vx_sw_vlan_del(0, 0, 0, 0), LOST)
        self.driver.lmq_pkt_free_fnc(None)
        self.assertIn("lmq_pkt_free_fnc", self.error())

    def test_texts(self):
        """Control characters, which the XML-RPC library sends as they are, arrive."""
        self.canned(fault(1, "a\x01b\x1f&#233;"))
        self.mac()
        self.assertTrue(self.error().endswith("fault 1: a\x01b\x1fé"), self.error())


class Lines(RemoteTest):
    """Connections that break, hosts that come and go."""

    def host(self, *extra, **others):
        host = hosting.Host(*extra, plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_HOST_DRIVER"], **others)
        self.addCleanup(host.close)
        return host

    def read(self):
        value = ctypes.c_uint32(0xA5A5A5A5)
        return self.driver.lmq_read_register(0, 0x1000, ctypes.byref(value)), value.value

    def test_never_sent_twice(self):
        for context in (None, self.context()):
            with self.subTest(tls=bool(context)):
                good = document(i4(0), i4(0), MAC)
                trust = {"cacert": f"{self.folder}/host.pem"} if context else {}
                host = Canned(good, None, good, context=context)
                self.addCleanup(host.close)
                self.driver.lmq_remote_use(self.driver.lmq_remote_open(options(host.url, 5, **trust)))
                buffer = self.buffer(6)
                statuses = [self.driver.vx_mac_addr_get(0, buffer) for _ in range(4)]
                self.driver.lmq_remote_use(0)
                # The second call comes by the connection of the first.
                self.assertEqual((statuses, len(host.calls)), ([SUCCESS, LOST, SUCCESS, SUCCESS], 4), self.error())

    def test_what_is_printed_there(self):
        """It is printed here, once, over every way, and its loss is not the call's."""
        self.context()
        path = f"{self.folder}/host.sock"
        self.host("--socket", path, listen=None)
        tls = self.host("--tls-cert", f"{self.folder}/host.pem", "--tls-key", f"{self.folder}/host.key")
        program = ("import ctypes, os; driver = ctypes.CDLL(os.environ['LIBRARY']);"
                   "print(hex(driver.lmq_dump_event_db(0, 0x101)), flush=True); driver.lmq_dump_register(0, 0x1000, 0, 1)")
        for url in (self.host().url, f"unix:{path}", tls.url):
            self.driver.lmq_remote_connect(options(url, cacert=f"{self.folder}/host.pem"))
            self.start(self.driver)
            done = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, timeout=60,
                                  env=hosting.environment(LIBRARY=os.environ["LMQ_REMOTE"], LMQ_URL=url,
                                                          LMQ_CACERT=f"{self.folder}/host.pem"))
            self.assertRegex(done.stdout, r"\A(event 0x101: .*\n(  .*\n)*)?0x[0-9a-f]+\n0x001000: 0x[0-9a-f]{8}\n\Z")
            self.assertEqual(done.stderr, "")
        good = document(i4(0), i4(0), MAC).encode()
        told = b"HTTP/1.1 200 OK\r\nLmq-Output: %s\r\nContent-Length: %d\r\n\r\n%s"
        for place, calls in ((b"/output/7", 2), (b"/output/7x", 1), (b"/elsewhere", 1)):
            host = self.canned(told % (place, len(good), good), None)
            self.assertEqual((self.driver.vx_mac_addr_get(0, self.buffer(6)), len(host.calls)), (SUCCESS, calls), place)

    def context(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                        "-days", "2", "-subj", "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1", "-keyout",
                        "host.key", "-out", "host.pem"], cwd=self.folder, check=True, capture_output=True, timeout=60)
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(f"{self.folder}/host.pem", f"{self.folder}/host.key")
        return context

    def test_time_is_up(self):
        over = threading.Event()
        self.addCleanup(over.set)
        self.canned(lambda: over.wait(20) and None, timeout=0.3)
        self.assertEqual(self.read(), (LOST, 0xA5A5A5A5))
        self.assertIn("time is up", self.error())

    def test_a_host_that_comes_back(self):
        host = self.host()
        self.driver.lmq_remote_connect(options(host.url))
        before = self.read()
        self.assertEqual(before[0], 0x7002, self.error())
        host.process.send_signal(signal.SIGKILL)
        host.process.wait()
        host.status = -signal.SIGKILL
        self.assertEqual(self.read(), (NOT_SENT, 0xA5A5A5A5))
        self.assertIn("cannot connect: Connection refused", self.error())
        again = self.host(listen=f"127.0.0.1:{host.port}")
        self.assertEqual(self.read(), before)
        # Between two calls, without a call in between that notices.
        again.close()
        self.host(listen=f"127.0.0.1:{host.port}")
        self.assertEqual(self.read(), before)

    def test_ways(self):
        """A Unix socket, a password, TLS, and what is wrong with each."""
        self.context()
        socket = f"{self.folder}/host.sock"
        self.host("--socket", socket, listen=None)
        line = subprocess.run([os.environ["LMQ_HOST"], "--make-user", "anna"], input="secret\n", capture_output=True,
                              text=True, check=True).stdout
        users = pathlib.Path(self.folder, "users")
        users.write_text(line)
        users.chmod(0o600)
        tls = self.host("--auth", str(users), "--tls-cert", f"{self.folder}/host.pem", "--tls-key",
                        f"{self.folder}/host.key")
        trust = {"cacert": f"{self.folder}/host.pem"}
        for way, status, words in (
                (options(f"unix:{socket}"), 0x7002, ""),
                (options(tls.url, user="anna", password="secret", **trust), 0x7002, ""),
                (options(tls.url, user="anna", password="wrong", **trust), REFUSED, "status 401"),
                (options(tls.url, user="anna", password="secret"), NOT_SENT, "cannot connect"),
                (options(f"unix:{socket}x"), NOT_SENT, "cannot connect: No such file"),
                (options("http://nobody.invalid/RPC2"), NOT_SENT, "cannot connect: "),
                (options("gopher://there"), NOT_SENT, "no URL that can be used"),
                (options("http://user@127.0.0.1/"), NOT_SENT, "no URL that can be used")):
            with self.subTest(words):
                self.driver.lmq_remote_connect(way)
                for _ in range(2):
                    self.assertEqual(self.read(), (status, 0xA5A5A5A5 if status != 0x7002 else self.read()[1]), self.error())
                self.assertIn(words, self.error())

    def test_several_chips(self):
        """Each thread calls the chip that it has chosen; calls of many threads to one chip come one after the other."""
        hosts = [self.host() for _ in range(2)]
        chips = [self.driver.lmq_remote_open(options(host.url)) for host in hosts]
        self.assertEqual(chips, list(range(chips[0], chips[0] + 2)))
        wrong = []

        def work(index, thread):
            self.driver.lmq_remote_use(chips[index])
            for round in range(50):
                value = ctypes.c_uint32(0)
                address = 0x2000 + 4 * thread
                written = index << 24 | thread << 16 | round
                statuses = (self.driver.lmq_write_register(0, address, written),
                            self.driver.lmq_read_register(0, address, ctypes.byref(value)))
                if statuses != (0, 0) or value.value != written:
                    wrong.append((index, thread, round, statuses, value.value, self.error()))

        for chip in chips:
            self.driver.lmq_remote_use(chip)
            self.start(self.driver)
        threads = [threading.Thread(target=work, args=(n % 2, n)) for n in range(8)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(wrong, [])
        self.assertEqual(self.driver.lmq_remote_close(chips[0]), 0)
        self.assertEqual(self.driver.lmq_remote_use(chips[0]), NOT_SENT)
        self.assertEqual(self.driver.lmq_remote_use(chips[1]), 0)
        self.assertEqual(self.driver.lmq_remote_close(chips[1]), 0)
        self.assertEqual(self.read(), (NOT_SENT, 0xA5A5A5A5))
        self.assertIn("there is no chip", self.error())
        self.assertEqual(self.driver.lmq_remote_use(0), 0)

    def test_a_child_process(self):
        """A child that goes on calling does not speak into its parent's connection."""
        host = self.host()
        self.driver.lmq_remote_connect(options(host.url))
        before = self.read()
        child = os.fork()
        if child == 0:
            os._exit(0 if all(self.read() == before for _ in range(200)) else 1)
        self.assertTrue(all(self.read() == before for _ in range(200)))
        self.assertEqual(os.waitpid(child, 0)[1], 0)


class Arguments(RemoteTest):
    """What a program passes, and what it means."""

    @classmethod
    def setUpClass(cls):
        cls.host = hosting.Host(plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_HOST_DRIVER"])
        cls.addClassCleanup(cls.host.close)

    def setUp(self):
        super().setUp()
        self.driver.lmq_remote_connect(options(self.host.url))
        self.local = ctypes.CDLL(os.environ["LMQ_DRIVER"])
        self.start(self.driver, self.local)

    def same(self, name, *arguments):
        """The same call here and there. Returns the status."""
        status = getattr(self.local, name)(*arguments)
        self.assertEqual(getattr(self.driver, name)(*arguments), status, self.error())
        return status

    def test_null_pointers_and_counts_of_zero(self):
        data = self.buffer(256, 0)
        for name, arguments in (("vx_watchdog_get", (0, None)), ("vx_watchdog_set", (0, None)),
                                ("vx_mac_addr_set", (0, None)), ("vx_i2c_read", (0, 80, 0, 4, None)),
                                ("vx_i2c_write", (0, 80, 0, 0, data)), ("vx_i2c_read", (0, 80, 0, 0, data)),
                                ("vx_gpon_onu_active_tcont_get", (0, 0, None, None)),
                                ("vx_gpon_onu_active_tcont_get", (0, 0, data, None)),
                                ("vx_l2_mac_addr_filter_delete", (0, 0, 0, data)), ("lmq_read_register", (9, 0, data))):
            with self.subTest(name):
                self.same(name, *arguments)
                self.assertEqual(data.raw, bytes(256))

    def test_what_cannot_be_sent(self):
        data = self.buffer(16)
        self.assertEqual(self.driver.vx_i2c_write(0, 80, 0, 1000, data), NOT_SENT)
        self.assertIn("argument data_len: 1000 is more than the driver takes (256)", self.error())
        self.driver.lmq_pkt_free_fnc(data)
        self.assertIn("argument cookie: no pointer but NULL can be sent", self.error())
        config = (ctypes.c_uint8 * 65536)(*[0xC3] * 65536)
        self.assertEqual(self.driver.lmq_init_system(config), NOT_SENT)
        self.assertRegex(self.error(), "argument .*: member dev_if_name of .* holds bytes that are no text in UTF-8")

    def test_environment(self):
        """What is wrong with the environment, on standard error or not."""
        program = "import ctypes, os; print(hex(ctypes.CDLL(os.environ['LIBRARY']).vx_reset(0, 0)))"

        def run(**variables):
            done = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, timeout=60,
                                  env=hosting.environment(LIBRARY=os.environ["LMQ_REMOTE"], **variables))
            return done.stdout.strip(), done.stderr

        self.assertEqual(run(LMQ_URL="x"), ("0x4c4d5101", "liblmq: vx_reset: x: no URL that can be used; expected "
                                            "http://HOST:PORT/RPC2, https://... or unix:PATH\n"))
        self.assertEqual(run(LMQ_URL="x", LMQ_REMOTE_QUIET="1"), ("0x4c4d5101", ""))
        self.assertIn("LMQ_TIMEOUT: soon is no number of seconds", run(LMQ_TIMEOUT="soon")[1])
        self.assertEqual(run(LMQ_URL=self.host.url.removesuffix("/RPC2"), LMQ_TIMEOUT="0"), ("0x0", ""))


if __name__ == "__main__":
    unittest.main()
