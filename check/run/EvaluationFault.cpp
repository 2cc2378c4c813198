#include "check/run/EvaluationFault.h"

#include <fmt/format.h>

namespace polarline {
namespace {

std::optional<EvaluationFault> cropFault(const PolarConfig& config, const cv::Size& picture) {
  const bool fits = config.cropped_cols > 0 && config.cropped_rows > 0 && config.cropped_cols <= picture.width &&
                    config.cropped_rows <= picture.height;
  if (config.crop == 0 || fits || picture.empty()) return std::nullopt;
  return EvaluationFault{
      fmt::format("the crop (cropped_cols, cropped_rows) is {} x {} pixels, and the pictures are {} x {}",
                  config.cropped_cols, config.cropped_rows, picture.width, picture.height),
      "Make cropped_cols and cropped_rows at most as large as the pictures, or set crop to 0."};
}

std::optional<EvaluationFault> colourFault(const RunInputs& inputs, const ListedPictures& pictures, std::size_t pair) {
  if (inputs.areRectified() || inputs.config.triangulate_residual_switch == 0) return std::nullopt;
  for (const bool left : {true, false}) {
    const int channels = pictures.lastPictures()[left ? 0 : 1].channels();
    if (channels == 1) continue;
    const ListedPair& listed = pictures.listed(pair);
    return EvaluationFault{fmt::format("the residuals of the triangulation (triangulate_residual_switch) can't be "
                                       "taken: {} has {} channels, and they want grey pictures",
                                       left ? listed.left : listed.right, channels),
                           "Convert the pictures to grey, or set triangulate_residual_switch to 0."};
  }
  return std::nullopt;
}

}  // namespace

std::optional<EvaluationFault> evaluationFault(const RunInputs& inputs, const ListedPictures& pictures,
                                               std::size_t pair) {
  if (auto fault = cropFault(inputs.config, pictures.lastSizes()[0])) return fault;
  return colourFault(inputs, pictures, pair);
}

}  // namespace polarline
