#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "check/picture/Canvas.h"
#include "check/picture/Colours.h"
#include "check/picture/LabelLayout.h"
#include "polarline/detect.h"

namespace polarline {
namespace {

const cv::Scalar kRowColour(200, 140, 0);
const cv::Scalar kDotColour(0, 140, 0);
const cv::Scalar kUnnumberedColour(0, 0, 230);
const cv::Scalar kMarkerColour(200, 0, 200);
const cv::Scalar kLetterColour(80, 255, 255);
/// Canvas pixels that a dot's radius has at least, so that its outline and centre can be told apart.
constexpr double kLeastRadius = 6.0;
/// Every n-th row and column is labelled first, from the widest mesh down to every dot.
constexpr int kWidestMesh = 16;

/// The dots in the order in which their ids are wanted: the board's corners, then ever finer meshes.
std::vector<const Dot*> byImportance(const Detection& detection) {
  const auto rank = [&board = detection.board](const Dot& dot) {
    const bool at_side = dot.column == 0 || dot.column == board.columns - 1;
    if (at_side && (dot.row == 0 || dot.row == board.rows - 1)) return 0;
    int level = 1;
    for (int mesh = kWidestMesh; mesh > 1; mesh /= 2, ++level)
      if (dot.row % mesh == 0 && dot.column % mesh == 0) return level;
    return level;
  };
  std::vector<const Dot*> dots;
  for (const Dot& dot : detection.dots) dots.push_back(&dot);
  std::ranges::stable_sort(dots, {}, [&](const Dot* dot) { return rank(*dot); });
  return dots;
}

void drawRows(const Detection& detection, Canvas& canvas) {
  for (std::size_t i = 1; i < detection.dots.size(); ++i) {
    const Dot& before = detection.dots[i - 1];
    const Dot& dot = detection.dots[i];
    if (dot.id == before.id + 1 && dot.row == before.row) canvas.line({before.x, before.y}, {dot.x, dot.y}, kRowColour);
  }
}

void drawEllipses(const Detection& detection, Canvas& canvas) {
  std::set<std::pair<double, double>> numbered;
  for (const Dot& dot : detection.dots) numbered.emplace(dot.x, dot.y);
  for (const SeenEllipse& ellipse : detection.ellipses) {
    const cv::Scalar colour = ellipse.marker                              ? kMarkerColour
                              : numbered.contains({ellipse.x, ellipse.y}) ? kDotColour
                                                                          : kUnnumberedColour;
    canvas.outline({ellipse.x, ellipse.y}, ellipse.a, ellipse.b, ellipse.angle, colour);
  }
}

void drawIds(const Detection& detection, Canvas& canvas) {
  std::vector<LabelWish> wishes;
  for (const Dot* dot : byImportance(detection)) {
    const std::string id = std::to_string(dot->id);
    const cv::Point2d place = canvas.at({dot->x, dot->y});
    wishes.push_back({id, {cvRound(place.x), cvRound(place.y)}, canvas.sizeOf(id)});
  }
  for (const Label& label : layOut(wishes, canvas.picture().size()))
    canvas.text(label.text, {label.box.x, label.box.br().y}, kLetterColour);
}

}  // namespace

cv::Mat overlay(const cv::Mat& image, const Detection& detection) {
  if (image.empty()) return {};
  Canvas canvas(image, factorFor(image.size(), detection.dot_radius, kLeastRadius));
  drawRows(detection, canvas);
  drawEllipses(detection, canvas);
  const double reach = 3.0 / canvas.factor();
  for (const Dot& dot : detection.dots) canvas.cross({dot.x, dot.y}, reach, kDotColour);
  drawIds(detection, canvas);
  return canvas.picture();
}

}  // namespace polarline
