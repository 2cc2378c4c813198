"""The links of documents in Markdown."""

import re

FENCE = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def anchors(page):
    """The names that a page's headings have as targets of links."""
    headings = re.findall(r"^#+ +(.*)$", FENCE.sub("", page.read_text(encoding="utf-8")), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", heading.strip().lower()).replace(" ", "-") for heading in headings}


def broken_links(page, tree):
    """The links and pictures of a page that lead nowhere, or out of the tree that it came with."""
    text = FENCE.sub("", page.read_text(encoding="utf-8"))
    for link in re.findall(r'\]\(([^)\s]+)\)|(?:src|srcset)="([^"]+)"', text):
        name = "".join(link)
        if re.match(r"[a-z]+:", name):
            continue
        path, _, anchor = name.partition("#")
        target = (page.parent / path).resolve() if path else page
        if not target.exists():
            yield f"there is no {name}"
        elif not target.is_relative_to(tree):
            yield f"{name} leads out of {tree}"
        elif anchor and target.suffix == ".md" and anchor not in anchors(target):
            yield f"{path or page.name} has no heading #{anchor}"
