"""Sets made of pictures, a board and a calibration."""

import json

import pytest

import polarline
from conftest import command

BOARD = "rings-small:17x15:14"


@pytest.fixture
def made_of(ring_set):
    """What people have."""
    return ring_set / "left_*.png", ring_set / "right_*.png", BOARD, ring_set / "calib.json"


def test_set_is_the_commands(tmp_path, made_of):
    left, right, board, calibration = made_of
    (tmp_path / "mine").mkdir()
    (tmp_path / "theirs").mkdir()
    mine = polarline.init(tmp_path / "mine/set", *made_of, limits="dy_means<=0.1")
    _, document = command("init", tmp_path / "theirs/set", "--left", left, "--right", right, "--board", board,
                          "--calibration", calibration, "--limit", "dy_means<=0.1", "--json", "-")
    theirs = json.loads(document.replace(b"/theirs/", b"/mine/"))
    assert json.loads(mine.to_json()) == theirs
    for name in mine.files:
        assert (tmp_path / "mine/set" / name).read_bytes() == (tmp_path / "theirs/set" / name).read_bytes(), name
    assert "limits.txt" in mine.files and polarline.check(tmp_path / "mine/set").judged == 1


def test_members_are_those_of_the_document(tmp_path, made_of):
    made = polarline.init(tmp_path / "set", *made_of)
    document = json.loads(made.to_json())
    assert [(pair.left, pair.right, pair.listed_left, pair.listed_right) for pair in made.pairs] == [
        tuple(pair[key] for key in ("left", "right", "listed_left", "listed_right")) for pair in document["pairs"]]
    assert (made.size, made.channels, made.bits, made.expected) == ((320, 256), 1, 8, 255) and made.board == document["board"]["text"]
    for side in ("left", "right"):
        seen, wanted = getattr(made, side), document["first_pair"][side]
        assert {name: getattr(seen, name) for name in wanted} == wanted and seen.found == 255
    for key in ("type", "model", "baseline"):
        assert getattr(made, key) == document["calibration"][key]
    for key in ("folder", "corners", "guesses", "files", "next"):
        value = getattr(made, key)
        assert (list(value) if isinstance(value, tuple) else value) == document[key]
    assert made.calibration_format == "polarline" and [each.code for each in made.warnings] == [each["code"] for each in document["warnings"]]
    assert made.next in str(made) and made.alone_left == made.alone_right == ()


def test_pictures_may_be_named_one_by_one(tmp_path, ring_set):
    made = polarline.init(tmp_path / "set", [ring_set / "left_1.png"], ring_set / "right_1.png", polarline.Target(BOARD),
                          [ring_set / "calib.json"], pairing="order", copy=True)
    assert len(made.pairs) == 1 and (tmp_path / "set" / made.pairs[0].listed_left).read_bytes() == (ring_set / "left_1.png").read_bytes()


def test_calibration_is_taken_as_import_takes_it(tmp_path, made_of):
    *pictures, calibration = made_of
    pose = json.loads(calibration.read_text())["IR_R"]["Translate"]
    baseline = sum(value * value for value in pose.values()) ** 0.5
    assert polarline.init(tmp_path / "far", *pictures, calibration).baseline == pytest.approx(baseline, rel=1e-6)
    opencv = tmp_path / "pair.yml"
    opencv.write_text(polarline.import_calibration(calibration, scale=1).calibration.to_opencv())
    assert polarline.init(tmp_path / "scaled", *pictures, opencv, scale=0.5, size=(320, 256)).baseline == pytest.approx(baseline / 2, rel=1e-6)


def test_progress_ends_it_without_a_trace(tmp_path, made_of):
    told = []

    def stop(done, pictures):
        told.append((done, pictures))
        if done == 3:
            raise LookupError("mine")

    with pytest.raises(LookupError, match="mine"):
        polarline.init(tmp_path / "set", *made_of, progress=stop)
    assert told == [(1, 4), (2, 4), (3, 4)] and not any(tmp_path.iterdir())


def test_refusals_are_told(tmp_path, made_of):
    polarline.init(tmp_path / "set", *made_of)
    with pytest.raises(polarline.InputError, match="set"):
        polarline.init(tmp_path / "set", *made_of)
    polarline.init(tmp_path / "set", *made_of, force=True)
    left, right, _, calibration = made_of
    with pytest.raises(polarline.InputError, match="no_such"):
        polarline.init(tmp_path / "other", "no_such_*.png", right, BOARD, calibration)
    with pytest.raises(polarline.InputError, match="sideways"):
        polarline.init(tmp_path / "other", left, right, BOARD, calibration, pairing="sideways")
    with pytest.raises(TypeError, match="left: found 7; a path"):
        polarline.init(tmp_path / "other", 7, right, BOARD, calibration)
    with pytest.raises(TypeError, match="Target.read reads a file"):
        polarline.init(tmp_path / "other", left, right, tmp_path / "target.ini", calibration)
    assert {each.name for each in tmp_path.iterdir()} == {"set"}
