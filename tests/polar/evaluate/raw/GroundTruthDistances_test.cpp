#include "polar/evaluate/raw/GroundTruthDistances.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include "platform/Console.h"
#include "support/EvaluatorFixture.h"

namespace {

/// Three records on a line and their true places: distances 3, 8, 5 measured against 2, 8, 6.
struct GroundTruthDistances : testing::Test {
  EvaluatorFixture fixture;
  std::vector<PairPointRecord> records = {at(4, {0, 0, 4}), at(7, {3, 0, 4}), at(9, {8, 0, 4})};
  std::vector<cv::Point3f> truth = {{1, 0, 0}, {3, 0, 0}, {9, 0, 0}};

  static PairPointRecord at(std::int32_t id, const cv::Point3f& point) {
    PairPointRecord record;
    record.id = id;
    record.x = point.x;
    record.y = point.y;
    record.z = point.z;
    return record;
  }
  void evaluate(PairEvaluator& evaluator) {
    DistanceTables tables(evaluator, true);
    evaluator.figures.pairPoints = std::move(records);
    evaluateDistances(evaluator.figures, truth, tables);
    records = evaluator.figures.pairPoints;
    distances = evaluator.figures.distances;
  }
  /// Of the record at a place, with the others' ids.
  std::vector<std::pair<std::int32_t, float>> errorsOf(std::size_t i) const {
    std::vector<std::pair<std::int32_t, float>> errors;
    for (const float error : distances->errorsOf(i)) errors.emplace_back(distances->idOfOther(i, errors.size()), error);
    return errors;
  }

  std::shared_ptr<const PairDistances> distances;
};

using Errors = std::vector<std::pair<std::int32_t, float>>;

TEST_F(GroundTruthDistances, ErrorIsPositiveWhenTheMeasuredDistanceIsTooLong) {
  PairEvaluator evaluator = fixture.evaluator();
  evaluate(evaluator);
  EXPECT_EQ(errorsOf(0), (Errors{{7, 1.0F}, {9, 0.0F}}));
  EXPECT_EQ(errorsOf(1), (Errors{{4, 1.0F}, {9, -1.0F}}));
  EXPECT_EQ(errorsOf(2), (Errors{{4, 0.0F}, {7, -1.0F}}));
}

TEST_F(GroundTruthDistances, FiguresByHand) {
  PairEvaluator evaluator = fixture.evaluator();
  evaluate(evaluator);
  EXPECT_FLOAT_EQ(records[0].dis_rms, std::sqrt(0.5F));
  EXPECT_FLOAT_EQ(records[1].dis_rms, 1.0F);
  EXPECT_FLOAT_EQ(records[0].nor_rms, std::sqrt(0.125F));
  // Each distance counts twice: 2 (1 + 0 + 1) over 6 ordered pairs.
  EXPECT_FLOAT_EQ(evaluator.figures.dis_rms, std::sqrt(4.0F / 6.0F));
  EXPECT_FLOAT_EQ(evaluator.figures.nor_rms, std::sqrt(2.0F * (0.25F + 1.0F / 36.0F) / 6.0F));
  EXPECT_FLOAT_EQ(evaluator.figures.zero_dis, (4.0F + 5.0F + std::sqrt(80.0F)) / 3.0F);
}

TEST_F(GroundTruthDistances, TablesHoldThousandths) {
  fixture.config.discalsave = true;
  PairEvaluator evaluator = fixture.evaluator();
  evaluate(evaluator);
  EXPECT_EQ(fixture.folder.read("0_diserr.csv"),
            "id1->,id2,dis_err(cal-gt)\n"
            "4,7,1000\n4,9,0\n7,4,1000\n7,9,-1000\n9,4,0\n9,7,-1000\n"
            "id_, ,dis_rms\n"
            "4,rms,707.107\n7,rms,1000\n9,rms,707.107\n"
            "pointsnum,6,0.816497\n");
  EXPECT_EQ(fixture.folder.read("0_tripoints.csv"), "4,0,0,4\n7,3,0,4\n9,8,0,4\n");
  EXPECT_EQ(fixture.folder.read("0_boardcheck.csv"),
            "id_, ,dis_err_mean\n4,dis_err_mean,500\n7,dis_err_mean,0\n9,dis_err_mean,-500\n");
}

TEST_F(GroundTruthDistances, ThreeLinesInFixedNotation) {
  PairEvaluator evaluator = fixture.evaluator();
  console::useFixedNotation();
  evaluate(evaluator);
  EXPECT_EQ(fixture.console.out(), "dis_rms: 0.81649661\nzero_dis:5.98142385\nnor_rms:0.30429032\n");
}

TEST_F(GroundTruthDistances, DistancesAreHeldOnce) {
  PairEvaluator evaluator = fixture.evaluator();
  evaluate(evaluator);
  const PairFigures record = evaluator.figures;
  EXPECT_EQ(record.distances, evaluator.figures.distances);
}

TEST_F(GroundTruthDistances, SumsOverAllPairsStayInSinglePrecision) {
  // One large error first, then many small ones: 2^24 + 1 is not a float, so single sums lose every small square.
  records = {at(0, {0, 0, 0}), at(1, {4096, 0, 0})};
  truth = {{0, 0, 0}, {0, 0, 0}};
  for (std::int32_t id = 2; id < 12; ++id) {
    records.push_back(at(id, {0, 0, 0}));
    truth.emplace_back(0.0F, 0.0F, 0.0F);
  }
  for (std::size_t k = 2; k < records.size(); ++k) records[k].y = 1.0F;
  PairEvaluator evaluator = fixture.evaluator();
  evaluate(evaluator);
  // Record 0: 4096^2, then ten squares of 1, all lost.
  EXPECT_EQ(records[0].dis_rms, std::sqrt(16777216.0F / 11.0F));
  EXPECT_NE(records[0].dis_rms, std::sqrt(16777226.0F / 11.0F));
}

/// Records and true places without any order in them.
struct GroundTruthDistancesScatteredPoints : GroundTruthDistances {
  GroundTruthDistancesScatteredPoints() {
    records.clear();
    truth.clear();
    for (std::int32_t id = 0; id < 40; ++id) {
      const float t = static_cast<float>(id);
      records.push_back(at(id, {37.1F * std::sin(t), 41.3F * std::cos(1.7F * t), 500.7F + 13.9F * std::sin(2.3F * t)}));
      truth.emplace_back(36.9F * std::sin(t), 41.7F * std::cos(1.7F * t), 14.1F * std::sin(2.3F * t));
    }
  }
  static cv::Point3f place(const PairPointRecord& record) { return {record.x, record.y, record.z}; }
};

TEST_F(GroundTruthDistancesScatteredPoints, LengthsAreSquaredAndRootedInDouble) {
  const auto wideLength = [](const cv::Point3f& d) { return static_cast<float>(cv::norm(cv::Point3d(d))); };
  const auto narrowLength = [](const cv::Point3f& d) { return std::sqrt(d.x * d.x + d.y * d.y + d.z * d.z); };
  PairEvaluator evaluator = fixture.evaluator();
  evaluate(evaluator);
  int told_apart = 0;
  for (std::size_t i = 0; i < records.size(); ++i) {
    for (const auto& [id, error] : errorsOf(i)) {
      const auto j = static_cast<std::size_t>(id);
      const cv::Point3f measured = place(records[i]) - place(records[j]);
      const cv::Point3f expected = truth[i] - truth[j];
      EXPECT_EQ(error, wideLength(measured) - wideLength(expected));
      if (error != narrowLength(measured) - narrowLength(expected)) ++told_apart;
    }
  }
  EXPECT_GT(told_apart, 50);
}

TEST_F(GroundTruthDistancesScatteredPoints, FiguresOfTheWholePairAreSummedInSinglePrecision) {
  records[1].z += 1500.0F;  // Its large errors swallow the small ones of the others.
  PairEvaluator evaluator = fixture.evaluator();
  evaluate(evaluator);
  float squares = 0.0F, relative_squares = 0.0F, ranges = 0.0F;
  double wide_squares = 0.0;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const PairPointRecord& record = records[i];
    for (const auto& [id, error] : errorsOf(i)) {
      squares += error * error;
      wide_squares += static_cast<double>(error) * error;
      const cv::Point3f way = truth[i] - truth[static_cast<std::size_t>(id)];
      const float relative = error / static_cast<float>(cv::norm(cv::Point3d(way)));
      relative_squares += relative * relative;
    }
    ranges += std::sqrt(record.x * record.x + record.y * record.y + record.z * record.z);
  }
  EXPECT_EQ(evaluator.figures.dis_rms, std::sqrt(squares / 1560.0F));
  EXPECT_NE(evaluator.figures.dis_rms, static_cast<float>(std::sqrt(wide_squares / 1560.0)));
  EXPECT_EQ(evaluator.figures.nor_rms, std::sqrt(relative_squares / 1560.0F));
  EXPECT_EQ(evaluator.figures.zero_dis, ranges / 40.0F);
}

}  // namespace
