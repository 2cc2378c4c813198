#pragma once

#include <array>
#include <opencv2/core.hpp>
#include <vector>

/// Fits `source` to `target` by one motion (Kabsch 1976, without the correction of reflections), points of equal index
/// belonging together, and prints the motion and what is left. `aligned` gets the moved source. Gives `rms`: the root
/// mean square of the residuals along x, y, z and in space, single precision. Throws `std::invalid_argument` for empty
/// sets and for sets of different size.
std::array<float, 4>& AlignRigid(std::array<float, 4>& rms, const std::vector<cv::Point3f>& source,
                                 const std::vector<cv::Point3f>& target, std::vector<cv::Point3f>& aligned);
