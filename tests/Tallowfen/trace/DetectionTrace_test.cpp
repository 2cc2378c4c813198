#include "Tallowfen/src/trace/DetectionTrace.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using kestrune::DetectionStep;

// Documents bear these names: none may change.
TEST(DetectionTrace, StepsHaveStableNamesInTheirOrder) {
  std::vector<std::string> names;
  for (int step = 0; step <= static_cast<int>(DetectionStep::kDone); ++step) {
    names.emplace_back(nameOf(static_cast<DetectionStep>(step)));
  }
  EXPECT_EQ(names, (std::vector<std::string>{"image", "contours", "ellipses", "markers", "arrangement", "seed",
                                             "growth", "search", "filter", "done"}));
}

}  // namespace
