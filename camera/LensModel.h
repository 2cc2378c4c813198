#pragma once

#include <cstdint>
#include <optional>

/// The lens models, with the values that `type` has in the polar configuration.
enum class LensModel : std::int32_t {
  kBrownFive = 0,   ///< Brown, five coefficients in the rectification: k1, k2, k3, p1, p2.
  kBrownEight = 1,  ///< Brown, eight coefficients: k1 to k6, p1, p2.
  kFisheye = 2,     ///< Kannala and Brandt 2006: k1 to k4.
  kPoly = 3,        ///< A grid of cubic polynomials.
};

/// The model of a `type`; none for a value that is not in the list. Meant: such a run is no failure. It loads no camera
/// and does not warp its images.
constexpr std::optional<LensModel> lensModelOf(std::int32_t type) {
  if (type < static_cast<std::int32_t>(LensModel::kBrownFive) || type > static_cast<std::int32_t>(LensModel::kPoly)) {
    return std::nullopt;
  }
  return static_cast<LensModel>(type);
}
