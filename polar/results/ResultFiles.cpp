#include "polar/results/ResultFiles.h"

#include "platform/Files.h"

std::string summaryPath(const PolarConfig& config, const std::string& name) {
  if (config.evaluation != 1 || config.result_folder.empty()) return {};
  return config.result_folder + files::kPathSeparator + name;
}

std::string freeSummaryPath(const PolarConfig& config) {
  const auto candidate = [&](int n) { return summaryPath(config, "align_data_" + std::to_string(n) + ".csv"); };
  int n = 0;
  while (files::openInput(candidate(n)).is_open()) ++n;
  return candidate(n);
}

std::string pairFile(const std::string& result_folder, std::int32_t image_id, const std::string& suffix) {
  return result_folder.empty() ? std::string() : result_folder + "/" + std::to_string(image_id) + suffix;
}
