#include <gtest/gtest.h>

#include "polarline/calibration.h"
#include "polarline/errors.h"

namespace {

TEST(WordsSize, IsWidthByHeight) {
  const polarline::Size size = polarline::sizeOf("640x480");
  EXPECT_EQ(size.width, 640);
  EXPECT_EQ(size.height, 480);
  EXPECT_EQ(polarline::sizeOf("65535x1").width, 65535);
}

TEST(WordsSize, IsNothingElse) {
  for (const char* text : {"", "640", "640x", "x480", "640X480", "640 x480", "640x480 ", "0x480", "640x-1", "65536x480",
                           "1e3x480", "99999999999x1", "640x480x3"}) {
    EXPECT_THROW(polarline::sizeOf(text), polarline::InputError) << text;
  }
}

TEST(WordsBaseline, IsALength) {
  polarline::Calibration calibration;
  calibration.tx = -2.0;
  calibration.ty = 3.0;
  calibration.tz = 6.0;
  EXPECT_DOUBLE_EQ(polarline::baselineOf(calibration), 7.0);
}

TEST(WordsImport, TellFormatTypeSizesBaselineAndWarnings) {
  polarline::ImportedCalibration imported;
  imported.format = "kalibr";
  imported.calibration.type = 2;
  imported.calibration.left.size = {640, 480};
  imported.calibration.tx = -60.5;
  imported.warnings = {{"no_image_size", "right: none", "Say it.", -1}};
  EXPECT_EQ(polarline::importedCalibrationText(imported),
            "format    kalibr\ntype      2 (fisheye)\nsize      left 640x480, right not known\nbaseline  60.5\n"
            "warning   right: none (no_image_size)\n          Say it.\n");
}

TEST(WordsType, HasAName) {
  EXPECT_EQ(polarline::typeName(0), "Brown, K1 to K3");
  EXPECT_EQ(polarline::typeName(1), "Brown, K1 to K6");
  EXPECT_EQ(polarline::typeName(2), "fisheye");
  EXPECT_EQ(polarline::typeName(3), "unknown");
}

}  // namespace
