#include "tools/figures/RecordText.h"

#include <array>
#include <limits>
#include <ostream>

namespace figures {
namespace {

void line(std::ostream& out, const char* name, double value) { out << name << ' ' << value << '\n'; }

template <typename List>
void lines(std::ostream& out, const char* name, const List& values) {
  out << name;
  for (const double value : values) out << ' ' << value;
  out << '\n';
}

void writePicture(std::ostream& out, const cv::Mat& picture) {
  out << "detect_canvas " << picture.rows << ' ' << picture.cols << ' ' << picture.type() << ' '
      << (picture.empty() ? 0.0 : cv::norm(picture, cv::NORM_L1)) << '\n';
}

void writePoint(std::ostream& out, const TriPointRecord& point) {
  out << "point " << point.id << ' ' << point.left_x << ' ' << point.left_y << ' ' << point.right_x << ' '
      << point.right_y << ' ' << point.x << ' ' << point.y << ' ' << point.z << ' ' << point.dis_rms << '\n';
  for (const auto& [id, error] : point.dis_errors) out << ' ' << id << ':' << error;
  out << '\n';
}

void writeRecord(std::ostream& out, const PolarResultRecord& record) {
  // By name, so that a new field of the record does not compile until it is written, too.
  const auto& [tri_mean, tri_min, tri_max, tri_rms, tri_dis, dy_means, dy_min, dy_max, pol_dis, id_dis, dis_rms,
               nor_rms, detect_canvas, zero_dis, PoseReport, pairPoints, icp_x_rms, icp_y_rms, icp_z_rms, icp_nor_rms,
               frameValues, gt_rms, space_rms] = record;
  lines(out, "tri", std::array{tri_mean, tri_min, tri_max, tri_rms});
  lines(out, "tri_dis", tri_dis);
  lines(out, "dy", std::array{dy_means, dy_min, dy_max});
  lines(out, "pol_dis", pol_dis);
  lines(out, "id_dis", id_dis);
  line(out, "dis_rms", dis_rms);
  line(out, "nor_rms", nor_rms);
  writePicture(out, detect_canvas);
  line(out, "zero_dis", zero_dis);
  lines(out, "PoseReport", PoseReport);
  lines(out, "icp_rms", std::array{icp_x_rms, icp_y_rms, icp_z_rms, icp_nor_rms});
  lines(out, "frameValues", frameValues);
  line(out, "gt_rms", gt_rms);
  line(out, "space_rms", space_rms);
  for (const TriPointRecord& point : pairPoints) writePoint(out, point);
}

}  // namespace

void writeRecords(std::ostream& out, const std::vector<PolarResultRecord>& records) {
  out.precision(std::numeric_limits<double>::max_digits10);
  for (const PolarResultRecord& record : records) {
    writeRecord(out, record);
    out << '\n';
  }
}

}  // namespace figures
