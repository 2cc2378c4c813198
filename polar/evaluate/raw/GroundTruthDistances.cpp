#include "polar/evaluate/raw/GroundTruthDistances.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <opencv2/core/hal/intrin.hpp>

#include "platform/Console.h"

namespace {

/// Where a dot was measured and where it is on the board, side by side: x of both, y of both, z of both, and two zeros
/// that make it two loads.
using TwoPlaces = std::array<float, 8>;

struct TwoDistances {
  float measured, truth;
};

/// Differences in single precision, lengths in double, then narrowed: both at once.
TwoDistances distancesOf(const TwoPlaces& a, const TwoPlaces& b) {
  const cv::v_float32x4 along_xy = cv::v_load(a.data()) - cv::v_load(b.data());
  const cv::v_float32x4 along_z = cv::v_load(a.data() + 4) - cv::v_load(b.data() + 4);
  const cv::v_float64x2 x = cv::v_cvt_f64(along_xy), y = cv::v_cvt_f64_high(along_xy), z = cv::v_cvt_f64(along_z);
  std::array<float, 4> lengths{};
  cv::v_store(lengths.data(), cv::v_cvt_f32(cv::v_sqrt(x * x + y * y + z * z)));
  return {lengths[0], lengths[1]};
}

/// A dot as each row of the table needs it.
struct ComparedPoint {
  TwoPlaces places;
  WrittenNumber id;
};

std::vector<ComparedPoint> comparedPoints(const std::vector<PairPointRecord>& records,
                                          const std::vector<cv::Point3f>& truth) {
  std::vector<ComparedPoint> points;
  points.reserve(records.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    const PairPointRecord& seen = records[i];
    points.push_back(
        {{seen.x, truth[i].x, seen.y, truth[i].y, seen.z, truth[i].z, 0.0F, 0.0F}, WrittenNumber(seen.id)});
  }
  return points;
}

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
ErrorSums comparePoint(const std::vector<ComparedPoint>& points, std::size_t i, PairSums& sums,
                       PairDistances& distances, TableWriter& table) {
  ErrorSums own;
  for (std::size_t j = 0; j < points.size(); ++j) {
    if (j == i) continue;
    const auto [measured, truth] = distancesOf(points[i].places, points[j].places);
    const float error = measured - truth;
    const float relative = error / truth;
    table.row(points[i].id, points[j].id, error * kTableScale);
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
  const std::vector<ComparedPoint> points = comparedPoints(records, truth);
  const std::size_t others = records.size() - 1;
  std::vector<float> means;
  means.reserve(records.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    const ErrorSums own = comparePoint(points, i, sums, *distances, table);
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
