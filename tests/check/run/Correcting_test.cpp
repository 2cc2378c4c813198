#include "check/run/Correcting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>

#include "HandMadeCheck.h"
#include "polarline/errors.h"
#include "support/CopiedSet.h"
#include "support/DocumentCheck.h"
#include "tools/scene/Misalignment.h"

namespace polarline {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Field;
using ::testing::HasSubstr;
using ::testing::ThrowsMessage;

/// A small board before cameras of which the right one looks down by 0.3 degrees, 0.8 pixels at this size.
/// With a right camera that is not where the calibration has it.
scene::Scene turned(scene::Scene scene) {
  scene::Misalignment misalignment;
  misalignment.rotation_x = 0.3;
  scene.rig = scene::misaligned(scene.given, misalignment);
  return scene;
}

const RenderedSet& misalignedSet() {
  static const RenderedSet set(turned(small_scene::withSecondPose(small_scene::dots())));
  return set;
}

TEST(CorrectingMeanRow, IsOverAllDotsOfFinishedPairs) {
  MeanRow rows;
  EXPECT_TRUE(std::isnan(rows.mean()));
  PairCheck pair = hand_made::pair(0, {}, {});
  pair.points.dy = {1.0F, -3.0F, std::numeric_limits<float>::quiet_NaN()};
  rows.add(pair);
  pair.points.dy = {5.0F};
  rows.add(pair);
  rows.add(hand_made::givenUp(pair));
  EXPECT_EQ(rows.mean(), 3.0);
}

TEST(CorrectingMeanRow, IsOfRefinedCentresOnlyWhereEachPairHasThem) {
  MeanRow rows;
  PairCheck pair = hand_made::pair(0, {}, {});
  pair.points.dy = {4.0F};
  pair.refined.emplace().points.dy = {1.0F};
  rows.add(pair);
  EXPECT_TRUE(rows.isRefined());
  EXPECT_EQ(rows.mean(), 1.0);
  pair.points.dy = {6.0F};
  pair.refined->problem = "no light";
  rows.add(pair);
  EXPECT_FALSE(rows.isRefined());
  EXPECT_EQ(rows.mean(), 5.0) << "of all, as they were detected";
}

TEST(CorrectingRefuses, NamesThatTheFileCantHave) {
  const struct {
    const char *path, *calibration, *wanted;
    int type;
  } refused[] = {{"c.json", "calib.bin", ".bin was wanted", 3},
                 {"c.txt", "calib.bin", ".bin was wanted", 3},
                 {"c.bin", "calib.json", "calib.json is none", 1},
                 {"c.txt", "calib.json", "in .json was wanted", 1},
                 {"c.txt", "calib.bin", "in .json or .bin was wanted", 1}};
  for (const auto& each : refused) {
    EXPECT_THAT([&] { requireCorrectable(each.path, each.type, each.calibration); },
                ThrowsMessage<InputError>(HasSubstr(each.wanted)));
  }
  EXPECT_NO_THROW(requireCorrectable("c.json", 2, "calib.json"));
  EXPECT_NO_THROW(requireCorrectable("c.json", 2, "calib.bin"));
  EXPECT_NO_THROW(requireCorrectable("c.bin", 2, "calib.bin"));
  EXPECT_NO_THROW(requireCorrectable("c.bin", 3, "calib.bin"));
  EXPECT_NO_THROW(requireCorrectable("", 3, "calib.bin"));
}

TEST(Correcting, MakesTheRowsBetterAndTellsBothMeans) {
  const CopiedSet set(misalignedSet());
  CheckOptions options;
  options.write_corrected = set.parent.file("corrected.json");
  const Check check = set.check(options);
  EXPECT_EQ(check.status.exit_code, 0) << check.status.text;
  ASSERT_TRUE(check.diagnosis);
  EXPECT_THAT(check.diagnosis->causes, Contains(Field(&Cause::name, "rotation_x"))) << check.diagnosis->text;
  EXPECT_GT(check.diagnosis->rows_before, 0.5);
  ASSERT_TRUE(check.correction);
  EXPECT_EQ(check.correction->path, options.write_corrected);
  EXPECT_LT(check.correction->rows_predicted, 0.1);
  EXPECT_LT(check.correction->rows_seen, 0.1);
  Set corrected = set.set();
  corrected.calibration = options.write_corrected;
  const Check again = polarline::check(corrected);
  EXPECT_LT(again.pairs.at(0).figure("dy_means")->values.at(0), 0.1);
  const auto document = DocumentCheck::ofCheck().parsed(toJson(check));
  EXPECT_EQ(document["diagnosis"]["correction"]["rows_seen"], check.correction->rows_seen);
}

TEST(Correcting, OfAlignedCamerasWritesNothingAndSaysSo) {
  const CopiedSet set;
  CheckOptions options;
  options.write_corrected = set.parent.file("corrected.json");
  const Check check = set.check(options);
  ASSERT_TRUE(check.diagnosis);
  EXPECT_TRUE(check.diagnosis->causes.empty()) << check.diagnosis->text;
  EXPECT_FALSE(check.correction);
  EXPECT_FALSE(set.parent.has("corrected.json"));
  EXPECT_THAT(check.warnings, Contains(Field(&Warning::code, "nothing_to_correct")));
}

TEST(Correcting, ThatMakesNothingBetterIsNotWritten) {
  const CopiedSet set(misalignedSet());
  CheckOptions options;
  options.write_corrected = set.parent.file("corrected.json");
  Check check = set.check(options);
  ASSERT_TRUE(check.correction);
  PairCheck perfect;
  perfect.finished = true;
  perfect.points.dy = {0.0F};
  MeanRow before;
  before.add(perfect);
  options.write_corrected = set.parent.file("again.json");
  Set named = set.set();
  named.calibration = set.file("calib.json");
  EXPECT_FALSE(correct(named, options, before, StereoCalibParams(), check));
  EXPECT_FALSE(set.parent.has("again.json"));
  EXPECT_THAT(check.warnings, Contains(AllOf(Field(&Warning::code, "correction_no_better"),
                                             Field(&Warning::text, HasSubstr("again.json was not written")))));
}

TEST(Correcting, KeepsTheColourCameraOfTheGivenFile) {
  const CopiedSet set(misalignedSet());
  auto given = nlohmann::json::parse(set.read("calib.json"));
  given["RGB"] = {{"Fx", 1234.5}};
  set.write("calib.json", given.dump());
  CheckOptions options;
  options.write_corrected = set.parent.file("corrected.json");
  ASSERT_TRUE(set.check(options).correction);
  const auto corrected = nlohmann::json::parse(set.parent.read("corrected.json"));
  EXPECT_EQ(corrected["RGB"], given["RGB"]);
  EXPECT_NE(corrected["IR_R"]["Rotate"]["RX"], given["IR_R"]["Rotate"]["RX"]);
}

TEST(Correcting, OfAPolynomialLensIsRefusedBeforeTheRunWhereItCantBeWritten) {
  const RenderedSet rendered(small_scene::polynomial());
  const CopiedSet set(rendered);
  CheckOptions options;
  options.write_corrected = set.parent.file("corrected.json");
  const Check check = set.check(options);
  EXPECT_EQ(check.status.exit_code, 2);
  EXPECT_THAT(check.status.text, HasSubstr("polynomial lens"));
  EXPECT_TRUE(check.pairs.empty());
}

/// Of every lens: a binary file takes the corrected camera, tables of a polynomial lens included.
TEST(Correcting, WritesABinaryFileThatMakesTheRowsBetter) {
  for (const scene::Scene& aligned : {small_scene::polynomial(), small_scene::dots()}) {
    const RenderedSet rendered(turned(small_scene::withSecondPose(aligned)));
    const CopiedSet copied(rendered);
    Set set = copied.set();
    set.calibration = copied.file("calib.bin");
    CheckOptions options;
    options.write_corrected = copied.parent.file("corrected.bin");
    const Check check = polarline::check(set, options);
    ASSERT_EQ(check.status.exit_code, 0) << check.status.text;
    EXPECT_GT(check.diagnosis->rows_before, 0.5);
    ASSERT_TRUE(check.correction) << check.diagnosis->text;
    EXPECT_LT(check.correction->rows_seen, 0.1);
    set.calibration = options.write_corrected;
    EXPECT_LT(polarline::check(set).pairs.at(0).figure("dy_means")->values.at(0), 0.1);
  }
}

TEST(Correcting, InterruptedLeavesNothing) {
  const CopiedSet set(misalignedSet());
  CheckOptions options;
  options.write_corrected = set.parent.file("corrected.json");
  int asked = 0;
  options.go_on = [&asked] { return ++asked < 5; };  // Start, two pairs, start of the second run: within that.
  EXPECT_EQ(set.check(options).status.exit_code, 130);
  EXPECT_FALSE(set.parent.has("corrected.json"));
}

}  // namespace
}  // namespace polarline
