"""Judges mutants: compiles each alone, links it before the archives of the original, and runs the tests."""

import hashlib
import json
import os
import resource
import shlex
import shutil
import subprocess
import sys
import threading
from pathlib import Path

from mutation.sources import BUILD, LATE, SOURCE, WORK, own_filter, programs_of


def allow(seconds):
    resource.setrlimit(resource.RLIMIT_CPU, (int(seconds), int(seconds) + 1))
    resource.setrlimit(resource.RLIMIT_AS, (6 << 30, 6 << 30))
    resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 32, 1 << 32))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


class Bench:
    """A folder of its own to work in."""

    commands = {}
    links = {}
    limits = {}
    lock = threading.Lock()

    def __init__(self, number):
        self.folder = WORK / f"bench{number}"
        shutil.rmtree(self.folder, ignore_errors=True)
        (self.folder / "tmp").mkdir(parents=True)
        self.originals = {}

    @classmethod
    def learn(cls, programs):
        """How the build compiles and links."""
        for entry in json.loads((BUILD / "compile_commands.json").read_text()):
            words = shlex.split(entry["command"])
            compiler = next(i for i, word in enumerate(words) if Path(word).name in ("c++", "g++", "clang++"))
            cls.commands[str(Path(entry["file"]).relative_to(SOURCE))] = words[compiler:]
        for program in programs:
            lines = subprocess.run(["ninja", "-t", "commands", "tests/test_" + program], cwd=BUILD, check=True, capture_output=True, text=True)
            cls.links[program] = shlex.split(lines.stdout.splitlines()[-1].replace(": &&", "").replace("&& :", ""))

    def compile(self, name, text):
        """The object's hash and the functions it defines; the hash is None where the text is no program. The source always has the same
        path, as objects may hold it."""
        source, target = self.folder / Path(name).name, self.folder / "mutant.o"
        source.write_text(text)
        words = list(self.commands[name])
        words[words.index("-o") + 1] = str(target)
        words[words.index("-c") + 1] = str(source)
        # The assertions stand for what the debug and the sanitizer build would notice.
        if subprocess.run([*words, "-w", "-UNDEBUG", "-D_DEBUG", "-D_GLIBCXX_ASSERTIONS"], cwd=BUILD, capture_output=True).returncode != 0:
            return None, set()
        symbols = subprocess.run(["nm", "--defined-only", "-g", str(target)], check=True, capture_output=True, text=True)
        functions = {line.split()[-1] for line in symbols.stdout.splitlines() if line.split()[-2] in "TDBR"}
        return hashlib.sha256(target.read_bytes()).hexdigest(), functions

    def link(self, program):
        words = list(self.links[program])
        words[words.index("-o") + 1] = str(self.folder / "program")
        words.insert(1, str(self.folder / "mutant.o"))
        subprocess.run(words, cwd=BUILD, check=True, capture_output=True)

    def execute(self, program, choice, seconds):
        """Whether the tests pass, and the processor time they took."""
        environment = dict(os.environ, TMPDIR=str(self.folder / "tmp"), OPENCV_FOR_THREADS_NUM="1")
        arguments = [str(program), "--gtest_fail_fast", "--gtest_brief=1", "--gtest_filter=" + choice]
        process = subprocess.Popen(arguments, cwd=self.folder / "tmp", env=environment, preexec_fn=lambda: allow(seconds),
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        shutil.rmtree(self.folder / "tmp", ignore_errors=True)
        (self.folder / "tmp").mkdir()
        return process.returncode == 0, usage.ru_utime + usage.ru_stime

    def limit_of(self, program, choice):
        """Five times what the unchanged tests need."""
        with self.lock:
            if (program, choice) not in self.limits:
                passed, seconds = self.execute(BUILD / f"tests/test_{program}", choice, 3600)
                if not passed:
                    sys.exit(f"test_{program} --gtest_filter={choice} fails without any change")
                self.limits[program, choice] = 5 * seconds + 5
            return self.limits[program, choice]

    def run_tests(self, name, late):
        """The verdict and the stage that spoke it."""
        nearest, *others = programs_of(name)
        own = own_filter(name)
        stages = [(nearest, own, "own test"), (nearest, "-" + own, "test_" + nearest)] if own else [(nearest, "*", "test_" + nearest)]
        stages += [(program, "*", "test_" + program) for program in others]
        for program, choice, stage in stages:
            if (program in LATE) != late:
                continue
            self.link(program)
            passed, seconds = self.execute(self.folder / "program", choice, limit := self.limit_of(program, choice))
            if not passed:
                return ("timeout" if seconds >= limit - 1 else "caught"), stage
        return ("survived" if late else "doubtful"), ""

    def judge(self, mutant, late):
        """As `run_tests`. The late programs are for those that passed the others before."""
        name = mutant["file"]
        text = (SOURCE / name).read_text()
        if name not in self.originals:
            self.originals[name] = self.compile(name, text)
        built, functions = self.compile(name, text[:mutant["start"]] + mutant["new"] + text[mutant["end"]:])
        original, wanted = self.originals[name]
        if built is None or not wanted <= functions:  # Another signature would leave the original to be linked.
            return "broken", ""
        if built == original:
            return "identical", ""
        return self.run_tests(name, late)
