"""Pictures as arrays: which are taken, and that nothing is copied where that is not needed."""

import tracemalloc

import numpy as np
import pytest

import polarline
from conftest import PROJECT
from polarline import _polarline


def address(array):
    return array.__array_interface__["data"][0]


GREY = np.arange(48, dtype=np.uint8).reshape(6, 8)
WIDE = np.zeros((6, 20), np.uint16)
COLOUR = np.zeros((6, 8, 3), np.uint8)

SHARED = {"whole": GREY, "part of each row": GREY[:, 2:7], "every second row": GREY[::2], "16 bit part": WIDE[1:, 3:11],
          "colour": COLOUR, "part of colour": COLOUR[1:4, 2:5], "four channels": np.zeros((4, 5, 4), np.uint8),
          "one channel": GREY[:, :, np.newaxis], "one row": GREY[2:3, 1:], "one column": GREY[:, 3:4]}
COPIED = {"upside down": GREY[::-1], "mirrored": GREY[:, ::-1], "every second column": GREY[:, ::2],
          "columns first": np.asfortranarray(GREY), "channels reversed": COLOUR[:, :, ::-1],
          "two channels of four": np.zeros((4, 5, 4), np.uint8)[:, :, 1:], "other bytes": WIDE.astype(">u2")}
del COPIED["two channels of four"]


@pytest.mark.parametrize("name", SHARED)
def test_pixels_are_read_where_they_are(name):
    assert _polarline.picture_address(SHARED[name]) == address(SHARED[name])
    locked = SHARED[name].view()
    locked.flags.writeable = False
    assert _polarline.picture_address(locked) == address(locked)


@pytest.mark.parametrize("name", COPIED)
def test_only_what_lies_otherwise_is_copied(name):
    assert _polarline.picture_address(COPIED[name]) != address(COPIED[name])


def peak_of(work):
    tracemalloc.start()
    work()
    peak = tracemalloc.get_traced_memory()[1]
    tracemalloc.stop()
    return peak


def test_no_memory_is_taken_for_pictures_in_order():
    big = np.zeros((2000, 3000), np.uint8)  # numpy tells tracemalloc of each array.
    assert peak_of(lambda: _polarline.picture_address(big)) < 100_000
    assert peak_of(lambda: _polarline.picture_address(big[:, 5:2900])) < 100_000
    assert peak_of(lambda: _polarline.picture_address(big[:, ::-1])) > big.nbytes


def layouts(picture):
    """The same pixels, laid otherwise."""
    wide = np.full((picture.shape[0], picture.shape[1] + 9), 255, picture.dtype)
    wide[:, 4:-5] = picture
    return {"part": wide[:, 4:-5], "columns first": np.asfortranarray(picture),
            "turned back": np.ascontiguousarray(picture[::-1, ::-1])[::-1, ::-1],
            "other bytes": picture.astype(picture.dtype.newbyteorder(">"))}


@pytest.mark.parametrize("preset", ["ring_320", "big_1280_10bit"])
def test_figures_do_not_hang_on_the_layout(preset):
    seen = polarline.simulate(preset, pairs=1)
    wanted = polarline.check(seen, diagnose=False).to_dict()["pairs"]
    for name, left in layouts(seen.left[0]).items():
        assert polarline.check(seen, [left], [seen.right[0]], diagnose=False).to_dict()["pairs"] == wanted, name


def test_colour_and_grey_of_the_same_board(ring):
    grey = polarline.detect(ring.left[0], ring.target)
    for channels in (3, 4):
        colour = polarline.detect(np.repeat(ring.left[0][:, :, np.newaxis], channels, axis=2), ring.target)
        assert colour.found and list(colour.id) == list(grey.id)


def test_check_takes_figures_from_colours(ring):
    grey = polarline.check(ring, settings={"triangulate_residual_switch": 0}).pairs[0].figures
    for channels in (3, 4):
        left, right = ([np.repeat(each[:, :, np.newaxis], channels, axis=2) for each in side] for side in (ring.left, ring.right))
        with pytest.raises(polarline.RunError, match="triangulate_residual_switch.* want grey pictures"):
            polarline.check(ring, left, right)
        seen = polarline.check(ring, left, right, settings={"triangulate_residual_switch": 0})
        assert seen.verdict == "pass" and all(pair.finished for pair in seen.pairs)
        assert seen.pairs[0].figures.dy_means == pytest.approx(grey.dy_means, abs=0.005)


def test_check_of_colours_stands_in_the_page():
    assert '`settings={"triangulate_residual_switch": 0}`' in (PROJECT / "docs/python.md").read_text()


def test_pixels_are_not_changed(ring):
    before = [each.copy() for each in ring.left]
    polarline.check(ring, refine=True)
    for picture, kept in zip(ring.left, before):
        np.testing.assert_array_equal(picture, kept)


REFUSED = {"list": ([[1, 2], [3, 4]], "found list"), "float": (np.zeros((4, 5)), r"found float64 of shape \(4, 5\)"),
           "bool": (np.zeros((4, 5), bool), "found bool"), "signed": (np.zeros((4, 5), np.int16), "found int16"),
           "two channels": (np.zeros((4, 5, 2), np.uint8), r"\(4, 5, 2\)"), "none": (None, "found NoneType"),
           "empty": (np.zeros((0, 5), np.uint8), r"\(0, 5\)"), "row": (np.zeros(5, np.uint8), r"\(5,\)"),
           "wide": (np.zeros((4, 5), np.uint32), "found uint32"),
           "16 bit colour": (np.zeros((4, 5, 3), np.uint16), r"found uint16 of shape \(4, 5, 3\)"),
           "16 bit, four channels": (np.zeros((4, 5, 4), np.uint16), r"found uint16 of shape \(4, 5, 4\)")}


@pytest.mark.parametrize("name", REFUSED)
def test_what_is_no_picture_is_refused_in_words(name, ring):
    given, found = REFUSED[name]
    with pytest.raises(TypeError, match=rf"image: .*{found}.*a numpy array was wanted: uint8 grey or colour, or uint16 grey"):
        polarline.detect(given, ring.target)
    with pytest.raises(TypeError, match=rf"right\[1\]: .*{found}"):
        polarline.check(ring, ring.left, [ring.right[0], given])


def test_sides_go_together(ring):
    with pytest.raises(TypeError, match="right: found None"):
        polarline.check(ring, ring.left)
    with pytest.raises(polarline.RunError, match="2 left and 1 right"):
        polarline.check(ring, ring.left, ring.right[:1])


def test_pictures_of_a_pair_are_of_one_type(ring):
    wide = ring.right[1].astype(np.uint16)
    with pytest.raises(TypeError, match=r"right\[1\]: found uint16 of shape \(256, 320\); .* of left\[1\] .* uint8 of shape \(256, 320\)"):
        polarline.check(ring, ring.left, [ring.right[0], wide])
    colour = np.repeat(ring.left[0][:, :, np.newaxis], 3, axis=2)
    with pytest.raises(TypeError, match=r"right\[0\]: found uint8 of shape \(256, 320\); .* uint8 of shape \(256, 320, 3\)"):
        polarline.check(ring, [colour, ring.left[1]], ring.right)
    one_channel = [each[:, :, np.newaxis] for each in ring.right]
    assert polarline.check(ring, ring.left, one_channel).verdict == "pass"


def test_stack_of_pictures_is_a_sequence(ring):
    stack = np.stack(ring.left), np.stack(ring.right)
    assert polarline.check(ring, *stack).verdict == "pass"
