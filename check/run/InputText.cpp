#include "check/run/InputText.h"

#include <fmt/format.h>

#include <fstream>

#include "platform/BoundedInput.h"
#include "polarline/errors.h"
#include "polarline/explain.h"

namespace polarline {
namespace {

/// Characters of a line that a message repeats.
constexpr std::size_t kMostShown = 40;

}  // namespace

std::string contentOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw InputError(path, "cannot be read");
  return bounded::readText(stream);
}

std::string shownOf(const std::string& text) {
  std::string shown = text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
  if (shown.size() > kMostShown) shown.resize(kMostShown);
  return fmt::format("'{}'", shown);
}

std::string advisedMeaning(std::int32_t status) {
  const auto explained = explain(std::to_string(status));
  return explained ? explained->meaning + " " + explained->advice : "status " + std::to_string(status);
}

}  // namespace polarline
