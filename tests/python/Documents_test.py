"""Docstrings, types, examples and the page of the package."""

import doctest
import inspect
import os
import pathlib
import re
import subprocess
import sys

import pytest

import polarline
from conftest import PROJECT

EXAMPLES = PROJECT / "python/examples"
TOOLS = {"env": {**os.environ, "MYPYPATH": os.environ.get("PYTHONPATH", "")}, "capture_output": True, "text": True}


def test_every_public_name_is_explained():
    for module in (polarline, polarline.exports):
        assert module.__doc__
        for name in module.__all__:
            assert inspect.getdoc(getattr(module, name)), name
            member = getattr(module, name)
            if inspect.isfunction(member) and inspect.signature(member).parameters:
                assert "Parameters\n----------" in inspect.getdoc(member), name
                assert "Returns\n-------" in inspect.getdoc(member) or member is polarline.report, name


def test_every_export_tells_its_arguments_and_what_it_returns():
    functions = [name for name in polarline.exports.__all__ if inspect.isbuiltin(getattr(polarline.exports, name))]
    assert len(functions) == 12
    for name in functions:
        signature, _, text = inspect.getdoc(getattr(polarline.exports, name)).partition("\n")
        assert re.search(r"Returns\n-------\n\w+ : \w+", text), name
        arguments = re.findall(r"(\w+): ", signature)
        told = re.search(r"Parameters\n----------\n(.*?)\n\n", text, re.S)
        names = re.findall(r"^(\w[\w, ]*) : ", told.group(1), re.M) if told else []
        assert ", ".join(names).split(", ") == (arguments or [""]), name


@pytest.mark.parametrize("name", [name for name in ["", *polarline.__all__]
                                  if ">>>" in (inspect.getdoc(getattr(polarline, name) if name else polarline) or "")])
def test_docstring_holds(name):
    text = inspect.getdoc(getattr(polarline, name) if name else polarline)
    names = {"polarline": polarline, **{each: getattr(polarline, each) for each in polarline.__all__}}
    test = doctest.DocTestParser().get_doctest(text, names, name or "polarline", None, 0)
    assert test.examples
    failed, _ = doctest.DocTestRunner(optionflags=doctest.ELLIPSIS).run(test)
    assert failed == 0


def test_examples_are_typed(tmp_path):
    for example in sorted(EXAMPLES.glob("*.py")):
        done = subprocess.run([sys.executable, "-m", "mypy", "--strict", "--ignore-missing-imports", "--cache-dir", str(tmp_path), str(example)], **TOOLS)
        assert done.returncode == 0, done.stdout + done.stderr


def test_stubs_are_those_of_the_module(tmp_path):
    done = subprocess.run([sys.executable, "-m", "mypy.stubtest", "polarline", "--allowlist",
                           str(pathlib.Path(__file__).with_name("stubtest_allowed.txt"))], cwd=tmp_path, **TOOLS)
    assert done.returncode == 0, done.stdout + done.stderr


def run_example(name, *arguments):
    done = subprocess.run([sys.executable, str(EXAMPLES / name), *map(str, arguments)], capture_output=True, text=True)
    assert done.returncode == 0, done.stderr
    return done.stdout


def test_examples_end_with_the_reason(tmp_path):
    for name, wanted in (("plot_residuals.py", "no_such_set"), ("compare_calibrations.py", "no_such_set")):
        done = subprocess.run([sys.executable, str(EXAMPLES / name), "no_such_set", "other"], capture_output=True, text=True)
        assert done.returncode == 1 and wanted in done.stderr and "Traceback" not in done.stderr
    polarline.simulate("frame_1280", tmp_path / "frame", pairs=1)
    done = subprocess.run([sys.executable, str(EXAMPLES / "plot_residuals.py"), tmp_path / "frame", "plot.png"], capture_output=True, text=True)
    assert done.returncode == 1 and "no row differences" in done.stderr and "Traceback" not in done.stderr


def test_example_of_a_sweep():
    lines = run_example("sweep.py", 1).splitlines()
    rows = [float(line.split()[1]) for line in lines[1:]]
    assert len(rows) == 4 and rows == sorted(rows)


def test_example_of_two_calibrations(ring_set, tmp_path):
    calibration = polarline.import_calibration(ring_set / "calib.json").calibration
    (tmp_path / "turned.json").write_text(calibration.replace(rx=calibration.rx + 0.002).to_json())
    told = run_example("compare_calibrations.py", ring_set, tmp_path / "turned.json", tmp_path / "page.html")
    before, after = map(float, re.search(r"dy_means +(\S+) -> +(\S+)", told).groups())
    assert after > before and "other:" in told and "Two calibrations" in (tmp_path / "page.html").read_text()


def test_example_of_a_plot(ring_set, tmp_path):
    told = run_example("plot_residuals.py", ring_set, tmp_path / "plot.png")
    assert (tmp_path / "plot.png").read_bytes().startswith(b"\x89PNG") and "of 2 pairs" in told


def test_page_holds(tmp_path, monkeypatch):
    """Its snippets, one behind the other, as they stand."""
    snippets = re.findall(r"```python\n(.*?)```", (PROJECT / "docs/python.md").read_text(), re.S)
    assert len(snippets) >= 5
    monkeypatch.chdir(tmp_path)
    names = {"__name__": "page"}
    for snippet in snippets:
        exec(compile(snippet, "docs/python.md", "exec"), names)  # noqa: S102
