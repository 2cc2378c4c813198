#pragma once

#include <opencv2/core.hpp>
#include <string>

/// A picture to draw on: the image in BGR, 8-bit, a little faded so that colours stand out, enlarged by a whole number.
/// Places are told in pixels of the image; lines and letters grow with the canvas.
class Canvas {
 public:
  /// @param factor Canvas pixels for each pixel of the image, 1 or more.
  Canvas(const cv::Mat& image, int factor);

  const cv::Mat& picture() const { return picture_; }
  int factor() const { return factor_; }

  void outline(const cv::Point2d& centre, double a, double b, double angle, const cv::Scalar& colour);
  void line(const cv::Point2d& from, const cv::Point2d& to, const cv::Scalar& colour);
  void cross(const cv::Point2d& centre, double reach, const cv::Scalar& colour);
  /// A text with a dark rim, its lower left corner at a place of the canvas.
  void text(const std::string& text, const cv::Point& corner, const cv::Scalar& colour);
  /// Of a text as `text` draws it, with its rim.
  cv::Size sizeOf(const std::string& text) const;
  /// The place on the canvas.
  cv::Point2d at(const cv::Point2d& pixel) const { return (pixel + kHalf) * factor_ - kHalf; }

 private:
  inline static const cv::Point2d kHalf{0.5, 0.5};
  cv::Mat picture_;
  int factor_;
  double letters_;
  int thickness_;
};

/// How often an image is enlarged so that outlines and centres of dots of this radius, pixels, can be told apart: a
/// whole number, 1 at least, and the canvas stays within what can be looked at.
int factorFor(const cv::Size& image, double dot_radius);
