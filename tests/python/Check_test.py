"""Whole checks: what they give, and that it is what the command gives."""

import gc
import json
import math
import sys

import numpy as np
import pytest

import polarline
from conftest import command, timeless

SETS = [("ring_320", {}, []), ("ring_320", {"refine": True, "limits": "dy_means<=0.001"}, ["--refine", "--limit", "dy_means<=0.001"]),
        ("fisheye_1280", {}, []), ("rectified_1280", {}, []), ("frame_1280", {}, []), ("big_1280_10bit", {}, []), ("ring_640_bgr", {}, []), ("misaligned_1280", {}, [])]
# Small scenes of lenses and ways to search that presets have in large pictures.
SCENES = {"polynomial": {"preset": "poly_1920", "board": {"cols": 21, "rows": 15}, "rig": {"width": 960, "height": 600}},
          "search": {"preset": "big_640", "settings": {"id_method": 1}},
          "edges": {"preset": "big_2448_bin1", "rig": {"width": 2048, "height": 1536}},
          "third_binarisation": {"preset": "big_640", "settings": {"bin_method": 2}}}


@pytest.mark.parametrize("preset, options, arguments", SETS, ids=lambda each: str(each) if isinstance(each, str) else "")
def test_document_is_the_commands(tmp_path, preset, options, arguments):
    folder = tmp_path / "set"
    polarline.simulate(preset, folder, pairs=2 if preset == "ring_320" else 1)
    _, document = command("check", folder, "--json", "-", *arguments)
    try:
        check = polarline.check(folder, **options)
    except polarline.RunError as error:
        check = error.check
    assert timeless(check.to_json()) == timeless(document)


@pytest.mark.parametrize("name", SCENES)
def test_document_of_a_scene_is_the_commands(tmp_path, name):
    (tmp_path / "scene.json").write_text(json.dumps({"schema": "polarline-scene/1", "pairs": 1, **SCENES[name]}))
    polarline.simulate(tmp_path / "scene.json", tmp_path / "set")
    _, document = command("check", tmp_path / "set", "--json", "-")
    check = polarline.check(tmp_path / "set")
    assert check.summary.finished == 1
    assert timeless(check.to_json()) == timeless(document)


def test_document_keeps_the_order_of_its_keys(ring_set, checked):
    _, document = command("check", ring_set, "--refine", "--json", "-")
    assert list(checked.to_dict()) == list(json.loads(document))


def scalar_equal(attribute, value):
    """None and what is not a number are null in the document; single precision reads back to the same float."""
    if value is None:
        return attribute is None or not math.isfinite(attribute)
    if isinstance(value, float) and isinstance(attribute, float):
        return attribute == value or np.float32(value) == np.float32(attribute) == attribute
    return attribute == value


def test_attributes_are_those_of_the_document(checked):
    document = checked.to_dict()
    assert [key for key in document if not hasattr(checked, key)] == []
    for key in ("schema", "started", "seconds", "verdict", "judged"):
        assert getattr(checked, key) == document[key]
    assert checked.tool._asdict() == document["tool"]
    assert dict(checked.settings) == document["settings"]
    for part in ("board", "status", "cameras"):
        compare(getattr(checked, part), document[part])
    compare(checked.set, document["set"])
    compare(checked.diagnosis, document["diagnosis"])
    assert len(checked.pairs) == len(document["pairs"]) == 2
    for pair, wanted in zip(checked.pairs, document["pairs"]):
        compare(pair, wanted)
    compare(checked.summary, document["summary"])
    assert len(document["summary"]["refined"]["figures"]) > 10


def compare(attribute, value):
    """An object of the document with what Python has in its place."""
    if isinstance(value, dict):
        for key, inner in value.items():
            compare(attribute[key] if hasattr(attribute, "keys") else getattr(attribute, key), inner)
    elif isinstance(value, list):
        assert len(attribute) == len(value)
        for one, other in zip(attribute, value):
            compare(one.item() if isinstance(one, np.generic) else one, other)
    else:
        assert scalar_equal(attribute, value), (attribute, value)


def test_attributes_are_read_only(checked):
    for thing, name in ((checked, "verdict"), (checked.pairs[0], "index"), (checked.pairs[0].figures, "dy_means"),
                        (checked.summary, "pairs"), (checked, "schema")):
        with pytest.raises(AttributeError):
            setattr(thing, name, 1)
    with pytest.raises(ValueError, match="read-only"):
        checked.pairs[0].points.dy[0] = 1
    with pytest.raises(TypeError):
        checked.settings["type"] = 3


def test_points_share_the_memory_of_the_check(ring_set):
    check = polarline.check(ring_set, uncertainty=False, diagnose=False)
    first, again = check.pairs[0].points.residual, check.pairs[0].points.residual
    assert first.ctypes.data == again.ctypes.data
    assert not first.flags.owndata
    kept = first.copy()
    del check, again
    gc.collect()
    polarline.simulate("ring_320", pairs=1)  # Would take the memory if it were free.
    np.testing.assert_array_equal(first, kept)


def test_figures_are_a_mapping(checked):
    figures = checked.pairs[0].figures
    assert set(figures) == set(figures.keys()) and len(figures) == len(list(figures))
    assert figures["dy_means"] == figures.dy_means == figures.get("dy_means")
    assert "dy_means" in figures and "nothing" not in figures and 7 not in figures
    assert figures.info("dy_means").unit == "pixels"
    assert dict(figures.items()).keys() == set(figures)
    with pytest.raises(KeyError):
        figures["nothing"]
    for name in figures:
        assert getattr(figures, name) is None or np.array_equal(getattr(figures, name), figures[name], equal_nan=True)


def test_arrays_give_what_their_files_give(ring_set, ring):
    of_files = polarline.check(ring_set).to_dict()
    of_arrays = polarline.check(ring_set, ring.left, ring.right).to_dict()
    of_memory = polarline.check(ring).to_dict()
    for document in (of_files, of_arrays, of_memory):
        for pair in document["pairs"]:
            del pair["left"], pair["right"]
    for key in ("pairs", "summary", "cameras", "settings", "board", "verdict", "diagnosis", "warnings"):
        assert of_files[key] == of_arrays[key] == of_memory[key], key
    assert of_arrays["set"]["inputs"][-1]["role"] == "right/1"


def test_limits_judge(ring_set):
    fails = polarline.check(ring_set, limits=["finished>=1", "given_up>=1"])
    assert fails.verdict == "fail"
    assert [limit.holds for limit in fails.limits] == [True, False] and fails.judged == 2
    assert "given_up" in repr(fails) or "FAIL" in repr(fails)


def test_settings_and_pairs_are_of_this_run(ring_set):
    one = polarline.check(ring_set, settings={"dy_bias_switch": 0}, pairs=(1, 1))
    assert [pair.index for pair in one.pairs] == [1]
    assert one.pairs[0].figures.dy_means is None
    assert one.settings["dy_bias_switch"] == 0
    assert polarline.check(ring_set, settings=["dy_bias_switch=0"]).pairs[0].figures.dy_means is None


def test_correction_is_written(tmp_path):
    path = tmp_path / "corrected.json"
    check = polarline.check(polarline.simulate("misaligned_1280", pairs=2), write_corrected=path)
    correction = check.diagnosis.correction
    assert correction.path == str(path) and correction.rows_seen < check.diagnosis.rows_before
    compare(check.diagnosis, check.to_dict()["diagnosis"])
    assert {cause.name for cause in check.diagnosis.causes}
    read = polarline.import_calibration(path).calibration
    assert read.rx == check.diagnosis.corrected.rx and read.right.fx == check.diagnosis.corrected.right.fx


def test_own_calibration_object_is_its_file(ring_set):
    calibration = polarline.import_calibration(ring_set / "calib.json", size=(320, 256)).calibration
    own = polarline.check(ring_set)
    same = polarline.check(polarline.Set(ring_set, calibration=calibration))
    assert same.pairs[0].figures.dy_means == own.pairs[0].figures.dy_means
    turned = polarline.check(polarline.Set(ring_set, calibration=calibration.replace(rx=calibration.rx + 0.01)))
    assert turned.pairs[0].figures.dy_means > own.pairs[0].figures.dy_means + 1


def test_table_has_a_row_a_pair(checked):
    pandas = pytest.importorskip("pandas")
    table = checked.to_pandas()
    assert isinstance(table, pandas.DataFrame) and len(table) == 2
    assert table.loc[0, "dy_means"] == checked.pairs[0].figures.dy_means
    assert table.loc[1, "pol_dis[3]"] == checked.pairs[1].figures.pol_dis[3]
    dots = checked.to_pandas(points=True)
    assert len(dots) == sum(len(pair.points) for pair in checked.pairs)
    np.testing.assert_array_equal(dots[dots["pair"] == 1]["dy"], checked.pairs[1].points.dy)


def test_table_without_pandas_says_what_to_install(checked, monkeypatch):
    monkeypatch.setitem(sys.modules, "pandas", None)
    with pytest.raises(ImportError, match="apt install python3-pandas"):
        checked.to_pandas()


def test_table_of_pairs_without_figures_has_the_same_columns(checked, ring):
    pytest.importorskip("pandas")
    blank = np.full((256, 320), 90, np.uint8)
    some = polarline.check(ring, [ring.left[0], blank], [ring.right[0], blank], settings={"discalsave": 0}, diagnose=False)
    table = some.to_pandas()
    assert list(table) == list(checked.to_pandas()) and table.loc[1, "state"] == "given up"
    assert len(some.pairs[1].points) == 0 and set(some.to_pandas(points=True)["pair"]) == {0}
    with pytest.raises(polarline.RunError) as caught:
        polarline.check("no_such_set")
    assert len(caught.value.check.to_pandas()) == 0 and "<table>" not in caught.value.check._repr_html_()


def test_page_of_given_up_pairs_has_columns(ring):
    blank = np.full((256, 320), 90, np.uint8)
    with pytest.raises(polarline.RunError) as caught:
        polarline.check(ring, [blank] * 2, [blank] * 2, settings={"discalsave": 0})
    html = caught.value.check._repr_html_()
    assert html.count('colspan="1"') == 2 and 'colspan="0"' not in html


def test_notebook_page_is_small_and_escaped(ring_set, checked, tmp_path):
    html = checked._repr_html_()
    assert html.count("<tr>") == 3 and "<svg" in html and "dy_means" in html and len(html) < 200_000
    for file in ring_set.iterdir():
        (tmp_path / file.name).write_bytes(file.read_bytes())
    (tmp_path / "left_0.png").rename(tmp_path / "<b>.png")
    (tmp_path / "list.txt").write_text("#L R\n<b>.png right_0.png\n")
    named = polarline.check(tmp_path, diagnose=False)._repr_html_()
    assert "&lt;b&gt;.png" in named and "<b>.png" not in named


def test_report_is_the_page(checked, tmp_path):
    page = tmp_path / "page.html"
    checked.report(page, title="A title of its own")
    text = page.read_text()
    assert "A title of its own" in text and text.lstrip().lower().startswith("<!doctype html")
    polarline.report((each for each in (checked, checked)), tmp_path / "two.html")
    assert {each.name for each in tmp_path.iterdir()} == {"page.html", "two.html"}
    with pytest.raises(polarline.OutputError):
        checked.report(tmp_path / "nowhere" / "page.html")
    with pytest.raises(polarline.InputError):
        polarline.report([], tmp_path / "none.html")


def test_diagnosis_alone(ring):
    seen = polarline.diagnose(ring)
    assert seen.text and seen.rows_after <= seen.rows_before
