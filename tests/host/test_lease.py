"""The lease: who may change something for a time."""

import json
import re
import tempfile
import unittest

from harness import call, eventually, multicall, run, serve

READ, CHANGE = call("lmq.dictionary"), call("test.echo", 1)
HELD = rb"ann holds the lease until \S+Z; calls that change something have to wait\.\n"


class Lease(unittest.TestCase):
    def lease(self, host, method, body=None, **headers):
        with host.connect() as connection:
            connection.request(method, "/lease", body and json.dumps(body), headers)
            answer = connection.getresponse()
            text = answer.read()
            return answer.status, json.loads(text) if answer.status == 200 else text

    def test_others_read_and_wait(self):
        with serve() as host:
            self.assertEqual(self.lease(host, "GET"), (200, {"held": False}))
            status, taken = self.lease(host, "POST", {"name": "ann", "seconds": 600})
            self.assertEqual((status, taken["held"], taken["name"]), (200, True, "ann"))
            self.assertRegex(taken["until"], r"\A\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z\Z")
            self.assertTrue(0 < taken["seconds"] <= 600)
            own = {"Lmq-Lease": taken.pop("token")}
            known = self.lease(host, "GET")[1]
            self.assertEqual({**known, "seconds": 0}, {**taken, "seconds": 0})
            for body in (CHANGE, multicall("lmq.dictionary", "test.echo")):
                for headers in ({}, {"Lmq-Lease": "0" * 32}, {"Lmq-Lease": ""}):
                    status, text = host.post(body, **headers)
                    self.assertEqual((status, bool(re.fullmatch(HELD, text))), (423, True), text)
                self.assertEqual(host.post(body, **own)[0], 200)
            for body in (READ, multicall("lmq.dictionary", "system.listMethods"), call("system.listMethods")):
                self.assertEqual(host.post(body)[0], 200)
            # Nobody else takes it or gives it back; its holder prolongs it.
            self.assertEqual(self.lease(host, "POST", {"name": "bob", "seconds": 1})[0], 423)
            self.assertEqual(self.lease(host, "DELETE")[0], 423)
            status, longer = self.lease(host, "POST", {"name": "ann", "seconds": 6000}, **own)
            self.assertEqual((status, longer["token"]), (200, own["Lmq-Lease"]))
            self.assertGreater(longer["seconds"], 600)
            self.assertEqual(self.lease(host, "DELETE", **own), (200, {"held": False}))
            self.assertEqual(host.post(CHANGE)[0], 200)

    def test_it_ends_by_itself(self):
        with serve() as host:
            self.assertEqual(self.lease(host, "POST", {"name": "ann", "seconds": 1})[0], 200)
            self.assertTrue(eventually(lambda: host.post(CHANGE)[0] == 200))
            self.assertEqual(self.lease(host, "GET"), (200, {"held": False}))

    def test_wishes_that_are_none(self):
        with serve() as host:
            for wish in ([], {"name": "ann"}, {"name": "", "seconds": 1}, {"name": "a\nb", "seconds": 1},
                         {"name": "ann", "seconds": 0}, {"name": "ann", "seconds": 86401}, {"name": 1, "seconds": 1},
                         {"name": "ann", "seconds": "1"}, {"name": "x" * 101, "seconds": 1}):
                self.assertEqual(self.lease(host, "POST", wish)[0], 400, wish)
            self.assertEqual(self.lease(host, "POST", {"name": "x" * 5000, "seconds": 1})[0], 413)
            self.assertEqual(self.lease(host, "PUT")[0], 405)

    def test_it_asks_for_the_password(self):
        with tempfile.NamedTemporaryFile("w") as users:
            users.write(run("--make-user", "ann", input="a secret\n").stdout)
            users.flush()
            with serve("--auth", users.name) as host:
                for method in ("GET", "POST", "DELETE"):
                    self.assertEqual(self.lease(host, method)[0], 401)


if __name__ == "__main__":
    unittest.main()
