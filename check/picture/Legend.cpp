#include "check/picture/Legend.h"

#include <algorithm>
#include <opencv2/imgproc.hpp>

namespace {

/// Pixels at which the letters have their plain size.
constexpr double kPlainLegend = 1200.0;
constexpr double kLegendLetters = 0.45;
constexpr int kLine = 18;

}  // namespace

cv::Mat withLegend(const cv::Mat& picture, const std::string& title, const std::vector<LegendEntry>& entries) {
  const double growth = std::max(1.0, picture.cols / kPlainLegend);
  const int line = cvRound(kLine * growth);
  const int thickness = std::max(1, cvRound(growth * 0.7));
  cv::Mat band(line * static_cast<int>(entries.size() + 1) + line / 2, picture.cols, CV_8UC3, cv::Scalar::all(255));
  int y = line;
  const auto write = [&](const std::string& text, int x) {
    cv::putText(band, text, {x, y}, cv::FONT_HERSHEY_SIMPLEX, kLegendLetters * growth, cv::Scalar::all(0), thickness,
                cv::LINE_AA);
  };
  write(title, line / 2);
  for (const LegendEntry& entry : entries) {
    y += line;
    cv::circle(band, {line, y - line / 4}, line / 3, entry.bgr, 2 * thickness, cv::LINE_AA);
    write(entry.text, 2 * line);
  }
  cv::Mat whole;
  cv::vconcat(picture, band, whole);
  return whole;
}
