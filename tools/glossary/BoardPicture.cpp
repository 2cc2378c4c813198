#include "tools/glossary/BoardPicture.h"

#include <algorithm>
#include <cstdint>
#include <opencv2/imgproc.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "tools/glossary/Legend.h"

namespace {

using kestrune::morvenkit::PointClass;
using Dot = kestrune::morvenkit::Ellipse<double>;

// Everything is drawn twice as large as the file shows it, which makes the letters smooth.
constexpr double kDrawnPerImage = 0.675;
constexpr int kDrawnWidth = 2040;
constexpr int kSignSize = 100;
constexpr double kIdSize = 0.75;

const cv::Scalar kInner(210, 100, 0);
const cv::Scalar kOuter(150, 0, 170);
const cv::Scalar kMiddle(40, 40, 235);
const cv::Scalar kAxes(0, 120, 0);
const cv::Scalar kOnInk = cv::Scalar::all(255);
const cv::Scalar kBlack(30, 30, 30);
const cv::Scalar kMadeUp(0, 0, 170);

cv::Point2d drawnFromImage(const cv::Point2d& pixel) {
  return {(pixel.x + 0.5) * kDrawnPerImage - 0.5, (pixel.y + 0.5) * kDrawnPerImage - 0.5};
}

/// A dot that a big marker covers: the library makes its place up, without an outline.
bool isMadeUp(const Dot& dot) { return dot.semi_a == 0.0; }

/// The picture under the pen.
struct Drawing {
  const NumberedBoard& numbered;
  cv::Mat picture;
  cv::Mat clean;  ///< As the camera saw it.

  const scene::Board& board() const { return numbered.board; }
  cv::Point2d at(double column, double row) const { return drawnFromImage(pixelOfPlace(board(), column, row)); }
};

Drawing drawingOf(const NumberedBoard& numbered) {
  Drawing drawing{numbered, {}, {}};
  cv::resize(numbered.image, drawing.clean, {}, kDrawnPerImage, kDrawnPerImage, cv::INTER_AREA);
  cv::cvtColor(drawing.clean, drawing.clean, cv::COLOR_GRAY2BGR);
  drawing.picture = drawing.clean.clone();
  return drawing;
}

/// What no line may cross, so that every id can be read: the dots and markers, and the places of covered dots.
cv::Mat keptFree(const Drawing& drawing) {
  constexpr double kCoveredPlace = 26.0;
  cv::Mat mask(drawing.clean.size(), CV_8UC1, cv::Scalar(0));
  for (const Dot& dot : drawing.numbered.dots) {
    const double radius = isMadeUp(dot) ? kCoveredPlace : (dot.semi_a + dot.semi_b) / 2.0 * kDrawnPerImage + 3.0;
    cv::circle(mask, drawnFromImage({dot.x, dot.y}), cvRound(radius), cv::Scalar(255), cv::FILLED);
  }
  return mask;
}

/// A rectangle of so many dots around the board's middle.
void drawRectangle(Drawing& drawing, int width, int height, const cv::Scalar& colour) {
  const int left = (drawing.board().cols - width) / 2;
  const int top = (drawing.board().rows - height) / 2;
  const int right = left + width - 1;
  const int bottom = top + height - 1;
  const std::vector<cv::Point> corners = {drawing.at(left, top), drawing.at(right, top), drawing.at(right, bottom),
                                          drawing.at(left, bottom)};
  cv::polylines(drawing.picture, corners, true, colour, 5, cv::LINE_AA);
  drawing.clean.copyTo(drawing.picture, keptFree(drawing));
}

void drawId(Drawing& drawing, const Dot& dot) {
  const bool on_ink = drawing.numbered.image.at<std::uint8_t>(cvRound(dot.y), cvRound(dot.x)) < 140;
  const cv::Scalar& on_paper = isMadeUp(dot) ? kMadeUp : kBlack;
  putTextAround(drawing.picture, std::to_string(dot.id), drawnFromImage({dot.x, dot.y}), kIdSize,
                on_ink ? kOnInk : on_paper);
}

void drawMiddle(Drawing& drawing) {
  const int column = drawing.numbered.middle % drawing.board().cols;
  const int row = drawing.numbered.middle / drawing.board().cols;
  cv::circle(drawing.picture, drawing.at(column, row), 46, kMiddle, 5, cv::LINE_AA);
}

/// Beside the first row and column, where they cover no id.
void drawAxes(Drawing& drawing) {
  const double off = -0.8;
  cv::arrowedLine(drawing.picture, drawing.at(off, off), drawing.at(2.0, off), kAxes, 5, cv::LINE_AA, 0, 0.1);
  cv::arrowedLine(drawing.picture, drawing.at(off, off), drawing.at(off, 2.0), kAxes, 5, cv::LINE_AA, 0, 0.1);
  putTextAround(drawing.picture, "x", drawing.at(2.3, off), 1.1, kAxes);
  putTextAround(drawing.picture, "y", drawing.at(off, 2.3), 1.1, kAxes);
}

template <typename Kind>
const Dot& firstOf(const Drawing& drawing, const Kind& kind) {
  const auto found = std::ranges::find_if(drawing.numbered.dots, kind);
  if (found == drawing.numbered.dots.end()) throw std::runtime_error("the board lacks a kind of dot");
  return *found;
}

/// The first dot of a class, cut out of the camera's picture.
cv::Mat signOf(const Drawing& drawing, PointClass point_class) {
  const Dot& first = firstOf(drawing, [&](const Dot& dot) { return dot.point_class == point_class && !isMadeUp(dot); });
  const int half = cvRound((first.semi_a + first.semi_b) / 2.0 * kDrawnPerImage) + 6;
  const cv::Point centre = drawnFromImage({first.x, first.y});
  cv::Mat sign = drawing.clean(cv::Rect(centre - cv::Point(half, half), cv::Size(2 * half, 2 * half)));
  if (2 * half > kSignSize) cv::resize(sign, sign, {kSignSize, kSignSize}, 0.0, 0.0, cv::INTER_AREA);
  return sign;
}

cv::Mat emptySign() { return {cv::Size(kSignSize, kSignSize), CV_8UC3, cv::Scalar::all(255)}; }

cv::Mat signOfRectangle(const cv::Scalar& colour) {
  cv::Mat sign = emptySign();
  cv::rectangle(sign, {10, 20}, {90, 80}, colour, 5, cv::LINE_AA);
  return sign;
}

cv::Mat signOfMiddle() {
  cv::Mat sign = emptySign();
  cv::circle(sign, {50, 50}, 40, kMiddle, 5, cv::LINE_AA);
  return sign;
}

cv::Mat signOfMadeUp(const Drawing& drawing) {
  cv::Mat sign = emptySign();
  putTextAround(sign, std::to_string(firstOf(drawing, isMadeUp).id), {50.0, 50.0}, kIdSize, kMadeUp);
  return sign;
}

cv::Mat signOfAxes() {
  cv::Mat sign = emptySign();
  cv::arrowedLine(sign, {10, 10}, {90, 10}, kAxes, 5, cv::LINE_AA, 0, 0.2);
  cv::arrowedLine(sign, {10, 10}, {10, 90}, kAxes, 5, cv::LINE_AA, 0, 0.2);
  return sign;
}

std::string spanned(int width, int height) { return std::to_string(width) + " x " + std::to_string(height) + " dots"; }

std::vector<LegendEntry> markers(const Drawing& drawing) {
  using namespace kestrune::morvenkit;
  if (drawing.board().kind == scene::BoardKind::kBigDots) {
    return {{signOf(drawing, kDot), {"dot"}},
            {signOf(drawing, kBigDot),
             {"big dot: three on corners of the", "inner rectangle, the fourth one", "column in"}}};
  }
  return {{signOf(drawing, kDot), {"dot"}},
          {signOf(drawing, kRing), {"ring: four, here small ones on", "the inner rectangle"}},
          {signOf(drawing, kSolidRing), {"solid ring: one, here a big one", "on the outer rectangle"}},
          {signOfMadeUp(drawing), {"covered by the big marker: its", "place is made up"}}};
}

std::vector<LegendEntry> entriesOf(const Drawing& drawing) {
  const scene::Board& board = drawing.board();
  const int middle = drawing.numbered.middle;
  std::vector<LegendEntry> entries = markers(drawing);
  entries.push_back({signOfRectangle(kInner), {"inner rectangle:", spanned(board.inner_width, board.inner_height)}});
  if (board.kind != scene::BoardKind::kBigDots) {
    entries.push_back(
        {signOfRectangle(kOuter), {"outer rectangle:", spanned(board.outter_width, board.outter_height)}});
  }
  entries.push_back({signOfMiddle(), {"middle dot"}});
  entries.push_back(
      {cv::Mat(),
       {"id = row * columns + column", std::to_string(middle) + " = " + std::to_string(middle / board.cols) + " * " +
                                           std::to_string(board.cols) + " + " + std::to_string(middle % board.cols)}});
  entries.push_back({signOfAxes(), {"board frame: origin in dot 0,", "x and y as shown, z into", "the board"}});
  return entries;
}

/// Sixteen steps a channel: the edges stay smooth, and the file halves.
void coarsen(cv::Mat& picture) {
  constexpr double kStep = 17.0;
  cv::Mat steps;
  picture.convertTo(steps, CV_8U, 1.0 / kStep);
  steps.convertTo(picture, CV_8U, kStep);
}

}  // namespace

cv::Mat boardPicture(const NumberedBoard& numbered) {
  Drawing drawing = drawingOf(numbered);
  const scene::Board& board = numbered.board;
  const bool big_dots = board.kind == scene::BoardKind::kBigDots;
  drawRectangle(drawing, board.inner_width, board.inner_height, kInner);
  if (!big_dots) drawRectangle(drawing, board.outter_width, board.outter_height, kOuter);
  for (const Dot& dot : numbered.dots) drawId(drawing, dot);
  drawMiddle(drawing);
  drawAxes(drawing);

  const std::string title = big_dots ? "Big dot board (board_type 3)" : "Ring board (board_type 2)";
  const cv::Size beside(kDrawnWidth - drawing.picture.cols, drawing.picture.rows);
  cv::Mat both;
  cv::hconcat(drawing.picture, legendPicture(beside, title, entriesOf(drawing)), both);
  cv::Mat result;
  cv::resize(both, result, {}, 0.5, 0.5, cv::INTER_AREA);
  coarsen(result);
  return result;
}
