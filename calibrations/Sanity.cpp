#include "calibrations/Sanity.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "calibrations/Warnings.h"
#include "calibrations/geometry/DistortionFold.h"
#include "camera/LensModel.h"
#include "platform/PlainNumber.h"

namespace calibrations {
namespace {

/// Those of real fisheyes stay well below 1.
constexpr double kLargestFisheyeCoefficient = 10.0;

using Warnings = std::vector<polarline::Warning>;

bool isInside(double at, int side) { return at >= -0.5 && at <= side - 0.5; }

void checkPicture(const polarline::Camera& camera, const char* name, Warnings& warnings) {
  const auto [width, height] = camera.size;
  if (width == 0) {
    warnings.push_back(warning("no_image_size", fmt::format("{}: no image size in the file", name)));
  } else if (!isInside(camera.cx, width) || !isInside(camera.cy, height)) {
    warnings.push_back(warning("principal_point_outside",
                               fmt::format("{}: the principal point ({}, {}) lies outside the picture of {}x{}", name,
                                           plain::rounded(camera.cx, 6), plain::rounded(camera.cy, 6), width, height)));
  }
}

void checkLens(const polarline::Camera& camera, bool is_fisheye, const char* name, Warnings& warnings) {
  const double largest = std::abs(std::ranges::max(camera.k, {}, [](double k) { return std::abs(k); }));
  if (is_fisheye && largest > kLargestFisheyeCoefficient) {
    warnings.push_back(
        warning("suspect_coefficients",
                fmt::format("{}: coefficients up to {}; rational coefficients under the label of a fisheye?", name,
                            plain::rounded(largest, 3))));
  }
  if (const std::optional<Fold> fold = foldInside(camera, is_fisheye)) {
    warnings.push_back(
        warning("distortion_folds",
                fmt::format("{}: the distortion turns back at the normalised {} {:.3f} (imaged at {:.3f}), the corner "
                            "of the picture is at {:.3f}",
                            name, is_fisheye ? "angle" : "radius", fold->ideal, fold->imaged, fold->corner)));
  }
}

void checkPlaces(const polarline::Calibration& calibration, Warnings& warnings) {
  if (std::abs(calibration.ty) > std::abs(calibration.tx)) {
    warnings.push_back(
        warning("vertical_pair", fmt::format("the cameras stand above each other: TX {}, TY {}",
                                             plain::rounded(calibration.tx, 6), plain::rounded(calibration.ty, 6))));
  } else if (calibration.tx > 0.0) {
    warnings.push_back(warning("second_camera_on_the_left",
                               fmt::format("the second camera stands on the left of the first: TX {}; names swapped?",
                                           plain::rounded(calibration.tx, 6))));
  }
}

}  // namespace

std::vector<polarline::Warning> oddities(const polarline::Calibration& calibration) {
  Warnings warnings;
  const bool is_fisheye = lensModelOf(calibration.type) == LensModel::kFisheye;
  checkPicture(calibration.left, "left", warnings);
  checkPicture(calibration.right, "right", warnings);
  checkLens(calibration.left, is_fisheye, "left", warnings);
  checkLens(calibration.right, is_fisheye, "right", warnings);
  const auto [left, right] = std::pair(calibration.left.size, calibration.right.size);
  if (left.width != 0 && right.width != 0 && (left.width != right.width || left.height != right.height)) {
    warnings.push_back(warning("unlike_image_sizes", fmt::format("left: {}x{}, right: {}x{}", left.width, left.height,
                                                                 right.width, right.height)));
  }
  checkPlaces(calibration, warnings);
  return warnings;
}

}  // namespace calibrations
