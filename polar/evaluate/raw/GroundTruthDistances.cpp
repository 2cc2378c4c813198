#include "polar/evaluate/raw/GroundTruthDistances.h"

#include <cmath>

#include "platform/Console.h"
#include "polar/geometry/PointDistance.h"

namespace {

constexpr float kTableScale = 1000.0F;

float distanceOf(const cv::Point3f& a, const cv::Point3f& b) { return static_cast<float>(lengthByDoubles(a - b)); }

cv::Point3f positionOf(const PairPointRecord& record) { return {record.x, record.y, record.z}; }

/// Lists of record `i`. They are reserved exactly: a board of 5000 points has 25 million pairs.
void comparePoint(std::vector<PairPointRecord>& records, std::size_t i, const std::vector<cv::Point3f>& truth,
                  TableWriter& table) {
  PairPointRecord& record = records[i];
  record.dis_errors.reserve(records.size() - 1);
  record.nor_errors.reserve(records.size() - 1);
  for (std::size_t j = 0; j < records.size(); ++j) {
    if (j == i) continue;
    const float true_distance = distanceOf(truth[i], truth[j]);
    const float error = distanceOf(positionOf(record), positionOf(records[j])) - true_distance;
    table.row(record.id, records[j].id, error * kTableScale);
    record.dis_errors.emplace_back(records[j].id, error);
    record.nor_errors.emplace_back(records[j].id, error / true_distance);
  }
}

/// Sums over all ordered pairs, in single precision as the figures require.
struct PairSums {
  float squares = 0.0F;
  float relative_squares = 0.0F;
  float ranges = 0.0F;
  std::size_t pairs = 0;
};

float rootMean(float square_sum, std::size_t count) { return std::sqrt(square_sum / static_cast<float>(count)); }

/// Fills the record's own figures, adds it to the sums and gives its mean error.
float summarisePoint(PairPointRecord& record, PairSums& sums) {
  const std::size_t count = record.dis_errors.size();
  float errors = 0.0F;
  float squares = 0.0F;
  float relative_squares = 0.0F;
  for (std::size_t k = 0; k < count; ++k) {
    const float error = record.dis_errors[k].second;
    const float relative = record.nor_errors[k].second;
    errors += error;
    squares += error * error;
    relative_squares += relative * relative;
    sums.squares += error * error;
    sums.relative_squares += relative * relative;
  }
  sums.pairs += count;
  sums.ranges += std::sqrt(record.x * record.x + record.y * record.y + record.z * record.z);
  record.dis_rms = rootMean(squares, count);
  record.nor_rms = rootMean(relative_squares, count);
  return errors / static_cast<float>(count);
}

}  // namespace

void evaluateDistances(PairFigures& figures, const std::vector<cv::Point3f>& truth, DistanceTables& tables) {
  static constexpr const char* kMeanColumn = "dis_err_mean";
  std::vector<PairPointRecord>& records = figures.pairPoints;
  tables.distances().row("id1->", "id2", "dis_err(cal-gt)");
  for (std::size_t i = 0; i < records.size(); ++i) comparePoint(records, i, truth, tables.distances());

  DistanceTables::columnHeader(tables.distances(), "dis_rms");
  DistanceTables::columnHeader(tables.boardCheck(), kMeanColumn);
  PairSums sums;
  for (PairPointRecord& record : records) {
    tables.points().row(record.id, record.x, record.y, record.z);
    const float mean = summarisePoint(record, sums);
    tables.distances().row(record.id, "rms", record.dis_rms * kTableScale);
    tables.boardCheck().row(record.id, kMeanColumn, mean * kTableScale);
  }
  figures.dis_rms = rootMean(sums.squares, sums.pairs);
  figures.nor_rms = rootMean(sums.relative_squares, sums.pairs);
  figures.zero_dis = sums.ranges / static_cast<float>(records.size());
  figures.setMeasured(FigureGroup::kDistances);
  console::line("dis_rms: ", figures.dis_rms);
  console::line("zero_dis:", figures.zero_dis);
  console::line("nor_rms:", figures.nor_rms);
  tables.distances().row("pointsnum", sums.pairs, figures.dis_rms);
}
