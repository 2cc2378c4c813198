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
  lines(out, "tri", std::array{record.tri_mean, record.tri_min, record.tri_max, record.tri_rms});
  lines(out, "tri_dis", record.tri_dis);
  lines(out, "dy", std::array{record.dy_means, record.dy_min, record.dy_max});
  lines(out, "pol_dis", record.pol_dis);
  lines(out, "id_dis", record.id_dis);
  line(out, "dis_rms", record.dis_rms);
  line(out, "nor_rms", record.nor_rms);
  writePicture(out, record.detect_canvas);
  line(out, "zero_dis", record.zero_dis);
  lines(out, "PoseReport", record.PoseReport);
  lines(out, "icp_rms", std::array{record.icp_x_rms, record.icp_y_rms, record.icp_z_rms, record.icp_nor_rms});
  lines(out, "frameValues", record.frameValues);
  line(out, "gt_rms", record.gt_rms);
  line(out, "space_rms", record.space_rms);
  for (const TriPointRecord& point : record.pairPoints) writePoint(out, point);
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
