#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "check/picture/Canvas.h"
#include "check/picture/Colours.h"
#include "check/picture/Legend.h"
#include "polarline/detect.h"

namespace polarline {
namespace {

/// A marker's outline is drawn twice, the second time so much larger.
constexpr double kMarkerRim = 1.3;

std::vector<LegendEntry> classesOf(const Detection& detection) {
  std::vector<LegendEntry> entries;
  for (const KindColour& each : kKindColours) {
    const auto count = std::ranges::count(detection.ellipses, each.kind, &SeenEllipse::kind);
    entries.push_back({fmt::format("{} {}", count, each.name), each.bgr});
  }
  return entries;
}

}  // namespace

cv::Mat ellipsesPicture(const cv::Mat& image, const Detection& detection) {
  if (image.empty()) return {};
  Canvas canvas(image, factorFor(image.size(), detection.dot_radius));
  for (const SeenEllipse& ellipse : detection.ellipses) {
    const cv::Scalar colour = colourOf(ellipse.kind);
    canvas.outline({ellipse.x, ellipse.y}, ellipse.a, ellipse.b, ellipse.angle, colour);
    if (ellipse.marker)
      canvas.outline({ellipse.x, ellipse.y}, kMarkerRim * ellipse.a, kMarkerRim * ellipse.b, ellipse.angle, colour);
  }
  const std::string title = "ellipses by class; " + (detection.found ? "found" : "stopped at " + detection.step) +
                            "; recognised markers have a second rim";
  return withLegend(canvas.picture(), title, classesOf(detection));
}

}  // namespace polarline
