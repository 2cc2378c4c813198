#include "calibrations/formats/Formats.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Imported.h"
#include "Layouts.h"

namespace {

using testing::HasSubstr;

TEST(FormatsRefused, OfNoKnownCalibration) {
  for (const char* text : {"a: 1\n", "{}", "{\"a\": 1}", "camera: [1, 2]\n", "cam1: {a: 1}\n"}) {
    EXPECT_EQ(
        refusal({text}),
        "a: is no calibration that is known; one of opencv, ros, kalibr, basalt, mrcal, euroc, polarline was wanted")
        << text;
  }
}

TEST(FormatsRefused, OfTwoFormats) {
  const std::string sensor = layouts::euroc(Rig()).front();
  const std::string model = layouts::mrcal(Rig(), "LENSMODEL_OPENCV4").front();
  EXPECT_EQ(refusal({sensor, model}), "b: is of mrcal, the file before it of euroc; files of one format were wanted");
}

TEST(FormatsRefused, OfNoMap) {
  for (const char* text : {"just words", "- 1\n- 2\n", "[1, 2]", "%PDF-1.4\nsome"})
    EXPECT_NE(refusal({text}), "") << text;
  EXPECT_EQ(refusal({"just words"}), "a: holds no keys; a calibration was wanted");
}

TEST(FormatsByName, AreTakenAtTheirWord) {
  for (const calibrations::Format& format : calibrations::kFormats) {
    polarline::ImportOptions options;
    options.format = format.name;
    EXPECT_THAT(refusal({"other: 1\n"}, options), HasSubstr("a: ")) << format.name;
  }
}

}  // namespace
