#include <fstream>
#include <nlohmann/json.hpp>

#include "polarline/errors.h"
#include "polarline/simulate.h"

namespace polarline {

std::vector<TrueFigures> truthOf(const std::string& folder) {
  const std::string path = folder + "/truth.json";
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw InputError(path, "can't be read, wanted the truth of a simulated set");
  const auto json = nlohmann::json::parse(stream, nullptr, false);
  try {
    std::vector<TrueFigures> pairs;
    for (const auto& pair : json.at("pairs")) {
      const auto& figures = pair.at("figures");
      pairs.push_back({figures.at("points"), figures.at("dy_means"), figures.at("dy_min"), figures.at("dy_max"),
                       figures.at("zero_dis"), figures.at("pol_dis")});
    }
    return pairs;
  } catch (const nlohmann::json::exception&) {  // Its text names neither key nor line.
    throw InputError(path, "found no true figures, wanted the truth of a simulated set");
  }
}

}  // namespace polarline
