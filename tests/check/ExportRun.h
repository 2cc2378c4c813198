#pragma once

#include <PolarLinePrecision.h>

#include <array>
#include <bit>
#include <cstring>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/CopiedSet.h"

/// The same set through the exported functions, for comparison with a check.
namespace export_run {

inline RunOutcome of(const CopiedSet& set, const std::string& out = "") {
  RunOutcome outcome;
  const ConsoleCapture console;
  ExportedCalibParams calibration;
  const bool has_json = std::filesystem::exists(set.folder / "calib.json");  // Not of polynomial cameras.
  ReadCalibParams(set.file(has_json ? "calib.json" : "calib.bin"), &calibration);
  ReadBoardGTFromTxt(set.file("board_gt.txt"), &calibration.boardPoints);
  ImagePairList images;
  ReadCalibImagelist(set.file("list.txt"), &images);
  const std::string polar = set.read("polar.txt");
  outcome.status = CalPolarLinePrecisionOutMat(polar.c_str(), set.file("target.ini").c_str(), calibration, images,
                                               &outcome.records, nullptr, out.c_str());
  outcome.error_text = errorText();
  return outcome;
}

/// The figures of a record by their names, floats widened.
inline std::map<std::string, std::vector<double>> figuresOf(const PolarResultRecord& record) {
  const auto list = [](const auto& values) { return std::vector<double>(values.begin(), values.end()); };
  return {{"tri_mean", {record.tri_mean}},
          {"tri_min", {record.tri_min}},
          {"tri_max", {record.tri_max}},
          {"tri_rms", {record.tri_rms}},
          {"tri_dis", list(record.tri_dis)},
          {"dy_means", {record.dy_means}},
          {"dy_min", {record.dy_min}},
          {"dy_max", {record.dy_max}},
          {"pol_dis", list(record.pol_dis)},
          {"id_dis", list(record.id_dis)},
          {"dis_rms", {record.dis_rms}},
          {"nor_rms", {record.nor_rms}},
          {"zero_dis", {record.zero_dis}},
          {"PoseReport", list(record.PoseReport)},
          {"icp_x_rms", {record.icp_x_rms}},
          {"icp_y_rms", {record.icp_y_rms}},
          {"icp_z_rms", {record.icp_z_rms}},
          {"icp_nor_rms", {record.icp_nor_rms}},
          {"frameValues", list(record.frameValues)},
          {"gt_rms", {record.gt_rms}},
          {"space_rms", {record.space_rms}}};
}

/// Which of a record's points a pair does not have to the last bit; empty when it has them all.
inline std::string missingPoints(const polarline::PairCheck& pair, const PolarResultRecord& record) {
  using Numbers = std::array<float, 7>;
  const auto same = [](const Numbers& a, const Numbers& b) { return std::memcmp(&a, &b, sizeof a) == 0; };
  std::ostringstream found;
  const polarline::PairPoints& p = pair.points;
  std::size_t k = 0;
  for (const TriPointRecord& w : record.pairPoints) {
    while (k < p.id.size() && p.id[k] < w.id) ++k;
    const Numbers wanted{w.left_x, w.left_y, w.right_x, w.right_y, w.x, w.y, w.z};
    if (k == p.id.size() || p.id[k] != w.id ||
        !same(wanted, {p.left_x[k], p.left_y[k], p.right_x[k], p.right_y[k], p.x[k], p.y[k], p.z[k]}))
      found << "pair " << pair.index << " point " << w.id << "\n";
  }
  return found.str();
}

/// What differs between the finished pairs of a check and the records of an export; empty when no bit does. A figure
/// that is carried has to be the last own one of the pairs before; one that is neither has to be zeros or empty.
inline std::string difference(const polarline::Check& check, const std::vector<PolarResultRecord>& records) {
  std::ostringstream found;
  std::map<std::string, std::vector<double>> last;
  std::size_t place = 0;
  for (const polarline::PairCheck& pair : check.pairs) {
    for (const polarline::Figure& figure : pair.figures) {
      if (figure.is_own) last[figure.name] = figure.values;
    }
    if (!pair.finished) continue;
    if (place == records.size()) return "fewer records than finished pairs";
    for (const auto& [name, wanted] : figuresOf(records[place])) {
      const polarline::Figure* const figure = pair.figure(name);
      const bool is_known = figure->is_own || figure->is_carried;
      if (figure->is_carried && last.count(name) == 0) return "carried from nowhere: " + name;
      const std::vector<double> value = is_known ? last[name] : std::vector<double>(wanted.size(), 0.0);
      bool is_equal = value.size() == wanted.size();
      for (std::size_t k = 0; is_equal && k < value.size(); ++k)
        is_equal = std::bit_cast<std::uint64_t>(value[k]) == std::bit_cast<std::uint64_t>(wanted[k]);
      if (!is_equal) {
        found << "pair " << pair.index << " " << name << ": " << ::testing::PrintToString(value) << ", the export has "
              << ::testing::PrintToString(wanted) << "\n";
      }
    }
    found << missingPoints(pair, records[place]);
    ++place;
  }
  if (place != records.size()) found << "more records than finished pairs\n";
  return found.str();
}

}  // namespace export_run
