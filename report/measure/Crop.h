#pragma once

#include <opencv2/core.hpp>

#include "report/read/Json.h"

namespace polarline {

/// The part of the pictures that a check looks at, in pixels of the whole ones; empty where it is not known. Points are
/// told from its corner.
cv::Rect partLookedAt(const Json& document);

}  // namespace polarline
