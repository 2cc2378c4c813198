#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <iostream>
#include <map>
#include <opencv2/core/utility.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "bench/Groups.h"
#include "bench/Report.h"
#include "platform/Console.h"

namespace {

using Group = void (*)(const Plan&, Table&);

struct NamedGroup {
  std::string name;
  Group add;
};

const std::vector<NamedGroup>& groups() {
  static const std::vector<NamedGroup> kGroups = {
      {"detect", detectRows}, {"others", otherRows},  {"evaluate", evaluateRows}, {"rectify", rectifyRows},
      {"run", runRows},       {"growth", growthRows}, {"memory", memoryRows}};
  return kGroups;
}

Plan planOf(bool quick, double seconds, const std::string& only) {
  Plan plan;
  plan.only = only;
  plan.quick = quick;
  plan.effort.seconds = seconds;
  if (quick) plan.effort = {.seconds = 0.0, .fewest = 1, .most = 1, .warm_up = false};
  return plan;
}

int run(int argc, char** argv) {
  CLI::App app("Times of PolarLinePrecision, each as a ratio to something that runs in turn with it.");
  app.name("bench_polar");
  std::string json, only;
  std::vector<std::string> wanted;
  bool quick = false;
  double seconds = 3.0;
  int threads = 1;
  std::vector<std::string> names;
  for (const NamedGroup& group : groups()) names.push_back(group.name);
  app.add_option("--json", json, "File for the rows as a JSON document");
  app.add_option("--groups", wanted, "Only these groups of rows")->delimiter(',')->check(CLI::IsMember(names));
  app.add_option("--boards", only, "Of the pictures that dots are looked for in those whose names hold this text");
  app.add_flag("--quick", quick, "One round of the smallest picture of each group: shows that the bench works");
  app.add_option("--seconds", seconds, "Processor time for each contest")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  app.add_option("--threads", threads, "Threads that OpenCV may use")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  CLI11_PARSE(app, argc, argv);

  cv::setNumThreads(threads);
  const RunNotes notes = notesOfToday(threads, quick);
  Table table(std::cout);
  table.begin(notes);
  std::ostringstream swallowed;
  const console::Redirection quiet(swallowed, swallowed);  // The lines of the library.
  for (const NamedGroup& group : groups()) {
    const bool asked_for = wanted.empty() || std::find(wanted.begin(), wanted.end(), group.name) != wanted.end();
    if (asked_for) group.add(planOf(quick, seconds, only), table);
    swallowed.str("");
  }
  if (!json.empty()) std::ofstream(json) << jsonOf(notes, table.rows());
  return 0;
}

}  // namespace

int main(int argc, char** argv) try { return run(argc, argv); } catch (const std::exception& failure) {
  std::fprintf(stderr, "%s\n", failure.what());
  return 1;
}
