"""Finds the small ways in which a C++ source file can be broken.

Works on the text alone, with as much sense for the language as that takes: what is a comment, a
literal, a statement, a condition, an argument. A break that turns out not to compile costs a
moment and is not counted, so nothing here has to be exact. What users read, and every other text
in quotes, is left alone.
"""

import dataclasses
import itertools
import re

OPERATORS = {
    "==": "!=", "!=": "==", "<=": "<", ">=": ">", "<": "<=", ">": ">=", "&&": "||", "||": "&&",
    "+": "-", "-": "+", "*": "+", "/": "*", "%": "/", "+=": "-=", "-=": "+=", "|": "&", "&": "|",
    "|=": "&=", "&=": "|=",
}  # fmt: skip
OPERATOR = re.compile(r"(?<= )(?:[=!<>+\-|&]=|&&|\|\||[<>+\-*/%|&])(?=[ \n])")
SIGN = re.compile(r"(?<![=!<>\w])!(?![=!])|\+\+|--")
SIGNS = {"!": "", "++": "--", "--": "++"}
NUMBER = re.compile(r"(?<![\w.'])((?:0[xX][0-9a-fA-F]+|\d[\d']*))([uUlL]*)(?![\w.'])")

# What a name stands for is changed to its nearest relative; other constants change to one of the
# same family (the same beginning or the same enumeration) that the file mentions.
CONSTANTS = {
    "true": "false", "false": "true", "TRUE": "FALSE", "FALSE": "TRUE", "INFINITE": "0",
    "HKEY_LOCAL_MACHINE": "HKEY_CURRENT_USER", "HKEY_CURRENT_USER": "HKEY_LOCAL_MACHINE",
    "KEY_WOW64_64KEY": "KEY_WOW64_32KEY", "KEY_WOW64_32KEY": "KEY_WOW64_64KEY",
    "IDOK": "IDCANCEL", "IDCANCEL": "IDOK", "ERROR_SUCCESS": "ERROR_INVALID_FUNCTION",
    "WAIT_OBJECT_0": "WAIT_TIMEOUT", "SW_SHOWNORMAL": "SW_HIDE", "SW_SHOW": "SW_HIDE",
}  # fmt: skip
WORD = re.compile(r"\b(?:true|false|[A-Z][A-Z0-9]+(?:_[A-Z0-9]+)*)\b(?!\()")
ENUMERATOR = re.compile(r"\b[A-Z]\w*::[A-Z]\w*\b(?![\w:({<])")
FLAG = r"(?:\w+::)*[A-Z][A-Z0-9]*_[A-Z0-9_]+"
FLAGS = re.compile(rf"\b{FLAG}(?:\s*\|\s*{FLAG})+\b")

CONDITION = re.compile(r"\b(if|while|for)\s*(?:constexpr\s*)?(?=\()")
CALL = re.compile(r"\b[A-Za-z_]\w*(?:<[^<>();]*>)?(?=\()")
NO_CALL = {"if", "for", "while", "switch", "catch", "return", "sizeof", "decltype", "alignof"}

# What begins a statement that holds others, or none of its own.
HEADER = re.compile(r"(?:if|for|while|switch)\b\s*(?:constexpr\s*)?(?=\()")
LABEL = re.compile(r"(?:else|do)\b|(?:case\b[^;{}]*?|default\s*)(?<!:):(?!:)")
JUMP = re.compile(r"(?:return|break|continue)\b")
PLAIN_ASSIGNMENT = re.compile(r"([\w.]+) = ([^()=]+);$")
DECLARATION = re.compile(
    r"(?:const|constexpr|static|auto|using|typedef|struct|class|enum)\b"
    r"|(?!return\b|delete\b|throw\b)[A-Za-z_][\w:]*(?:<[^;]*>)?(?:[ *&]+)[A-Za-z_]\w*\s*(?:[;={(\[,]|$)"
)
# A brace after these opens a body; after anything else an initialiser, a class or a namespace.
BODY = re.compile(r"(?:[)}]|\)\s*(?:const|mutable|noexcept|override|->[\w:<>\s*&]+))\s*$")
GUARD = re.compile(r"\belse\s*$")
CLOSING = {"(": ")", "[": "]", "{": "}"}

HIDDEN = re.compile(
    r"""
      (?P<comment> //[^\n]* | /\*.*?\*/ | ^[ \t]*\#(?:\\\n|[^\n])* )
    | (?P<literal> R"(?P<mark>\w*)\(.*?\)(?P=mark)" | "(?:\\.|[^"\\\n])*"
                 | (?<![0-9a-zA-Z])'(?:\\.|[^'\\\n])+' )
    """,
    re.VERBOSE | re.MULTILINE | re.DOTALL,
)


@dataclasses.dataclass(frozen=True)
class Break:
    """One change of one file: the characters from `start` to `end` become `after`."""

    file: str  # below the project's folder
    kind: str
    start: int
    end: int
    before: str
    after: str
    line: int  # where the change begins, counted from 1
    text: str  # that line without the space around it

    @property
    def change(self):
        """The break in one line that stays true when lines above it come and go."""
        return f"{squeezed(self.text)} | {squeezed(self.before)} -> {squeezed(self.after)}"

    def applied_to(self, source):
        return source[: self.start] + self.after + source[self.end :]


def squeezed(text):
    return " ".join(text.split())


def find_breaks(file, source):
    """Every break of a file, in the order of its text."""
    shown = without_hidden(source)
    bodies = list(find_bodies(shown))
    changes = set()
    for kind, found in (
        ("operator", changed_operators(shown)),
        ("constant", changed_constants(shown)),
        ("flag removed", removed_flags(shown)),
        ("condition negated", negated_conditions(shown)),
        ("arguments swapped", swapped_arguments(shown, bodies)),
        ("statement dropped", dropped_statements(shown, bodies)),
        ("statements swapped", swapped_statements(shown, bodies)),
    ):
        # `after` may name stretches of the file, so that texts come along with what holds them.
        changes.update(
            (start, end, "".join(part if isinstance(part, str) else source[slice(*part)] for part in after), kind)
            for start, end, *after in found
        )
    breaks, taken = [], set()
    for start, end, after, kind in sorted(changes):
        before = source[start:end]
        if before != after and (start, end, after) not in taken:
            taken.add((start, end, after))
            line_start = source.rfind("\n", 0, start) + 1
            line_end = source.find("\n", start)
            breaks.append(
                Break(file, kind, start, end, before, after, source.count("\n", 0, start) + 1,
                      source[line_start : line_end if line_end >= 0 else None].strip())
            )  # fmt: skip
    return breaks


def without_hidden(source):
    """The text with every comment, preprocessor line and literal painted over, offsets kept."""

    def paint(match):
        if match["comment"] is not None:
            return re.sub(r"[^\n]", " ", match[0])
        return '"' + re.sub(r"[^\n]", "~", match[0][1:-1]) + '"'

    return HIDDEN.sub(paint, source)


def closing(shown, opening):
    """Where the bracket at `opening` is closed."""
    depth = 0
    for position in range(opening, len(shown)):
        if shown[position] in "([{":
            depth += 1
        elif shown[position] in ")]}":
            depth -= 1
            if depth == 0:
                return position
    return len(shown) - 1


def split_outside_brackets(shown, start, end, separator):
    """The stretches between separators that stand in no brackets, without the space around."""
    parts, begin, position = [], start, start
    while position < end:
        if shown[position] in CLOSING:
            position = closing(shown, position)
        elif shown[position] == separator:
            parts.append((begin, position))
            begin = position + 1
        position += 1
    parts.append((begin, end))
    return [trimmed(shown, *part) for part in parts]


def trimmed(shown, start, end):
    text = shown[start:end]
    return start + len(text) - len(text.lstrip()), end - len(text) + len(text.rstrip())


@dataclasses.dataclass
class Body:
    """What stands between two braces of code: its own plain statements, each with its semicolon."""

    start: int
    end: int
    guarded: bool  # runs under a condition
    statements: list


def find_bodies(shown):
    """The bodies of all functions, and those within them."""
    position = 0
    while (opening := shown.find("{", position)) >= 0:
        position = opening + 1
        if BODY.search(shown, max(0, opening - 80), opening):
            position = closing(shown, opening)
            yield from read_body(shown, opening + 1, position, guarded=False)


def read_body(shown, start, end, guarded):
    body, position, under_condition = Body(start, end, guarded, []), start, False
    yield body
    while position < end:
        if shown[position].isspace() or shown[position] == ";":
            position += 1
        elif shown[position] == "{":
            last = closing(shown, position)
            yield from read_body(shown, position + 1, last, under_condition)
            position, under_condition = last + 1, False
        elif header := HEADER.match(shown, position, end):
            under_condition = header[0].startswith("if")
            position = closing(shown, header.end()) + 1
        elif label := LABEL.match(shown, position, end):
            under_condition = label[0] == "else"
            position = label.end()
        else:
            statement_end = position
            while statement_end < end and shown[statement_end] != ";":
                if shown[statement_end] in CLOSING:
                    last = min(closing(shown, statement_end), end)
                    if shown[statement_end] == "{" and BODY.search(shown, position, statement_end):
                        yield from read_body(shown, statement_end + 1, last, False)
                    elif shown[statement_end] == "(":
                        yield from find_bodies_between(shown, statement_end + 1, last)
                    statement_end = last
                statement_end += 1
            body.statements.append((position, min(statement_end + 1, end)))
            position = statement_end + 1


def find_bodies_between(shown, start, end):
    """The bodies of functions that are written as arguments."""
    while 0 <= (opening := shown.find("{", start, end)):
        start = opening + 1
        if BODY.search(shown, max(0, opening - 80), opening):
            start = closing(shown, opening)
            yield from read_body(shown, opening + 1, start, guarded=False)


def changed_operators(shown):
    flags = [match.span() for match in FLAGS.finditer(shown)]
    for match in OPERATOR.finditer(shown):
        if match[0] in OPERATORS and not any(a <= match.start() < b for a, b in flags):
            yield *match.span(), OPERATORS[match[0]]
    for match in SIGN.finditer(shown):
        yield *match.span(), SIGNS[match[0]]


def changed_constants(shown):
    for match in NUMBER.finditer(shown):
        yield *match.span(), f"({match[0]} + 1)"
    for pattern, family in ((WORD, lambda name: name.split("_")[0] + "_"),
                            (ENUMERATOR, lambda name: name.split("::")[0] + "::")):  # fmt: skip
        names = sorted({match[0] for match in pattern.finditer(shown)})
        for match in pattern.finditer(shown):
            relatives = [name for name in names if name.startswith(family(match[0]))]
            if match[0] in CONSTANTS:
                yield *match.span(), CONSTANTS[match[0]]
            elif len(relatives) > 1:
                after = relatives.index(match[0]) + 1 if match[0] in relatives else 0
                yield *match.span(), relatives[after % len(relatives)]


def removed_flags(shown):
    for match in FLAGS.finditer(shown):
        flags = re.split(r"\s*\|\s*", match[0])
        for index in range(len(flags)):
            yield *match.span(), " | ".join(flags[:index] + flags[index + 1 :])


def negated_conditions(shown):
    for match in CONDITION.finditer(shown):
        parts = split_outside_brackets(shown, match.end() + 1, closing(shown, match.end()), ";")
        if match[1] == "for" and len(parts) != 3:
            continue
        start, end = parts[1] if match[1] == "for" else parts[-1]
        condition = shown[start:end]
        # Where the one operator of a condition is turned round, negating would do the same.
        single = "&&" not in condition and "||" not in condition
        if condition and not (single and re.search(r" [=!]= |^!", condition)):
            yield start, end, "!(", (start, end), ")"


def swapped_arguments(shown, bodies):
    for match in CALL.finditer(shown):
        if match[0] in NO_CALL or not any(body.start <= match.start() < body.end for body in bodies):
            continue
        arguments = split_outside_brackets(shown, match.end() + 1, closing(shown, match.end()), ",")
        for first, second in itertools.pairwise(arguments):
            yield first[0], second[1], second, (first[1], second[0]), first


def dropped_statements(shown, bodies):
    for body in bodies:
        for index, (start, end) in enumerate(body.statements):
            text = shown[start:end]
            if DECLARATION.match(text):
                continue
            # The return at a function's end is not missed but missing: no such program is written.
            if text.startswith("return") and not (body.guarded and index == len(body.statements) - 1):
                continue
            yield start, end, ";"


def swapped_statements(shown, bodies):
    for body in bodies:
        for first, second in itertools.pairwise(body.statements):
            between = shown[first[1] : second[0]]
            if (
                between.isspace()
                and not independent(shown[slice(*first)], shown[slice(*second)])
                and not any(DECLARATION.match(shown, start) or JUMP.match(shown, start) for start, _ in (first, second))
            ):
                yield first[0], second[1], second, (first[1], second[0]), first


def independent(first, second):
    """Whether two statements only assign, neither what the other one reads or assigns."""
    pair = [PLAIN_ASSIGNMENT.match(statement) for statement in (first, second)]
    return all(pair) and pair[0][1] not in second and pair[1][1] not in first
