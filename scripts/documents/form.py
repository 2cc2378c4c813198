"""The form of commands that can't be run in a test: is there what they name?"""

import functools
import re
import subprocess

from documents.run import ROOT


@functools.lru_cache(maxsize=None)
def help_of(program, build, subcommand):
    if program != "polarline":
        return (ROOT / program).read_text(encoding="utf-8")
    done = subprocess.run([build / "tools/polarline/polarline", subcommand, "--help"], capture_output=True, text=True, check=False)
    return done.stdout if done.returncode == 0 else None


def has_option(text, option):
    return re.search(rf"(?<![\w-]){re.escape(option)}(?![\w-])", text) is not None


def faults_of_call(call, build):
    """The faults of one program's call: its subcommand, file and options."""
    program, *behind = re.sub(r"^\s*(sudo |\w+=\S* )*", "", call).split() or [""]
    if program != "polarline" and not re.match(r"(scripts|examples)/", program):
        return
    if program != "polarline" and not (ROOT / program).exists():
        yield f"there is no {program}"
        return
    text = help_of(program, build, behind[0] if behind else "")
    if text is None:
        yield f"there is no 'polarline {behind[0]}'"
        return
    for option in re.findall(r"(?<![\w'=<])--?[a-z][\w-]*", " ".join(behind)):
        # What a script of the fleet does not take itself it hands to the command.
        if not has_option(text, option) and (program == "polarline" or not has_option(help_of("polarline", build, "batch"), option)):
            yield f"'{program}' has no {option}"


def faults_of_form(command, build):
    packages = re.findall(r"\./([a-z0-9-]+)_\*\.deb", command)
    told = (ROOT / "packages/Packages.cmake").read_text(encoding="utf-8")
    for name in packages:
        if not re.search(rf" {re.escape(re.sub('[0-9]+$', '', name))}", told):
            yield f"$ {command}\nthere is no package {name}"
    for call in re.split(r"[;|\n]|&&", re.sub(r"\s#.*", "", command)):
        for fault in faults_of_call(call, build):
            yield f"$ {command}\n{fault}"
