#include "check/run/RunStatus.h"

#include <fmt/format.h>

#include <cstdlib>
#include <opencv2/core.hpp>
#include <optional>
#include <regex>
#include <sstream>

#include "PolarLinePrecision/Status.h"
#include "polarline/explain.h"

namespace polarline {
namespace {

int exitCodeOf(std::int32_t status) {
  switch (status) {
    case polar_status::kSuccess:
      return kDone;
    case polar_status::kImages:
    case polar_status::kPolyTables:
    case polar_status::kTargetConfig:
      return kUnusable;
    case polar_status::kResultFolder:
      return kNotWritten;
    default:
      return kNoFigure;
  }
}

/// The tables of points that a run reads by the ids it has seen have no look at their length but the library's own.
std::optional<std::string> wordsOf(const std::exception& error) {
  const auto beyond = beyondTable(error);
  if (!beyond) return std::nullopt;
  return fmt::format(
      "a dot was numbered {}, and there are {} true positions (board_gt.txt, in a frame run Frame_3D): compare them "
      "and the target with the board",
      beyond->place, beyond->size);
}

}  // namespace

Status statusOf(const std::string& code, const std::string& text, int exit_code) {
  Status status;
  const auto explained = explain(code);
  if (explained)
    status = {std::nullopt,      explained->name,          explained->meaning,
              explained->advice, exit_code == kNotWritten, exit_code};
  if (!text.empty()) status.text = text;
  if (code == "input") status.advice.clear();  // The text itself says what was wanted.
  return status;
}

Status statusOf(std::int32_t code, const std::string& error_text) {
  Status status = statusOf(std::to_string(code), "", exitCodeOf(code));
  status.code = code;
  if (code == polar_status::kSuccess) status.text.clear();
  if (code != polar_status::kSuccess && !error_text.empty()) status.text += " (" + error_text + ")";
  return status;
}

std::optional<BeyondTable> beyondTable(const std::exception& error) {
  static const std::regex form(
      R"(vector::_M_range_check: __n \(which is (\d+)\) >= this->size\(\) \(which is (\d+)\))");
  std::cmatch part;
  if (!std::regex_match(error.what(), part, form)) return std::nullopt;
  constexpr int kDecimal = 10;
  return BeyondTable{std::strtoull(part[1].first, nullptr, kDecimal), std::strtoull(part[2].first, nullptr, kDecimal)};
}

std::string textOf(const std::exception& error) {
  if (const auto words = wordsOf(error)) return *words;
  const auto* const opencv = dynamic_cast<const cv::Exception*>(&error);
  std::istringstream words(opencv != nullptr && !opencv->err.empty() ? opencv->err : error.what());
  std::string line;  // OpenCV breaks its texts into several, which begin with ">".
  for (std::string word; words >> word;) {
    if (word != ">") line += (line.empty() ? "" : " ") + word;
  }
  return line;
}

}  // namespace polarline
