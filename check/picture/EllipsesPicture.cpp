#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <opencv2/imgproc.hpp>

#include "check/picture/Canvas.h"
#include "check/picture/Colours.h"
#include "polarline/detect.h"

namespace polarline {
namespace {

constexpr double kLeastRadius = 6.0;
/// A marker's outline is drawn twice, the second time so much larger.
constexpr double kMarkerRim = 1.3;
constexpr int kLegendWidth = 1200;  ///< Pixels at which its letters have their plain size.
constexpr double kLetters = 0.45;
constexpr int kFont = cv::FONT_HERSHEY_SIMPLEX;

std::size_t countOf(const Detection& detection, const char* kind) {
  return static_cast<std::size_t>(
      std::ranges::count_if(detection.ellipses, [&](const SeenEllipse& each) { return each.kind == kind; }));
}

/// A line of the legend: a class with its count behind a mark of its colour, then the step where it stopped.
cv::Mat legendOf(const Detection& detection, int width) {
  const double growth = std::max(1.0, static_cast<double>(width) / kLegendWidth);
  const int line = cvRound(18 * growth);
  const int thickness = std::max(1, cvRound(growth));
  cv::Mat legend(line * static_cast<int>(kKindColours.size() + 1) + line / 2, width, CV_8UC3, cv::Scalar::all(255));
  int y = line;
  const auto write = [&](const std::string& text, int x) {
    cv::putText(legend, text, {x, y}, kFont, kLetters * growth, cv::Scalar::all(0), thickness, cv::LINE_AA);
  };
  write(fmt::format("{}: {}", detection.found ? "found" : "stopped at", detection.found ? "all steps" : detection.step),
        line / 2);
  for (const KindColour& each : kKindColours) {
    y += line;
    cv::circle(legend, {line, y - line / 4}, line / 3, each.bgr, 2 * thickness, cv::LINE_AA);
    write(fmt::format("{} {}", countOf(detection, each.kind), each.name), 2 * line);
  }
  return legend;
}

}  // namespace

cv::Mat ellipsesPicture(const cv::Mat& image, const Detection& detection) {
  if (image.empty()) return {};
  Canvas canvas(image, factorFor(image.size(), detection.dot_radius, kLeastRadius));
  for (const SeenEllipse& ellipse : detection.ellipses) {
    const cv::Scalar colour = colourOf(ellipse.kind);
    canvas.outline({ellipse.x, ellipse.y}, ellipse.a, ellipse.b, ellipse.angle, colour);
    if (ellipse.marker)
      canvas.outline({ellipse.x, ellipse.y}, kMarkerRim * ellipse.a, kMarkerRim * ellipse.b, ellipse.angle, colour);
  }
  cv::Mat picture;
  cv::vconcat(legendOf(detection, canvas.picture().cols), canvas.picture(), picture);
  return picture;
}

}  // namespace polarline
