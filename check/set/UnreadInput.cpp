#include "check/set/UnreadInput.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <system_error>

namespace polarline {
namespace {

namespace fs = std::filesystem;

/// What no waiting mends.
constexpr std::array kForGood = {EACCES, EPERM, EISDIR, ENOTDIR, ELOOP, ENAMETOOLONG};

/// Where the last of a path's links leads.
fs::path behindLinksOf(fs::path place) {
  constexpr int kMost = 40;  // As the system has it.
  std::error_code failure;
  for (int k = 0; k < kMost && fs::is_symlink(fs::symlink_status(place, failure)); ++k) {
    const fs::path next = fs::read_symlink(place, failure);
    if (failure) break;
    place = place.parent_path() / next;
  }
  return place;
}

bool isFolderThere(const std::string& path) {
  const fs::path place = behindLinksOf(path);
  const fs::path named = place.has_filename() ? place : place.parent_path();
  const fs::path folder = named.parent_path();
  std::error_code failure;
  return fs::is_directory(folder.empty() ? "." : folder, failure);
}

}  // namespace

bool mayComeBack(const std::string& path, int error) {
  if (error == ENOENT) return !isFolderThere(path);
  return std::ranges::count(kForGood, error) == 0;
}

UnreadInput::UnreadInput(const std::string& place, const std::string& problem, const std::string& path, int error)
    : InputError(place, problem), may_return_(mayComeBack(path, error)) {}

}  // namespace polarline
