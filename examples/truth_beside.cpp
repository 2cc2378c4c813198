// Prints the figures of a check beside the figures that a library without any error would measure of the simulated set.
#include <fmt/core.h>
#include <polarline/errors.h>
#include <polarline/simulate.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace {

using Json = nlohmann::json;

/// A figure of a pair; a pair that was given up, or did not measure it, has none.
std::string measured(const Json& pair, const char* figure, int place = -1) {
  const Json figures = pair.value("figures", Json::object());
  Json value = figures.value(figure, Json());
  if (place >= 0 && value.is_array()) value = value.at(static_cast<std::size_t>(place));
  return value.is_number() ? fmt::format("{:.5f}", value.get<double>()) : "-";
}

void line(const std::string& name, const std::string& figure, double truth) {
  fmt::print("  {:<12} {:>12} {:>12.5f}\n", name, figure, truth);
}

void printPair(const Json& pair, std::size_t index, const polarline::TrueFigures& truth) {
  fmt::print("pair {}\n  {:<12} {:>12} {:>12}\n", index, "figure", "measured", "true");
  line("dy_means", measured(pair, "dy_means"), truth.dy_means);
  line("dy_min", measured(pair, "dy_min"), truth.dy_min);
  line("dy_max", measured(pair, "dy_max"), truth.dy_max);
  line("zero_dis", measured(pair, "zero_dis"), truth.zero_dis);
  for (int k = 0; k < 6; ++k) {
    line(fmt::format("pol_dis[{}]", k), measured(pair, "pol_dis", k), truth.pol_dis.at(static_cast<std::size_t>(k)));
  }
}

int run(const std::string& folder, const std::string& check) {
  const std::vector<polarline::TrueFigures> truth = polarline::truthOf(folder);
  std::ifstream stream(check, std::ios::binary);
  if (!stream) throw polarline::InputError(check, "can't be read, wanted the JSON of polarline check");
  const Json pairs = Json::parse(stream).at("pairs");
  for (std::size_t index = 0; index < pairs.size() && index < truth.size(); ++index)
    printPair(pairs[index], index, truth[index]);
  return 0;
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc == 3) return run(argv[1], argv[2]);
  fmt::print(stderr, "Usage: truth_beside SET CHECK.json\n");
  return 2;
} catch (const std::exception& failure) {
  fmt::print(stderr, "{}\n", failure.what());
  return 2;
}
