#pragma once

#include <opencv2/core.hpp>

namespace kestrune::morvenkit {

/// Keeps, with 255, the ridge pixels whose magnitude lies above `low` and that hang together (8 neighbours) with one
/// whose magnitude lies above `high`.
cv::Mat_<uchar> edgeHysteresis(const cv::Mat_<uchar>& ridges, const cv::Mat_<float>& magnitude, double low,
                               double high);

}  // namespace kestrune::morvenkit
