#include "tools/scene/SetFolder.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <system_error>

#include "polarline/errors.h"

namespace scene {
namespace {

namespace fs = std::filesystem;

/// What not every set has, and what would change the meaning of one that has it not.
constexpr std::array kNotInEverySet{"calib.json", "rectified.txt"};

/// A name beside the place that nobody else has.
fs::path beside(const fs::path& place) {
  static std::atomic<unsigned> count{0};
  fs::path name = place.filename();
  name += ".partial-" + std::to_string(getpid()) + "-" + std::to_string(count++);
  return place.parent_path() / name;
}

bool isThere(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(path, ignored));
}

void demandUsable(const fs::path& place, bool force) {
  std::error_code failure;
  if (!isThere(place)) return;
  if (!fs::is_directory(place, failure))
    throw polarline::InputError(place.string(), "found something that is no folder, wanted a folder or nothing");
  if (!force && !fs::is_empty(place, failure) && !failure)
    throw polarline::InputError(place.string(),
                                "found a folder that is not empty, wanted an empty one, none, or --force");
}

void move(const fs::path& from, const fs::path& to) {
  std::error_code failure;
  fs::rename(from, to, failure);
  if (failure) throw polarline::OutputError(to.string(), failure.message());
}

}  // namespace

SetFolder::SetFolder(const std::string& place, const std::string& scratch, bool force) {
  const fs::path named(place);
  place_ = named.has_filename() ? named : named.parent_path();
  demandUsable(place_, force);
  const fs::path partial = scratch.empty() ? beside(place_) : fs::path(scratch) / "set";
  std::error_code failure;
  if (!fs::create_directory(partial, failure))
    throw polarline::OutputError(place, failure ? failure.message() : "the folder cannot be made");
  partial_ = partial;
}

SetFolder::~SetFolder() {
  std::error_code ignored;
  fs::remove_all(partial_, ignored);
}

void SetFolder::finish() {
  std::error_code ignored;
  if (!isThere(place_) || fs::is_empty(place_, ignored)) return move(partial_, place_);
  for (const char* name : kNotInEverySet) {
    if (!isThere(partial_ / name)) fs::remove(place_ / name, ignored);
  }
  for (const auto& file : fs::directory_iterator(partial_)) move(file.path(), place_ / file.path().filename());
}

}  // namespace scene
