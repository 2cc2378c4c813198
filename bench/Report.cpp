#include "bench/Report.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <ostream>

namespace {

using Json = nlohmann::ordered_json;

std::string processorName() {
  std::ifstream file("/proc/cpuinfo");
  for (std::string line; std::getline(file, line);) {
    const std::size_t colon = line.find(": ");
    if (line.rfind("model name", 0) == 0 && colon != std::string::npos) return line.substr(colon + 2);
  }
  return "unknown";
}

double loadOfMachine() {
  double load = 0.0;
  return getloadavg(&load, 1) == 1 ? load : 0.0;
}

std::string headingOf(const std::string& group) {
  static const std::map<std::string, std::string> kHeadings = {
      {"detect", "(a, b) finding the dots, against the bare OpenCV calls that it needs"},
      {"others", "(c) finding the dots, against what OpenCV offers for a plain grid of the same size"},
      {"evaluate", "(d) an evaluation, against the measurement of its pair"},
      {"rectify", "(e) rectification of a pair, against OpenCV's for Brown lenses"},
      {"run", "(f) whole runs, against the sum of their parts"},
      {"growth", "(g) growth of the time of finding the dots: exponents"},
      {"memory", "(h) peak memory, against the bytes of the pictures"}};
  return kHeadings.at(group);
}

std::string amount(const std::optional<Spread>& spread) {
  return spread ? fmt::format("{:.4g}", spread->middle) : std::string();
}

Json jsonOf(const Spread& spread) { return {{"median", spread.middle}, {"low", spread.low}, {"high", spread.high}}; }

Json jsonOf(const Row& row) {
  Json json = {{"group", row.group}, {"name", row.name}, {"against", row.against}, {"unit", row.unit}};
  if (row.ours) json["ours"] = jsonOf(*row.ours);
  if (row.theirs) json["theirs"] = jsonOf(*row.theirs);
  json["ratio"] = jsonOf(row.ratio);
  json["rounds"] = row.rounds;
  if (row.goal) json["goal"] = *row.goal;
  if (!row.note.empty()) json["note"] = row.note;
  return json;
}

}  // namespace

RunNotes notesOfToday(int threads, bool quick) {
  return {processorName(), fmt::format("{:%Y-%m-%d}", fmt::gmtime(std::time(nullptr))), loadOfMachine(), threads,
          quick};
}

void Table::begin(const RunNotes& notes) {
  out_ << fmt::format("{}, {}, load {:.1f} at the start, {} thread{}{}\n", notes.machine, notes.date, notes.load,
                      notes.threads, notes.threads == 1 ? "" : "s",
                      notes.quick ? "; quick: only shows that it works" : "");
}

void Table::add(const Row& row) {
  if (rows_.empty() || rows_.back().group != row.group) {
    out_ << fmt::format("\n{}\n  {:<44} {:>9} {:>9}      {:>8}   {:<15} {:<7} {}\n", headingOf(row.group), "", "ours",
                        "theirs", "ratio", "half lie in", "goal", "against");
  }
  const std::string range = fmt::format("{:.3g} .. {:.3g}", row.ratio.low, row.ratio.high);
  const std::string goal =
      row.goal ? fmt::format("{:.3g}{}", *row.goal, row.ratio.middle <= *row.goal ? "" : " !") : "";
  out_ << fmt::format("  {:<44} {:>9} {:>9} {:<4} {:>8.3g}   {:<15} {:<7} {}{}\n", row.name, amount(row.ours),
                      amount(row.theirs), row.ours ? row.unit : "", row.ratio.middle, range, goal, row.against,
                      row.note.empty() ? "" : "; " + row.note)
       << std::flush;
  rows_.push_back(row);
}

std::string jsonOf(const RunNotes& notes, const std::vector<Row>& rows) {
  Json json = {{"schema", "polarline-bench/1"}, {"machine", notes.machine}, {"date", notes.date}, {"load", notes.load},
               {"threads", notes.threads},      {"quick", notes.quick}};
  json["rows"] = Json::array();
  for (const Row& row : rows) json["rows"].push_back(jsonOf(row));
  return json.dump(1) + "\n";
}
