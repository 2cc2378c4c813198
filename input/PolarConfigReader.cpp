#include "input/PolarConfigReader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <ostream>
#include <utility>
#include <vector>

#include "PolarLinePrecision/Status.h"
#include "input/KeyValueText.h"
#include "platform/BoundedInput.h"
#include "platform/Console.h"
#include "platform/Files.h"

namespace {

constexpr std::size_t kPointSize = 3;

std::string textOf(const std::string& config) {
  std::ifstream stream = files::openInput(config, std::ios::in | std::ios::binary);
  if (!stream.is_open()) return config;
  return bounded::readText(stream);
}

using NamedPoint = std::pair<const char*, std::vector<double>*>;

/// Reads points in turn and stops at the first present one that is not three numbers.
bool readPoints(const KeyValueTable& table, const std::array<NamedPoint, 4>& points) {
  return std::ranges::all_of(points, [&table](const NamedPoint& named) {
    const auto& [key, point] = named;
    lookup(table, key, *point);
    return !table.contains(key) || point->size() == kPointSize;
  });
}

void readGeneralKeys(const KeyValueTable& table, PolarConfig& out) {
  lookup(table, "type", out.type);
  lookup(table, "x_y", out.x_y);
  lookup(table, "f_scale", out.f_scale);
  lookup(table, "evaluation", out.evaluation);
  lookup(table, "savepolarline", out.savepolarline);
  lookup(table, "evalu_model", out.evalu_model);
  lookup(table, "crop", out.crop);
  lookup(table, "cropped_cols", out.cropped_cols);
  lookup(table, "cropped_rows", out.cropped_rows);
  lookup(table, "allpoints_calc_switch", out.allpoints_calc_switch);
  lookup(table, "pattern_rows", out.pattern_rows);
  lookup(table, "pattern_cols", out.pattern_cols);
  lookup(table, "pattern_step", out.pattern_step);
}

bool readTriangulationKeys(const KeyValueTable& table, PolarConfig& out) {
  lookup(table, "triangulate_residual_switch", out.triangulate_residual_switch);
  lookup(table, "triangulate_dis_switch", out.triangulate_dis_switch);
  lookup(table, "eccentricity", out.eccentricity);
  lookup(table, "discalswitch", out.discalswitch);
  lookup(table, "discalsave", out.discalsave);
  lookup(table, "TriPoint1_ID", out.TriPoint1_ID);
  lookup(table, "TriPoint2_ID", out.TriPoint2_ID);
  lookup(table, "TriPoint3_ID", out.TriPoint3_ID);
  lookup(table, "TriPoint4_ID", out.TriPoint4_ID);
  return readPoints(table, {{{"TriPoint1_GT", &out.TriPoint1_GT},
                             {"TriPoint2_GT", &out.TriPoint2_GT},
                             {"TriPoint3_GT", &out.TriPoint3_GT},
                             {"TriPoint4_GT", &out.TriPoint4_GT}}});
}

void readOutputKeys(const KeyValueTable& table, PolarConfig& out) {
  lookup(table, "tri_bias_savepng_swithch", out.tri_bias_savepng_swithch);
  lookup(table, "tri_bias_divid", out.tri_bias_divid);
  lookup(table, "tir_bias_savecsv_swithch", out.tir_bias_savecsv_swithch);
  lookup(table, "dy_bias_switch", out.dy_bias_switch);
  lookup(table, "dy_bias_divid", out.dy_bias_divid);
  lookup(table, "dy_bias_savecsv_swithch", out.dy_bias_savecsv_swithch);
  lookup(table, "dy_bias_savepng_swithch", out.dy_bias_savepng_swithch);
  lookup(table, "allpointssavecsv_swithch", out.allpointssavecsv_swithch);
}

bool readCloudKeys(const KeyValueTable& table, PolarConfig& out) {
  lookup(table, "foursixmethod_swithch", out.foursixmethod_swithch);
  lookup(table, "PolPoint1_ID", out.PolPoint1_ID);
  lookup(table, "PolPoint2_ID", out.PolPoint2_ID);
  lookup(table, "PolPoint3_ID", out.PolPoint3_ID);
  lookup(table, "PolPoint4_ID", out.PolPoint4_ID);
  return readPoints(table, {{{"PolPoint1_GT", &out.PolPoint1_GT},
                             {"PolPoint2_GT", &out.PolPoint2_GT},
                             {"PolPoint3_GT", &out.PolPoint3_GT},
                             {"PolPoint4_GT", &out.PolPoint4_GT}}});
}

void readDistanceKeys(const KeyValueTable& table, PolarConfig& out) {
  lookup(table, "oqc_switch", out.oqc_switch);
  lookup(table, "Cal_ID_DIS", out.Cal_ID_DIS);
}

void readFrameKeys(const KeyValueTable& table, PolarConfig& out) {
  lookup(table, "frame_work", out.frame_work);
  lookup(table, "Frame_3D", out.Frame_3D);
  lookup(table, "Frame_IRL", out.Frame_IRL);
  lookup(table, "Frame_IRR", out.Frame_IRR);
  lookup(table, "Frame_ID_DIS", out.Frame_ID_DIS);
  lookup(table, "Frame_ID", out.Frame_ID);
  if (!lookup(table, "spaceRms_switch", out.spaceRms_switch)) out.spaceRms_switch = true;
}

std::int32_t readKeys(const KeyValueTable& table, const std::string& result_folder, PolarConfig& out) {
  readGeneralKeys(table, out);
  if (!readTriangulationKeys(table, out)) return polar_status::kBadGroundTruthPoint;
  readOutputKeys(table, out);
  if (!readCloudKeys(table, out)) return polar_status::kBadGroundTruthPoint;
  readDistanceKeys(table, out);
  out.result_folder = result_folder;
  readFrameKeys(table, out);
  return polar_status::kSuccess;
}

}  // namespace

std::int32_t ReadPolarConfig(const std::string& config, const std::string& result_folder, PolarConfig& out) {
  // Meant: a configuration without content is no failure. The run takes the record as it is.
  if (config.empty()) {
    console::out() << "polarconfig is NULL";
    return polar_status::kSuccess;
  }
  const std::string text = textOf(config);
  if (text.empty()) {
    console::line("Polarconfig is empty or no content was read.");
    return polar_status::kSuccess;
  }
  const KeyValueTable table = parseKeyValueText(text);
  if (table.empty()) {
    console::line("Read Polar file Fail!");
    return polar_status::kSuccess;
  }
  return readKeys(table, result_folder, out);
}
