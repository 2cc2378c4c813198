"""Links of documents: what leads nowhere, or out of what the document came with, is told."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

PROJECT = pathlib.Path(__file__).resolve().parent.parent.parent

PAGE = """# The page

[there](other.md), [its heading](other.md#to-be-found-1-2), [own](#the-page), [net](https://example.invalid/nothing), ![picture](picture.png)

```sh
$ echo '[no link](within_a_command.md)'
```
"""


class Links(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.tree = pathlib.Path(folder.name).resolve() / "tree"
        self.tree.mkdir()
        (self.tree / "other.md").write_text("## To be found: `1`, 2\n", encoding="utf-8")
        (self.tree / "picture.png").touch()
        (self.tree.parent / "beyond.md").touch()

    def told(self, text):
        (self.tree / "page.md").write_text(text, encoding="utf-8")
        done = subprocess.run([sys.executable, "-B", PROJECT / "scripts/check_links", self.tree], capture_output=True, text=True, check=False)
        self.assertEqual(done.returncode != 0, done.stderr != "")
        return done.stderr

    def test_links_that_hold_are_no_fault(self):
        self.assertEqual(self.told(PAGE), "")

    def test_what_leads_nowhere_is_told(self):
        cases = {"[gone](gone.md)": "page.md: there is no gone.md", "![gone](gone.png)": "there is no gone.png",
                 '<img src="gone.svg">': "there is no gone.svg", '<source srcset="gone.svg">': "there is no gone.svg",
                 "[heading](other.md#gone)": "other.md has no heading #gone", "[heading](#gone)": "page.md has no heading #gone",
                 "[out](../beyond.md)": "../beyond.md leads out of"}
        for link, fault in cases.items():
            with self.subTest(link):
                self.assertIn(fault, self.told(PAGE + link))

    def test_a_folder_without_documents_is_no_proof(self):
        (self.tree / "other.md").unlink()
        done = subprocess.run([sys.executable, "-B", PROJECT / "scripts/check_links", self.tree], capture_output=True, text=True, check=False)
        self.assertIn("no document", done.stderr)


unittest.main()
