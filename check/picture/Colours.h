#pragma once

#include <array>
#include <opencv2/core.hpp>
#include <string>

/// The classes of ellipses as pictures show them.
struct KindColour {
  const char* kind;  ///< As `SeenEllipse::kind`.
  const char* name;
  cv::Scalar bgr;
};

inline const std::array<KindColour, 6> kKindColours = {{
    {"dot", "dots", {60, 160, 0}},
    {"ring", "rings", {255, 100, 0}},
    {"solid_ring", "solid rings", {200, 0, 200}},
    {"big_dot", "big dots", {230, 160, 0}},
    {"unknown", "like a marker, of no kind", {0, 120, 255}},
    {"rejected", "of no class", {0, 0, 230}},
}};

cv::Scalar colourOf(const std::string& kind);
