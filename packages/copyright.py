"""Writes a package's copyright file (machine-readable, format 1.0): whose the project is, and whose the programs that the
page of a report bears, with the licence texts that stand in the page.

  copyright.py PAGE.html OUTPUT
"""
import html
import pathlib
import re
import sys

KNOWN = {  # What the text of a licence says -> its short name.
    "Permission to use, copy, modify, and/or distribute this software for any purpose": "ISC",
    "Permission is hereby granted, free of charge, to any person obtaining a copy": "Expat",
}


def short_name(terms):
    names = [name for text, name in KNOWN.items() if text in " ".join(terms.split())]
    if not names:
        sys.exit(f"a licence of the page that has no short name here yet:\n{terms}")
    return "-with-".join(names)


def field(text):
    """Lines as the value of a field goes on with them."""
    return "\n".join(f" {line.rstrip()}" if line.strip() else " ." for line in text.splitlines())


def licences_of(page):
    """Of each licence of the page the short name, the copyright lines and the terms."""
    block = re.search(r"<pre>(@observablehq.*?)</pre>", page, re.S)
    if not block:
        sys.exit("the page holds no licences")
    for text in html.unescape(block.group(1)).split("\n\n\n"):
        owners, terms = text.split("\n\n", 1)
        # "name: Copyright YEARS OWNER"
        lines = [re.sub(r"^(\S+): Copyright (.*)$", r"\2 (\1)", line) for line in owners.splitlines()]
        lines += re.findall(r"^Copyright (.*)$", terms, re.M)
        yield short_name(terms), lines, terms


def main():
    page, output = map(pathlib.Path, sys.argv[1:])
    found = list(licences_of(page.read_text(encoding="utf-8")))
    owners = "\n".join(f"  {line}" for _, lines, _ in found for line in lines)
    names = " and ".join(["Apache-2.0", *(name for name, _, _ in found)])
    stanzas = [
        "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/\nUpstream-Name: PolarLinePrecision",
        "Files: *\nCopyright: The PolarLinePrecision maintainers\nLicense: Apache-2.0",
        f"Files: report/page.html\nCopyright: The PolarLinePrecision maintainers\n{owners}\nLicense: {names}\n"
        "Comment: The page of a report, which the command and the libraries bear within themselves and write. The\n"
        " programs of others are named in parentheses.",
        "License: Apache-2.0\n On Debian systems the text is in /usr/share/common-licenses/Apache-2.0.",
        *(f"License: {name}\n{field(terms)}" for name, _, terms in found)]
    output.write_text("\n\n".join(stanzas) + "\n", encoding="utf-8")


main()
