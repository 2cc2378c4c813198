#include "calibrations/Sanity.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace {

using polarline::Calibration;

Calibration sound() {
  Calibration calibration;
  for (polarline::Camera* camera : {&calibration.left, &calibration.right}) {
    camera->size = {640, 480};
    camera->fx = camera->fy = 500;
    camera->cx = 320;
    camera->cy = 240;
  }
  calibration.tx = -60;
  return calibration;
}

struct Case {
  const char* name;
  std::function<void(Calibration&)> spoil;
  std::vector<std::string> codes;
};

class Sanity : public testing::TestWithParam<Case> {};

TEST_P(Sanity, WarnsOfThisAlone) {
  Calibration calibration = sound();
  GetParam().spoil(calibration);
  std::vector<std::string> codes;
  for (const polarline::Warning& each : calibrations::oddities(calibration)) codes.push_back(each.code);
  EXPECT_EQ(codes, GetParam().codes);
}

INSTANTIATE_TEST_SUITE_P(
    All, Sanity,
    testing::Values(Case{"Sound", [](Calibration&) {}, {}},
                    Case{"NoSize", [](Calibration& c) { c.left.size = {}; }, {"no_image_size"}},
                    Case{"UnlikeSizes",
                         [](Calibration& c) {
                           c.right.size = {640, 512};
                         },
                         {"unlike_image_sizes"}},
                    Case{"SecondOnTheLeft", [](Calibration& c) { c.tx = 60; }, {"second_camera_on_the_left"}},
                    Case{"Above", [](Calibration& c) { c.ty = 61; }, {"vertical_pair"}},
                    Case{"Slanted", [](Calibration& c) { c.ty = -59; }, {}},
                    Case{"InTheLastColumn", [](Calibration& c) { c.left.cx = 639.5; }, {}},
                    Case{"BesideTheLastColumn", [](Calibration& c) { c.left.cx = 639.6; }, {"principal_point_outside"}},
                    Case{"AboveTheFirstRow", [](Calibration& c) { c.right.cy = -0.6; }, {"principal_point_outside"}},
                    Case{"BrownFolds", [](Calibration& c) { c.right.k[0] = -1; }, {"distortion_folds"}},
                    Case{"BrownMayHaveLargeCoefficients",
                         [](Calibration& c) {
                           c.right.k[0] = c.right.k[3] = 11;
                           c.type = 1;
                         },
                         {}},
                    Case{"FisheyeOfHundreds",
                         [](Calibration& c) {
                           c.left.k[2] = 500;
                           c.type = 2;
                         },
                         {"suspect_coefficients"}},
                    Case{"FisheyeOfMinusHundreds",
                         [](Calibration& c) {
                           c.left.k[3] = -500;
                           c.type = 2;
                         },
                         {"suspect_coefficients", "distortion_folds"}}),
    [](const auto& each) { return each.param.name; });

TEST(SanityText, NamesTheCamera) {
  Calibration calibration = sound();
  calibration.right.cx = 700;
  EXPECT_EQ(calibrations::oddities(calibration).at(0).text,
            "right: the principal point (700, 240) lies outside the picture of 640x480");
}

}  // namespace
