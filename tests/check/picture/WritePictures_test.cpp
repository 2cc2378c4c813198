#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "GridDetection.h"
#include "polarline/detect.h"
#include "polarline/errors.h"
#include "tests/support/TempFolder.h"

namespace {

using testing::ElementsAre;

const cv::Mat kGrey(480, 640, CV_8UC1, cv::Scalar(150));

std::vector<std::string> namesOf(const polarline::Detection& detection, bool all) {
  const TempFolder folder;
  std::vector<std::string> names;
  for (const std::string& path : writePictures(kGrey, detection, folder.file("new/deep"), "left 0", all)) {
    EXPECT_FALSE(polarline::readPicture(path).empty()) << path;
    names.push_back(std::filesystem::path(path).filename().string());
  }
  return names;
}

TEST(WritePictures, AreTheOverlayOrThoseOfTheStep) {
  polarline::Detection found = gridDetection(3, 3, 60.0);
  found.binary = kGrey;
  EXPECT_THAT(namesOf(found, false), ElementsAre("left 0_overlay.png"));
  EXPECT_THAT(namesOf(found, true), ElementsAre("left 0_overlay.png", "left 0_ellipses.png", "left 0_binary.png"));
  polarline::Detection lost;
  lost.binary = kGrey;
  EXPECT_THAT(namesOf(lost, false), ElementsAre("left 0_ellipses.png", "left 0_binary.png"));
  lost.binary = cv::Mat();
  EXPECT_THAT(namesOf(lost, false), ElementsAre("left 0_ellipses.png")) << "there is no two-valued picture";
}

TEST(WritePictures, WithoutAPlaceFailByItsName) {
  const TempFolder folder;
  const std::string file = folder.write("file", "x");
  EXPECT_THROW(writePictures(kGrey, gridDetection(3, 3, 60.0), file + "/under", "a", false), polarline::OutputError);
}

}  // namespace
