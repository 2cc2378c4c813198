#include "check/init/Guesses.h"

#include <fmt/format.h>

#include <string>
#include <string_view>
#include <vector>

#include "camera/LensModel.h"

namespace init {
namespace {

std::string reasonOf(const polarline::MadeSet& set) {
  if (set.calibration_format == "binary") return "as the binary file says";
  const auto model = lensModelOf(set.type);
  if (model == LensModel::kBrownFive) return "as K4 to K6 are 0 in both cameras";
  if (model == LensModel::kBrownEight) return "as K4 to K6 are not all 0";
  return "as the calibration or --model says";
}

std::string cornerText(const CornerPoints& corners) {
  return fmt::format(
      "TriPoint and PolPoint are the dots {}, {}, {}, {}: {} columns and {} rows in from the board's corners{}",
      corners.ids[0], corners.ids[1], corners.ids[2], corners.ids[3], corners.columns_in, corners.rows_in,
      corners.seen ? "" : ", although the first pair does not show them");
}

/// The switches that stay off, each with the reason.
std::string offText(const PolarConfig& config) {
  std::vector<std::string_view> off = {"eccentricity"};
  if (config.triangulate_residual_switch == 0)
    off.emplace_back("the residuals (pictures of more than one channel end them)");
  if (!config.discalswitch)
    off.emplace_back("the distances of all dots (discalswitch: what big rings cover is made up, and ends that step)");
  if (config.foursixmethod_swithch == 0)
    off.emplace_back("the point cloud (it does not follow the quarter turn of the pictures)");
  else if (config.allpoints_calc_switch == 0)
    off.emplace_back("the spacing of the cloud (the board has two steps)");
  return fmt::format("{}", fmt::join(off, ", "));
}

}  // namespace

void addGuesses(polarline::MadeSet& set, const CornerPoints& corners, const SetFacts& facts,
                const PolarConfig& config) {
  std::vector<std::string>& guesses = set.guesses;
  guesses.push_back(fmt::format("The lens model is {} (type {}), {}", set.model, set.type, reasonOf(set)));
  guesses.push_back(cornerText(corners));
  guesses.push_back(fmt::format("Every evaluation of an image set is on, but {}", offText(config)));
  guesses.push_back(fmt::format("f_scale is {}{}; dy_bias_divid and tri_bias_divid are 0.1 pixels", config.f_scale,
                                facts.focal.why.empty() ? "" : " (" + facts.focal.why + ")"));
  if (facts.is_vertical) guesses.emplace_back("x_y is 1, as the cameras stand one above the other");
}

}  // namespace init
