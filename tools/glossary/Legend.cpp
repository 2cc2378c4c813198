#include "tools/glossary/Legend.h"

#include <opencv2/imgproc.hpp>

namespace {

constexpr int kFont = cv::FONT_HERSHEY_SIMPLEX;
constexpr int kThickness = 2;
constexpr int kLineStep = 34;
constexpr int kSignWidth = 110;
const cv::Scalar kBlack(30, 30, 30);

/// Text with its left end at a point.
void putTextFrom(cv::Mat& picture, const std::string& text, const cv::Point2d& left, double size,
                 const cv::Scalar& colour) {
  const int half_height = cv::getTextSize(text, kFont, size, kThickness, nullptr).height / 2;
  cv::putText(picture, text, {cvRound(left.x), cvRound(left.y) + half_height}, kFont, size, colour, kThickness,
              cv::LINE_AA);
}

void putSign(cv::Mat& picture, const cv::Mat& sign, const cv::Point& middle) {
  const cv::Rect place(middle - cv::Point(sign.cols / 2, sign.rows / 2), sign.size());
  sign.copyTo(picture(place));
}

}  // namespace

void putTextAround(cv::Mat& picture, const std::string& text, const cv::Point2d& middle, double size,
                   const cv::Scalar& colour) {
  const int width = cv::getTextSize(text, kFont, size, kThickness, nullptr).width;
  putTextFrom(picture, text, middle - cv::Point2d(width / 2.0, 0.0), size, colour);
}

cv::Mat legendPicture(const cv::Size& size, const std::string& title, const std::vector<LegendEntry>& entries) {
  cv::Mat picture(size, CV_8UC3, cv::Scalar::all(255));
  putTextFrom(picture, title, {24.0, 44.0}, 1.0, kBlack);
  const int step = (size.height - 90) / static_cast<int>(entries.size());
  int y = 90 + step / 2;
  for (const LegendEntry& entry : entries) {
    if (!entry.sign.empty()) putSign(picture, entry.sign, {20 + kSignWidth / 2, y});
    double line = y - kLineStep * (static_cast<double>(entry.text.size()) - 1.0) / 2.0;
    for (const std::string& text : entry.text) {
      putTextFrom(picture, text, {40.0 + kSignWidth, line}, 0.8, kBlack);
      line += kLineStep;
    }
    y += step;
  }
  return picture;
}
