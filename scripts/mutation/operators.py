"""The small changes: each operator finds the places in a text that it changes, and what it writes there."""

import re

from mutation.code import LOOPS, leads_on, literals, masked, partner, statement_end
from mutation.families import ENUM

# Operators on the text as clang-format leaves it: binary operators stand between blanks, templates do not.
SWAPS = {
    "limit": {" < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > "},
    "equality": {" == ": " != ", " != ": " == "},
    "arithmetic": {" + ": " - ", " - ": " + ", " * ": " / ", " / ": " * ", " += ": " -= ", " -= ": " += "},
    "logic": {" && ": " || ", " || ": " && "},
    "truth": {"true": "false", "false": "true"},
    "step": {"++": "--", "--": "++"},
    "precision": {"float": "double"},
    "axis": {".x": ".y", ".y": ".x"},
    "extreme": {"std::min": "std::max", "std::max": "std::min", ".front()": ".back()", ".back()": ".front()"},
}
NUMBER = re.compile(r"(?<![\w.])(0[xX][0-9A-Fa-f]+|\d+\.\d*(?:e[-+]?\d+)?|\d+e[-+]?\d+|\d+)([FUuLl]*)(?![\w.])")
# Sizes of windows with a pixel in their middle: an even one would only be refused.
ODD_SIZES = [
    re.compile(r"\bcv::GaussianBlur\([^;]*?(?:cv::Size\(|\{)(\d+), (\d+)[)}]"),
    re.compile(r"\bcv::(?:medianBlur|adaptiveThreshold)\([^;]*?, (\d+)(?:, [\d.]+)?\);"),
    re.compile(r"\bk\w*(?:Block|Kernel|Aperture|Smoothing|ZernikeSize) = (\d+);"),
]
STATEMENT = re.compile(r"(?:[\w:.\[\]]|->|\(\))+(?: [-+*/|&]?= |\(|$).*|(?:\+\+|--)[\w.]+|[\w.]+(?:\+\+|--)", re.DOTALL)
EXIT = re.compile(r"\b(?:return|throw|break|continue)\b")
NO_STATEMENT = re.compile(rf"(?:{EXIT.pattern}|if|else|for|while|switch|case|default|using|namespace|static_assert|struct|class|enum)\b")
# An escape, a place for a value, or any other character.
PIECE = re.compile(r"\\(?:x[0-9A-Fa-f]+|[0-7]{1,3}|.)|%[-+#0-9.]*[hljzt]*[a-zA-Z%]|.", re.DOTALL)
NO_TEXT = re.compile(r'(?:extern|static_assert\(.*,|\[\[\w+\() *$')


def swapped(mask):
    for operator, pairs in SWAPS.items():
        for old, new in pairs.items():
            left = r"(?<!\w)" if old[0].isalpha() or old == "float" else ""
            right = r"(?!\w)" if old[-1].isalnum() else ""
            for match in re.finditer(left + re.escape(old) + right, mask):
                yield match.start(), match.end(), operator, new


def changed_number(digits, step):
    if digits[:2] in ("0x", "0X"):
        return hex(int(digits, 16) + step)
    if digits.isdigit():
        return str(int(digits) + (-1 if digits == "255" else step))  # A colour of 256 would be one of 255.
    value = float(digits)
    return repr(float(f"{value * 1.2:.6g}") if value else 0.1)


def changed_numbers(mask):
    odd = {match.start(k) for size in ODD_SIZES for match in size.finditer(mask) for k in range(1, size.groups + 1)}
    for match in NUMBER.finditer(mask):
        is_odd = match.start() in odd
        yield match.start(), match.end(), "odd size" if is_odd else "number", changed_number(match[1], 2 if is_odd else 1) + match[2]


def negated_conditions(mask, text):
    for match in re.finditer(r"\bif \(", mask):
        start, end = match.end(), partner(mask, match.end() - 1)
        yield start, end, "condition", f"!({text[start:end]})"


def dropped_statements(mask):
    """Assignments and calls that stand for themselves, also behind an `if (...)` or `else`."""
    for match in re.finditer(r"(?<=[;{}])\s*([^;{}]*?);", mask):
        start, end = match.span(1)
        while head := re.match(r"(?:if|else if|for|while) \(|else ", mask[start:end]):
            start += head.end()
            if head.group().endswith("("):
                start = partner(mask, start - 1) + 1
            start += len(mask[start:end]) - len(mask[start:end].lstrip())
        statement = mask[start:end]
        balanced = statement.count("(") == statement.count(")")  # Else it is a part of the head of a loop.
        if balanced and STATEMENT.fullmatch(statement) and not NO_STATEMENT.match(statement):
            yield start, end, "statement", ""


def dropped_exits(mask):
    """Returns and their kin where control then comes to another statement. A function's last return stays: without it the function
    would have no value."""
    for match in EXIT.finditer(mask):
        end = statement_end(mask, match.start())
        # Behind the end of a loop stands its next turn, behind that of a function without a value the caller.
        ends = {"return;": LOOPS, "break;": LOOPS}.get(mask[match.start():end], ["void"] if match.group() == "throw" else [])
        if leads_on(mask, end, ends):
            yield match.start(), end - 1, "exit", ""


def other_character(character):
    if character.isalnum() and character.isascii():
        return {"z": "a", "Z": "A", "9": "0"}.get(character, chr(ord(character) + 1))
    return "-" if character == "~" else "~"


def changed_texts(text):
    """One character of each literal, the middle one of its letters and digits. What stands for a value stays, as another kind of
    value would be undefined."""
    for start, end in literals(text):
        pieces = PIECE.findall(text[start + 1:end - 1])
        words = [k for k, piece in enumerate(pieces) if piece.isalnum()]
        choice = words or [k for k, piece in enumerate(pieces) if len(piece) == 1 or piece[0] != "%"]
        line_start = text.rfind("\n", 0, start) + 1
        if (pieces and not choice) or NO_TEXT.search(text[line_start:start]):
            continue
        middle = choice[len(choice) // 2] if pieces else 0
        pieces[middle:middle + 1] = [other_character(pieces[middle]) if pieces else "~"]
        yield start, end, "text", text[start] + "".join(pieces) + text[end - 1]


def changed_constants(mask, families):
    """Names of constants: each becomes the next one of its family."""
    following = {name: (family + family)[k + 1] for family in families for k, name in enumerate(family)}
    uses = ENUM.sub(lambda match: " " * len(match.group()), mask)
    for match in re.finditer(r"(?<![\w:])[A-Za-z_][\w:]*\b(?! = |\{)", uses):
        # A name may be written with more of its namespaces than the family's table has, or with fewer.
        old = next((name for name in suffixes(match.group()) if name in following), None)
        if old:
            yield match.end() - len(old), match.end(), "constant", following[old]


def suffixes(name):
    parts = name.split("::")
    return ["::".join(parts[k:]) for k in range(len(parts))]


def mutants(text, families):
    """Start, end, operator and new text of every change."""
    mask = masked(text)
    found = [*swapped(mask), *changed_numbers(mask), *negated_conditions(mask, text), *dropped_statements(mask), *dropped_exits(mask),
             *changed_texts(text), *changed_constants(mask, families)]
    for start, end, operator, new in found:
        line = text[text.rfind("\n", 0, start) + 1:text.find("\n", start)]
        if ".reserve(" not in line:  # Room that is set aside changes nothing that could be seen.
            yield start, end, operator, new
