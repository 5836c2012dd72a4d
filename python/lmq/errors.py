"""What can go wrong with a call, as exceptions. All of them are lmq.Error."""


class Error(Exception):
    """Whatever this package raises of its own."""


class ArgumentError(Error, ValueError):
    """An argument or member that the interface does not allow. Nothing was sent.

    method: the method, path: the argument and the member in it, text: what is wrong with it
    """

    def __init__(self, text, path="", method=""):
        super().__init__(text, path, method)
        self.text, self.path, self.method = text, path, method

    def at(self, name):
        """The same error, seen from one level further out, where `name` leads to the value."""
        self.path = name + ("." if self.path and not self.path.startswith("[") else "") + self.path
        return self

    def __str__(self):
        return ": ".join(filter(None, (self.method, self.path, self.text)))


class HostError(Error, OSError):
    """The host cannot be reached, or answered with something else than an answer. Whether a call had an effect, nobody
    knows, unless the text says that nothing was sent."""


class Fault(Error):
    """The host refused the call; the driver was not called."""

    def __init__(self, code, text, method=None):
        super().__init__(f"{method}: {text} (fault {code})" if method else f"{text} (fault {code})")
        self.code, self.text, self.method = code, text, method


class WaitTimeout(Error, TimeoutError):
    """What was waited for did not come. `last` is the last result, or the last status as an exception."""

    def __init__(self, text, last):
        super().__init__(text)
        self.last = last


class StatusError(Error):
    """The driver answered with a status other than success. Each status has a class: lmq.VX_ERR_DEV_NULL_PTR."""

    def __init__(self, status, method, brief="", printed=None):
        name = getattr(status, "name", None) or hex(status)
        super().__init__(f"{method}: {name} ({int(status)})" + (f": {brief}" if brief else ""))
        self.status, self.method, self._printed = status, method, printed

    @property
    def output(self):
        """What the driver printed during the call, or None where the host does not keep it."""
        return self._printed and self._printed.text


_of_status = {}


def of_status(name):
    """The class of a status, the same for all hosts."""
    if name not in _of_status:
        _of_status[name] = type(name, (StatusError,), {"__module__": "lmq", "__doc__": f"The driver answered {name}."})
    return _of_status[name]


def did_you_mean(name, known):
    """"; did you mean X or Y?" with the nearest names, or a short list of all."""
    import difflib  # only here, where time does not matter

    known = sorted(set(known))
    near = difflib.get_close_matches(str(name), known, 3, 0.6)
    if not near:
        near = [each for each in known if str(name).lower() in each.lower()][:3] if name else []
    if near:
        return f"; did you mean {' or '.join(near)}?"
    return f"; there is {', '.join(known)}" if 0 < len(known) <= 12 else ""
