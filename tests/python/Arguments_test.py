"""Arguments that are wrong are named, with what was found and wanted."""

import pathlib

import numpy as np
import pytest

import polarline

PICTURE = np.zeros((6, 8), np.uint8)

CHECKS = [({"limits": 5}, "limits: found 5; a text such as 'dy_means<=0.1'"), ({"limits": {"dy_means": 1}}, "limits: found dict"),
          ({"limits": [1]}, "limits: found list"), ({"settings": 5}, "settings: found 5; a mapping"),
          ({"refine": "no"}, "refine: found str; True or False"), ({"diagnose": None}, "diagnose: found NoneType"),
          ({"pairs": 0}, r"pairs: found 0; \(first, last\)"), ({"pairs": (-1, 0)}, r"pairs: found \(-1, 0\)"),
          ({"pairs": (0.0, 1.0)}, "pairs: found"), ({"progress": True}, "progress: found True; a callable"),
          ({"left": PICTURE, "right": PICTURE}, r"left: found uint8 of shape \(6, 8\); a sequence of pictures"),
          ({"left": np.zeros((6, 8, 3), np.uint8), "right": []}, r"left: found uint8 of shape \(6, 8, 3\)"),
          ({"left": pathlib.Path("left.png"), "right": []}, "left: found PosixPath; a sequence of pictures"),
          ({"left": [], "right": 7}, "right: found 7; a sequence of pictures")]


@pytest.mark.parametrize("options, text", CHECKS, ids=lambda each: each if isinstance(each, str) else "")
def test_wrong_argument_of_a_check_is_named(ring, options, text):
    with pytest.raises(TypeError, match=text):
        polarline.check(ring, **options)


def test_arguments_of_a_kind_are_taken(ring):
    limits = (text for text in ["dy_means<=5"])
    check = polarline.check(ring, iter(ring.left), iter(ring.right), limits=limits, pairs=[0, np.int64(0)], refine=np.bool_(False),
                            settings={"discalsave": False, "eccentricity": np.True_}, diagnose=False, uncertainty=False)
    assert check.settings["eccentricity"] == 1 and check.settings["discalsave"] == 0
    assert len(check.limits) == 1 and len(check.pairs) == 1


def test_wrong_member_of_a_set_is_named(ring_set):
    imported = polarline.import_calibration(ring_set / "calib.json")
    for wrong, text in (({"calibration": imported}, "calibration: found ImportedCalibration; its member `calibration`"),
                        ({"target": 7}, "target: found 7; a Target or a path"), ({"polar": 5.5}, "polar: found 5.5; a path")):
        with pytest.raises(TypeError, match=text):
            polarline.check(polarline.Set(ring_set, **wrong))


def test_wrong_argument_of_a_simulation_is_named():
    with pytest.raises(TypeError, match="pairs: found 2.0; a whole number"):
        polarline.simulate("ring_320", pairs=2.0)
    with pytest.raises(polarline.InputError, match="seed: found -1"):
        polarline.simulate("ring_320", seed=-1)
    with pytest.raises(TypeError, match="progress: found 3"):
        polarline.simulate("ring_320", progress=3)


@pytest.fixture(scope="module")
def calibration(ring_set):
    return polarline.import_calibration(ring_set / "calib.json").calibration


REFINES = [({"camera": None}, "camera: found NoneType; a Camera"), ({"type": "fisheye"}, "type: found str; a whole number"),
           ({"type": None}, "type: found NoneType"), ({"detection": 3}, "detection: found 3; a Detection")]


@pytest.mark.parametrize("wrong, text", REFINES)
def test_wrong_argument_of_refining_is_named(ring, calibration, wrong, text):
    with pytest.raises(TypeError, match=f"^{text}"):
        polarline.refine(ring.left[0], ring.target, **{"camera": calibration.left, **wrong})


MEMBERS = [({"rx": "a"}, "rx: found str; a number"), ({"tx": None}, "tx: found NoneType"), ({"left": 3}, "left: found 3; a Camera"),
           ({"type": 1.5}, "type: found 1.5; a whole number")]
MEMBERS_OF_CAMERA = [({"fx": "600"}, "fx: found str; a number"), ({"k": 3}, "k: found 3; six numbers"), ({"k": [0, 0, "a", 0, 0, 0]}, r"k\[2\]: found str"),
                     ({"k": [0.1]}, "k: found 1 numbers; six"), ({"size": 320}, r"size: found 320; \(columns, rows\)"), ({"size": None}, "size: found NoneType")]


@pytest.mark.parametrize("wrong, text", MEMBERS + MEMBERS_OF_CAMERA)
def test_wrong_new_member_is_named(calibration, wrong, text):
    with pytest.raises(TypeError, match=f"^{text}"):
        (calibration if (wrong, text) in MEMBERS else calibration.left).replace(**wrong)


def test_new_members_of_a_kind_are_taken(calibration):
    camera = calibration.left.replace(fx=600, k=np.zeros(6), size=[320, 256])
    changed = calibration.replace(rx=np.float32(0.25), tx=-60, left=camera, type=np.int64(1))
    assert (camera.fx, camera.k, camera.size) == (600.0, (0.0,) * 6, (320, 256))
    assert (changed.rx, changed.tx, changed.left, changed.type) == (0.25, -60.0, camera, 1)


def test_wrong_number_or_text_is_named(ring_set):
    file = ring_set / "calib.json"
    for call, text in ((lambda: polarline.Target(3), "text: found int; a board in words"),
                       (lambda: polarline.board("dots:9x7:10", dpi="x"), "dpi: found str; a number"),
                       (lambda: polarline.board("dots:9x7:10", title=3), "title: found 3; a text"),
                       (lambda: polarline.import_calibration(file, scale="x"), "scale: found str; a number"),
                       (lambda: polarline.import_calibration(file, baseline=[60]), "baseline: found list; a number"),
                       (lambda: polarline.import_calibration(file, format=3), "format: found 3; a text"),
                       (lambda: polarline.init("set", "l", "r", "dots:9x7:10", file, pairing=1), "pairing: found 1; a text"),
                       (lambda: polarline.simulate("ring_320", noise="a"), "noise: found str; a number"),
                       (lambda: polarline.batch([ring_set], "store", claim_timeout="x"), "claim_timeout: found str; a number"),
                       (lambda: polarline.report([], "page.html", title=3), "title: found 3; a text"),
                       (lambda: polarline.report([], "page.html", budget="x"), "budget: found str; a whole number"),
                       (lambda: polarline.scene_file("ring_320", noise="0.5"), "noise: found str; a number")):
        with pytest.raises(TypeError, match=f"^{text}"):
            call()


def test_board_may_be_said_in_words(ring, tmp_path):
    words = polarline.Target.read(write(tmp_path / "target.ini", ring.target)).text
    assert list(polarline.detect(ring.left[0], words).id) == list(polarline.detect(ring.left[0], ring.target).id)
    printed = polarline.board(words, tmp_path / "board.SVG", paper="A2")
    assert (tmp_path / "board.SVG").read_bytes() == printed.data == polarline.board(polarline.Target(words), paper="A2").data


def write(path, text):
    path.write_text(text)
    return path


def test_wrong_board_is_named(tmp_path):
    board = polarline.Target("dots:9x7:10")
    for name in ("board.jpg", "board"):
        with pytest.raises(polarline.InputError, match=f"{name}: wanted svg, pdf or png"):
            polarline.board(board, tmp_path / name)
    with pytest.raises(polarline.InputError, match="paper: found a4, wanted one of A4"):
        polarline.board(board, paper="a4")
    with pytest.raises(TypeError, match="target: found NoneType"):
        polarline.board(None)
    assert list(tmp_path.iterdir()) == []


def test_two_files_of_an_import_have_their_form(ring_set):
    with pytest.raises(TypeError, match=r"size: found 320; \(columns, rows\)"):
        polarline.import_calibration(ring_set / "calib.json", size=320)
