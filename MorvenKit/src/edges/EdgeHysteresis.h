#pragma once

#include <opencv2/core.hpp>

namespace kestrune::morvenkit {

/// Keeps, as 255, the ridge pixels with a magnitude above `low` that are connected (8 neighbours, through such pixels)
/// to one with a magnitude above `high`.
cv::Mat_<uchar> edgeHysteresis(const cv::Mat_<uchar>& ridges, const cv::Mat_<float>& magnitude, double low,
                               double high);

}  // namespace kestrune::morvenkit
