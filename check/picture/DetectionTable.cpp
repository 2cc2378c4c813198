#include <fmt/format.h>

#include <iterator>

#include "check/picture/Counted.h"
#include "polarline/detect.h"

namespace polarline {
namespace {

constexpr std::size_t kMissingTold = 12;

std::string missingOf(const Detection& detection) {
  std::string ids;
  for (std::size_t i = 0; i < detection.missing.size() && i < kMissingTold; ++i)
    ids += (i == 0 ? "" : ", ") + std::to_string(detection.missing[i]);
  return ids + (detection.missing.size() > kMissingTold ? ", ..." : "");
}

}  // namespace

std::string detectionTable(const Detection& detection) {
  std::string table;
  const auto line = [&table](const std::string& name, const std::string& state, const std::string& text) {
    const std::string padded = fmt::format("{:<12} {:<12} {}", name, state, text);
    table += padded.substr(0, padded.find_last_not_of(' ') + 1) + "\n";
  };
  for (const DetectionStage& stage : detection.stages) line(stage.name, stage.state, stage.text);
  line(detection.found ? "found" : "not found", "", detection.text);
  if (detection.found && !detection.missing.empty())
    line("missing", "",
         counted(detection.missing.size(), "dot") + (detection.missing.size() == 1 ? ", id " : ", ids ") +
             missingOf(detection));
  if (detection.dot_radius > 0.0)
    line("dots", "", fmt::format("radius {:.1f} pixels of the picture (median)", detection.dot_radius));
  if (!detection.advice.empty()) line("advice", "", detection.advice);
  for (const Warning& warning : detection.warnings) {
    line("warning", "", warning.text);
    line("", "", warning.advice);
  }
  return table;
}

}  // namespace polarline
