#include "polar/results/PairFiles.h"

std::string pairFile(const std::string& result_folder, std::int32_t image_id, const std::string& suffix) {
  return result_folder.empty() ? std::string() : result_folder + "/" + std::to_string(image_id) + suffix;
}
