#pragma once

#include <opencv2/core.hpp>

/// The bare OpenCV calls that finding the dots of a picture cannot do without, in their order and with their sizes:
/// scaling, smoothing, thresholds, outlines, what is asked of each outline, the board's homography. What is our own
/// between them, such as the fit of the ellipses and the numbering, is left out. Its time is the least that the
/// detection could take by these calls.
void floorOfDetection(const cv::Mat& image, bool big_dots, int dots);
