"""One picture, one board, one calibration, one scene."""

import json

import numpy as np
import pytest

import polarline
from conftest import command


def test_detection_is_the_commands(ring_set):
    picture = polarline.read_picture(ring_set / "left_0.png")
    seen = polarline.detect(picture, ring_set / "target.ini")
    _, document = command("detect", ring_set / "left_0.png", "--target", ring_set / "target.ini", "--json", "-")
    image, target = str(ring_set / "left_0.png"), str(ring_set / "target.ini")
    assert json.loads(seen.to_json(image, target)) == json.loads(document)
    wanted = json.loads(document)["dots"]
    for name in ("id", "x", "y"):
        assert wanted[name] == list(getattr(seen, name)), name
    assert polarline.detect(ring_set / "left_0.png", ring_set / "target.ini").to_csv() == seen.to_csv()


def test_detection_shares_its_memory(ring):
    seen = polarline.detect(ring.left[0], ring.target)
    assert seen.x.ctypes.data - seen.id.ctypes.data < 64 and not seen.x.flags.writeable
    np.testing.assert_array_equal(seen.id, seen.row * seen.board.columns + seen.column)
    x = seen.x
    kept = x.copy()
    del seen
    np.testing.assert_array_equal(x, kept)


def test_detection_finds_the_dots_where_they_are(ring):
    seen = polarline.detect(ring.left[0], ring.target)
    true_dots = {dot[0]: dot[4] for dot in ring.truth["pairs"][0]["dots"]}  # By its list dot_fields: id, pixel_left.
    assert ring.truth["dot_fields"][4] == "pixel_left" and len(seen) > 200
    for number, x, y in zip(seen.id, seen.x, seen.y):
        assert np.hypot(x - true_dots[number][0], y - true_dots[number][1]) < 0.3
    assert seen.overlay(ring.left[0]).dtype == np.uint8 and seen.overlay(ring.left[0]).shape[2] == 3
    assert seen.binary.shape == seen.working_size[::-1] and set(np.unique(seen.binary)) == {0, 255}


def test_refined_centres_are_nearer_to_the_truth(ring, tmp_path):
    (tmp_path / "calib.json").write_text(ring.calibration)
    camera = polarline.import_calibration(tmp_path / "calib.json").calibration.left
    seen = polarline.detect(ring.left[0], ring.target)
    refined = polarline.refine(ring.left[0], ring.target, camera, type=1)
    true_dots = {dot[0]: dot[4] for dot in ring.truth["pairs"][0]["dots"]}
    wanted = np.array([true_dots[number] for number in refined.id])
    good = np.array(refined.state) == "refined"
    assert list(refined.id) == list(seen.id) and good.mean() > 0.9

    def error(dots):
        return np.hypot(*(np.stack([dots.x, dots.y], axis=1) - wanted)[good].T).mean()

    assert error(refined) < error(seen) / 2
    assert (refined.xx[good] > 0).all() and np.isnan(refined.xx[~good]).all() and not refined.x.flags.writeable
    with pytest.raises(polarline.InputError, match="type"):
        polarline.refine(ring.left[0], ring.target, camera, type=3)


def test_failed_detection_says_where(ring):
    seen = polarline.detect(np.full((256, 320), 90, np.uint8), ring.target)
    assert not seen.found and seen.text and seen.advice and seen.step != "done" and len(seen.x) == 0
    assert [stage.state for stage in seen.stages].count("stopped") == 1


def test_target_is_its_text():
    target = polarline.Target("rings-small:17x15:14")
    assert (target.cols, target.rows, target.step, target.step_y) == (17, 15, 14.0, 14.0)
    x, y = np.meshgrid(np.arange(17) * 14.0, np.arange(15) * 14.0)
    np.testing.assert_array_equal(target.points, np.stack([x.ravel(), y.ravel(), np.zeros(255)], axis=1))
    assert polarline.Target(target.text).text == target.text
    with pytest.raises(polarline.InputError, match="squares"):
        polarline.Target("squares:3x3:1")


def test_target_reads_and_detects(ring_set, ring):
    target = polarline.Target.read(ring_set / "target.ini")
    assert list(polarline.detect(ring.left[0], target).id) == list(polarline.detect(ring.left[0], ring.target).id)
    with pytest.raises(ValueError, match="rings: found huge, wanted one of"):
        polarline.Target.read(ring_set / "target.ini", rings="huge")


@pytest.mark.parametrize("ending, begin", [("svg", b"<?xml"), ("pdf", b"%PDF"), ("png", b"\x89PNG")])
def test_board_is_the_commands(tmp_path, ending, begin):
    mine, theirs = tmp_path / f"mine.{ending}", tmp_path / f"theirs.{ending}"
    printed = polarline.board(polarline.Target("rings-small:17x15:5"), mine, dpi=100)
    command("board", "--board", "rings-small:17x15:5", "-o", theirs, "--dpi", 100)
    assert mine.read_bytes() == theirs.read_bytes() == printed.data and printed.data.startswith(begin)
    assert printed.width > 80 and printed.paper == "own size"


def test_board_refuses_a_small_sheet():
    with pytest.raises(polarline.InputError, match="A4"):
        polarline.board(polarline.Target("rings-small:17x15:40"), paper="A4")


def test_calibration_goes_to_opencv_and_back(tmp_path):
    camera = polarline.Camera(fx=500.5, fy=501.25, cx=320, cy=240, k=(0.1, -0.2, 0.01, 0, 0, 0), p1=1e-4, size=(640, 480))
    calibration = polarline.Calibration(camera, camera.replace(cx=330.0), rx=0.01, tx=-60.0, ty=0.5)
    assert calibration.baseline == pytest.approx(np.hypot(60, 0.5), abs=1e-12)
    (tmp_path / "pair.yml").write_text(calibration.to_opencv())
    back = polarline.import_calibration(tmp_path / "pair.yml")
    assert back.format == "opencv" and back.calibration.right.cx == 330.0 and back.calibration.left.size == (640, 480)
    assert back.calibration.left.k == (0.1, -0.2, 0.01, 0.0, 0.0, 0.0) and back.calibration.rx == pytest.approx(0.01, abs=1e-15)
    scaled = polarline.import_calibration(tmp_path / "pair.yml", scale=1000).calibration
    assert scaled.tx == pytest.approx(-60000)
    swapped = polarline.import_calibration(tmp_path / "pair.yml", swap=True).calibration
    assert swapped.left.cx == 330.0 and swapped.tx > 0
    with pytest.raises(TypeError, match="found ry_; wanted left"):
        calibration.replace(ry_=1)


def test_import_is_the_commands(tmp_path, ring_set):
    mine = polarline.import_calibration(ring_set / "calib.json")
    _, document = command("import", ring_set / "calib.json", "--json", "-")
    assert json.loads(mine.to_json()) == json.loads(document)
    assert mine.calibration.to_json() == polarline.import_calibration(ring_set / "calib.json", format="polarline").calibration.to_json()


def test_simulation_in_memory_is_that_on_disk(ring_set, ring):
    assert polarline.read_picture(ring_set / "right_1.png").tolist() == ring.right[1].tolist()
    assert (ring_set / "polar.txt").read_text() == ring.polar and (ring_set / "board_gt.txt").read_text() == ring.board
    assert json.loads((ring_set / "truth.json").read_text()) == ring.truth


def test_simulation_is_the_commands(tmp_path, ring_set):
    command("simulate", "ring_320", tmp_path / "theirs")
    for file in ring_set.iterdir():
        assert file.read_bytes() == (tmp_path / "theirs" / file.name).read_bytes(), file.name


def test_simulation_tells_its_progress_and_refuses_a_full_folder(tmp_path):
    told = []
    made = polarline.simulate("ring_320", tmp_path / "set", pairs=3, seed=5, progress=lambda *each: told.append(each))
    assert told == [(1, 3), (2, 3), (3, 3)] and (made.pairs, made.seed, made.name) == (3, 5, "ring_320")
    with pytest.raises(polarline.InputError, match="set"):
        polarline.simulate("ring_320", tmp_path / "set")
    polarline.simulate("ring_320", tmp_path / "set", force=True, pairs=1)


def test_check_comes_near_the_truth(ring_set, checked):
    for pair, truth in zip(checked.pairs, polarline.truth_of(ring_set)):
        assert pair.figures.dy_means == pytest.approx(truth.dy_means, abs=0.1)
        assert pair.refined.figures.zero_dis == pytest.approx(truth.zero_dis, rel=1e-3)


def test_explanations(capfd):
    (meaning,) = polarline.explain("too_few_shared")
    assert meaning.code == "-9" and meaning.advice
    assert polarline.explain(-9)[0].name == meaning.name and polarline.explain("nothing of ours") == ()


def test_lists_of_names():
    assert "dy_means" in polarline.limit_names() and "crop" in polarline.setting_keys()
    assert "opencv" in polarline.calibration_formats() and "dots" in polarline.board_kinds()
    assert polarline.main_figures()[0] in polarline.limit_names()
