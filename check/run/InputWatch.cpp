#include "check/run/InputWatch.h"

#include <algorithm>
#include <map>
#include <string>

#include "PolarLinePrecision/BoardRecords.h"
#include "check/judge/Limit.h"
#include "input/PolarConfig.h"
#include "polar/run/CropOrigin.h"

namespace polarline {
namespace {

std::vector<cv::Point3d> placesOf(const BoardInfo& board, const BoardGroundTruth& truth) {
  const auto dots = static_cast<std::size_t>(board.rows) * static_cast<std::size_t>(board.cols);
  std::vector<cv::Point3d> places;
  places.reserve(dots);
  for (std::size_t id = 0; id < dots; ++id) {
    const int row = static_cast<int>(id) / board.cols;
    const int column = static_cast<int>(id) % board.cols;
    places.push_back(truth.size() == dots ? cv::Point3d(truth[id])
                                          : cv::Point3d(column * board.step, row * board.step_y, 0.0));
  }
  return places;
}

std::map<std::string, double> ownFigures(const PairCheck& pair) {
  std::map<std::string, double> figures;
  for (const Figure& figure : pair.figures) {
    if (pair.finished && !figure.is_list && !figure.values.empty()) figures.emplace(figure.name, figure.values[0]);
  }
  return figures;
}

}  // namespace

void InputWatch::begin(const RunInputs& inputs, const BoardInfo& board) {
  const PolarConfig& config = inputs.config;
  facts_.calib = inputs.cameras();
  facts_.model = inputs.model();
  facts_.takes_rectified = inputs.areRectified();
  facts_.grid = {board.rows, board.cols, board.step > 0.0 ? board.step_y / board.step : 1.0};
  if (config.frame_work == 0) facts_.board = placesOf(board, inputs.board);
  if (config.crop != 0) crop_ = {config.cropped_cols, config.cropped_rows};
}

PairQuality InputWatch::look(const PairCheck& pair, const std::array<cv::Mat, 2>& pictures,
                             const PairObservation& seen) {
  if (!watch_) {
    if (!crop_.empty()) facts_.origin = cropOrigin(pictures[0].size(), crop_);
    watch_.emplace(facts_);
  }
  return watch_->look({pair.index, pictures, seen, ownFigures(pair)});
}

std::vector<Warning> InputWatch::warnings(const std::vector<Limit>& limits) const {
  if (!watch_) return {};
  diagnose::AskedLimits asked;
  for (const Limit& limit : limits) {
    asked.figures.push_back(limit.figure);
    if (limit.figure != "dy_means" || limit.statistic == "sd" || !isUpper(limit)) continue;
    asked.most_row = std::min(asked.most_row.value_or(limit.bound), limit.bound);
  }
  return watch_->warnings(asked);
}

}  // namespace polarline
