"""What calls answer: structs that are dicts with attributes, and that people can read."""


def escape(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def shown(value):
    """A member's value in few words: enumerators by name, flags as those that are set."""
    if isinstance(value, Struct):
        flags = value.flags()
        return repr(value) if flags is None else "|".join(flags) or "0"
    name = getattr(value, "name", None)
    return name if name else f"[{', '.join(map(shown, value))}]" if isinstance(value, list) else repr(value)


class Struct(dict):
    """A struct of the interface: a dict whose keys are attributes too. Members can be set, and all of it be sent."""

    __slots__ = ("_type",)

    def __init__(self, members=(), type=""):
        super().__init__(members)
        object.__setattr__(self, "_type", type)

    def __getattr__(self, name):
        try:
            return self[name]
        except KeyError:
            from .errors import did_you_mean

            raise AttributeError(f"{self._type or 'the result'} has no member {name}"
                                 + did_you_mean(name, self)) from None

    def __setattr__(self, name, value):
        self[name] = value

    def __delattr__(self, name):
        del self[name]

    def __dir__(self):
        return [*super().__dir__(), *self]

    def __reduce__(self):
        return Struct, (dict(self), self._type)

    def flags(self):
        """The names of the flags that are set, if this is a mask; None if it is not."""
        inner = self["mask_s"] if set(self) == {"mask_s"} else self
        if not isinstance(inner, Struct) or not inner._type.endswith("(mask)"):
            return None
        return [name for name, value in inner.items() if value]

    def __repr__(self):
        flags = self.flags()
        if flags is not None:
            return f"<{'|'.join(flags)}>"
        return f"{self._type or 'result'}({', '.join(f'{name}={shown(value)}' for name, value in self.items())})"

    def __str__(self):
        return "\n".join(self.lines())

    def lines(self, indent=""):
        """One line a member; a struct in it is indented."""
        width = max(map(len, self), default=0)
        for name, value in self.items():
            inner = {"": value} if isinstance(value, Struct) and value.flags() is None else {}
            if isinstance(value, list) and value and isinstance(value[0], Struct):
                inner = {f"[{index}]": each for index, each in enumerate(value)}
            if not inner:
                yield f"{indent}{name:{width}}  {shown(value)}"
            for index, each in inner.items():
                yield f"{indent}{name}{index}"
                yield from each.lines(indent + "  ")

    def _repr_html_(self):
        rows = "".join(f"<tr><th>{escape(name)}</th><td>{cell(value)}</td></tr>" for name, value in self.items())
        return f"<table><caption>{escape(self._type)}</caption>{rows}</table>"


class Structs(list):
    """A list of structs: in a notebook one table, with a column for each member."""

    def _repr_html_(self):
        columns = list(dict.fromkeys(name for each in self for name in each))
        head = "".join(f"<th>{escape(name)}</th>" for name in columns)
        rows = "".join(f"<tr>{''.join(f'<td>{cell(each[name])}</td>' if name in each else '<td/>' for name in columns)}"
                       "</tr>" for each in self)
        return f"<table><tr>{head}</tr>{rows}</table>"


def cell(value):
    table = getattr(value, "_repr_html_", None)
    return table() if table and (not isinstance(value, Struct) or value.flags() is None) else escape(shown(value))


class Result(Struct):
    """The outputs of a call by name. Where a call has one output and that is a struct, its members.

    returned: what the function returned, where that is no status
    output: what the driver printed during the call, or None where the host does not keep it
    """

    __slots__ = ("method", "returned", "_alias", "_printed")

    def __init__(self, members, method, type="", alias=None, returned=None, printed=None):
        super().__init__(members, type)
        for name, value in (("method", method), ("returned", returned), ("_alias", alias), ("_printed", printed)):
            object.__setattr__(self, name, value)

    def __getattr__(self, name):
        if name == self._alias and name not in self:
            return self
        return super().__getattr__(name)

    @property
    def output(self):
        return self._printed and self._printed.text


class Printed:
    """What the driver printed during a call. It is fetched when somebody asks for it."""

    def __init__(self, transport, path):
        self.transport, self.path, self.known = transport, path, None

    @property
    def text(self):
        if self.known is None:
            self.known = self.transport.get(self.path).body.decode(errors="replace")
        return self.known
