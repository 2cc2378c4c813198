"""How what the package gives is shown, copied, compared and sent on."""

import copy
import pickle

import pytest

import polarline
from polarline import _polarline


def calibration_of(ring_set):
    return polarline.import_calibration(ring_set / "calib.json").calibration


def test_everything_shows_its_numbers(checked, ring_set, ring):
    pair = checked.pairs[0]
    shown = {"dy_means=": pair.figures, "state='finished'": pair, "name='success'": checked.status, "model='brown8'": checked.cameras,
             "finished=2": checked.summary, "of 255 dots": pair.points, "left=255": pair.found, "'ring_320': 2 pairs": ring,
             "tx=-60": calibration_of(ring_set), "size=(": calibration_of(ring_set).left, "name='dy_means'": pair.uncertainty["dy_means"],
             "found=True": polarline.detect(ring.left[0], ring.target), "name='ring_320'": polarline.presets()[0]}
    for text, thing in shown.items():
        assert text in repr(thing) and repr(thing).startswith("<polarline.") and len(repr(thing)) < 1000, repr(thing)


def test_no_class_shows_an_address():
    for name in polarline.__all__:
        kind = getattr(polarline, name)
        if isinstance(kind, type) and kind.__module__ == "polarline" and kind.__base__.__name__ == "pybind11_object":
            assert "__repr__" in vars(kind), name


def test_check_without_limits_names_the_argument(checked):
    assert "limits='dy_means<=0.1' would judge one" in repr(checked) and "--limit" not in repr(checked)
    assert "--limit" not in checked._repr_html_()


def test_what_can_not_be_changed_is_its_own_copy(checked, ring_set):
    for thing in (checked, checked.pairs[0].figures, calibration_of(ring_set)):
        assert copy.copy(thing) is thing
    assert copy.deepcopy({"a": [checked]})["a"][0] is checked


def test_boards_and_calibrations_are_values(ring_set):
    calibration, same = calibration_of(ring_set), calibration_of(ring_set)
    other = calibration.replace(left=calibration.left.replace(cx=calibration.left.cx + 1))
    assert calibration == same and hash(calibration) == hash(same) and calibration.left == same.left
    assert calibration != other and calibration.left != other.left and calibration != 7
    assert {polarline.Target("dots:9x7:10"), polarline.Target("dots:9x7:10"), polarline.Target("dots:9x7:11")} == {
        polarline.Target("dots:9x7:10"), polarline.Target("dots:9x7:11")}
    for thing in (calibration, calibration.left, polarline.Target("rings-big:37x35:12")):
        assert pickle.loads(pickle.dumps(thing)) == thing
    assert pickle.loads(pickle.dumps(other)).left.cx == calibration.left.cx + 1


def test_figures_are_equal_when_all_are(checked, ring_set):
    again = polarline.check(ring_set, diagnose=False, uncertainty=False)
    assert again.pairs[0].figures == checked.pairs[0].figures != checked.pairs[1].figures
    assert checked.pairs[0].figures != {} and checked.pairs[0].figures != checked.pairs[0].refined.figures


def test_a_check_that_is_sent_away_says_what_to_send(checked):
    for thing in (checked, checked.pairs[0], checked.pairs[0].figures):
        with pytest.raises(TypeError, match=r"stays in the process that made it; send .*to_dict"):
            pickle.dumps(thing)


def test_records_of_the_library_stay_as_they_are():
    assert "__copy__" not in vars(_polarline.ExportedCalibParams)
