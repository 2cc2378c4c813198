#include "check/refined/PairRefiner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <set>
#include <utility>

#include "input/CalibrationConversion.h"
#include "polar/evaluate/PairEvaluator.h"
#include "support/MemoryRun.h"

namespace polarline {
namespace {

/// The refiner at the first pair of a rendered set, beginning half a pixel beside the truth.
struct PairRefinerRun : ::testing::Test {
  const RenderedSet& set = RenderedSet::of("ring_320");
  scene::PairTruth truth = scene::pairTruth(set.scene(), 0);
  ListedPictures pictures{{{2, "left_0.png", "right_0.png", set.file("")}}, 0};

  static StereoCalibParams calibration(const RenderedSet& set) {
    const ExportedCalibParams read = set.calibration();
    StereoCalibParams calib;
    importCalibration(read, calib);
    return calib;
  }
  PairRefiner refiner(const PolarConfig& config = {}) const {
    RefinerSettings settings = refinerOf(config, calibration(set), LensModel::kBrownEight);
    settings.board = BoardPlaces(set.file("target.ini"));
    return {std::move(settings), pictures};
  }
  std::array<CentresById, 2> places(const cv::Point2d& origin) const {
    std::array<CentresById, 2> centres;
    for (const scene::DotTruth& dot : truth.dots) {
      if (!dot.drawn || !dot.in_view) continue;
      centres[0].emplace(dot.id, cv::Point2d(dot.pixel_left.x + 0.3, dot.pixel_left.y - 0.4) - origin);
      centres[1].emplace(dot.id, cv::Point2d(dot.pixel_right.x + 0.3, dot.pixel_right.y - 0.4) - origin);
    }
    return centres;
  }
  /// Mean distance from the truth, pixels.
  double error(const CentresById& centres, const cv::Point2d& origin) const {
    double sum = 0.0;
    for (const auto& [id, centre] : centres) {
      const scene::Point2& wanted = truth.dots.at(static_cast<std::size_t>(id)).pixel_right;
      sum += cv::norm(centre + origin - cv::Point2d(wanted.x, wanted.y));
    }
    return sum / static_cast<double>(centres.size());
  }
};

TEST_F(PairRefinerRun, FindsTheCentresOfTheCirclesAndKeepsWhatItKnowsOfThem) {
  auto [left, right] = pictures.take(0);
  PairRefiner refines = refiner();
  const auto centres = refines.refine({0, nullptr, left, right}, places({}));
  EXPECT_GT(centres.right.size(), 100U);
  EXPECT_LT(error(centres.right, {}), 0.015);
  EXPECT_EQ(refines.pictures()[0].dots.size(), places({})[0].size());
  EXPECT_TRUE(refines.pictures()[1].pose);
}

TEST_F(PairRefinerRun, KnowsTheLensOfCutOutPictures) {
  auto [left, right] = pictures.take(0);
  const cv::Rect middle(4, 3, left.cols - 8, left.rows - 6);
  PairRefiner refines = refiner();
  refines.refine({0, nullptr, left, right}, places({}));
  const RefinedPose whole = refines.pictures()[1].pose.value();
  const auto centres = refines.refine({0, nullptr, left(middle).clone(), right(middle).clone()}, places({4.0, 3.0}));
  EXPECT_LT(error(centres.right, {4.0, 3.0}), 0.015);
  EXPECT_LT(cv::norm(refines.pictures()[1].pose.value().T - whole.T), 1e-3 * cv::norm(whole.T))
      << "the board stands where it stood";
}

TEST_F(PairRefinerRun, GivesEachPairItsOwnRecord) {
  auto [left, right] = pictures.take(0);
  PairRefiner refines = refiner();
  refines.refine({0, nullptr, left, right}, places({}));
  PairEvaluator evaluator(std::make_shared<const PolarConfig>());
  evaluator.figures.setMeasured(FigureGroup::kRows);
  refines.evaluated(0, evaluator);
  PairCheck first;
  refines.addTo(first);
  EXPECT_TRUE(first.refined.value().figure("dy_means")->is_own);
  EXPECT_GT(first.refined.value().refined_left, 100U);
  PairCheck given_up;
  refines.addTo(given_up);  // Nobody has evaluated it again.
  EXPECT_FALSE(given_up.refined.value().figure("dy_means")->is_own);
  EXPECT_EQ(given_up.refined.value().refined_left, 0U);
  EXPECT_TRUE(refines.pictures()[0].dots.empty());
}

TEST_F(PairRefinerRun, TellsOfAFailureOnlyWhereThePairHasFigures) {
  PairEvaluator evaluator(std::make_shared<const PolarConfig>());
  evaluator.errorText = "no light";
  PairRefiner refines = refiner();
  refines.evaluated(1, evaluator);
  PairCheck nothing;
  refines.addTo(nothing);
  EXPECT_EQ(nothing.refined.value().problem, "");
  EXPECT_TRUE(refines.warnings().empty());
  PairCheck measured;
  measured.figures.resize(1);
  measured.figures[0].is_own = true;
  refines.evaluated(1, evaluator);
  refines.addTo(measured);
  EXPECT_EQ(measured.refined.value().problem, "no light");
  EXPECT_EQ(refines.warnings().at(0).code, "refining_failed");
}

/// Puts a dot where the next one is, as if what was taken for it were something else.
void mistake(CentresById& places, std::int32_t id) {
  places.at(id) = places.at(id + 1);
  places.erase(id + 1);
}

TEST_F(PairRefinerRun, LeavesOutWhatIsNoDotInEitherPictureUnlessItIsAskedFor) {
  constexpr std::int32_t kLeft = 60, kRight = 75, kWanted = 90;
  auto [left, right] = pictures.take(0);
  std::array<CentresById, 2> seen = places({});
  mistake(seen[0], kLeft);
  mistake(seen[1], kRight);
  mistake(seen[0], kWanted);
  PolarConfig config;
  config.triangulate_dis_switch = 1;
  config.TriPoint3_ID = kWanted;
  PairRefiner refines = refiner(config);
  const std::set<std::int32_t> left_out = refines.refine({0, nullptr, left, right}, seen).not_dots;
  EXPECT_EQ(left_out, (std::set<std::int32_t>{kLeft, kRight}));
  const auto& dots = refines.pictures()[0].dots;
  EXPECT_EQ(std::ranges::find(dots, kWanted, &RefinedDot::id)->state, DotState::kCovered);
  refines.evaluated(0, PairEvaluator(std::make_shared<const PolarConfig>()));
  PairCheck pair;
  refines.addTo(pair);
  EXPECT_EQ(pair.refined.value().left_out, 2U);
}

TEST(PairRefinerSettings, AreThoseOfTheCamerasAndOfTheEvaluations) {
  StereoCalibParams calib;
  calib.left.intrinsics[0] = 600.0;
  calib.right.intrinsics[0] = 650.0;
  PolarConfig config;
  config.TriPoint1_ID = 4;
  config.PolPoint2_ID = 5;
  config.Cal_ID_DIS = {{7, 9}, {9, 11}};
  const RefinerSettings nothing = refinerOf(config, calib, LensModel::kBrownFive);
  EXPECT_EQ(nothing.cameras[0].focal().x, 600.0);
  EXPECT_EQ(nothing.cameras[1].focal().x, 650.0);
  EXPECT_TRUE(nothing.wanted.empty());
  config.triangulate_dis_switch = 1;
  EXPECT_EQ(refinerOf(config, calib, LensModel::kBrownFive).wanted, (std::set<std::int32_t>{0, 4}));
  config.foursixmethod_swithch = config.oqc_switch = 1;
  EXPECT_EQ(refinerOf(config, calib, LensModel::kBrownFive).wanted, (std::set<std::int32_t>{0, 4, 5, 7, 9, 11}));
}

}  // namespace
}  // namespace polarline
