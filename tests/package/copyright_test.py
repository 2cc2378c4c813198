"""The copyright file of the packages: all that the page of a report bears stands in it, and what it does not know stops it."""

import html
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

PROJECT = pathlib.Path(__file__).resolve().parent.parent.parent
PAGE = PROJECT / "report/page.html"


def run(page, output):
    return subprocess.run([sys.executable, "-B", PROJECT / "packages/copyright.py", page, output], capture_output=True, text=True)


class Copyright(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.output = self.folder / "copyright"

    def written(self):
        done = run(PAGE, self.output)
        self.assertEqual(done.returncode, 0, done.stderr)
        return self.output.read_text(encoding="utf-8")

    def test_holds_every_line_of_the_licences_in_the_page(self):
        told = {line.strip() for line in self.written().splitlines()}
        page = html.unescape(re.search(r"<summary>Licences.*?<pre>(.*?)</pre>", PAGE.read_text(encoding="utf-8"), re.S).group(1))
        lines = [line.strip() for line in page.splitlines() if line.strip()]
        owners = [line.split(": Copyright ") for line in lines if ": Copyright " in line]
        self.assertGreater(len(owners), 10)
        for package, owner in owners:
            self.assertIn(f"{owner} ({package})", told)
        for line in lines:
            if ": Copyright " not in line:
                self.assertIn(line, told)

    def test_each_licence_that_files_are_under_has_its_text(self):
        stanzas = [dict(re.findall(r"^([A-Z][\w-]*): *(.*)$", stanza, re.M)) for stanza in self.written().split("\n\n")]
        self.assertTrue(stanzas[0]["Format"].endswith("/copyright-format/1.0/"))
        explained = {stanza["License"] for stanza in stanzas if "Files" not in stanza and "License" in stanza}
        files = [stanza for stanza in stanzas if "Files" in stanza]
        self.assertEqual([stanza["Files"] for stanza in files], ["*", "report/page.html"])
        used = {name for stanza in files for name in stanza["License"].split(" and ")}
        self.assertEqual(used, explained)
        self.assertIn("Apache-2.0", used)
        self.assertGreater(len(used), 2)

    def test_a_licence_that_it_does_not_know_stops_it(self):
        page = self.folder / "page.html"
        page.write_text("<pre>@observablehq/plot: Copyright 2020 Somebody\n\nDo what you like.</pre>", encoding="utf-8")
        done = run(page, self.output)
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("Do what you like.", done.stderr)
        self.assertFalse(self.output.exists())

    def test_a_page_without_licences_stops_it(self):
        page = self.folder / "page.html"
        page.write_text("<html></html>", encoding="utf-8")
        self.assertIn("holds no licences", run(page, self.output).stderr)


unittest.main()
