#include "Tallowfen/src/board/BoardModel.h"

#include <cstddef>
#include <map>

#include "platform/Console.h"

namespace kestrune {
namespace {

using morvenkit::BoardPoint;

cv::Point3d gridPosition(const RingTargetConfig& config, std::uint16_t row, std::uint16_t column) {
  // Products in single precision: the ground truth has no more either.
  const float x = static_cast<float>(column) * config.step;
  const float y = static_cast<float>(row) * rowPitchOf(config);
  return {x, y, 0.0};
}

void printPosition(const char* label, const cv::Point3d& p) { console::line(label, p.x, " ", p.y, " ", p.z); }

}  // namespace

std::size_t dotCountOf(const RingTargetConfig& config) {
  const std::size_t count = std::size_t{config.rows} * std::size_t{config.cols};
  if (count > kMostDots) {
    CV_Error_(cv::Error::StsOutOfRange, ("rows * cols is %d * %d = %zu dots, the most is %zu", int{config.rows},
                                         int{config.cols}, count, kMostDots));
  }
  return count;
}

std::uint8_t pointClassOfIndex(std::int32_t index) {
  using morvenkit::kRing;
  using morvenkit::kSolidRing;
  static const std::map<std::int32_t, std::uint8_t> kClasses = {
      {2137, kSolidRing}, {2364, kSolidRing}, {1731, kRing}, {3483, kRing}, {3451, kRing},
      {1699, kRing},      {2145, kRing},      {2161, kRing}, {3021, kRing}, {3037, kRing}};
  const auto found = kClasses.find(index);
  return found == kClasses.end() ? std::uint8_t{morvenkit::kDot} : found->second;
}

std::int32_t centreIndexOf(const RingTargetConfig& config) {
  return (config.rows - 1) / 2 * config.cols + (config.cols - 1) / 2;
}

std::vector<BoardPoint> makeBoardModel(const RingTargetConfig& config, const std::vector<cv::Point3f>& ground_truth) {
  const std::size_t count = dotCountOf(config);
  const bool has_truth = !ground_truth.empty() && ground_truth.size() == count;
  console::line(has_truth ? "Calibration board GT mode" : "Calibration board Normal mode");
  const float radius = config.ratio_solid * config.step;
  std::vector<BoardPoint> model;
  model.reserve(count);
  for (std::uint16_t row = 0; row < config.rows; ++row) {
    for (std::uint16_t column = 0; column < config.cols; ++column) {
      const std::size_t index = model.size();
      const auto id = static_cast<std::int32_t>(index);
      const cv::Point3d position = has_truth ? cv::Point3d(ground_truth[index]) : gridPosition(config, row, column);
      model.push_back({pointClassOfIndex(id), 0, id, radius, position});
    }
  }
  if (!model.empty()) {
    printPosition("checke_pointstart:", model.front().position);
    printPosition("checke_pointend:", model.back().position);
  }
  return model;
}

}  // namespace kestrune
