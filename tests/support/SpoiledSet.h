#pragma once

#include <PolarLinePrecision.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/RenderedSet.h"

/// A copy of a rendered set that a test may spoil.
struct SpoiledSet : ::testing::Test {
  TempFolder folder;
  std::vector<PolarResultRecord> results = std::vector<PolarResultRecord>(1);
  std::string out;
  std::string err;

  SpoiledSet() {
    const RenderedSet& set = RenderedSet::of("ring_320");
    for (const char* name : {"list.txt", "polar.txt", "target.ini", "calib.json", "calib.bin", "left_0.png",
                             "right_0.png", "left_1.png", "right_1.png"})
      std::filesystem::copy_file(set.file(name), folder.file(name));
  }
  std::int32_t run(const std::string& calibration = "calib.json", const std::string& polar = "polar.txt") {
    const ConsoleCapture console;
    const std::int32_t status =
        CalPolarLinePrecision(folder.file(polar).c_str(), folder.file("target.ini").c_str(),
                              folder.file(calibration).c_str(), folder.file("list.txt").c_str(), &results);
    out = console.out();
    err = console.err();
    return status;
  }
  void callersResultsAreUntouched() const {
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0].tri_rms, 0.0);
    EXPECT_TRUE(results[0].pairPoints.empty());
  }
};
