"""The copyright file of the packages: all that the pages of a check and of a fleet bear stands in it, and what it does not know stops it."""

import html
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

PROJECT = pathlib.Path(__file__).resolve().parent.parent.parent
REPORT = PROJECT / "report"
PAGES = ("page.html", "fleet.html")


def run(folder, output):
    return subprocess.run([sys.executable, "-B", PROJECT / "packages/copyright.py", folder, output], capture_output=True, text=True)


class Copyright(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        self.output = self.folder / "copyright"

    def written(self):
        done = run(REPORT, self.output)
        self.assertEqual(done.returncode, 0, done.stderr)
        return self.output.read_text(encoding="utf-8")

    def stopped(self, page, fleet):
        """What it says to such pages."""
        for name, text in zip(PAGES, (page, fleet)):
            (self.folder / name).write_text(text, encoding="utf-8")
        done = run(self.folder, self.output)
        self.assertNotEqual(done.returncode, 0)
        self.assertFalse(self.output.exists())
        return done.stderr

    def test_holds_every_line_of_the_licences_in_the_pages(self):
        stanzas = self.written().split("\n\n")
        told = {line.strip() for stanza in stanzas for line in stanza.splitlines()}
        for page in PAGES:
            own = next(stanza for stanza in stanzas if stanza.startswith(f"Files: report/{page}\n"))
            text = (REPORT / page).read_text(encoding="utf-8")
            licences = html.unescape(re.search(r"<summary>Licences.*?<pre>(.*?)</pre>", text, re.S).group(1))
            lines = [line.strip() for line in licences.splitlines() if line.strip()]
            owners = [line.split(": Copyright ") for line in lines if ": Copyright " in line]
            self.assertGreater(len(owners), 10)
            for package, owner in owners:
                self.assertIn(f"\n  {owner} ({package})\n", own)
            for line in lines:
                if ": Copyright " not in line:
                    self.assertIn(line, told)

    def test_each_licence_that_files_are_under_has_its_text_once(self):
        stanzas = [dict(re.findall(r"^([A-Z][\w-]*): *(.*)$", stanza, re.M)) for stanza in self.written().split("\n\n")]
        self.assertTrue(stanzas[0]["Format"].endswith("/copyright-format/1.0/"))
        explained = [stanza["License"] for stanza in stanzas if "Files" not in stanza and "License" in stanza]
        files = [stanza for stanza in stanzas if "Files" in stanza]
        self.assertEqual([stanza["Files"] for stanza in files], ["*", "report/page.html", "report/fleet.html"])
        used = {name for stanza in files for name in stanza["License"].split(" and ")}
        self.assertEqual(sorted(used), sorted(explained))
        self.assertIn("Apache-2.0", used)
        self.assertGreater(len(used), 2)

    def test_a_licence_that_it_does_not_know_stops_it(self):
        good = (REPORT / "page.html").read_text(encoding="utf-8")
        unknown = "<pre>@observablehq/plot: Copyright 2020 Somebody\n\nDo what you like.</pre>"
        self.assertIn("Do what you like.", self.stopped(unknown, good))
        self.assertIn("Do what you like.", self.stopped(good, unknown))

    def test_two_texts_of_one_name_stop_it(self):
        made = "<pre>@observablehq/plot: Copyright 2020 Somebody\n\nPermission is hereby granted, free of charge, to any person obtaining a copy of {}.</pre>"
        self.assertIn("both be called Expat", self.stopped(made.format("this"), made.format("that")))

    def test_a_page_without_licences_stops_it(self):
        good = (REPORT / "fleet.html").read_text(encoding="utf-8")
        self.assertIn("page.html holds no licences", self.stopped("<html></html>", good))
        self.assertIn("fleet.html holds no licences", self.stopped(good, "<html></html>"))


unittest.main()
