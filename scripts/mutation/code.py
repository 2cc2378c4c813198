"""C++ text as clang-format leaves it, without a parser: literals, brackets, statements, and where control goes behind one."""

import re

LITERAL = r'"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'|\'\\x[0-9A-Fa-f]+\''
HIDDEN = re.compile(rf"//[^\n]*|/\*.*?\*/|{LITERAL}|^[ \t]*#(?:\\\n|[^\n])*", re.DOTALL | re.MULTILINE)
LOOPS = ("for", "while", "do")
BLOCKS = ("if", "constexpr", "else", "switch", "try", "catch", *LOOPS)


def masked(text):
    """The text with comments, literals, and preprocessor lines blanked, every other character in its place."""
    return HIDDEN.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)


def literals(text):
    """The places of the texts and characters in quotes, those of preprocessor lines left out."""
    return [match.span() for match in HIDDEN.finditer(text) if match.group()[0] in "\"'"]


def partner(mask, start, step=1):
    """The place of the bracket that closes the one at `start`, or with a step of -1 of the one that opens it."""
    depth, place = 0, start
    while 0 <= place < len(mask):
        depth += (mask[place] in "([{") - (mask[place] in ")]}")
        if depth == 0:
            return place
        place += step
    return len(mask) - 1 if step > 0 else 0


def behind_blanks(mask, place):
    return place + len(mask[place:]) - len(mask[place:].lstrip())


def statement_end(mask, place):
    """The place behind the statement that begins at `place`, without an `else` of its own."""
    place = behind_blanks(mask, place)
    if mask[place] == "{":
        return partner(mask, place) + 1
    if head := re.compile(r"(?:if|for|while|switch|catch)(?: constexpr)? \(").match(mask, place):
        return statement_end(mask, partner(mask, head.end() - 1) + 1)
    while place < len(mask) and mask[place] != ";":
        place = partner(mask, place) + 1 if mask[place] in "([{" else place + 1
    return place + 1


def block_kind(mask, opening):
    """The word that the block at `opening` belongs to; empty for one that stands alone, `void` or None for the body of a function."""
    head = mask[:opening].rstrip()
    if head.endswith((";", "{", "}", ":")):
        return ""
    if head.endswith(")"):
        head = mask[:partner(mask, len(head) - 1, -1)].rstrip()
    word = re.search(r"\w*$", head).group()
    if word in BLOCKS:
        return word
    return "void" if re.search(r"(?<!\[\[noreturn\]\] )\bvoid [\w:]+$", head) else None


def leads_on(mask, place, ends):
    """Whether control that comes to `place`, behind a statement, finds another one before the end of its function. So does the end of a
    block of one of the kinds in `ends`."""
    while place < len(mask):
        place = behind_blanks(mask, place)
        if passed_by := re.compile(r"else\b|(?=catch\b)").match(mask, place):
            place = statement_end(mask, passed_by.end())
        elif mask[place:place + 1] != "}":
            return place < len(mask)
        else:
            kind = block_kind(mask, partner(mask, place, -1))
            if kind in (*ends, "void", None):
                return kind in ends
            place += 1
    return False
