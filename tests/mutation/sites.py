"""Finds the places of a C++ source where a mutant can be made, and writes the source that holds them all.

A site is a dict: `file`, `start` and `end` (offsets in bytes), `line`, `operator` (one of OPERATORS), and for a swapped
operator `swap`: where the operator starts, where it ends, and the other one.

Left out are macros and what the compiler works out, constexpr functions included: a switch that is thrown at run time
does nothing there.
"""
import re

from clang.cindex import CursorKind as Kind, Index, TranslationUnit, TypeKind

# In the order in which they enclose each other where they have the same text.
OPERATORS = ["statement deleted", "return negated", "condition negated", "relation", "and/or", "plus/minus",
             "constant + 1"]

SWAPS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&",
         "+": "-", "-": "+", "+=": "-=", "-=": "+="}
FUNCTIONS = {Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR, Kind.CONVERSION_FUNCTION,
             Kind.FUNCTION_TEMPLATE, Kind.LAMBDA_EXPR}
CONSTANTS = {Kind.STATIC_ASSERT, Kind.ENUM_CONSTANT_DECL, Kind.TEMPLATE_NON_TYPE_PARAMETER, Kind.CXX_UNARY_EXPR}
BODIES = {Kind.WHILE_STMT, Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.CASE_STMT, Kind.DEFAULT_STMT, Kind.LABEL_STMT}
ARITHMETIC = {TypeKind.BOOL, TypeKind.DEPENDENT, TypeKind.POINTER, TypeKind.FLOAT, TypeKind.DOUBLE} | {
    TypeKind.from_id(number) for number in range(TypeKind.CHAR_U.value, TypeKind.INT128.value + 1)}


class Finder:
    def __init__(self, path, flags, is_ours):
        """Reads a source. is_ours says of a file's name whether its sites are wanted."""
        self.is_ours, self.texts, self.sites, self.macros = is_ours, {}, [], {}
        unit = Index.create().parse(path, flags, options=TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
        errors = [str(one) for one in unit.diagnostics if one.severity >= one.Error]
        if errors:
            raise SystemExit(f"{path}: libclang cannot read it: {errors[0]}")
        for node in unit.cursor.get_children():
            file = node.location.file
            if file is None or not is_ours(file.name):
                continue
            if node.kind == Kind.MACRO_INSTANTIATION:
                self.macros.setdefault(file.name, []).append((node.extent.start.offset, node.extent.end.offset))
            elif not node.kind.is_preprocessing():
                self.visit(node, None, False)

    def text(self, node):
        name = node.extent.start.file.name
        if name not in self.texts:
            with open(name, "rb") as file:
                self.texts[name] = file.read()
        return self.texts[name]

    def add(self, node, operator, **more):
        start, end, name = node.extent.start, node.extent.end, node.extent.start.file.name
        if any(low <= start.offset and end.offset <= high for low, high in self.macros.get(name, ())):
            return
        self.sites.append({"file": name, "start": start.offset, "end": end.offset, "line": start.line,
                           "operator": operator, **more})

    def visit(self, node, parent, in_function):
        if node.extent.start.file is None or node.kind in CONSTANTS:
            return
        text, start = self.text(node), node.extent.start.offset
        children = list(node.get_children())
        if node.kind in FUNCTIONS:
            if not children or children[-1].kind != Kind.COMPOUND_STMT or re.search(
                    rb"\bconst(expr|eval)\b", text[start:children[-1].extent.start.offset]):
                return
            in_function = True
        elif node.kind == Kind.VAR_DECL and re.search(rb"\b(static|constexpr|constinit)\b",
                                                      text[start:node.location.offset]):
            return
        if in_function:
            self.look_at(node, parent, children, text)
        if node.kind == Kind.CASE_STMT:
            children = children[1:]  # the label is a constant
        if node.kind != Kind.UNEXPOSED_EXPR:
            parent = node
        for child in children:
            self.visit(child, parent, in_function)

    def look_at(self, node, parent, children, text):
        start, end = node.extent.start.offset, node.extent.end.offset
        if node.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
            self.swap(node, children[0], children[1], text)
        elif len(children) == 3 and re.fullmatch("operator(==|!=|<|>|<=|>=)", node.spelling):
            self.swap(node, children[0], children[2], text)
        elif node.kind == Kind.INTEGER_LITERAL and self.is_at_run_time(node, parent, text):
            self.add(node, "constant + 1")
        elif node.kind == Kind.RETURN_STMT and children and children[0].type.get_canonical().kind == TypeKind.BOOL:
            self.add(children[0], "return negated")
        for child in self.conditions(node, children, text[start:end]):
            self.add(child, "condition negated")
        if node.kind == Kind.COMPOUND_STMT:
            statements = children
        elif node.kind == Kind.IF_STMT:
            statements = children[1:]
        else:
            statements = children[-1:] if node.kind in BODIES else []
        for child in statements:
            # A throw is left alone: a function must not run off its end, since the compiler counts on that.
            if child.kind.is_expression() and child.kind != Kind.CXX_THROW_EXPR and re.match(
                    rb"\s*;", text[child.extent.end.offset:]):
                self.add(child, "statement deleted")

    def swap(self, node, left, right, text):
        low, high = left.extent.end.offset, right.extent.start.offset
        between = text[low:high]
        operator = between.strip().decode()
        if operator not in SWAPS:
            return
        low += len(between) - len(between.lstrip())
        if operator in ("&&", "||"):
            name = "and/or"
        elif operator[0] in "+-":
            name = "plus/minus"
            if node.type.get_canonical().kind not in ARITHMETIC:
                return
        else:
            name = "relation"
        self.add(node, name, swap=[low, low + len(operator), SWAPS[operator]])

    @staticmethod
    def conditions(node, children, text):
        if node.kind == Kind.IF_STMT and not re.match(rb"if\s+constexpr", text):
            found = [child for child in children if child.kind.is_expression() or child.kind == Kind.VAR_DECL][:1]
        elif node.kind in (Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR):
            found = children[:1]
        elif node.kind == Kind.DO_STMT:
            found = children[-1:]
        elif node.kind == Kind.FOR_STMT:
            found = [child for child in children[:-1] if child.type.get_canonical().kind == TypeKind.BOOL]
        else:
            found = []
        return [child for child in found if child.kind.is_expression()]

    @staticmethod
    def is_at_run_time(literal, parent, text):
        before = text[:literal.extent.start.offset].rstrip()[-1:]
        after = text[literal.extent.end.offset:].lstrip()[:1]
        if parent.kind in (Kind.VAR_DECL, Kind.FIELD_DECL, Kind.PARM_DECL):  # or a bound, or a template's argument
            constant = re.search(rb"\bconst\b", text[parent.extent.start.offset:literal.extent.start.offset])
            return before in (b"=", b"(", b"{") and not constant
        if parent.kind == Kind.BINARY_OPERATOR:
            return True
        return before != b"<" and after != b">" and parent.kind not in (Kind.DECL_REF_EXPR, Kind.MEMBER_REF_EXPR)


def find(path, flags, is_ours):
    """All sites of a source and of the headers that it includes."""
    return Finder(path, flags, is_ours).sites


def mutated(site, text):
    """What stands at the site, and what the mutant has instead."""
    original = text[site["start"]:site["end"]].decode()
    if "swap" in site:
        low, high, other = site["swap"]
        return original, (text[site["start"]:low] + other.encode() + text[high:site["end"]]).decode()
    if site["operator"] == "constant + 1":
        return original, f"{original} + 1"
    return original, "" if site["operator"] == "statement deleted" else f"!({original})"


def rewritten(text, sites):
    """The text of a file with these sites in it, each with its `number`. Every line keeps its number."""
    sites = sorted(sites, key=lambda site: (site["start"], -site["end"], OPERATORS.index(site["operator"])))
    return piece(text, 0, len(text), sites)


def piece(text, start, end, sites):
    out = b""
    while sites:
        site, sites = sites[0], sites[1:]
        inner = [one for one in sites if one["end"] <= site["end"]]
        sites = sites[len(inner):]
        out += text[start:site["start"]] + switched(text, site, inner)
        start = site["end"]
        if site["operator"] == "statement deleted":
            start = text.index(b";", start) + 1
    return out + text[start:end]


def switched(text, site, inner):
    start, end, test = site["start"], site["end"], b"::lmq_mutant(%d)" % site["number"]
    if "swap" in site:
        low, high, other = site["swap"]
        left = piece(text, start, low, [one for one in inner if one["end"] <= low])
        right = piece(text, high, end, [one for one in inner if one["start"] >= high])
        mutant = re.sub(rb"//[^\n]*", b"", left + other.encode() + right).replace(b"\n", b" ")
        return b"(%s ? (%s) : (%s%s%s))" % (test, mutant, left, text[low:high], right)
    whole = piece(text, start, end, inner)
    if site["operator"] == "statement deleted":
        return b"{ if (!%s) %s; }" % (test, whole)
    if site["operator"] == "constant + 1":
        return b"(%s + %s)" % (whole, test)
    return b"(%s != static_cast<bool>(%s))" % (test, whole)
