#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdint>
#include <exception>
#include <string>
#include <vector>

#include "tools/causes/CauseCoverage.h"

namespace {

using causes::CauseCoverage;
using causes::SetKind;

void print(const SetKind& kind, const CauseCoverage& coverage) {
  fmt::print("| {} | {} | {} | {} | {} | {} | {} | {} | {} | {} | {:.3f} |\n", kind.sets, kind.centres, coverage.sets,
             coverage.named, coverage.in_groups, coverage.missed, coverage.beyond_three,
             coverage.named == 0 ? "-" : fmt::format("{:.2f}", coverage.errorByTold()), coverage.sets_with_a_false_one,
             coverage.rows_too_large, coverage.seconds / coverage.sets);
}

}  // namespace

int main(int argc, char** argv) try {
  std::vector<std::string> names;
  std::uint64_t sets = 200;
  CLI::App app("How the causes that a diagnosis names in simulated sets compare with those that are there");
  app.add_option("kinds", names, "Of sets; all when left out");
  app.add_option("--sets", sets, "Of each kind")->check(CLI::PositiveNumber);
  CLI11_PARSE(app, argc, argv);
  if (names.empty()) {
    for (const SetKind& kind : causes::kSetKinds) names.emplace_back(kind.name);
  }
  fmt::print(
      "| Sets | Centres | Number | Causes named | of these in groups | there, but not named | beyond 3 standard errors "
      "| Error by told error, rms | Sets with a false "
      "cause beyond 3 | Rows by the corrected calibration above 1.2 times those of the aligned camera | Seconds a set "
      "|\n"
      "|---|---|---|---|---|---|---|---|---|---|---|\n");
  for (const std::string& name : names) {
    const SetKind& kind = causes::setKind(name);
    print(kind, causes::coverageOf(kind, sets));
  }
} catch (const std::exception& error) {
  fmt::print(stderr, "{}\n", error.what());
  return 1;
}
