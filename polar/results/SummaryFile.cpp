#include "polar/results/SummaryFile.h"

#include <cstddef>

#include "platform/Files.h"

namespace {

constexpr const char* kFirstColumn = "id ";

}  // namespace

std::string summaryPath(const PolarConfig& config, std::int32_t evaluation, const std::string& name) {
  if (evaluation != 1 || config.result_folder.empty()) return {};
  return config.result_folder + files::kPathSeparator + name;
}

std::string freeSummaryPath(const PolarConfig& config, std::int32_t evaluation) {
  const auto candidate = [&](int n) {
    return summaryPath(config, evaluation, std::string(kSummaryStem) + "_" + std::to_string(n) + ".csv");
  };
  int n = 0;
  while (files::openInput(candidate(n)).is_open()) ++n;
  return candidate(n);
}

void writeSummaryHeader(std::ostream& stream, const PolarConfig& config, bool with_space_rms) {
  stream << kFirstColumn;
  if (config.triangulate_residual_switch != 0) stream << ",tri_rms, tri_mean, tri_min, tri_max";
  if (config.triangulate_dis_switch != 0)
    stream << ",tri_dis_1_2_err,tri_dis_1_3_err,tri_dis_2_4_err,tri_dis_3_4_err,tri_dis_1_4_err,tri_dis_2_3_err"
              ",tri_dis_err_min,tri_dis_err_max";
  if (config.dy_bias_switch != 0) stream << ",dy_means, dy_min, dy_max";
  if (config.dy_bias_savepng_swithch != 0) stream << ",dy>bias_divid";
  if (config.allpoints_calc_switch != 0) stream << ",allpoints_means,allpoints_min,allpoint_max";
  if (config.foursixmethod_swithch != 0)
    stream << ",pol_dis_1_2_err,pol_dis_1_3_err,pol_dis_2_4_err,pol_dis_3_4_err,pol_dis_1_4_err,pol_dis_2_3_err"
              ",pol_dis_err_min,pol_dis_err_max";
  if (config.oqc_switch != 0)
    for (std::size_t entry = 1; entry <= config.Cal_ID_DIS.size(); ++entry) stream << ",id_dis" << entry;
  if (with_space_rms && config.spaceRms_switch) stream << "," << kSpaceRms;
  stream << std::endl;
}

void writeFrameHeader(std::ostream& stream, const PolarConfig& config) {
  stream << kFirstColumn;
  if (config.frame_work != 0)
    for (const auto& entry : config.Frame_ID_DIS) stream << "," << entry.at(0) << "_" << entry.at(1);
  stream << std::endl;
}
