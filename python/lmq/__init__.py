"""The chip from Python: each driver function is a method, with checked arguments, outputs by name, and exceptions.

    import lmq
    chip = lmq.connect("http://board7:8080")
    chip.vx_watchdog_set(0, wd_timer=30)
    print(chip.vx_watchdog_get(0).wd_timer)

`lmq.VX_ERR_...` is the exception of a status, and the name of any other enumerator is that enumerator, of the interface
of the first host that was connected.
"""

import os as _os

from . import boards as _boards
from . import errors as _errors
from .chip import Batch, Chip, Future
from .errors import ArgumentError, Error, Fault, HostError, StatusError, WaitTimeout
from .interface import Interface
from .transport import Transport as _Transport
from .transport import fetch_interface as _fetch_interface
from .values import Result, Struct

__all__ = ["ArgumentError", "Batch", "Chip", "Error", "Fault", "Future", "HostError", "Interface", "Result",
           "StatusError", "Struct", "WaitTimeout", "connect"]
with open(_os.path.join(_os.path.dirname(__file__), "VERSION"), encoding="ascii") as _file:
    __version__ = _file.read().strip()

_interfaces = {}  # by the tag that hosts give it: those with the same interface share it, and its enums


def connect(target=None, *, user=None, password=None, cacert=None, cert=None, key=None, timeout=60.0, interface=None,
            checked=True):
    """Connects to a host and returns its chip.

    target: http://HOST:PORT, https://..., unix:PATH, HOST:PORT, or the name of a board in the boards file of lmqctl; by
        default what LMQ_URL or LMQ_BOARD says
    user, password: a login; without a password LMQ_PASSWORD counts, or what the board's password-command prints
    cacert, cert, key: files that TLS needs: who signed the host's certificate, our own, and its key
    timeout: seconds for an answer
    interface: an interface.json for a host that serves none
    checked: whether ranges, enumerators and ids are checked before a call is sent
    """
    board = _boards.find(target, user=user, password=password, cacert=cacert, cert=cert, key=key)
    transport = _Transport(board, timeout)
    if interface is not None:
        known = _interfaces[str(interface)] = Interface.of_file(interface)
        return Chip(transport, known, checked)
    return Chip(transport, _fetch_interface(transport, _interfaces), checked)


def __getattr__(name):
    if not name.isupper() and not name.startswith(("VX_", "LMQ_")):
        raise AttributeError(f"module 'lmq' has no attribute {name!r}")
    known = next(iter(_interfaces.values()), None)
    if known is None:
        if name.startswith("VX_ERR_"):
            return _errors.of_status(name)
        raise AttributeError(f"lmq.{name}: enumerators are known once a host is connected")
    made = known.enumerator(name)
    # Of two names for one status the exception has the one that an answer shows.
    return _errors.of_status(made.name) if type(made).__name__ == "vx_status_e" and name.startswith("VX_ERR") else made
