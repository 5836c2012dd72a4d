"""One method: its arguments as Python's, and its answer. Nothing in here knows of a connection."""

from .errors import ArgumentError, did_you_mean, of_status
from .values import Printed, Result

# Room for what a call lists, where the caller does not say how much is wanted: no list of the interface is longer.
ROOM = 64


class Method:
    """How a method is called and what its answer means.

    Inputs are given in the header's order or by name; outputs are not given. What counts the elements of another
    argument can be left out, and so can what is no id: it is 0, or an empty struct. The members of the one struct that
    goes in can be given by name, as if they were arguments.
    """

    def __init__(self, name, said, codecs):
        self.name, self.said, self.codecs = name, said, codecs
        self.arguments = {each["name"]: each for each in said["arguments"] if each["type"] != "void"}
        self.inputs = [name for name, each in self.arguments.items() if each["direction"] != "out"]
        # By the name of a count: the argument whose elements it counts.
        self.counted = {each["length"].lstrip("*"): each for each in self.arguments.values()
                        if isinstance(each["length"], str)}
        self.codec = {name: self.codec_of(each) for name, each in self.arguments.items()}
        structs = [name for name in self.inputs if self.is_struct(self.arguments[name])
                   and self.arguments[name]["length"] == 1]
        self.struct = structs[0] if len(structs) == 1 else None
        self.members = codecs.struct(self.arguments[self.struct]["type"]).fields if self.struct else {}
        self.has_status = said["returns"] == "vx_status_e" or said.get("result", "").endswith("or a status.")
        self.plan_outputs()

    def is_struct(self, argument):
        return argument["type"] in self.codecs.interface.structs

    def codec_of(self, argument):
        """The codec of an argument; what is passed by value and a pointer to one thing travel alike."""
        length = argument["length"]
        if length is None or length == 1:
            return self.codecs.value(argument)
        return self.codecs.value(argument, length if isinstance(length, int) else 1 << 20)

    def plan_outputs(self):
        positions = {each["name"]: index for index, each in enumerate(self.said["arguments"], 1)}
        filled = {each["filled"].lstrip("*") for each in self.arguments.values() if "filled" in each}
        outputs = [name for name, each in self.arguments.items() if each["direction"] != "in"]
        # Name, place in the answer, decoder, and the place of the number of elements that were filled.
        self.outputs = [(name, positions[name], self.codec[name].decode,
                         positions.get(self.arguments[name].get("filled", "").lstrip("*"))) for name in outputs]
        main = [name for name in outputs if name not in filled]
        self.sole = main[0] if len(main) == 1 and self.is_struct(self.arguments[main[0]]) \
            and self.arguments[main[0]]["length"] == 1 else None

    # The way out.

    def encode(self, args, kwargs):
        """The arguments of a call as they are on the wire."""
        try:
            return self.wire(self.bind(args, kwargs))
        except ArgumentError as error:
            error.method = error.method or self.name
            raise

    def bind(self, args, kwargs):
        if len(args) > len(self.inputs):
            raise ArgumentError(f"it takes {len(self.inputs)} arguments, not {len(args)}: {self.prototype()}")
        given = dict(zip(self.inputs, args))
        members = {}
        for name, value in kwargs.items():
            if name in self.arguments:
                if name in given:
                    raise ArgumentError(f"{name} is given twice")
                if name not in self.inputs:
                    raise ArgumentError(f"{name} is an output, and cannot be given")
                given[name] = value
            elif name in self.members:
                members[name] = value
            else:
                raise ArgumentError(f"there is no argument {name}"
                                    + did_you_mean(name, [*self.inputs, *self.members]) + f" {self.prototype()}")
        if members:
            given[self.struct] = {**(given.get(self.struct) or {}), **members}
        return given

    def wire(self, given):
        counts = {name: self.count(name, argument, given) for name, argument in self.counted.items()}
        wire = []
        for argument in self.said["arguments"]:
            name = argument["name"]
            if name in counts:
                given[name] = counts[name]
            if argument["type"] == "void" or (argument["pointer"] and given.get(name, 0) is None):
                wire.append([])  # NULL
            elif argument["direction"] == "out":
                wire.append(self.blank(argument, counts))
            elif name in given:
                try:
                    wire.append(self.codec[name].encode(given[name]))
                except ArgumentError as error:
                    raise error.at(name)
            else:
                wire.append(self.left_out(argument, counts))
        return wire

    def count(self, name, argument, given):
        """The number of elements of an argument: as given, or of the list that is given, or room enough."""
        number, elements = given.get(name), given.get(argument["name"])
        times = argument.get("times", 1)
        if argument["direction"] == "in":
            there = len(elements) // times if hasattr(elements, "__len__") else 0
            if number is None:
                return there
            if isinstance(number, int) and number > there and elements is not None:
                raise ArgumentError(f"{number}, but {argument['name']} has {there} elements", name)
        elif number is None:
            if "filled" not in argument:
                raise ArgumentError(f"it is missing: {self.prototype()}", name)
            return argument.get("length_if_zero", ROOM)
        return number

    def room(self, argument, counts):
        length = argument["length"]
        if isinstance(length, str):
            number = counts[length.lstrip("*")]
            if not isinstance(number, int):
                raise ArgumentError("a number was expected", length.lstrip("*"))
            length = (number or argument.get("length_if_zero", 0)) * argument.get("times", 1)
        return length

    def blank(self, argument, counts):
        """What is sent for an output: nothing, as often as there is to be room for it."""
        if self.is_struct(argument):
            return {} if argument["length"] == 1 else [{} for _ in range(self.room(argument, counts))]
        is_one = argument["length"] == 1 and "count" not in self.codecs.interface.typedefs.get(argument["type"], {})
        return 0 if is_one else [0] * self.room(argument, counts)

    def left_out(self, argument, counts):
        if "id" in argument and not argument["pointer"]:
            raise ArgumentError(f"it is missing: {self.prototype()}", argument["name"])
        if argument["pointer"]:
            return self.blank(argument, counts)
        try:
            return self.codec[argument["name"]].encode(0)
        except ArgumentError:
            raise ArgumentError(f"it is missing, and cannot be 0: {self.prototype()}", argument["name"]) from None

    # The way back.

    def decode(self, answer, transport=None, printed=None):
        """The result of an answer. Raises StatusError if it is no success."""
        printed = Printed(transport, printed) if printed else None
        if self.has_status and answer[0]:
            status = status_of(self.codecs.interface, answer[0])
            name = getattr(status, "name", None)
            brief = self.codecs.interface.enum_values["vx_status_e"]["values"][name]["brief"] if name else ""
            raise of_status(name or f"status_{int(status):#x}")(status, self.name, brief, printed)
        members = {}
        for name, place, decode, filled in self.outputs:
            value = decode(answer[place])
            if filled is not None and 0 <= answer[filled] < len(value):
                value = type(value)(value[:answer[filled]])
            members[name] = value
        returned = None if self.has_status or self.said["returns"] == "void" else answer[0]
        if self.sole is None:
            return Result(members, self.name, "", None, returned, printed)
        struct = members[self.sole]
        return Result(struct, self.name, struct._type, self.sole, returned, printed)

    # For people.

    def prototype(self):
        pointer = {True: "*", False: ""}
        return f"{self.said['returns']} {self.name}(" + ", ".join(
            f"{each['type']} {pointer[each['pointer']]}{each['name']}" for each in self.said["arguments"]) + ")"

    def signature(self):
        """What inspect.signature() tells: inputs, and the members of the one struct."""
        import inspect  # which takes longer than all else to import

        kind = inspect.Parameter
        made, is_optional = [], False
        for name in self.inputs:
            argument = self.arguments[name]
            is_optional = is_optional or argument["pointer"] or name in self.counted or "id" not in argument
            made.append(kind(name, kind.POSITIONAL_OR_KEYWORD, default=None if is_optional else kind.empty))
        made += [kind(name, kind.KEYWORD_ONLY, default=None) for name in self.members if name not in self.inputs]
        return inspect.Signature(made)

    def documentation(self):
        said = self.said
        parts = [said["brief"], said["documentation"], self.prototype()]
        parts.append(f"Effect: {said['effect']}" + (f" if {said['clears_if']}" if "clears_if" in said else "") + ".")
        for title, names in (("Inputs", self.inputs), ("Outputs", [each[0] for each in self.outputs])):
            lines = [f"    {name}: {self.meaning(self.arguments[name])}" for name in names]
            parts.append("\n".join([f"{title}:", *lines]) if lines else "")
        if self.struct:
            members = self.codecs.interface.structs[self.arguments[self.struct]["type"]]["members"]
            lines = [f"    {each['name']}: {self.meaning(each)}" for each in members if each["name"] in self.members]
            parts.append("\n".join([f"Members of {self.struct}, as keywords:", *lines]))
        return "\n\n".join(filter(None, parts))

    @staticmethod
    def meaning(said):
        facts = [said["type"]] if said["type"] else []
        if "range" in said:
            facts.append("{}..{}".format(*said["range"]))
        facts += [said[key] for key in ("unit", "enum", "bits_of") if key in said and said[key] != said["type"]]
        return f"{said['brief']} ({', '.join(facts)})" if facts else said["brief"]


def status_of(interface, number):
    try:
        return interface.enums["vx_status_e"](number)
    except (KeyError, ValueError):
        return number
