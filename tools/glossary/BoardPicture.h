#pragma once

#include <opencv2/core.hpp>

#include "tools/glossary/NumberedBoard.h"

/// The numbered board with ids, marker rectangles, middle dot and axes drawn in, and a legend beside it. BGR, 1000
/// pixels wide.
cv::Mat boardPicture(const NumberedBoard& numbered);
