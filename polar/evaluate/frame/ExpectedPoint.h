#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/CtrlPoint.h"

/// Takes the detected point nearest to where one is expected, if it is nearer than 100 pixels: copies it to `result`
/// under the given id and returns true. Of equally near points the first wins. Otherwise `result` stays untouched.
bool MatchExpectedPoint(const cv::Point2f& expected_pixel,
                        const std::vector<kestrune::morvenkit::CtrlPoint<double>>& points, std::int32_t id,
                        kestrune::morvenkit::CtrlPoint<double>& result);
