#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "bench/Groups.h"
#include "bench/PairStage.h"
#include "bench/Scratch.h"

namespace {

constexpr double kGoalAgainstParts = 1.1;

/// An empty folder each time: a run that finds files of an earlier one may write elsewhere.
void runInto(PairStage& stage, const std::string& folder) {
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  stage.wholeRun(folder);
}

/// Each part once for all pairs of a run, as if nothing were done twice: the raw and the rectified pair are measured
/// once, the maps are built once.
void parts(PairStage& stage, const std::string& folder) {
  stage.buildMaps();
  std::vector<std::vector<PolarResultRecord>> records;  // All stay till the end, as in a run.
  for (std::size_t pair = 0; pair < stage.pairs(); ++pair) {
    stage.warp();
    stage.measure();
    for (const Contestant& evaluation : stage.evaluations(folder)) evaluation.run();
    records.push_back(stage.record());
    if (!folder.empty()) stage.savePictures(folder);
  }
}

void addRun(const std::string& preset, int pairs, bool with_files, const Plan& plan, Table& table) {
  PairStage stage(preset, pairs);
  const Scratch scratch;
  const std::string folder = with_files ? scratch.path() + "/run" : std::string();
  const std::string parts_folder = with_files ? scratch.path() : std::string();
  const Contest contest({{"run", [&] { with_files ? runInto(stage, folder) : stage.wholeRun(""); }},
                         {"parts", [&] { parts(stage, parts_folder); }}},
                        plan.effort);
  table.add({.group = "run",
             .name = fmt::format("{}, {} pair{}, {}", preset, pairs, pairs == 1 ? "" : "s",
                                 with_files ? "with files" : "no files"),
             .against = "its parts, each once",
             .ours = contest.time(0),
             .theirs = contest.time(1),
             .ratio = contest.ratio(0, 1),
             .rounds = contest.rounds(),
             .goal = kGoalAgainstParts});
}

void addEvaluations(const std::string& preset, const Plan& plan, Table& table) {
  PairStage stage(preset, 1);
  const Scratch scratch;
  for (const bool with_files : {false, true}) {
    std::vector<Contestant> contestants = stage.evaluations(with_files ? scratch.path() : std::string());
    contestants.push_back({"measurement", [&] {
                             stage.detect(0);
                             stage.detect(1);
                           }});
    const Contest contest(contestants, plan.effort);
    const std::size_t measurement = contestants.size() - 1;
    for (std::size_t i = 0; i < measurement; ++i) {
      table.add({.group = "evaluate",
                 .name = fmt::format("{}, {}{}", preset, contestants[i].name, with_files ? ", files" : ""),
                 .against = "finding the pair's dots",
                 .ours = contest.time(i),
                 .theirs = contest.time(measurement),
                 .ratio = contest.ratio(i, measurement),
                 .rounds = contest.rounds()});
    }
  }
}

}  // namespace

void evaluateRows(const Plan& plan, Table& table) {
  const std::vector<std::string> presets = plan.quick ? std::vector<std::string>{"ring_320"}
                                                      : std::vector<std::string>{"ring_640", "ring_small", "poly_1920"};
  for (const std::string& preset : presets) addEvaluations(preset, plan, table);
}

void runRows(const Plan& plan, Table& table) {
  if (plan.quick) {
    addRun("ring_320", 1, true, plan, table);
    return;
  }
  Plan slow = plan;  // A run is long and varies little.
  slow.effort.fewest = std::min<std::size_t>(plan.effort.fewest, 3);
  for (const bool with_files : {false, true}) {
    for (const char* preset : {"ring_640", "big_1280"}) {
      for (const int pairs : {1, 5, 20}) addRun(preset, pairs, with_files, slow, table);
    }
  }
}
