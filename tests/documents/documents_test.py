"""What scripts/check_documents and scripts/check_guide take for a fault.   documents_test.py BUILD"""

import importlib.machinery
import os
import pathlib
import sys
import tempfile
import types
import unittest

PROJECT = pathlib.Path(__file__).resolve().parent.parent.parent
BUILD = pathlib.Path(sys.argv.pop(1) if len(sys.argv) > 1 else PROJECT / "build/release").resolve()
sys.path.insert(0, str(PROJECT / "scripts"))
loader = importlib.machinery.SourceFileLoader("check_documents", str(PROJECT / "scripts/check_documents"))
documents = types.ModuleType(loader.name)
documents.__file__ = loader.path
loader.exec_module(documents)

from documents.form import faults_of_form  # noqa: E402
from documents.run import commands, is_shown  # noqa: E402
from pages import Held, Page, Saved, Usage  # noqa: E402


def told(text, page=Page()):
    with tempfile.TemporaryDirectory() as folder:
        return "\n".join(documents.Run(page, BUILD, dict(os.environ), folder).all(text))


class Blocks(unittest.TestCase):
    def test_commands_are_run_in_one_folder_in_their_order(self):
        self.assertEqual(told("```sh\n$ echo one > file\n```\n\ntext\n\n```sh\n$ cat file\none\n```\n"), "")

    def test_what_is_printed_is_what_is_shown(self):
        self.assertIn("printed:\ntwo", told("```sh\n$ echo two\none\n```\n"))
        self.assertEqual(told("```sh\n$ printf 'a\\nb\\nc\\n'\na\n...\n```\n"), "")
        self.assertFalse(is_shown(["a", "..."], ["b", "a"]))

    def test_a_command_that_fails_is_told(self):
        self.assertIn("ended with 1", told("```sh\n$ false\n```\n"))
        self.assertIn("ended with 3", told("```sh\n$ true\n```\n", Page(before="exit 3")))

    def test_commands_go_on_behind_a_backslash_and_up_to_the_end_of_a_text(self):
        block = "$ echo a \\\n  b\na b\n$ cat <<'END'\n$ no command\nEND\n$ no command\n"
        self.assertEqual([command for command, _ in commands(block)], ["echo a \\\n  b", "cat <<'END'\n$ no command\nEND", "no command"])
        self.assertEqual(commands(block)[0][1], ["a b"])
        self.assertEqual(told("```sh\n$ cat <<'END'\n$ no command\nEND\n$ echo c\nc\n```\n"), "")

    def test_a_block_of_which_nobody_knows_is_told_and_so_is_one_that_is_gone(self):
        self.assertIn("does not say what it is", told("```text\nsketch\n```\n"))
        self.assertIn("does not say what it is", told("words\n\n    sketch\n"))
        self.assertIn("no block is left", told("words", Page(blocks=(Held("tests"),))))

    def test_a_file_is_saved_and_used(self):
        page = Page(blocks=(Saved("in/a.txt", "grep -q here in/a.txt"),))
        self.assertEqual(told("    here\n    and there\n", page), "")
        self.assertIn("ended with 1", told("    nobody\n", page))

    def test_who_should_hold_it_must_be_there(self):
        self.assertIn("there is no tests/gone", told("    sketch\n", Page(blocks=(Held("tests/gone"),))))

    def test_queries_need_an_answer(self):
        before = "python3 -c \"import sqlite3; sqlite3.connect('results.sqlite').execute('CREATE TABLE sets (a)')\""
        query = "```sql\nSELECT a FROM sets;\n```\n"
        self.assertIn("without an answer", told(query, Page(before)))
        self.assertEqual(told(query, Page(before, unanswered=("SELECT a",))), "")


class Form(unittest.TestCase):
    def faults(self, command):
        return "\n".join(faults_of_form(command, BUILD))

    def test_of_what_is_there_is_no_fault(self):
        for command in ("sudo apt install ./polarline_*.deb ./libpolarlineprecision1_*.deb", "polarline check SET [--limit LIMIT]... [--json FILE]",
                        "HOSTS=hosts.txt examples/fleet/parallel.sh sets.txt results --limit 'dy_means<=0.1'", "scripts/packages --check  # --nothing",
                        "snakemake -s anything", "dpkg -l '*polarline*'"):
            self.assertEqual(self.faults(command), "", command)

    def test_what_is_not_there_is_told(self):
        cases = {"polarline check SET --limt 'a'": "'polarline' has no --limt", "polarline judge SET": "there is no 'polarline judge'",
                 "scripts/gone": "there is no scripts/gone", "scripts/packages --tri": "has no --tri",
                 "polarline merge a -o b; polarline report b --pagess c": "no --pagess",
                 "sudo apt install ./polarlin-tools_*.deb": "no package polarlin-tools"}
        for command, fault in cases.items():
            self.assertIn(fault, self.faults(command))

    def test_an_excuse_that_nothing_needs_is_told(self):
        self.assertIn("no command begins with 'sudo'", told("```sh\n$ true\n```\n", Page(not_run={"sudo": "why"})))
        self.assertEqual(told("```sh\n$ sudo false\n```\n", Page(not_run={"sudo": "why"})), "")

    def test_usage_is_held_too(self):
        self.assertIn("no --nothing", told("    polarline check SET [--nothing]\n", Page(blocks=(Usage(),))))


if __name__ == "__main__":
    unittest.main()
