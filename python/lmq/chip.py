"""A chip behind a host: its methods, many of them in one request, waiting, and its settings taken and put back."""

import time

from .codec import Codecs
from .errors import Error, Fault, HostError, StatusError, WaitTimeout, did_you_mean
from .method import Method
from .values import shown

CALLS_IN_A_REQUEST = 100  # what a host takes, if it was not told otherwise


class Methods:
    """The methods of an interface as attributes."""

    def __init__(self, interface, codecs):
        self._interface, self._codecs, self._known = interface, codecs, {}

    def __getattr__(self, name):
        if name.startswith("_") or name not in self._interface.methods:
            raise AttributeError(f"there is no method {name}{did_you_mean(name, self._interface.methods)}")
        made = Function(self._make, self._method(name))
        setattr(self, name, made)
        return made

    def __dir__(self):
        return [*super().__dir__(), *self._interface.methods]

    def _method(self, name):
        if name not in self._known:
            self._known[name] = Method(name, self._interface.methods[name], self._codecs)
        return self._known[name]


class Function:
    """A method as a function, with what help() and editors show of it. That is made when they ask."""

    def __init__(self, make, method):
        self._make, self._method = make, method
        self.__name__ = self.__qualname__ = method.name
        self.__module__ = "lmq"

    def __call__(self, *args, **kwargs):
        return self._make(self._method, args, kwargs)

    def __get__(self, instance, owner=None):
        return self  # with this help() takes it for the function that it stands for

    def __repr__(self):
        return f"<lmq method {self._method.prototype()}>"

    __doc__ = property(lambda self: self._method.documentation())
    __signature__ = property(lambda self: self._method.signature())


class Chip(Methods):
    """A chip. Each method of the interface is a method of it; help(chip.vx_watchdog_set) shows what it does.

    url: where the host is
    enums: the enums of the interface, chip.enums.vx_wd_action_e
    interface: all that the host says of itself
    """

    def __init__(self, transport, interface, checked=True):
        super().__init__(interface, Codecs(interface, checked))
        self._transport, self._checked, self._unchecked = transport, checked, None
        self.interface, self.enums, self.url = interface, interface.enums, transport.board.url

    def __repr__(self):
        return f"<lmq.Chip at {self.url}>"

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        """Lets go of the connection. The next call opens one again."""
        self._transport.close()

    def _make(self, method, args, kwargs):
        answer, printed = self.raw(method.name, *method.encode(args, kwargs))
        return method.decode(answer, self._transport, printed)

    def raw(self, name, *arguments):
        """Makes a call with values as they are on the wire, all arguments in order. Returns its whole answer, and where
        the host keeps what the driver printed, or None."""
        begin, outcome = time.monotonic(), None
        try:
            outcome = self._transport.call(f"lmq.{name}", arguments)
            return outcome
        except Error as error:
            outcome = error
            raise
        finally:
            for heard in self._transport.listeners:
                heard(name, arguments, outcome, time.monotonic() - begin)

    @property
    def unchecked(self):
        """The same chip without checks of ranges, enumerators and ids, to see what the driver says to wrong ones."""
        if self._unchecked is None:
            self._unchecked = Chip(self._transport, self.interface, False)
        return self._unchecked

    def on_call(self, heard):
        """Has heard(method, arguments, outcome, seconds) called after each call, until what this returns is called. The
        arguments are as on the wire; the outcome is the answer and the place of what was printed, or an exception."""
        self._transport.listeners.append(heard)
        return lambda: self._transport.listeners.remove(heard)

    def batch(self):
        """Gathers calls and makes them in one request at the end of a `with`; each call answers a Future."""
        return Batch(self)

    def wait_until(self, name, *args, timeout=10.0, interval=0.05, **members):
        """Makes a reading call again and again until members of its result are as given, and returns that result.

        members: a value as it would be sent, or a function that judges the value
        timeout, interval: seconds in all, and between two calls
        Raises WaitTimeout. A status that is no success is waited out too; a host that is gone is not.
        """
        method = self._method(name) if name in self._interface.methods else getattr(self, name)
        end, last = time.monotonic() + timeout, None
        tests = None
        while True:
            try:
                last = self._make(method, args, {})
                tests = tests or {member: self._test(method, member, value) for member, value in members.items()}
                if all(test(last[member]) for member, test in tests.items()):
                    return last
            except StatusError as error:
                last = error
            if time.monotonic() >= end:
                break
            time.sleep(max(0, min(interval, end - time.monotonic())))
        wanted = ", ".join(f"{member}={'...' if callable(value) else shown(value)}"
                           for member, value in members.items())
        is_result = not isinstance(last, Error)
        found = ", ".join(f"{member}={shown(last[member])}" for member in members) if is_result else last
        raise WaitTimeout(f"{name}: no {wanted} within {timeout:g} s; last was {found}", last)

    def _test(self, method, member, value):
        """Whether a member is what was asked for, which is compared in the form in which a result would show it."""
        if callable(value):
            return value
        argument = method.arguments.get(method.sole) if method.sole else None
        codec = self._codecs.struct(argument["type"]).fields.get(member) if argument else method.codec.get(member)
        if codec is None:
            known = [each for name, *_ in method.outputs for each in (
                self._codecs.struct(argument["type"]).fields if name == method.sole else [name])]
            raise AttributeError(f"{method.name} answers no {member}{did_you_mean(member, known)}")
        wanted = codec.decode(codec.encode(value))
        return lambda found: found == wanted

    def snapshot(self, methods="*"):
        """Takes what can be read and set again: Snapshot (snapshot.py). `methods` is a pattern of names of setters."""
        from .snapshot import Snapshot

        return Snapshot(self, methods)


class Batch(Methods):
    """Calls that are made together. They are checked at once, and made when the `with` ends without an exception, a
    hundred in a request. One that fails does not keep the others from being made."""

    def __init__(self, chip):
        super().__init__(chip.interface, chip._codecs)
        self._chip, self._calls = chip, []
        self._known = chip._known

    def __enter__(self):
        return self

    def __exit__(self, kind, *_):
        if kind is None:
            self.run()

    def __len__(self):
        return len(self._calls)

    def _make(self, method, args, kwargs):
        future = Future(method)
        self._calls.append((future, method.encode(args, kwargs)))
        return future

    def run(self):
        """Makes the calls that are gathered now."""
        calls, self._calls = self._calls, []
        for begin in range(0, len(calls), CALLS_IN_A_REQUEST):
            part = calls[begin:begin + CALLS_IN_A_REQUEST]
            begun = time.monotonic()
            try:
                answers, _ = self._chip._transport.call("system.multicall", [
                    [{"methodName": f"lmq.{future.method.name}", "params": wire} for future, wire in part]])
            except Error as error:
                for future, _ in calls[begin:]:
                    future.fail(error)
                raise
            seconds = (time.monotonic() - begun) / len(part)
            for (future, wire), answer in zip(part, answers):
                outcome = future.take(answer)
                for heard in self._chip._transport.listeners:
                    heard(future.method.name, wire, outcome, seconds)


class Future:
    """The result of a call in a batch, once the batch was made."""

    def __init__(self, method):
        self.method, self._result, self._error = method, None, Error(f"{method.name}: the batch was not made yet")

    def fail(self, error):
        self._error = error

    def take(self, answer):
        """Takes an answer of system.multicall, and returns it as Chip.raw() would."""
        try:
            if isinstance(answer, dict):
                raise Fault(answer.get("faultCode"), answer.get("faultString"), self.method.name)
            self._result, self._error = self.method.decode(answer[0]), None
        except (Fault, StatusError, HostError) as error:
            self._error = error
        return self._error if isinstance(self._error, Fault) else (answer[0], None)

    def exception(self):
        """The exception that result() would raise, or None."""
        return self._error

    def result(self):
        """The result of the call; raises what the call would have raised."""
        if self._error is not None:
            raise self._error
        return self._result
