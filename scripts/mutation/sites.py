"""Finds what can be changed in C++ source: operators and constants, with what takes their place.

Left alone are comments, preprocessor lines, static_assert, texts that are only words, the signs of types
(`const T&`, `vector<T>`) and `= 0` of pure virtual functions. The signs are told from operators by the blanks that
clang-format puts around binary operators alone.
"""
import dataclasses
import re

_TOKENS = re.compile(
    r"""
    (?P<comment>//(?:\\\n|[^\n])*|/\*.*?\*/)
  | (?P<directive>^[ \t]*\#(?:\\\n|/\*.*?\*/|[^\n])*)
  | (?P<raw>(?:u8|[uUL])?R"(?P<delimiter>[^()\s]*)\(.*?\)(?P=delimiter)")
  | (?P<string>(?:u8|[uUL])?"(?:\\.|[^"\\\n])*")
  | (?P<character>(?:u8|[uUL])?'(?:\\.|[^'\\\n])+')
  | (?P<number>\.?\d(?:[eEpP][+-]|'?[\w.])*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<sign><=>|<<=|>>=|\.\.\.|->\*?|::|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|\S)
    """,
    re.X | re.M | re.S,
)

# Operators that have a blank on both sides when they are binary.
_BINARY = {
    "==": ["!="],
    "!=": ["=="],
    "<": ["<=", ">="],
    "<=": ["<", ">"],
    ">": [">=", "<="],
    ">=": [">", "<"],
    "&&": ["||"],
    "||": ["&&"],
    "&": ["|"],
    "|": ["&"],
    "^": ["&"],
    "<<": [">>"],
    ">>": ["<<"],
    "+": ["-"],
    "-": ["+"],
    "*": ["/"],
    "/": ["*"],
    "%": ["/"],
    "+=": ["-="],
    "-=": ["+="],
    "*=": ["/="],
    "/=": ["*="],
    "%=": ["/="],
    "&=": ["|="],
    "|=": ["&="],
    "^=": ["&="],
    "<<=": [">>="],
    ">>=": ["<<="],
}
_STEPS = {"++": ["--"], "--": ["++"]}
_PREFIXES = ("!", "-", "~")
_ONLY_WORDS = re.compile(r"(?:[A-Za-z0-9]+(?:(?:[ ,;:()'-]+|[.!?]+ )[A-Za-z0-9]+)*)?[ ,.!?:)]*")
_ESCAPE_OR_CHARACTER = re.compile(r"\\(?:x[0-9A-Fa-f]+|[0-7]{1,3}|u[0-9A-Fa-f]{4}|.)|.", re.S)
_ESCAPES = {r"\n": r"\r", r"\r": r"\n", r"\0": r"\1", r"\\": "/", r"\t": " ", r"\'": '"'}
_INTEGER = re.compile(r"(0[xX][0-9A-Fa-f']+|0[bB][01']+|[0-9][0-9']*)([uUlLzZ]*)")
_FLOAT = re.compile(r"([0-9']*\.?[0-9']*(?:[eE][+-]?\d+)?)([fFlL]?)")


@dataclasses.dataclass(frozen=True)
class Site:
    """A place that can be changed. `start` and `end` count characters of the source, `line` and `column` from 1."""

    start: int
    end: int
    line: int
    column: int
    old: str
    replacements: tuple

    def changed(self, source, new):
        return source[: self.start] + new + source[self.end :]


def find_sites(source):
    """Returns the sites of a source, in their order."""
    code = [t for t in _TOKENS.finditer(source) if t.lastgroup not in ("comment", "directive")]
    sites = []
    skipped_to = 0
    for index, token in enumerate(code):
        if token.start() < skipped_to:
            continue
        if token.group() == "static_assert":
            skipped_to = _end_of_statement(code, index)
            continue
        replacements = _replacements(source, code, index)
        if replacements:
            line = source.count("\n", 0, token.start()) + 1
            column = token.start() - source.rfind("\n", 0, token.start())
            sites.append(Site(token.start(), token.end(), line, column, token.group(), tuple(replacements)))
    return sites


def _end_of_statement(code, index):
    for token in code[index:]:
        if token.group() == ";":
            return token.end()
    return code[-1].end()


def _replacements(source, code, index):
    token = code[index]
    text = token.group()
    before = code[index - 1].group() if index else ""
    kind = token.lastgroup
    if kind == "number":
        return [] if _is_pure_virtual(code, index) else _other_numbers(text)
    if kind == "character":
        return _other_characters(text)
    if kind == "string":
        return _other_texts(text)
    if kind == "word":
        return {"true": ["false"], "false": ["true"]}.get(text, [])
    if kind != "sign" or before == "operator":
        return []
    if text in _STEPS:
        return _STEPS[text]
    blank_before = source[token.start() - 1].isspace()
    blank_behind = source[token.end() : token.end() + 1].isspace()
    if text in _BINARY and blank_before and blank_behind and before != "template":
        return _BINARY[text]
    if text in _PREFIXES and not blank_behind and (blank_before or before in ("(", "[", "{", "!", "*")):
        is_destructor = text == "~" and re.match(r"\w+\(\)", source[token.end() :])
        return [] if is_destructor else [""]
    return []


def _is_pure_virtual(code, index):
    around = [t.group() for t in code[max(index - 2, 0) : index + 2]]
    return len(around) == 4 and around[1:] == ["=", "0", ";"] and around[0] in (")", "const", "noexcept", "override")


def _other_numbers(text):
    integer = _INTEGER.fullmatch(text)
    if integer:
        digits, suffix = integer[1].replace("'", ""), integer[2]
        base = {"x": 16, "b": 2}.get(digits[1:2].lower(), 10)
        value = int(digits, base)
        others = [value + 1] + ([value - 1] if value > 0 else [])
        if base == 16:
            return [f"0x{other:0{len(digits) - 2}X}{suffix}" for other in others]
        return [f"{other:#b}{suffix}" if base == 2 else f"{other}{suffix}" for other in others]
    number = _FLOAT.fullmatch(text)
    if number:
        value = float(number[1].replace("'", ""))
        return [f"{other!r}{number[2]}" for other in (value + 1, value * 2, value / 2) if other != value]
    return []


def _other_characters(text):
    prefix, content = re.fullmatch(r"(.*?)'(.*)'", text, re.S).groups()
    if content in _ESCAPES:
        return [f"{prefix}'{_ESCAPES[content]}'"]
    if len(content) == 1 and content not in "&[~":
        return [f"{prefix}'{chr(ord(content) + 1)}'"]
    if content in ("&", "[", "~"):  # the next ones are a quote, a backslash and no letter at all
        return [f"{prefix}'{chr(ord(content) - 1)}'"]
    escape = re.fullmatch(r"\\x([0-9A-Fa-f]+)", content)
    return [f"{prefix}'\\x{int(escape[1], 16) ^ 1:0{len(escape[1])}X}'"] if escape else []


def _other_texts(text):
    """One of the signs is left out, each in turn."""
    prefix, content = re.fullmatch(r'(.*?)"(.*)"', text, re.S).groups()
    if _ONLY_WORDS.fullmatch(content):
        return []
    units = _ESCAPE_OR_CHARACTER.findall(content)
    others = []
    for index, unit in enumerate(units):
        if not (unit.isalnum() or unit == " "):
            others.append(f'{prefix}"{"".join(units[:index] + units[index + 1 :])}"')
    return others
