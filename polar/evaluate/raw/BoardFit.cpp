#include "polar/evaluate/raw/BoardFit.h"

#include <array>
#include <cmath>

#include "polar/geometry/RigidAlignment.h"
#include "polar/geometry/Triangulation.h"

namespace {

std::vector<cv::Point3f> positionsOf(const std::vector<PairPointRecord>& records) {
  std::vector<cv::Point3f> positions;
  positions.reserve(records.size());
  for (const PairPointRecord& record : records) positions.emplace_back(record.x, record.y, record.z);
  return positions;
}

/// Float differences, squares and root in double.
double pixelDistance(const cv::Point2f& projected, const PairPointRecord& record) {
  const float dx = projected.x - record.left_x;
  const float dy = projected.y - record.left_y;
  return std::sqrt(std::pow(dx, 2.0) + std::pow(dy, 2.0));
}

std::vector<cv::Point3f> alignedBoard(PairFigures& figures, const std::vector<cv::Point3f>& truth) {
  std::array<float, 4> rms{};
  std::vector<cv::Point3f> aligned;
  AlignRigid(rms, truth, positionsOf(figures.pairPoints), aligned);
  figures.icp_x_rms = rms[0];
  figures.icp_y_rms = rms[1];
  figures.icp_z_rms = rms[2];
  figures.icp_nor_rms = rms[3];
  figures.setMeasured(FigureGroup::kAlignment);
  return aligned;
}

}  // namespace

std::vector<double> fitAndProject(PairFigures& figures, const std::vector<cv::Point3f>& truth, const LeftCamera& camera,
                                  DistanceTables& tables, std::vector<cv::Point2f>* projected) {
  static constexpr const char* kColumn = "gt_err_mean";
  const std::vector<PairPointRecord>& points = figures.pairPoints;
  tables.boardCheck().row("");
  DistanceTables::columnHeader(tables.boardCheck(), kColumn);
  const std::vector<cv::Point3f> aligned = alignedBoard(figures, truth);
  std::vector<double> distances;
  distances.reserve(points.size());
  for (std::size_t k = 0; k < points.size(); ++k) {
    const cv::Point2f pixel = predictLeftPixel(aligned[k], camera.K, camera.model);
    if (projected != nullptr) projected->push_back(pixel);
    distances.push_back(pixelDistance(pixel, points[k]));
    tables.boardCheck().row(points[k].id, kColumn, distances.back() * kTableScale);
  }
  return distances;
}

float projectionRms(const std::vector<double>& distances, double limit) {
  double square_sum = 0.0;
  std::size_t kept = 0;
  for (const double distance : distances) {
    if (distance > limit) continue;
    square_sum += distance * distance;
    ++kept;
  }
  return static_cast<float>(std::sqrt(square_sum / static_cast<double>(kept)));
}
