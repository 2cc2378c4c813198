#include <fmt/format.h>

#include <array>
#include <opencv2/calib3d.hpp>
#include <opencv2/imgproc.hpp>
#include <optional>
#include <string>
#include <vector>

#include "bench/Groups.h"
#include "bench/PairStage.h"

namespace {

/// What OpenCV offers for a pair of Brown lenses with eight coefficients, of the same size: maps, and pictures by them.
class OpenCvRectification {
 public:
  explicit OpenCvRectification(const cv::Size& size) : size_(size), image_(size, CV_8UC1, cv::Scalar(90)) {
    const double focal = 1.2 * size.width;
    K_ = (cv::Mat_<double>(3, 3) << focal, 0, size.width / 2.0, 0, focal, size.height / 2.0, 0, 0, 1);
    D_ = (cv::Mat_<double>(8, 1) << -0.165, 0.092, 0.0003, -0.0002, -0.017, 0.021, 0.014, -0.006);
    cv::Rodrigues(cv::Vec3d(0.003, -0.007, 0.002), R_);
  }

  /// Into new memory, as the run does it: the first touch of it is a good part of the time.
  void buildMaps() {
    std::array<Maps, 2> fresh;
    for (Maps& maps : fresh) cv::initUndistortRectifyMap(K_, D_, R_, K_, size_, CV_32FC1, maps.columns, maps.rows);
    maps_ = fresh;
  }
  void warp() {
    for (const Maps& maps : maps_) {
      cv::Mat warped;
      cv::remap(image_, warped, maps.columns, maps.rows, cv::INTER_LINEAR, cv::BORDER_CONSTANT, cv::Scalar(0));
    }
  }

 private:
  struct Maps {
    cv::Mat columns, rows;
  };
  cv::Size size_;
  cv::Mat image_, K_, D_, R_;
  std::array<Maps, 2> maps_;
};

void addRectification(const std::string& preset, const char* model, std::optional<double> goal, const Plan& plan,
                      Table& table) {
  PairStage stage(preset, 1);
  OpenCvRectification other(stage.size());
  const Contest contest({{"maps", [&] { stage.buildMaps(); }},
                         {"both",
                          [&] {
                            stage.buildMaps();
                            stage.warp();
                          }},
                         {"other maps", [&] { other.buildMaps(); }},
                         {"other both",
                          [&] {
                            other.buildMaps();
                            other.warp();
                          }}},
                        plan.effort);
  const auto add = [&](const char* what, const char* against, std::size_t place, std::optional<double> at_most) {
    table.add({.group = "rectify",
               .name = fmt::format("{}, {} x {}: {}", model, stage.size().width, stage.size().height, what),
               .against = against,
               .ours = contest.time(place),
               .theirs = contest.time(place + 2),
               .ratio = contest.ratio(place, place + 2),
               .rounds = contest.rounds(),
               .goal = at_most});
  };
  add("maps", "initUndistortRectifyMap", 0, goal);
  add("maps, pictures", "the same and remap", 1, std::nullopt);
}

}  // namespace

void rectifyRows(const Plan& plan, Table& table) {
  if (plan.quick) {
    addRectification("ring_320", "Brown", std::nullopt, plan, table);
    return;
  }
  addRectification("big_1280", "Brown", std::nullopt, plan, table);
  addRectification("fisheye_1280", "fisheye", std::nullopt, plan, table);
  addRectification("poly_1920", "polynomials", 2.0, plan, table);
}
