"""Scenarios that name statuses as vx_status_e does, and that read more of an answer than its last argument."""

import pathlib
import re

from harness import SimTest


def statuses():
    """Numbers of vx_status_e by name, counted as C counts them: the dictionary answers others."""
    header = pathlib.Path(__file__).resolve().parents[2] / "include" / "lmq" / "status.h"
    values, last = {}, -1
    body = re.search(r"typedef enum vx_status_e.*?\{(.*)\}", header.read_text(), re.S)[1]
    for name, value in re.findall(r"^\s*(\w+)(?: = (\w+))?,", body, re.M):
        last = last + 1 if not value else values[value] if value in values else int(value, 0)
        values[name] = last
    return values


class Scenario(SimTest):
    STATUS = statuses()

    def echo(self, function, *arguments):
        """A call that must succeed. Returns the echo of each argument: item n is argument n + 1."""
        status, echo = self.call(function, *arguments)
        self.assertEqual(status, 0, f"{function}{arguments}: status 0x{status:x}")
        return echo

    def refused(self, status, function, *arguments):
        """A call that must be answered with a status, given without its VX_ERR_."""
        super().refused(self.STATUS["VX_ERR_" + status], function, *arguments)
