#include "polar/evaluate/frame/FrameDrawing.h"

#include <opencv2/imgproc.hpp>
#include <string>

namespace frame_drawing {

namespace {

const cv::Scalar kRed(0, 0, 255);
const cv::Scalar kGreen(0, 255, 0);

cv::Point2f centreOf(const kestrune::morvenkit::CtrlPoint<double>& point) {
  return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

void drawCircle(cv::Mat& picture, const cv::Point2f& centre, int radius, const cv::Scalar& colour) {
  cv::circle(picture, cv::Point(centre), radius, colour, 1, cv::LINE_8);
}

}  // namespace

void drawDetected(cv::Mat& picture, const Points& points) {
  for (const auto& point : points) {
    drawCircle(picture, centreOf(point), 1, kRed);
    for (const cv::Point2f& edge : point.edge_points) drawCircle(picture, edge, 1, kGreen);
  }
}

void drawMatched(cv::Mat& picture, const Points& points) {
  for (const auto& point : points) {
    const cv::Point2f centre = centreOf(point);
    drawCircle(picture, centre, 2, kRed);
    cv::putText(picture, std::to_string(point.id), cv::Point(centre + cv::Point2f(5.0F, 5.0F)),
                cv::FONT_HERSHEY_SIMPLEX, 2.0, kRed, 2, cv::LINE_8);
  }
}

}  // namespace frame_drawing
