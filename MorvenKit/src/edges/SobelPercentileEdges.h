#pragma once

#include <cstdint>
#include <opencv2/core.hpp>

namespace kestrune::morvenkit {

/// Value of an edge pixel.
inline constexpr std::uint8_t kEdgeValue = 200;

/// Turns an 8-bit image into its strongest edges: `kEdgeValue` where the magnitude of the central differences lies
/// above that of 97.5 % of all pixels, else 0. The five outermost rows and columns count with magnitude 0.
void SobelPercentileEdges(cv::Mat& image);

}  // namespace kestrune::morvenkit
