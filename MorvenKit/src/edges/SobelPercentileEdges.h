#pragma once

#include <cstdint>
#include <opencv2/core.hpp>

namespace kestrune::morvenkit {

/// Value of an edge pixel: neither black nor white, so that a canvas can hold edges beside a two-valued picture.
inline constexpr std::uint8_t kEdgeValue = 200;

/// Turns an 8-bit image into its strongest edges: `kEdgeValue` where the magnitude of the central differences is above
/// that of 97.5 % of all pixels, else 0. The five outermost rows and columns have the magnitude 0.
void SobelPercentileEdges(cv::Mat& image);

}  // namespace kestrune::morvenkit
