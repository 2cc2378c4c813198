#include <cmath>
#include <fstream>

#include "PolarLinePrecision/Status.h"
#include "platform/Console.h"
#include "platform/OutputFile.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polar/evaluate/raw/DistanceTables.h"
#include "polar/geometry/PairTriangulation.h"
#include "polar/geometry/RigidOntoBoard.h"
#include "polar/results/ResultFiles.h"
#include "polar/results/TableWriter.h"

namespace {

/// The rows below those of the distance evaluation, which has written the same file before. A table that is not wanted
/// keeps nothing.
class BoardCheckTable {
 public:
  BoardCheckTable(const PairEvaluator& evaluator, bool wanted)
      : file_(wanted && evaluator.config().discalsave
                  ? pairFile(evaluator.result_folder, evaluator.image_id, kBoardCheckTable)
                  : "",
              std::ios::app),
        rows_(file_) {
    rows_.row("");
    DistanceTables::columnHeader(rows_, kColumn);
  }
  void add(std::int32_t id, double distance) { rows_.row(id, kColumn, distance); }

 private:
  static constexpr const char* kColumn = "space_rms";

  files::OutputFile file_;
  TableWriter rows_;
};

double lengthOf(const Eigen::Vector3d& v) { return std::sqrt(v.x() * v.x() + v.y() * v.y() + v.z() * v.z()); }

/// Root of the mean squared distance that is left after the fit.
double fitOntoBoard(const std::vector<PairPointRecord>& records, const std::vector<cv::Point3f>& board,
                    BoardCheckTable& table) {
  std::vector<Eigen::Vector3d> measured;
  std::vector<Eigen::Vector3d> truth;
  measured.reserve(records.size());
  truth.reserve(records.size());
  for (const PairPointRecord& record : records) {
    const cv::Point3f& point_board = board.at(static_cast<std::size_t>(record.id));
    measured.emplace_back(record.x, record.y, record.z);
    truth.emplace_back(point_board.x, point_board.y, point_board.z);
  }
  const RigidMotion board_from_left = FitRigidOntoBoard(measured, truth);
  double square_sum = 0.0;
  for (std::size_t i = 0; i < records.size(); ++i) {
    const Eigen::Vector3d placed = board_from_left.R * measured[i] + board_from_left.t;
    const Eigen::Vector3d d = truth[i] - placed;
    square_sum += d.x() * d.x() + d.y() * d.y() + d.z() * d.z();
    table.add(records[i].id, lengthOf(d));
  }
  // The count passes through single precision.
  return std::sqrt(square_sum / static_cast<double>(static_cast<float>(records.size())));
}

PairStatus checkBoard(PairEvaluator& evaluator, const PairInput& raw, const CameraPairModel& model, bool writes_table) {
  BoardCheckTable table(evaluator, writes_table);
  MeasuredPair pair;
  if (evaluator.measure(raw, pair) != polar_status::kSuccess) {
    console::out() << "Error in detect ellipse pixel coordinate!";
    return kMeasurementFailed;
  }
  if (!evaluator.enoughShared(pair, kLeastSharedRaw)) return polar_status::kTooFewShared;
  const TriangulatedPair triangulated = triangulateShared(pair, raw.cameras, model);
  const std::vector<PairPointRecord>& records = triangulated.records;
  if (evaluator.seen.raw.empty()) {  // The triangulation has told it otherwise, with its residuals.
    evaluator.seen.raw = sharedDots(pair);
    evaluator.seen.positions = triangulated.points_left;
    evaluator.seen.cameras = seenCameras(raw.cameras);
  }
  if (!evaluator.config().spaceRms_switch || evaluator.boardPoints.size() < kLeastBoardPoints) {
    return polar_status::kSuccess;
  }
  evaluator.figures.space_rms = fitOntoBoard(records, evaluator.boardPoints, table);
  evaluator.figures.setMeasured(FigureGroup::kSpace);
  return polar_status::kSuccess;
}

}  // namespace

PairStatus PairEvaluator::CheckBoardBrown(const PairInput& raw) {
  return checkBoard(*this, raw, BrownPairModel(left_dist, right_dist), true);
}

PairStatus PairEvaluator::CheckBoardPoly(const PairInput& raw, const CameraIntrinsicsBase& left_camera,
                                         const CameraIntrinsicsBase& right_camera) {
  return checkBoard(*this, raw, ObjectPairModel(left_camera, right_camera), false);
}
