"""Writes a package's copyright file (machine-readable, format 1.0): whose the project is, and whose the programs that the
pages of a check and of a fleet bear, with the licence texts that stand in these.

  copyright.py REPORT_FOLDER OUTPUT
"""
import html
import pathlib
import re
import sys

PAGES = {"page.html": "check", "fleet.html": "fleet"}
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
    """Of each licence of a page the short name, the copyright lines and the terms."""
    block = re.search(r"<pre>(@observablehq.*?)</pre>", page.read_text(encoding="utf-8"), re.S)
    if not block:
        sys.exit(f"{page.name} holds no licences")
    for text in html.unescape(block.group(1)).split("\n\n\n"):
        owners, terms = text.split("\n\n", 1)
        # "name: Copyright YEARS OWNER"
        lines = [re.sub(r"^(\S+): Copyright (.*)$", r"\2 (\1)", line) for line in owners.splitlines()]
        lines += re.findall(r"^Copyright (.*)$", terms, re.M)
        yield short_name(terms), lines, terms


def files_of(page, found):
    """The paragraph on a page."""
    owners = "\n".join(f"  {line}" for _, lines, _ in found for line in lines)
    names = " and ".join(["Apache-2.0", *dict.fromkeys(name for name, _, _ in found)])
    return (f"Files: report/{page}\nCopyright: The PolarLinePrecision maintainers\n{owners}\nLicense: {names}\n"
            f"Comment: The page of a {PAGES[page]}, which the command and the libraries bear within themselves and write. The\n"
            " programs of others are named in parentheses.")


def texts_of(found):
    """The paragraphs with the licences' terms, each once."""
    terms_of = {}
    for name, _, terms in found:
        if terms_of.setdefault(name, terms) != terms:
            sys.exit(f"two licences that would both be called {name}:\n{terms_of[name]}\n\n{terms}")
    return [f"License: {name}\n{field(terms)}" for name, terms in terms_of.items()]


def main():
    folder, output = map(pathlib.Path, sys.argv[1:])
    found = {page: list(licences_of(folder / page)) for page in PAGES}
    stanzas = [
        "Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/\nUpstream-Name: PolarLinePrecision",
        "Files: *\nCopyright: The PolarLinePrecision maintainers\nLicense: Apache-2.0",
        *(files_of(page, licences) for page, licences in found.items()),
        "License: Apache-2.0\n On Debian systems the text is in /usr/share/common-licenses/Apache-2.0.",
        *texts_of([licence for licences in found.values() for licence in licences])]
    output.write_text("\n\n".join(stanzas) + "\n", encoding="utf-8")


main()
