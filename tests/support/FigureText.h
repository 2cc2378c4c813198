#pragma once

#include <PolarLinePrecision.h>

#include <ios>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

/// Every figure of a run's records in full precision: two texts are equal when no bit of a figure differs. A NaN is
/// equal to itself here.
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
    // By name, so that a new field of the record does not compile until it is compared, too.
    const auto& [tri_mean, tri_min, tri_max, tri_rms, tri_dis, dy_means, dy_min, dy_max, pol_dis, id_dis, dis_rms,
                 nor_rms, detect_canvas, zero_dis, PoseReport, pairPoints, icp_x_rms, icp_y_rms, icp_z_rms, icp_nor_rms,
                 frameValues, gt_rms, space_rms] = record;
    for (const double value :
         {tri_mean, tri_min, tri_max, tri_rms, dy_means, dy_min, dy_max, dis_rms, nor_rms, zero_dis, gt_rms, space_rms})
      put(value);
    for (const float value : {icp_x_rms, icp_y_rms, icp_z_rms, icp_nor_rms}) put(value);
    putAll(tri_dis);
    putAll(pol_dis);
    putAll(id_dis);
    putAll(PoseReport);
    putAll(frameValues);
    stream_ << detect_canvas.rows << ' ' << detect_canvas.cols << '\n';
    for (const TriPointRecord& point : pairPoints) add(point);
  }

  std::ostringstream stream_;
};
