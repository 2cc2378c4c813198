#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "polarline/api.h"
#include "polarline/warning.h"

/// One picture of a board: what the detector sees in it, and where it stopped.
namespace polarline {

/// A numbered dot. Pixels of the picture: x is the column, y the row, the centre of the upper left pixel is (0, 0).
struct Dot {
  int id = 0;  ///< row * columns + column of the board. Also beyond the board, where specks beside it were numbered.
  int row = 0;
  int column = 0;
  double x = 0.0;
  double y = 0.0;
};

/// An ellipse that the detector fitted to an outline, numbered or not. Pixels of the picture.
struct SeenEllipse {
  double x = 0.0;      ///< Centre.
  double y = 0.0;      ///< Centre.
  double a = 0.0;      ///< First semi-axis.
  double b = 0.0;      ///< Second semi-axis.
  double angle = 0.0;  ///< Of the first semi-axis from the x axis towards the y axis, radians.
  /// "dot", "ring", "solid_ring", "big_dot"; "unknown": like a marker, but none; "rejected": of no class.
  std::string kind;
  bool marker = false;  ///< Recognised as one of the board's markers.
};

/// What became of the outlines. Outlines within one that was refused as too short, or was fitted, are not looked at.
struct ContourTally {
  std::size_t traced = 0;      ///< All outlines of the two-valued picture.
  std::size_t too_short = 0;   ///< Specks.
  std::size_t not_round = 0;   ///< Too long, or not round enough.
  std::size_t not_fitted = 0;  ///< No ellipse of a mark's shape fits.
  std::size_t inexact = 0;     ///< Fitted, but too far off the outline, or over the picture's edge.
  std::size_t accepted = 0;    ///< Became an ellipse.
};

/// The ellipses by class.
struct ClassTally {
  std::size_t dots = 0;
  std::size_t rings = 0;
  std::size_t solid_rings = 0;
  std::size_t big_dots = 0;
  std::size_t unknown = 0;
  std::size_t rejected = 0;
};

/// A step of the detection and how it went.
struct DetectionStage {
  std::string name;   ///< As `Detection::step`.
  std::string state;  ///< "passed", "stopped", or "not reached".
  std::string text;   ///< What it saw, in numbers.
};

/// The board as the target describes it.
struct DetectedBoard {
  int type = 0;  ///< 1, 2: ring boards; 3: board with four big dots.
  int rows = 0;
  int columns = 0;
  double step = 0.0;    ///< Pitch along a row, board units.
  double step_y = 0.0;  ///< Pitch of the rows, board units.
};

/// What the detector saw in one picture.
struct Detection {
  bool found = false;  ///< One dot or more was numbered.
  /// Where it stopped: "image", "contours", "ellipses", "markers", "arrangement", "seed", "growth", "search", "filter";
  /// "done" when it did not.
  std::string step = "image";
  std::string text;    ///< The outcome in words: what was needed and what was found.
  std::string advice;  ///< What to do about it; empty for `found`.
  std::vector<Warning> warnings;
  std::vector<DetectionStage> stages;  ///< All steps that this board's detection has, in their order.

  DetectedBoard board;
  cv::Size size;            ///< Of the picture.
  cv::Size working_size;    ///< Of the picture as it was searched: enlarged, halved or as it is; empty if it never was.
  double dot_radius = 0.0;  ///< Median semi-axis of the dots, pixels of the picture; 0 without dots.

  std::vector<Dot> dots;     ///< By rising id. An id is there twice where specks beside the board were numbered.
  std::vector<int> missing;  ///< The ids of the board that no dot has, rising.
  ContourTally contours;
  ClassTally classes;
  std::vector<SeenEllipse> ellipses;  ///< All, in the detector's order.
  cv::Mat binary;                     ///< Two-valued, 8-bit, of `working_size`; empty where there is none.
};

/// Reads a picture with its pixels as they are stored. Throws `InputError` for a path that is no picture.
POLARLINE_API cv::Mat readPicture(const std::string& path);

/// Finds and numbers the dots of a board exactly as a run does; prints nothing.
/// @param image   8-bit grey, BGR or BGRA, or 16-bit grey, brought to 8 bits as a run does it. A picture that can't be
///                searched, empty or of another type, too, gives a detection that stopped at "image".
/// @param target  Path of a target configuration (ini, json, yml, yaml or xml), or its text, `key: value` lines.
/// Throws `InputError` for a target that can't be used.
POLARLINE_API Detection detect(const cv::Mat& image, const std::string& target);

/// The picture with its numbered dots, BGR: each dot's centre and outline, the rows joined, as many ids as there is
/// room for (corners first), the markers and the ellipses without a number in colours of their own. A small picture is
/// enlarged by a whole number. Works on every picture that `readPicture` gives.
POLARLINE_API cv::Mat overlay(const cv::Mat& image, const Detection& detection);

/// The picture with all ellipses in the colours of their classes, BGR, under a legend with the count of each class.
POLARLINE_API cv::Mat ellipsesPicture(const cv::Mat& image, const Detection& detection);

/// A picture as the content of a PNG file. Precondition: 8-bit, not empty.
POLARLINE_API std::string pngOf(const cv::Mat& picture);

/// Writes the pictures of a detection into a folder, which is made where there is none: NAME_overlay.png where dots
/// were found; where none were, NAME_ellipses.png and NAME_binary.png; with `all` the three of them. A picture of which
/// there is nothing is left out. Returns the paths written. Throws `OutputError`.
POLARLINE_API std::vector<std::string> writePictures(const cv::Mat& image, const Detection& detection,
                                                     const std::string& folder, const std::string& name,
                                                     bool all = false);

/// The dots as CSV: the line "id,row,column,x,y", then a line a dot; each number reads back to the same double.
POLARLINE_API std::string pointsCsv(const Detection& detection);

/// The detection as one JSON object, `schema` "polarline-detect/1" (docs/schema/polarline-detect-1.schema.json),
/// without the binary picture. The names are told as they are; bytes that are no UTF-8 are replaced.
POLARLINE_API std::string detectionJson(const Detection& detection, const std::string& image_name,
                                        const std::string& target_name);

/// The detection as a table to read: a line a step, the outcome, advice and warnings.
POLARLINE_API std::string detectionTable(const Detection& detection);

}  // namespace polarline
