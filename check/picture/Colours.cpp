#include "check/picture/Colours.h"

#include <algorithm>

cv::Scalar colourOf(const std::string& kind) {
  const auto* const found =
      std::ranges::find_if(kKindColours, [&](const KindColour& each) { return each.kind == kind; });
  return found == kKindColours.end() ? cv::Scalar::all(0) : found->bgr;
}
