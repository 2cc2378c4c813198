#include "check/picture/TargetFile.h"

#include <algorithm>
#include <array>
#include <exception>
#include <filesystem>
#include <opencv2/core.hpp>
#include <string_view>
#include <system_error>

#include "MorvenKit/ErrorCategories.h"
#include "check/picture/TargetNumbers.h"
#include "polarline/errors.h"

namespace {

constexpr std::array<std::string_view, 5> kEndings = {"ini", "json", "yml", "yaml", "xml"};

bool isFile(const std::string& path) {
  std::error_code unknown;
  return std::filesystem::exists(path, unknown);
}

/// A text has keys; a name that is no file and has none was meant as a path.
bool isText(const std::string& target) { return !isFile(target) && target.find(':') != std::string::npos; }

void requireReadable(const std::string& path) {
  if (!isFile(path)) throw polarline::InputError(path, "there is no such file");
  if (std::filesystem::is_directory(path)) throw polarline::InputError(path, "is a folder; a target was wanted");
  if (!polarline::isTargetName(path))
    throw polarline::InputError(path,
                                "is no target by its name; one that ends in ini, json, yml, yaml or xml was wanted");
}

const char* problemOf(const std::error_code& code) {
  using kestrune::morvenkit::DetectorErrc;
  if (code == make_error_code(DetectorErrc::kBadConfiguration)) {
    return "can't be used as a target: the first record of \"patterns\" with a board_type of 1, 2 or 3 was wanted";
  }
  return "can't be used as a target: a readable, well-formed JSON, YAML or XML document was wanted";
}

bool configure(const std::string& target, const std::string& place, kestrune::RingTarget& into) {
  try {
    return into.loadConfig(target);
  } catch (const std::system_error& error) {
    throw polarline::InputError(place, problemOf(error.code()));
  } catch (const cv::Exception& error) {
    throw polarline::InputError(place, "can't be used as a target: " + error.err);
  }
}

}  // namespace

namespace polarline {

bool isTargetName(std::string_view path) {
  return std::ranges::any_of(kEndings, [&](std::string_view ending) {
    return path.ends_with(ending) && (ending == "ini" || path.substr(0, path.size() - ending.size()).ends_with('.'));
  });
}

}  // namespace polarline

void loadTarget(const std::string& target, kestrune::RingTarget& into) {
  if (target.empty()) throw polarline::InputError("no target was named");
  const bool text = isText(target);
  const std::string place = text ? "target" : target;
  if (!text) requireReadable(target);
  if (!configure(target, place, into))
    throw polarline::InputError(place, "is empty or can't be read; a target was wanted");
  if (into.patterns().empty()) {
    throw polarline::InputError(place, "board_type: none that is known was found; 1, 2 or 3 was wanted");
  }
  polarline::requireBoardNumbers(target, place);
}
