"""Constants that may stand in one another's place."""

import re

from mutation.code import masked

ENUM = re.compile(r"\benum (class |)(\w+)[^;{]*\{([^}]*)\}")
OF_OTHERS = [line.split() for line in """
cv::COLOR_BGR2GRAY cv::COLOR_RGB2GRAY
cv::COLOR_BGRA2GRAY cv::COLOR_RGBA2GRAY
cv::COLOR_BGRA2BGR cv::COLOR_RGBA2BGR
cv::COLOR_GRAY2BGR cv::COLOR_GRAY2BGRA
cv::INTER_LINEAR cv::INTER_NEAREST
cv::BORDER_DEFAULT cv::BORDER_REPLICATE cv::BORDER_CONSTANT
cv::THRESH_BINARY cv::THRESH_BINARY_INV
cv::THRESH_OTSU cv::THRESH_TRIANGLE
cv::ADAPTIVE_THRESH_MEAN_C cv::ADAPTIVE_THRESH_GAUSSIAN_C
cv::RETR_EXTERNAL cv::RETR_LIST cv::RETR_CCOMP cv::RETR_TREE
cv::CHAIN_APPROX_NONE cv::CHAIN_APPROX_SIMPLE
cv::CMP_LT cv::CMP_LE
cv::SORT_EVERY_ROW cv::SORT_EVERY_COLUMN
cv::SORT_ASCENDING cv::SORT_DESCENDING
cv::FILLED cv::LINE_4 cv::LINE_8 cv::LINE_AA
cv::FONT_HERSHEY_SIMPLEX cv::FONT_HERSHEY_PLAIN
cv::IMREAD_UNCHANGED cv::IMREAD_GRAYSCALE
cv::SOLVEPNP_ITERATIVE cv::SOLVEPNP_EPNP
cv::CALIB_ZERO_DISPARITY cv::CALIB_USE_INTRINSIC_GUESS
CV_8U CV_8S
CV_8UC1 CV_8UC3 CV_8UC4
CV_16UC1 CV_16SC1
CV_16SC2 CV_32FC2 CV_64FC2
CV_32F CV_64F
CV_32FC1 CV_64FC1
std::ios::app std::ios::trunc
std::ios::badbit std::ios::failbit std::ios::eofbit
""".strip().splitlines()]


def of_enums(mask):
    for scope, name, body in ENUM.findall(mask):
        members = re.findall(r"\bk\w+", body)
        yield [f"{name}::{member}" for member in members] if scope else members


def of_statuses(mask):
    for body in re.findall(r"^namespace polar_status \{(.*?)^\}", mask, re.DOTALL | re.MULTILINE):
        yield ["polar_status::" + name for name in re.findall(r"\b(k\w+) = ", body)]


def of_sides(mask):
    names = set(re.findall(r"\bk\w+\b", mask))
    for name in sorted(names):
        if "Left" in name and name.replace("Left", "Right") in names:
            yield [name, name.replace("Left", "Right")]


def of_alike(mask):
    """Texts, and numbers of one type, that a header declares beside one another."""
    declared = re.findall(r"^inline constexpr (const char\*|[\w:]+) (k\w+) = ", mask, re.MULTILINE)
    for kind in sorted({kind for kind, _ in declared}):
        yield [name for of, name in declared if of == kind]


def families(texts):
    """The tables' families and those that the texts of our own sources declare."""
    masks = [masked(text) for text in texts]
    return OF_OTHERS + [family for mask in masks for of in (of_enums, of_statuses, of_sides, of_alike) for family in of(mask) if len(family) > 1]
