"""Runs what documents in Markdown show: commands with what they print, programs of Python and C++."""

import os
import pathlib
import re
import subprocess
import sys

from documents.links import FENCE

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
INSTALLED = "installed"  # Said in place of a build: what the machine has of packages is used.


def build_of(argument):
    """The folder of a build, or None for what is installed."""
    return None if argument == INSTALLED else pathlib.Path(argument or ROOT / "build/release").resolve()


def commands(block):
    """The commands of a block with the output that the page shows of each, or None."""
    found, lines = [], block.splitlines()
    while lines:
        line = lines.pop(0)
        if line.startswith("$ "):
            command = [line[2:]]
            end = re.search(r"<<'(\w+)'", line)
            while lines and (command[-1].endswith("\\") or end and command[-1] != end.group(1)):
                command.append(lines.pop(0))
            found.append(("\n".join(command), []))
        elif found:
            found[-1][1].append(line)
        else:
            raise ValueError(f"a block begins with '{line}', not with '$ '")
    return found


def is_shown(shown, printed):
    """Whether the lines are those that were printed; '...' stands for any lines."""
    pattern = "".join(r"(?:.*\n)*?" if line.strip() == "..." else re.escape(line.rstrip()) + r"\n" for line in shown)
    return re.fullmatch(pattern, "".join(line.rstrip() + "\n" for line in printed)) is not None


def run(what, command, shown, folder, environment):
    """What is wrong with a command, or nothing."""
    done = subprocess.run(command, cwd=folder, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    if done.returncode != 0:
        return [f"{what}\nended with {done.returncode}:\n{done.stdout}"]
    if shown and not is_shown(shown, done.stdout.splitlines()):
        return [f"{what}\nprinted:\n{done.stdout}"]
    return []


def install(build, prefix):
    """The C++ library as pkg-config finds it where it is installed, and `python3` as the one that runs this."""
    (prefix / "bin").mkdir(parents=True)
    (prefix / "bin/python3").symlink_to(sys.executable)
    (prefix / "lib/pkgconfig").mkdir(parents=True)
    (prefix / "include").symlink_to(ROOT / "include")
    for path in (build / "library").glob("libpolarline.so*"):
        (prefix / "lib" / path.name).symlink_to(path)
    (prefix / "lib/pkgconfig/polarline.pc").symlink_to(build / "polarline.pc")


def environment_of(build, prefix):
    """What commands and programs find: the things of a build as if they were installed."""
    if build is None:
        return {name: value for name, value in os.environ.items() if name != "COLUMNS"}
    install(build, prefix)
    environment = {**os.environ, "PATH": os.pathsep.join([str(build / "tools/polarline"), str(prefix / "bin"), os.environ["PATH"]]),
                   "PYTHONPATH": str(build / "python"), "PYTHONDONTWRITEBYTECODE": "1",
                   "PKG_CONFIG_PATH": str(prefix / "lib/pkgconfig"), "LD_LIBRARY_PATH": str(prefix / "lib")}
    environment.pop("COLUMNS", None)
    return environment


def write_source(block, folder):
    """What is wrong with a program of C++, which is saved under the name that it tells."""
    name = re.match(r"// (\w+\.cpp)\b", block)
    if not name:
        return [f"a program does not tell its name in its first line:\n{block}"]
    (pathlib.Path(folder) / name.group(1)).write_text(block, encoding="utf-8")
    return []
