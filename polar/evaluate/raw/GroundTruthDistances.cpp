#include "polar/evaluate/raw/GroundTruthDistances.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/Console.h"
#include "polar/geometry/PointDistance.h"

namespace {

float distanceOf(const cv::Point3f& a, const cv::Point3f& b) { return static_cast<float>(lengthByDoubles(a - b)); }

cv::Point3f positionOf(const PairPointRecord& record) { return {record.x, record.y, record.z}; }

/// Sums in single precision, as the figures require.
struct ErrorSums {
  float errors = 0.0F;
  float squares = 0.0F;
  float relative_squares = 0.0F;
};

/// Sums over all ordered pairs; they go on from point to point, so they are not those of the points added up.
struct PairSums {
  float squares = 0.0F;
  float relative_squares = 0.0F;
  float ranges = 0.0F;
  std::size_t pairs = 0;
};

/// Compares point `i` with every other.
ErrorSums comparePoint(const std::vector<PairPointRecord>& records, std::size_t i,
                       const std::vector<cv::Point3f>& truth, PairSums& sums, PairDistances& distances,
                       TableWriter& table) {
  const PairPointRecord& record = records[i];
  ErrorSums own;
  for (std::size_t j = 0; j < records.size(); ++j) {
    if (j == i) continue;
    const float true_distance = distanceOf(truth[i], truth[j]);
    const float error = distanceOf(positionOf(record), positionOf(records[j])) - true_distance;
    const float relative = error / true_distance;
    table.row(record.id, records[j].id, error * kTableScale);
    distances.add(error);
    own.errors += error;
    own.squares += error * error;
    own.relative_squares += relative * relative;
    sums.squares += error * error;
    sums.relative_squares += relative * relative;
  }
  return own;
}

float rootMean(float square_sum, std::size_t count) { return std::sqrt(square_sum / static_cast<float>(count)); }

std::vector<std::int32_t> idsOf(const std::vector<PairPointRecord>& records) {
  std::vector<std::int32_t> ids;
  ids.reserve(records.size());
  for (const PairPointRecord& record : records) ids.push_back(record.id);
  return ids;
}

/// Fills each record's own figures and the sums, and gives the records' mean errors.
std::vector<float> comparePoints(PairFigures& figures, const std::vector<cv::Point3f>& truth, PairSums& sums,
                                 TableWriter& table) {
  std::vector<PairPointRecord>& records = figures.pairPoints;
  const auto distances = std::make_shared<PairDistances>(idsOf(records));
  const std::size_t others = records.size() - 1;
  std::vector<float> means;
  means.reserve(records.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    const ErrorSums own = comparePoint(records, i, truth, sums, *distances, table);
    PairPointRecord& record = records[i];
    record.dis_rms = rootMean(own.squares, others);
    record.nor_rms = rootMean(own.relative_squares, others);
    means.push_back(own.errors / static_cast<float>(others));
    sums.pairs += others;
    sums.ranges += std::sqrt(record.x * record.x + record.y * record.y + record.z * record.z);
  }
  figures.distances = distances;
  return means;
}

}  // namespace

void evaluateDistances(PairFigures& figures, const std::vector<cv::Point3f>& truth, DistanceTables& tables) {
  static constexpr const char* kMeanColumn = "dis_err_mean";
  tables.distances().row("id1->", "id2", "dis_err(cal-gt)");
  PairSums sums;
  const std::vector<float> means = comparePoints(figures, truth, sums, tables.distances());

  const std::vector<PairPointRecord>& records = figures.pairPoints;
  DistanceTables::columnHeader(tables.distances(), "dis_rms");
  DistanceTables::columnHeader(tables.boardCheck(), kMeanColumn);
  for (std::size_t i = 0; i < records.size(); ++i) {
    const PairPointRecord& record = records[i];
    tables.points().row(record.id, record.x, record.y, record.z);
    tables.distances().row(record.id, "rms", record.dis_rms * kTableScale);
    tables.boardCheck().row(record.id, kMeanColumn, means[i] * kTableScale);
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
