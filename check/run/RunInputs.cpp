#include "check/run/RunInputs.h"

#include "check/judge/Judgement.h"
#include "check/judge/SignedLimits.h"
#include "check/run/ConfigDoubts.h"
#include "check/run/Correcting.h"
#include "check/run/Inputs.h"
#include "check/run/MissingKeys.h"

namespace polarline {
namespace {

StereoCalibParams pinholesOf(const RectifiedParams& rectified) {
  StereoCalibParams calib;
  calib.left.intrinsics = {rectified.focal, rectified.focal, rectified.cx, rectified.cy};
  calib.right.intrinsics = calib.left.intrinsics;
  calib.right.intrinsics[2] -= rectified.disparity_offset;
  calib.extrinsics[3] = rectified.baseline;
  return calib;
}

}  // namespace

StereoCalibParams RunInputs::cameras() const { return areRectified() ? pinholesOf(rectified) : calib; }

LensModel RunInputs::model() const {
  constexpr LensModel kAnyWithoutCoefficients = LensModel::kBrownFive;
  return areRectified() ? kAnyWithoutCoefficients : lensModelOf(config.type).value_or(kAnyWithoutCoefficients);
}

Set opened(const Set& named, const CheckOptions& options) {
  return options.pictures ? openSetWithoutList(named) : openSet(named);
}

void readInputs(const Set& set, const CheckOptions& options, RunInputs& inputs, Check& check) {
  inputs.limits.reserve(options.limits.size());
  for (const std::string& text : options.limits) inputs.limits.push_back(parseLimit(text));
  inputs.set = opened(set, options);
  inputs.files = InputFiles(inputs.set);
  const InputFile target = inputs.files.of(inputs.set.target), board = inputs.files.of(inputs.set.board);
  if (!inputs.set.limits.empty()) {
    const std::vector<Limit> of_set = readLimits(inputs.files.of(inputs.set.limits));
    inputs.limits.insert(inputs.limits.end(), of_set.begin(), of_set.end());
  }
  warnOfSigns(inputs.limits, check.warnings);
  const PolarInput polar = readPolar(inputs.files.of(inputs.set.polar), options.settings, check.warnings);
  inputs.config = polar.config;
  warnOfNoEvaluation(inputs.set.polar, polar, check.warnings);
  warnOfMissingKeys(inputs.set.polar, polar, inputs.areRectified(), check.warnings);
  check.settings = settingsOf(inputs.config);
  check.board = readBoardInfo(target);
  if (!inputs.set.board.empty()) inputs.board = readBoardTruth(board);
  check.board.points = inputs.board.size();
  warnOfBoardTruth(inputs.set.board, inputs.config, check.board, check.warnings);
  warnOfSteps(inputs.set, inputs.config, check.board, inputs.board, check.warnings);
  if (inputs.areRectified()) {
    inputs.rectified = readRectified(inputs.files.of(inputs.set.rectified));
    inputs.rectified.boardPoints.assign(inputs.board.begin(), inputs.board.end());
    check.cameras = camerasOf(inputs.rectified);
  } else {
    inputs.calib = readCalibration(inputs.files.of(inputs.set.calibration), check.warnings);
    check.cameras = camerasOf(inputs.config.type, inputs.calib);
    warnOfLens(inputs.set.polar, polar, inputs.set.calibration, inputs.calib, check.warnings);
    warnOfTurn(inputs.set.polar, polar, inputs.calib, check.warnings);
    requireCorrectable(options.write_corrected, inputs.config.type, inputs.set.calibration);
  }
  check.inputs = inputs.files.hashes();
}

}  // namespace polarline
