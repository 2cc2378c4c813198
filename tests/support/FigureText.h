#pragma once

#include <PolarLinePrecision.h>

#include <ios>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

/// Every figure of a run's records in full precision: two texts are equal when no bit of a figure differs. What is no
/// number is equal to itself here.
class FigureText {
 public:
  static std::string of(const std::vector<PolarResultRecord>& records) {
    FigureText text;
    for (const PolarResultRecord& record : records) text.add(record);
    return text.stream_.str();
  }

 private:
  FigureText() {
    stream_.imbue(std::locale::classic());
    stream_ << std::hexfloat;
  }

  void put(double value) { stream_ << value << ' '; }
  template <typename List>
  void putAll(const List& list) {
    for (const auto value : list) put(value);
  }

  void add(const TriPointRecord& point) {
    stream_ << point.id << ' ';
    for (const float value : {point.left_x, point.left_y, point.right_x, point.right_y, point.x, point.y, point.z})
      put(value);
    for (const auto& [id, error] : point.dis_errors) stream_ << id << ' ' << error << ' ';
    put(point.dis_rms);
    stream_ << '\n';
  }

  void add(const PolarResultRecord& record) {
    for (const double value :
         {record.tri_mean, record.tri_min, record.tri_max, record.tri_rms, record.dy_means, record.dy_min,
          record.dy_max, record.dis_rms, record.nor_rms, record.zero_dis, record.gt_rms, record.space_rms})
      put(value);
    for (const float value : {record.icp_x_rms, record.icp_y_rms, record.icp_z_rms, record.icp_nor_rms}) put(value);
    putAll(record.tri_dis);
    putAll(record.pol_dis);
    putAll(record.id_dis);
    putAll(record.PoseReport);
    putAll(record.frameValues);
    stream_ << record.detect_canvas.rows << ' ' << record.detect_canvas.cols << '\n';
    for (const TriPointRecord& point : record.pairPoints) add(point);
  }

  std::ostringstream stream_;
};
