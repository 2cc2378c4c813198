#include <fmt/format.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "check/picture/Canvas.h"
#include "check/picture/LabelLayout.h"
#include "check/picture/LabelMesh.h"
#include "check/picture/Legend.h"
#include "check/picture/MissingPlaces.h"
#include "polarline/detect.h"

namespace polarline {
namespace {

const cv::Scalar kRowColour(200, 140, 0);
const cv::Scalar kDotColour(0, 140, 0);
const cv::Scalar kUnnumberedColour(0, 0, 230);
const cv::Scalar kMarkerColour(200, 0, 200);
const cv::Scalar kMissingColour(0, 130, 255);
const cv::Scalar kLetterColour(80, 255, 255);
/// Between two ids, canvas pixels.
constexpr int kBetweenIds = 8;

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

void drawMissing(const Detection& detection, Canvas& canvas) {
  for (const cv::Point2d& place : missingPlaces(detection)) canvas.cross(place, detection.dot_radius, kMissingColour);
}

void drawIds(const Detection& detection, Canvas& canvas) {
  const cv::Size widest = canvas.sizeOf(std::to_string(detection.board.rows * detection.board.columns));
  const cv::Size2d room((widest.width + kBetweenIds) / static_cast<double>(canvas.factor()),
                        widest.height / static_cast<double>(canvas.factor()));
  std::vector<LabelWish> wishes;
  for (const Dot* dot : labelledDots(detection, room)) {
    const std::string id = std::to_string(dot->id);
    const cv::Point2d place = canvas.at({dot->x, dot->y});
    wishes.push_back({id, {cvRound(place.x), cvRound(place.y)}, canvas.sizeOf(id)});
  }
  for (const Label& label : layOut(wishes, canvas.picture().size()))
    canvas.text(label.text, {label.box.x, label.box.br().y}, kLetterColour);
}

std::string titleOf(const Detection& detection) {
  const int all = detection.board.rows * detection.board.columns;
  return fmt::format("{} of {} dots numbered; id = row * {} + column", detection.dots.size(), all,
                     detection.board.columns);
}

}  // namespace

cv::Mat overlay(const cv::Mat& image, const Detection& detection) {
  if (image.empty()) return {};
  Canvas canvas(image, factorFor(image.size(), detection.dot_radius));
  drawRows(detection, canvas);
  drawEllipses(detection, canvas);
  drawMissing(detection, canvas);
  const double reach = 3.0 / canvas.factor();
  for (const Dot& dot : detection.dots) canvas.cross({dot.x, dot.y}, reach, kDotColour);
  drawIds(detection, canvas);
  return withLegend(canvas.picture(), titleOf(detection),
                    {{"numbered dots", kDotColour},
                     {"markers", kMarkerColour},
                     {"rows of the board", kRowColour},
                     {fmt::format("{} missing", detection.missing.size()), kMissingColour},
                     {"ellipses without a number", kUnnumberedColour}});
}

}  // namespace polarline
