#include "report/picture/SetFiles.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "check/set/Fingerprint.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

/// No picture of a camera is larger.
constexpr std::uintmax_t kLargest = std::uintmax_t{1} << 29U;

bool isPlainFile(const std::string& path) {
  std::error_code failure;
  if (!fs::is_regular_file(path, failure)) return false;  // Nothing else has an end.
  return fs::file_size(path, failure) <= kLargest && !failure;
}

}  // namespace

SetFiles::SetFiles(const Json& document, const std::string& path)
    : set_folder_(document["set"]["folder"].get<std::string>()),
      beside_(fs::path(path).parent_path().string()),
      has_file_(!path.empty()) {
  for (const Json& input : document["set"]["inputs"]) {
    inputs_.emplace(input["role"].get<std::string>(),
                    Input{input["path"].get<std::string>(), input["sha256"].get<std::string>()});
  }
}

std::vector<std::string> SetFiles::candidates(const std::string& path) const {
  std::vector<std::string> paths = {path};
  if (!has_file_) return paths;
  paths.push_back((fs::path(beside_) / path).string());
  const fs::path in_set = fs::path(path).lexically_relative(set_folder_);
  if (in_set.empty() || *in_set.begin() == "..") return paths;
  paths.push_back((fs::path(beside_) / in_set).string());  // The document lies in the set...
  paths.push_back(
      (fs::path(beside_) / fs::path(set_folder_).filename() / in_set).string());  // ...or the set beside it.
  return paths;
}

std::optional<std::string> SetFiles::find(const std::string& role) const {
  const auto input = inputs_.find(role);
  if (input == inputs_.end() || input->second.sha256.empty()) return std::nullopt;
  for (const std::string& path : candidates(input->second.path)) {
    if (isPlainFile(path) && sha256OfFile(path) == input->second.sha256) return path;
  }
  if (isThere(input->second.path)) changed_.insert(input->second.path);
  return std::nullopt;
}

bool SetFiles::isThere(const std::string& path) const { return std::ranges::any_of(candidates(path), isPlainFile); }

std::string SetFiles::lostPictures() const {
  std::vector<std::string> lost;
  std::size_t pictures = 0;
  for (const auto& [role, input] : inputs_) {
    if (!role.starts_with("left/") && !role.starts_with("right/")) continue;
    ++pictures;
    if (!isThere(input.path)) lost.push_back(input.path);
  }
  std::string text;
  if (!lost.empty()) {
    text = fmt::format("{} of {} pictures are neither where the document says nor beside it, such as {}", lost.size(),
                       pictures, lost.front());
  }
  if (!changed_.empty()) {
    text += fmt::format("{}{} of {} pictures have changed since the check, such as {}", text.empty() ? "" : "; ",
                        changed_.size(), pictures, *changed_.begin());
  }
  return text;
}

}  // namespace polarline
