"""The library's own functions, one to one."""

import re

import numpy as np
import pytest

import polarline
from conftest import PROJECT
from polarline import exports


def paths(folder):
    return [str(folder / name) for name in ("polar.txt", "target.ini", "calib.json", "list.txt")]


def test_every_export_of_the_library_is_there():
    names = re.findall(r"^    (\w+);$", (PROJECT / "exports/exports.map").read_text(), re.M)
    assert len(names) == 12
    for name in names:
        assert callable(getattr(exports, name)), name


def test_record_has_every_field_of_the_library():
    header = (PROJECT / "include/PolarLinePrecision/ResultRecords.h").read_text()
    body = re.search(r"struct PolarResultRecord \{(.*?)\n\};", header, re.S)[1]
    fields = re.findall(r"^  [\w:<>, ]+? (\w+)(?: = [^;]+|\{[^;]*\})?;", body, re.M)
    assert "dy_means" in fields and "pairPoints" in fields and len(fields) >= 20
    for field in fields:
        assert hasattr(exports.PolarResultRecord, field), field


@pytest.fixture
def copied(ring_set, tmp_path):
    for file in ring_set.iterdir():
        (tmp_path / file.name).write_bytes(file.read_bytes())
    return tmp_path


def test_run_of_files_gives_the_figures_of_a_check(copied, capfd):
    status, records = exports.CalPolarLinePrecision(*paths(copied))
    assert status == 0 and len(records) == 2
    for record, pair in zip(records, polarline.check(copied).pairs):
        assert record.dy_means == pair.figures.dy_means
        np.testing.assert_array_equal(record.pol_dis, pair.figures.pol_dis)
    assert not records[0].pol_dis.flags.owndata


def test_run_of_arrays_is_that_of_files(copied, ring, capfd):
    calibration = exports.ExportedCalibParams()
    assert exports.ReadCalibParams(str(copied / "calib.json"), calibration) == 0
    calibration.boardPoints = exports.ReadBoardGTFromTxt(str(copied / "board_gt.txt"))
    told = []
    status, records = exports.CalPolarLinePrecisionOutMat(ring.polar, ring.target, calibration, [ring.left, ring.right],
                                                          lambda percent: told.append(percent) or True)
    assert status == 0 and told[-1] == 100.0
    wanted = polarline.check(ring).pairs
    assert [record.dy_means for record in records] == [pair.figures.dy_means for pair in wanted]
    assert exports.CalPolarLinePrecisionOutMat(ring.polar, ring.target, calibration, [ring.left, ring.right],
                                               lambda percent: percent < 0.002)[0] == 35
    with pytest.raises(ZeroDivisionError):
        exports.CalPolarLinePrecisionOutMat(ring.polar, ring.target, calibration, [ring.left, ring.right], lambda _: 1 / 0)


def test_calibration_record_is_filled_in_place(ring_set):
    calibration = exports.ExportedCalibParams()
    calibration.boardPoints = [[1, 2, 3], [4, 5, 6]]
    assert exports.ReadCalibParams(str(ring_set / "calib.json"), calibration) == 0
    own = polarline.import_calibration(ring_set / "calib.json").calibration
    assert calibration.left.intrinsics[0] == own.left.fx and calibration.extrinsics[3] == own.tx
    np.testing.assert_array_equal(calibration.boardPoints, [[1, 2, 3], [4, 5, 6]])
    calibration.left.intrinsics = np.arange(12)
    assert calibration.left.intrinsics.tolist() == list(range(12))
    with pytest.raises(ValueError, match="intrinsics: found 3 numbers, wanted 12"):
        calibration.left.intrinsics = [1, 2, 3]
    with pytest.raises(ValueError, match=r"\(n, 3\)"):
        calibration.boardPoints = [[1, 2]]


def test_rectified_run(tmp_path, capfd):
    polarline.simulate("rectified_1280", tmp_path / "set")
    folder = tmp_path / "set"
    told = polarline.check(folder)
    rectified = exports.RectifiedParams()
    values = dict(re.findall(r"^(\w+)\s*[:=]\s*(\S+)", (folder / "rectified.txt").read_text(), re.M))
    for name, value in values.items():
        if hasattr(rectified, name):
            setattr(rectified, name, float(value))
    rectified.boardPoints = exports.ReadBoardGTFromTxt(str(folder / "board_gt.txt"))
    status, records = exports.CalRecificationPrecision(*paths(folder)[:2], rectified, str(folder / "list.txt"))
    assert status == 0 and records[0].dy_means == told.pairs[0].figures.dy_means


def test_readers(ring_set, ring, tmp_path, capfd):
    status, (left, right) = exports.ReadCalibImagelist(str(ring_set / "list.txt"))
    assert status == 0 and len(left) == len(right) == 2
    np.testing.assert_array_equal(right[1], ring.right[1])
    assert exports.ReadCalibImagelist(str(tmp_path / "none.txt"))[0] == 7
    status, binary = exports.LoadCalibrationParamsMulti(str(ring_set / "calib.bin"))
    assert status == 0 and binary.n == 2 and len(binary.entries) == 2 and binary.entries[0].width == 320
    assert exports.LoadCalibrationParamsMulti(None)[0] == 4096
    assert exports.ReadTxtPolyParams(str(tmp_path), exports.ExportedCalibParams()) == 1
    assert exports.ReadBoardGTFromCSV(str(tmp_path / "none.csv"), False)[0] == 7
    assert exports.CalTempCompensateCoeff(*paths(ring_set)) == 0


def test_paths_may_be_objects_and_bytes(copied, capfd):
    arguments = [copied / name for name in ("polar.txt", "target.ini", "calib.json", "list.txt")]
    status, records = exports.CalPolarLinePrecision(*arguments)
    assert status == 0 and records[0].dy_means == exports.CalPolarLinePrecision(*paths(copied))[1][0].dy_means
    calibration = exports.ExportedCalibParams()
    assert exports.ReadCalibParams(arguments[2], calibration) == 0
    assert len(exports.ReadBoardGTFromTxt(copied / "board_gt.txt")) == 255
    assert exports.ReadCalibImagelist(bytes(arguments[3]))[0] == 0
    assert exports.LoadCalibrationParamsMulti(copied / "calib.bin")[0] == 0
    with pytest.raises(TypeError):
        exports.ReadCalibParams(7, calibration)
    with pytest.raises(TypeError):
        exports.ReadCalibParams(None, calibration)


def test_failures_are_told(copied, capfd):
    arguments = paths(copied)
    assert exports.CalPolarLinePrecision(*arguments[:2], str(copied / "none.json"), arguments[3])[0] != 0
    assert exports.GetPolarErrorInfo().strip()
    assert exports.GetVersionPolarLinePrecision() == polarline.__version__
    with pytest.raises(RuntimeError):
        exports.CalPolarLinePrecision(None, *arguments[1:])
