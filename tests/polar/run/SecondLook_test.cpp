#include "polar/run/SecondLook.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <regex>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "PolarLinePrecision/Status.h"
#include "input/BoardGroundTruthReader.h"
#include "polar/results/FigureList.h"
#include "polar/run/PolarPrecision.h"
#include "support/ConsoleCapture.h"
#include "support/FigureText.h"
#include "support/FolderContents.h"
#include "support/SmallScene.h"
#include "support/TempFolder.h"
#include "tools/scene/Truth.h"
#include "tools/scene/WriteScene.h"

namespace {

using Refinement = std::function<CentresById(std::size_t pair, std::size_t side, const CentresById& places)>;

CentresById asTheyAre(std::size_t /*pair*/, std::size_t /*side*/, const CentresById& places) { return places; }
CentresById none(std::size_t /*pair*/, std::size_t /*side*/, const CentresById& /*places*/) { return {}; }

/// Both looks at each pair, the second with centres that a test sets down.
struct BothLooks final : CentreRefiner, RunObserver {
  struct Pair {
    PairFigures first, second;
    PairObservation seen, seen_again;
    std::array<CentresById, 2> places;
    bool is_finished = false;
    bool has_second = false;
    std::int32_t status = 0;
    std::string error;
  };
  Refinement refinement;
  std::set<std::int32_t> not_dots;
  std::vector<Pair> pairs;
  Pair now;

  RefinedCentres refine(const PairInput& /*raw*/, const std::array<CentresById, 2>& places) override {
    now.places = places;
    return {refinement(pairs.size(), 0, places[0]), refinement(pairs.size(), 1, places[1]), not_dots};
  }
  void evaluated(std::int32_t status, const PairEvaluator& evaluator) override {
    now.has_second = true;
    now.status = status;
    now.error = evaluator.errorText;
    now.second = evaluator.figures;
    now.seen_again = evaluator.seen;
  }
  void pairDone(std::size_t /*index*/, bool finished, std::int32_t /*status*/, const PairEvaluator& first) override {
    now.is_finished = finished;
    now.first = first.figures;
    now.seen = first.seen;
    pairs.push_back(std::exchange(now, {}));
  }
};

/// A rendered set, rendered once in a process.
class Rendered {
 public:
  explicit Rendered(const scene::Scene& made) : scene(made) { scene::writeScene(scene, folder_.path().string()); }
  static const Rendered& twoPairs() {
    static const Rendered set(small_scene::withSecondPose(small_scene::dots()));
    return set;
  }
  static const Rendered& polynomial() {
    static const Rendered set(small_scene::withSecondPose(small_scene::polynomial()));
    return set;
  }
  static const Rendered& fisheye() {
    static const Rendered set([] {
      scene::Scene made = small_scene::of(scene::fisheyeRig({160, 128, 60.0}), scene::bigDotBoard(7, 9));
      made.settings.type = 2;
      return made;
    }());
    return set;
  }
  static const Rendered& rings() {
    static const Rendered set(small_scene::rings());
    return set;
  }
  static const Rendered& frames() {
    static const Rendered set(small_scene::withSecondPose(small_scene::frame()));
    return set;
  }
  static const Rendered& outside() {
    static const Rendered set(small_scene::withSecondPose(small_scene::rectified()));
    return set;
  }
  std::string file(const std::string& name) const { return folder_.file(name); }

  const scene::Scene scene;

 private:
  TempFolder folder_;
};

/// A run of a rendered set with every evaluation on.
struct SecondLookRun {
  explicit SecondLookRun(const Rendered& rendered, const std::string& more = "") : set(rendered) {
    const ConsoleCapture quiet;
    precision.ReadPolarConfig(TempFolder::contentOf(set.file("polar.txt")) + "\n" + more, "");
    precision.ReadCalibResult(set.file(set.scene.settings.type == 3 ? "calib.bin" : "calib.json"), calib);
    precision.ReadImageList(set.file("list.txt"), arguments.images);
    ReadBoardTxt(set.file("board_gt.txt"), precision.boardPoints);
    target = set.file("target.ini");
    arguments.targetConfigPath = target;
  }

  /// The pairs that the refiner and the observer see.
  const std::vector<BothLooks::Pair>& look(const Refinement& refinement) {
    looks.refinement = refinement;
    arguments.refiner = &looks;
    arguments.observer = &looks;
    status = run();
    return looks.pairs;
  }
  std::int32_t run() {
    const ConsoleCapture console;
    const std::int32_t result = set.scene.settings.rectified ? precision.RunRectified(arguments, geometry())
                                : precision.frameWork() != 0 ? precision.RunFrames(arguments, calib)
                                                             : precision.RunImageSet(arguments, calib);
    printed = console.out();
    return result;
  }
  /// The centres of the circles, as the renderer images them.
  Refinement truth() const {
    return [this](std::size_t pair, std::size_t side, const CentresById& places) {
      const scene::PairTruth truth = scene::pairTruth(set.scene, pair);
      CentresById centres;
      for (const auto& [id, place] : places) {
        const std::vector<int>& frame = set.scene.settings.frame_ids;
        const auto k = static_cast<std::size_t>(id);
        const scene::DotTruth& dot = truth.dots.at(frame.empty() ? k : static_cast<std::size_t>(frame.at(k)));
        const scene::Point2& pixel = side == 0 ? dot.pixel_left : dot.pixel_right;
        centres.emplace(id, cv::Point2d(pixel.x, pixel.y));
      }
      return centres;
    };
  }
  RectifiedGeometry geometry() const {
    const scene::StereoRig& rig = set.scene.rig;
    return {rig.left.cx, rig.left.cy, rig.left.fx, rig.right_from_left_translation.x, 0.0, precision.boardPoints};
  }

  const Rendered& set;
  PolarPrecision precision;
  StereoCalibParams calib;
  RunArguments arguments;
  std::string target;
  BothLooks looks;
  std::int32_t status = 0;
  std::string printed;
};

bool isRectifiedGroup(FigureGroup group) {
  return group == FigureGroup::kRows || group == FigureGroup::kPolDis || group == FigureGroup::kSpacing ||
         group == FigureGroup::kIdDis;
}

/// Names of the figures that the two looks do not agree on to the last bit, and how many there were to compare.
std::pair<std::set<std::string>, int> differing(const BothLooks::Pair& pair, bool of_rectified) {
  std::set<std::string> names;
  int compared = 0;
  figure_list::forEach([&](auto entry) {
    if constexpr (!std::is_same_v<std::decay_t<decltype(entry.valueIn(pair.first))>, cv::Mat> &&
                  !std::is_same_v<std::decay_t<decltype(entry.valueIn(pair.first))>, std::vector<PairPointRecord>>) {
      if (isRectifiedGroup(entry.kGroup) != of_rectified || !pair.first.isMeasured(entry.kGroup)) return;
      ++compared;
      if (!pair.second.isMeasured(entry.kGroup) || entry.valueIn(pair.first) != entry.valueIn(pair.second))
        names.insert(entry.name);
    }
  });
  return {names, compared};
}

struct Case {
  const char* name;
  const Rendered& (*set)();
  const char* more;
  int raw_figures;
  int rectified_figures;
};
std::ostream& operator<<(std::ostream& stream, const Case& each) { return stream << each.name; }

class SecondLookCases : public testing::TestWithParam<Case> {};

TEST_P(SecondLookCases, MeasuredCentresGiveTheSameRawFiguresToTheLastBit) {
  SecondLookRun run(GetParam().set(), GetParam().more);
  ASSERT_GE(run.look(asTheyAre).size(), 1U);
  for (const BothLooks::Pair& pair : run.looks.pairs) {
    ASSERT_TRUE(pair.is_finished);
    ASSERT_TRUE(pair.has_second);
    EXPECT_EQ(pair.status, 0) << pair.error;
    EXPECT_EQ(differing(pair, false), std::pair(std::set<std::string>{}, GetParam().raw_figures));
  }
}

TEST_P(SecondLookCases, WhatIsLeftOutKeepsItsCentreInTheRawAndInTheRectifiedPictures) {
  SecondLookRun run(GetParam().set(), GetParam().more);
  run.look(none);
  for (const BothLooks::Pair& pair : run.looks.pairs) {
    EXPECT_EQ(pair.status, 0) << pair.error;
    EXPECT_EQ(differing(pair, false), std::pair(std::set<std::string>{}, GetParam().raw_figures));
    EXPECT_EQ(differing(pair, true), std::pair(std::set<std::string>{}, GetParam().rectified_figures));
  }
}

TEST_P(SecondLookCases, TrueCentresLeaveNothing) {
  SecondLookRun run(GetParam().set(), GetParam().more);
  run.look(run.truth());
  for (const BothLooks::Pair& pair : run.looks.pairs) {
    EXPECT_EQ(pair.status, 0) << pair.error;
    // Row differences and residuals come through single-precision pixels and lenses of single-precision tables.
    if (pair.first.isMeasured(FigureGroup::kRows) && run.precision.config.x_y == 0) {
      EXPECT_LT(pair.second.dy_max, 3e-4F);
      EXPECT_GT(pair.first.dy_max, 0.01F);
    }
    if (pair.first.isMeasured(FigureGroup::kResiduals) && run.precision.config.type != 2) {
      EXPECT_LT(pair.second.tri_max, 5e-4F);
    }
    for (const double distance : pair.second.frameValues) EXPECT_NEAR(distance, 0.0, 0.02);
  }
}

constexpr const char* kCrop = "crop: 1\ncropped_cols: 124\ncropped_rows: 98";
INSTANTIATE_TEST_SUITE_P(
    Runs, SecondLookCases,
    testing::Values(Case{"brown", Rendered::twoPairs, "", 14, 8},
                    Case{"scaled", Rendered::twoPairs, "f_scale: 0.8", 14, 8},
                    Case{"light", Rendered::twoPairs, "evalu_model: 1", 14, 8},
                    Case{"poly", Rendered::polynomial, "", 14, 8}, Case{"rings", Rendered::rings, "", 14, 8},
                    Case{"fisheye", Rendered::fisheye,
                         "triangulate_residual_switch: 0\ntriangulate_dis_switch: 0\nspaceRms_switch: 0", 0, 8},
                    Case{"rows", Rendered::twoPairs,
                         "triangulate_residual_switch: 0\ntriangulate_dis_switch: 0\nspaceRms_switch: 0\n"
                         "foursixmethod_swithch: 0\nallpointssavecsv_swithch: 0",
                         0, 4},
                    Case{"frames", Rendered::frames, "", 5, 0}, Case{"outside", Rendered::outside, "", 0, 6}),
    testing::PrintToStringParamName());

TEST(SecondLook, WhatIsNoDotIsNotEvaluatedAgainInTheRawNorInTheRectifiedPictures) {
  // Not one of the four points that these ask for.
  constexpr const char* kNoPoints = "triangulate_dis_switch: 0\nfoursixmethod_swithch: 0";
  const auto seen_before = SecondLookRun(Rendered::twoPairs(), kNoPoints).look(asTheyAre).at(0).seen.raw;
  SecondLookRun run(Rendered::twoPairs(), kNoPoints);
  run.looks.not_dots = {seen_before.at(5).id, seen_before.at(20).id};
  const BothLooks::Pair& pair = run.look(asTheyAre).at(0);
  ASSERT_EQ(pair.status, 0) << pair.error;
  for (const auto list : {&PairObservation::raw, &PairObservation::rectified}) {
    std::vector<std::int32_t> expected;
    for (const SharedDot& dot : pair.seen.*list) {
      if (!run.looks.not_dots.contains(dot.id)) expected.push_back(dot.id);
    }
    ASSERT_EQ(expected.size() + 2, (pair.seen.*list).size()) << "both were seen before";
    std::vector<std::int32_t> seen_again;
    for (const SharedDot& dot : pair.seen_again.*list) seen_again.push_back(dot.id);
    EXPECT_EQ(seen_again, expected);
  }
}

TEST(SecondLook, HonoursTheCropWhosePrincipalPointMovesAgainWithEachPair) {
  SecondLookRun run(Rendered::twoPairs(), kCrop);
  const auto& pairs = run.look(asTheyAre);
  ASSERT_EQ(pairs.size(), 2U);
  for (const BothLooks::Pair& pair : pairs) {
    ASSERT_TRUE(pair.is_finished);
    EXPECT_EQ(differing(pair, false).first, std::set<std::string>{});
    // The rectified centres come another way, but to the same places.
    EXPECT_NEAR(pair.second.dy_means, pair.first.dy_means, 0.02F);
    EXPECT_NEAR(pair.second.pol_dis[0], pair.first.pol_dis[0], 0.5F);
  }
  EXPECT_GT(std::abs(pairs[1].first.gt_rms - SecondLookRun(Rendered::twoPairs()).look(none)[1].first.gt_rms), 0.0F);
}

TEST(SecondLook, FollowsTheQuarterTurn) {
  SecondLookRun run(Rendered::twoPairs(), "x_y: 1");
  const auto& pairs = run.look(run.truth());
  ASSERT_TRUE(pairs.at(0).is_finished);
  ASSERT_EQ(pairs[0].seen.rectified.size(), pairs[0].seen_again.rectified.size());
  for (std::size_t k = 0; k < pairs[0].seen.rectified.size(); ++k) {
    EXPECT_LT(cv::norm(pairs[0].seen.rectified[k].left - pairs[0].seen_again.rectified[k].left), 0.3);
    EXPECT_LT(cv::norm(pairs[0].seen.rectified[k].right - pairs[0].seen_again.rectified[k].right), 0.3);
  }
}

TEST(SecondLook, TakesTheWayBackWhereOnlyRectifiedPicturesWereMeasured) {
  SecondLookRun run(Rendered::twoPairs(),
                    "triangulate_residual_switch: 0\ntriangulate_dis_switch: 0\nspaceRms_switch: 0");
  const auto& pairs = run.look(asTheyAre);
  ASSERT_EQ(pairs.size(), 2U);
  const scene::PairTruth truth = scene::pairTruth(run.set.scene, 1);
  ASSERT_GT(pairs[1].places[1].size(), 50U);
  for (const auto& [id, place] : pairs[1].places[1]) {
    const scene::Point2& wanted = truth.dots.at(static_cast<std::size_t>(id)).ellipse_right.centre;
    EXPECT_LT(cv::norm(place - cv::Point2d(wanted.x, wanted.y)), 0.2) << id;
  }
  for (const BothLooks::Pair& pair : pairs) {
    for (std::size_t k = 0; k < pair.seen.rectified.size(); ++k)
      EXPECT_LT(cv::norm(pair.seen.rectified[k].left - pair.seen_again.rectified[k].left), 1e-4) << "there and back";
  }
}

TEST(SecondLook, RunGivesPrintsAndWritesWhatItDoesWithout) {
  const TempFolder folder_with;
  const TempFolder folder_without;
  SecondLookRun with(Rendered::twoPairs(), "eccentricity: 1");
  SecondLookRun without(Rendered::twoPairs(), "eccentricity: 1");
  with.precision.config.result_folder = folder_with.path().string();
  without.precision.config.result_folder = folder_without.path().string();
  with.looks.refinement = [](std::size_t, std::size_t, const CentresById& places) {
    CentresById moved = places;
    for (auto& [id, centre] : moved) centre += cv::Point2d(0.3, 0.4);
    return moved;
  };
  with.arguments.refiner = &with.looks;
  EXPECT_EQ(with.run(), 0);
  EXPECT_EQ(without.run(), 0);
  const auto files = contentsOf(folder_with.path());
  EXPECT_GT(files.size(), 12U);
  EXPECT_EQ(files, contentsOf(folder_without.path()));
  EXPECT_EQ(FigureText::of(with.precision.results), FigureText::of(without.precision.results));
  const auto withoutTimes = [](const std::string& text) {
    return std::regex_replace(text, std::regex("time:[^\t]*"), "time:");
  };
  EXPECT_EQ(withoutTimes(with.printed), withoutTimes(without.printed));
}

TEST(SecondLook, CompensatedCentresAreNotCompensatedAgain) {
  SecondLookRun run(Rendered::rings(), "eccentricity: 1\nspaceRms_switch: 0");
  const BothLooks::Pair& pair = run.look(asTheyAre).at(0);
  EXPECT_TRUE(pair.first.isMeasured(FigureGroup::kPose));
  ASSERT_EQ(pair.seen_again.raw.size(), pair.seen.raw.size());
  std::size_t compared = 0;
  for (std::size_t k = 0; k < pair.seen.raw.size(); ++k) {
    const cv::Point2f& first = pair.seen.raw[k].left;
    const cv::Point2f& second = pair.seen_again.raw[k].left;
    if (std::isnan(first.x)) continue;  // The compensation of so small a dot may fail.
    ++compared;
    EXPECT_EQ(second, first) << k;
  }
  EXPECT_GT(compared, 40U);
  EXPECT_FALSE(pair.second.isMeasured(FigureGroup::kPose)) << "nothing was there to compensate";
}

TEST(SecondLook, ExceptionIsToldAndThePairStaysFinished) {
  SecondLookRun run(Rendered::twoPairs());
  const auto& pairs = run.look([](std::size_t pair, std::size_t, const CentresById& places) -> CentresById {
    if (pair == 0) throw std::runtime_error("no light");
    return places;
  });
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.precision.errorText, "");
  ASSERT_EQ(pairs.size(), 2U);
  EXPECT_TRUE(pairs[0].is_finished);
  EXPECT_NE(pairs[0].status, 0);
  EXPECT_EQ(pairs[0].error, "no light");
  EXPECT_EQ(pairs[1].status, 0) << "the next pair knows nothing of it";
  EXPECT_EQ(pairs[1].error, "");
}

TEST(SecondLook, EvaluationThatGivesUpLeavesThePairAndTheRunAsTheyWere) {
  SecondLookRun run(Rendered::twoPairs());
  // All dots in one place: no residual below five pixels.
  const auto& pairs = run.look([](std::size_t, std::size_t side, const CentresById& places) {
    CentresById moved = places;
    for (auto& [id, centre] : moved) centre = side == 0 ? cv::Point2d(20.0, 20.0) : cv::Point2d(90.0, 80.0);
    return moved;
  });
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.precision.errorText, "");
  ASSERT_EQ(pairs.size(), 2U);
  EXPECT_TRUE(pairs[0].is_finished);
  EXPECT_EQ(pairs[0].status, polar_status::kTooFewShared);
  EXPECT_FALSE(pairs[0].second.isMeasured(FigureGroup::kResiduals));
}

TEST(SecondLook, PairGivenUpIsNotLookedAtAgain) {
  SecondLookRun run(Rendered::twoPairs());
  run.arguments.images[1][0] = cv::Mat(run.arguments.images[1][0].size(), CV_8UC1, cv::Scalar(90));
  run.precision.config.discalsave = false;
  const auto& pairs = run.look(asTheyAre);
  ASSERT_EQ(pairs.size(), 2U);
  EXPECT_FALSE(pairs[0].is_finished);
  EXPECT_FALSE(pairs[0].has_second);
  EXPECT_TRUE(pairs[1].has_second);
}

TEST(SecondLook, FramePointThatWasNotFoundIsNoPlace) {
  SecondLookRun run(Rendered::frames());
  for (double& coordinate : run.precision.config.Frame_IRL.at(2)) coordinate = -500.0;
  const auto& pairs = run.look(asTheyAre);
  ASSERT_EQ(pairs.size(), 2U);
  EXPECT_FALSE(pairs[0].places[0].contains(2));
  EXPECT_TRUE(pairs[0].places[1].contains(2));
  EXPECT_EQ(pairs[0].places[0].size(), 7U);
}

}  // namespace
