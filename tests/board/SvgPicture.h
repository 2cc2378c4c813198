#pragma once

#include <algorithm>
#include <cmath>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

/// A printed board as it stands in its SVG file, read without the code that wrote it: sizes in millimetres.
class SvgPicture {
 public:
  struct Circle {
    double x, y, radius;
    bool white;
  };
  struct Rectangle {
    double x, y, width, height;
  };
  struct Text {
    double x, y, size;
    std::string words;
  };

  explicit SvgPicture(const std::string& svg) {
    readSize(svg);
    readCircles(svg);
    readRectangles(svg);
    readTexts(svg);
  }

  double width = 0.0, height = 0.0;  ///< Of the sheet.
  std::vector<Circle> circles;
  std::vector<Rectangle> rectangles;
  std::vector<Text> texts;

  /// The centre of dot 0.
  cv::Point2d first() const {
    const auto nearer = [](const Circle& a, const Circle& b) { return a.x + a.y < b.x + b.y; };
    const auto circle = std::min_element(circles.begin(), circles.end(), nearer);
    return {circle->x, circle->y};
  }

  /// Grey picture with so many pixels to the millimetre, as a camera that is not quite sharp would take it.
  cv::Mat rendered(double pixels) const {
    cv::Mat picture(cv::Size(toPixel(width * pixels), toPixel(height * pixels)), CV_32F, cv::Scalar(kPaper));
    for (const Circle& circle : circles) draw(picture, circle, pixels);
    for (const Rectangle& bar : rectangles) {
      const cv::Rect2d area(bar.x * pixels, bar.y * pixels, bar.width * pixels, bar.height * pixels);
      cv::rectangle(picture, cv::Rect(area) | cv::Rect(cv::Point(area.tl()), cv::Size(1, 1)), cv::Scalar(kInk),
                    cv::FILLED);
    }
    for (const Text& text : texts) draw(picture, text, pixels);
    cv::Mat grey;
    cv::GaussianBlur(picture, grey, cv::Size(0, 0), 0.6);
    grey.convertTo(grey, CV_8U);
    return grey;
  }

  /// The pixel of a place on the sheet: the middle of the first pixel is (0, 0).
  static cv::Point2d pixelOf(const cv::Point2d& place, double pixels) {
    return {place.x * pixels - 0.5, place.y * pixels - 0.5};
  }

 private:
  static constexpr double kPaper = 215.0;
  static constexpr double kInk = 25.0;

  static int toPixel(double value) { return static_cast<int>(std::ceil(value)); }

  template <typename Use>
  static void forEach(const std::string& svg, const std::string& pattern, const Use& use) {
    const std::regex form(pattern);
    for (std::sregex_iterator it(svg.begin(), svg.end(), form), end; it != end; ++it) use(*it);
  }

  static double number(const std::smatch& match, std::size_t group) { return std::stod(match[group].str()); }

  void readSize(const std::string& svg) {
    std::smatch match;
    const std::regex form("<svg [^>]*width=\"([0-9.]+)mm\" height=\"([0-9.]+)mm\" viewBox=\"0 0 ([0-9.]+) ([0-9.]+)\"");
    if (!std::regex_search(svg, match, form)) throw std::runtime_error("no SVG in millimetres");
    width = number(match, 1);
    height = number(match, 2);
    if (number(match, 3) != width || number(match, 4) != height) throw std::runtime_error("not in true size");
  }

  void readCircles(const std::string& svg) {
    forEach(svg, "<circle cx=\"([0-9.]+)\" cy=\"([0-9.]+)\" r=\"([0-9.]+)\"( fill=\"white\")?/>",
            [&](const auto& match) {
              circles.push_back({number(match, 1), number(match, 2), number(match, 3), match[4].matched});
            });
  }

  void readRectangles(const std::string& svg) {
    forEach(svg, "<rect x=\"([0-9.]+)\" y=\"([0-9.]+)\" width=\"([0-9.]+)\" height=\"([0-9.]+)\"/>",
            [&](const auto& match) {
              rectangles.push_back({number(match, 1), number(match, 2), number(match, 3), number(match, 4)});
            });
  }

  void readTexts(const std::string& svg) {
    forEach(svg, "<text x=\"([0-9.]+)\" y=\"([0-9.]+)\" font-size=\"([0-9.]+)\">([^<]*)</text>",
            [&](const auto& match) {
              texts.push_back({number(match, 1), number(match, 2), number(match, 3), match[4].str()});
            });
  }

  /// A pixel is covered as far as the outline passes its middle.
  static void draw(cv::Mat& picture, const Circle& circle, double pixels) {
    const cv::Point2d centre = pixelOf({circle.x, circle.y}, pixels);
    const double radius = circle.radius * pixels;
    const int reach = toPixel(radius) + 1;
    const int column = static_cast<int>(std::lround(centre.x));
    const int row = static_cast<int>(std::lround(centre.y));
    for (int y = std::max(0, row - reach); y <= std::min(picture.rows - 1, row + reach); ++y) {
      for (int x = std::max(0, column - reach); x <= std::min(picture.cols - 1, column + reach); ++x) {
        const double inside = std::clamp(radius - std::hypot(x - centre.x, y - centre.y) + 0.5, 0.0, 1.0);
        float& grey = picture.at<float>(y, x);
        grey += static_cast<float>(inside * ((circle.white ? kPaper : kInk) - grey));
      }
    }
  }

  static void draw(cv::Mat& picture, const Text& text, double pixels) {
    constexpr double kCapital = 0.72;  // Of a font; 21 units of this one.
    const double scale = kCapital * text.size * pixels / 21.0;
    int baseline = 0;
    const cv::Size size = cv::getTextSize(text.words, cv::FONT_HERSHEY_DUPLEX, scale, 1, &baseline);
    const cv::Point2d foot = pixelOf({text.x, text.y}, pixels);
    cv::putText(picture, text.words, cv::Point(static_cast<int>(foot.x) - size.width / 2, static_cast<int>(foot.y)),
                cv::FONT_HERSHEY_DUPLEX, scale, cv::Scalar(kInk), 1, cv::LINE_AA);
  }
};
