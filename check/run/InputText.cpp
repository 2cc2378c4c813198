#include "check/run/InputText.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>
#include <stdexcept>
#include <system_error>

#include "check/set/UnreadInput.h"
#include "platform/BoundedInput.h"
#include "polarline/errors.h"
#include "polarline/explain.h"

namespace polarline {
namespace {

/// Characters of a line that a message repeats.
constexpr std::size_t kMostShown = 40;

[[noreturn]] void refuseLength(const std::string& path) {
  throw InputError(path, fmt::format("has more than {} characters, and no more are read", bounded::kLongestText));
}

}  // namespace

std::string contentOf(const InputFile& file) {
  std::ifstream stream(file.path, std::ios::binary);
  if (!stream) throw UnreadInput(file.shown, "cannot be read", file.path, errno);
  try {
    return bounded::readText(stream);
  } catch (const std::length_error&) {
    refuseLength(file.shown);
  }
}

void requireLength(const InputFile& file) {
  std::error_code unknown;
  if (!std::filesystem::is_regular_file(file.path, unknown)) return;
  const std::uintmax_t size = std::filesystem::file_size(file.path, unknown);
  if (!unknown && size > bounded::kLongestText) refuseLength(file.shown);
}

void requireJson(const InputFile& file) {
  const std::string& path = file.shown;
  static const std::regex form(R"(.*at line (\d+), column (\d+): (.*))");
  try {
    [[maybe_unused]] const auto json = nlohmann::json::parse(contentOf(file));
  } catch (const nlohmann::json::parse_error& error) {
    std::cmatch part;
    if (!std::regex_match(error.what(), part, form)) throw InputError(path, "is no JSON");
    throw InputError(fmt::format("{}, line {}, column {}", path, part[1].str(), part[2].str()),
                     "is no JSON: " + part[3].str());
  }
}

std::string shownOf(const std::string& text) {
  std::string shown = text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
  if (shown.size() > kMostShown) shown.resize(kMostShown);
  // The text of an exception would end there.
  for (std::size_t at = 0; (at = shown.find('\0', at)) != std::string::npos;) shown.replace(at, 1, "\\x00");
  return fmt::format("'{}'", shown);
}

std::string advisedMeaning(std::int32_t status) {
  const auto explained = explain(std::to_string(status));
  return explained ? explained->meaning + " " + explained->advice : "status " + std::to_string(status);
}

}  // namespace polarline
