#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <string>

#include "tools/scene/BoardMarks.h"
#include "tools/scene/ImagedEllipse.h"
#include "tools/scene/PoseFit.h"
#include "tools/scene/Render.h"
#include "tools/scene/TargetText.h"

/// A rendered board of 21 x 23 marks in one picture, whose truth is known and which can be painted over.
class BoardPicture {
 public:
  static constexpr int kRows = 21;
  static constexpr int kCols = 23;
  static constexpr std::size_t kAll = 483;

  BoardPicture(scene::BoardKind kind, int width, int height, double fill = 0.92) {
    scene_.board.kind = kind;
    scene_.board.rows = kRows;
    scene_.board.cols = kCols;
    scene_.board.inner_width = kind == scene::BoardKind::kBigDots ? 5 : 9;
    scene_.board.inner_height = kind == scene::BoardKind::kBigDots ? 5 : 7;
    scene::Camera& camera = scene_.rig.left;
    camera.width = width;
    camera.height = height;
    camera.fx = camera.fy = 1.4 * width;
    camera.cx = (width - 1) / 2.0;
    camera.cy = (height - 1) / 2.0;
    scene_.rig.right = camera;
    pose_ = scene::fitPose(scene_.rig, scene_.board, {4.0, -6.0, 2.0, fill});
    scene::Optics optics;
    optics.paper = kPaper;
    optics.ink = kInk;
    optics.surround = 150.0;
    optics.texture = optics.vignette = optics.gradient_x = optics.gradient_y = 0.0;
    optics.blur_sigma = 0.6;
    optics.read_noise = optics.shot_noise = 0.0;
    image_ = scene::renderImage(camera, scene_.board, pose_, optics, 5);
  }

  const cv::Mat& image() const { return image_; }
  std::string target(const std::string& lines = {}) const { return scene::targetIni(scene_) + lines; }

  cv::Point2d centreOf(int id) const { return centre(ellipseOf(id)); }
  double radiusOf(int id) const { return ellipseOf(id).semi_a; }
  static int idAt(int column, int row) { return row * kCols + column; }

  /// A disc over the mark, so many dot radii large: of ink a dot, of paper nothing.
  void paint(int id, double dots, double grey) {
    const cv::Point2d place = centreOf(id);
    constexpr int kSixteenths = 4;
    cv::circle(image_, {cvRound(place.x * 16), cvRound(place.y * 16)}, cvRound(dots * radiusOf(0) * 16),
               cv::Scalar::all(grey), cv::FILLED, cv::LINE_AA, kSixteenths);
  }
  /// Turns a marker into a dot.
  void makeDot(int id) {
    paint(id, 2.2, kPaper);
    paint(id, 1.0, kInk);
  }
  /// Takes a mark away.
  void erase(int id) { paint(id, 1.5, kPaper); }

  static constexpr double kPaper = 200;
  static constexpr double kInk = 40;

 private:
  scene::ImagedEllipse ellipseOf(int id) const {
    const scene::Mark mark = scene::marksOf(scene_.board).at(static_cast<std::size_t>(id));
    const scene::Point3 place = scene::gridPoint(scene_.board, mark.column, mark.row);
    return scene::imagedEllipse(scene_.rig.left, pose_, place, mark.radii.outer * scene_.board.step);
  }
  static cv::Point2d centre(const scene::ImagedEllipse& ellipse) { return {ellipse.centre.x, ellipse.centre.y}; }

  scene::Scene scene_;
  scene::Pose pose_;
  cv::Mat image_;
};
