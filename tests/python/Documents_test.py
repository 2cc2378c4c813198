"""Docstrings, types, examples and the page of the package."""

import ast
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
from polarline import _polarline

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
                assert "Returns\n-------" in inspect.getdoc(member) or member in (polarline.report, polarline.make_store), name


def members_of(kind):
    """The public attributes and methods of a class with what is told of each."""
    own = inspect.getdoc(kind)
    listed = dict(re.findall(r"^(\w+) : [^\n]+\n    (\S[^\n]*)$", own, re.M))
    names = list(getattr(kind, "__dataclass_fields__", getattr(kind, "_fields", ()))) or [name for name in vars(kind) if not name.startswith("_")]
    if kind is polarline.RunError:
        names = list(vars(polarline.RunError("text")))
    for name in names:
        member = vars(kind).get(name)
        has_own = isinstance(member, property) or callable(member)
        yield name, (getattr(member, "__doc__", None) if has_own else listed.get(name)) or ""


def test_every_attribute_is_explained():
    explained = 0
    for module in (polarline, polarline.exports):
        for kind in (getattr(module, name) for name in module.__all__):
            if isinstance(kind, type) and not kind.__module__.startswith("builtins"):
                for name, text in members_of(kind):
                    assert re.search(r"[A-Za-z]{2}", text), f"{kind.__name__}.{name}"
                    explained += 1
    assert explained > 300


def test_figures_tell_unit_shape_and_range(checked):
    figures = checked.pairs[0].figures
    shapes = {"0 or more": 0, "0 to 1": 0, "0 to 5, as what is larger does not count": 0, "Above 0": 0, "Either sign": 0}
    for name in figures:
        text = vars(polarline.Figures)[name].__doc__
        unit = figures.info(name).unit.replace("board unit", "board units" if name != "PoseReport" else "board unit")
        assert ("without a unit" if unit == "1" else f"in {unit}") in text, name
        assert figures.info(name).meaning[1:] in text, name
        told = text.split(". ")[-1].rstrip(".")
        if figures.info(name).is_list:
            assert told.startswith("An array of "), name
            assert figures[name] is None or not told.startswith("An array of 8") or figures[name].shape in ((8,), (0,)), name
        else:
            low = {"Above 0": 1e-9, "Either sign": -1e9}.get(told, 0)
            high = {"0 to 1": 1, "0 to 5, as what is larger does not count": 5}.get(told, 1e9)
            shapes[told] += 1
            assert figures[name] is None or low <= figures[name] <= high, name
    assert all(shapes.values()), shapes
    for name in ("dy_means", "tri_dis", "frameValues"):
        assert vars(polarline.exports.PolarResultRecord)[name].__doc__ == vars(polarline.Figures)[name].__doc__


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
        done = subprocess.run([sys.executable, "-m", "mypy", "--strict", "--cache-dir", str(tmp_path), str(example)], cwd=tmp_path, **TOOLS)
        assert done.returncode == 0, done.stdout + done.stderr


def test_stubs_are_those_of_the_module(tmp_path):
    done = subprocess.run([sys.executable, "-m", "mypy.stubtest", "polarline", "--allowlist",
                           str(pathlib.Path(__file__).with_name("stubtest_allowed.txt"))], cwd=tmp_path, **TOOLS)
    assert done.returncode == 0, done.stdout + done.stderr


def arguments_of(definition):
    """Names of a definition's arguments, those that are told by name only, and those that may be left out."""
    given = definition.args
    names = [each.arg for each in given.posonlyargs + given.args]
    optional = names[len(names) - len(given.defaults):] + [each.arg for each, value in zip(given.kwonlyargs, given.kw_defaults) if value]
    return [name for name in names if name != "self"], [each.arg for each in given.kwonlyargs], sorted(optional)


def definitions_of_stubs(text):
    """The functions of a text of stubs by name, methods as Class.method."""
    for node in ast.parse(text).body:
        if isinstance(node, ast.FunctionDef):
            yield node.name, node
        elif isinstance(node, ast.ClassDef):
            yield from ((f"{node.name}.{each.name}", each) for each in node.body if isinstance(each, ast.FunctionDef))


def native_signature(name):
    """What pybind says of a function in the first line of its docstring; None for what is not native or has no such line."""
    owner, _, last = name.rpartition(".")
    member = inspect.getattr_static(getattr(_polarline, owner) if owner else _polarline, last, None)
    function = member.__func__ if isinstance(member, staticmethod) else member
    if isinstance(member, property) or inspect.isfunction(function):
        return None
    line = (getattr(function, "__doc__", None) or "").partition("\n")[0]
    return line if re.fullmatch(rf"{last}\(.*\) -> .*", line) else None


def unlike_stubs(text):
    """Names of native functions whose stubs have other arguments, and how many were compared."""
    unlike, compared = [], 0
    for name, stub in definitions_of_stubs(text):
        line = native_signature(name)
        if line is None or re.search(r"\barg0\b", line):
            continue  # An operator.
        compared += 1
        native = ast.parse(f"def {line}: ...").body[0]
        if arguments_of(native) != arguments_of(stub):
            unlike.append(name)
    return unlike, compared


def test_stubs_have_the_arguments_of_native_functions():
    """Of these stubtest sees no signature."""
    text = (PROJECT / "python/polarline/_polarline.pyi").read_text()
    native = [name for name, member in vars(_polarline).items() if inspect.isbuiltin(member)]
    assert set(native) <= {name for name, _ in definitions_of_stubs(text)} and all(map(native_signature, native))
    unlike, compared = unlike_stubs(text)
    assert unlike == [] and compared >= len(native) + 15
    for right, wrong, name in (("format: str, paper: str, title", "format: str, sheet: str, title", "print_board"),
                               ("def detect(image: _Picture, ", "def detect(image: _Picture, *, ", "detect"),
                               ("rx: float = ...", "rx: float", "Calibration.__init__")):
        assert right in text and unlike_stubs(text.replace(right, wrong, 1))[0] == [name]


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
