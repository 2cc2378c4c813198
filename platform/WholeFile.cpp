#include "platform/WholeFile.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <mutex>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/ProcessIdentity.h"
#include "polarline/errors.h"

#if defined(_WIN32)
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace whole_file {
namespace {

namespace fs = std::filesystem;

/// What is being written, for `abandonAll`.
struct Unfinished {
  std::mutex mutex;
  std::set<fs::path> paths;
};

Unfinished& unfinished() {
  static Unfinished all;
  return all;
}

/// Held by who writes results that belong together.
struct Bundle {
  std::recursive_timed_mutex mutex;
  std::atomic<bool> is_written{false};
};

Bundle& bundle() {
  static Bundle one;
  return one;
}

std::string textOf(int error) { return std::generic_category().message(error); }

std::string nameOf(const fs::path& path) { return path.string(); }

constexpr std::string_view kPartial = ".partial-";

/// One process may hold two copies of this library.
unsigned copyOfLibrary() {
  static const unsigned number = std::random_device()();
  return number;
}

fs::path withoutLastSeparator(const fs::path& place) { return place.has_filename() ? place : place.parent_path(); }

bool synced(std::FILE* file) {
#if defined(_WIN32)
  return _commit(_fileno(file)) == 0;
#else
  return fsync(fileno(file)) == 0 || errno == EINVAL || errno == ENOTSUP;  // A device has nothing to sync.
#endif
}

std::FILE* opened(const fs::path& path) {
#if defined(_WIN32)
  return _wfopen(path.c_str(), L"wb");
#else
  return std::fopen(path.c_str(), "wb");
#endif
}

bool isDevice(const fs::path& path) {
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  return fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status);
}

/// Where a link leads, also one to a file that is not there yet: the link stays, as with any program that opens it.
fs::path behindLinks(const fs::path& named) {
  constexpr int kMostLinks = 40;  // As the system has it.
  fs::path place = named;
  std::error_code failure;
  for (int link = 0; fs::is_symlink(place, failure); ++link) {
    if (link == kMostLinks) throw polarline::OutputError(nameOf(named), textOf(ELOOP));
    place = place.parent_path() / fs::read_symlink(place, failure);
  }
  return place;
}

void removeAndForget(const fs::path& path) {
  std::error_code ignored;
  fs::remove_all(path, ignored);
  forgetUnfinished(path);
}

}  // namespace

fs::path beside(const fs::path& place) {
  static std::atomic<unsigned> count{0};
  fs::path name = place.filename();
  // Asked anew each time: a process that was forked off is another.
  name += std::string(kPartial) + process_identity::inName(process_identity::own()) + "-" +
          std::to_string(copyOfLibrary()) + "-" + std::to_string(count++);
  return place.parent_path() / name;
}

bool isPartial(const fs::path& path) { return path.filename().string().find(kPartial) != std::string::npos; }

bool isAbandoned(const fs::path& path) {
  const std::string name = path.filename().string();
  const std::size_t mark = name.rfind(kPartial);
  return mark != std::string::npos && process_identity::isGoneByName(name.substr(mark + kPartial.size()));
}

void addUnfinished(const fs::path& path) {
  const std::lock_guard lock(unfinished().mutex);
  unfinished().paths.insert(path);
}

void forgetUnfinished(const fs::path& path) {
  const std::lock_guard lock(unfinished().mutex);
  unfinished().paths.erase(path);
}

void syncFolder(const fs::path& folder) {
#if !defined(_WIN32)
  const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return;
  static_cast<void>(fsync(handle));
  close(handle);
#else
  static_cast<void>(folder);
#endif
}

PartialFile::PartialFile(const fs::path& place, fs::path shown)
    : shown_(std::move(shown)), place_(behindLinks(place)), written_(isDevice(place_) ? place_ : beside(place_)) {
  std::error_code ignored;
  if (fs::is_directory(place_, ignored)) fail(EISDIR);  // Else it would only be found when the work is done.
  if (written_ != place_) addUnfinished(written_);
  file_ = opened(written_);
  if (file_ != nullptr) return;
  const int error = errno;
  forgetUnfinished(written_);
  fail(error);
}

PartialFile::~PartialFile() {
  if (file_ == nullptr) return;
  std::fclose(file_);
  if (written_ != place_) removeAndForget(written_);
}

void PartialFile::fail(int error) const { throw polarline::OutputError(nameOf(shown_), textOf(error)); }

void PartialFile::append(std::string_view content) {
  if (error_ == 0 && std::fwrite(content.data(), 1, content.size(), file_) != content.size()) error_ = errno;
  if (error_ != 0) fail(error_);
}

void PartialFile::commit() {
  if (error_ != 0) fail(error_);
  if (std::fflush(file_) != 0 || !synced(file_)) fail(errno);
  std::error_code failure;
  if (std::fclose(std::exchange(file_, nullptr)) != 0) failure.assign(errno, std::generic_category());
  if (written_ == place_ && !failure) return;
  {
    const std::lock_guard lock(unfinished().mutex);  // Whole and in its place, or gone: nothing in between.
    if (!failure) fs::rename(written_, place_, failure);
    if (!failure) unfinished().paths.erase(written_);
  }
  if (!failure) return;
  if (written_ != place_) removeAndForget(written_);
  throw polarline::OutputError(nameOf(shown_), failure.message());
}

void PartialFile::commitAt(const fs::path& place) {
  shown_ = place;
  place_ = behindLinks(place);
  commit();
}

void write(const fs::path& path, std::string_view content) { write(path, content, path); }

void write(const fs::path& path, std::string_view content, const fs::path& shown) {
  PartialFile file(path, shown);
  file.append(content);
  file.commit();
}

PartialFolder::PartialFolder(const fs::path& place) : path_(beside(withoutLastSeparator(place))) {
  std::error_code failure;
  addUnfinished(path_);
  if (fs::create_directory(path_, failure)) return;
  forgetUnfinished(path_);
  throw polarline::OutputError(nameOf(place), failure ? failure.message() : "cannot be made");
}

PartialFolder::~PartialFolder() { removeAndForget(path_); }

Together::Together() { bundle().mutex.lock(); }

Together::~Together() {
  bundle().is_written = true;
  bundle().mutex.unlock();
}

bool endTogether() {
  constexpr std::chrono::seconds kMost{2};
  static_cast<void>(bundle().mutex.try_lock_for(kMost));  // Never unlocked.
  return bundle().is_written;
}

void abandonAll() {
  unfinished().mutex.lock();  // Never unlocked: nothing may be written any more.
  std::error_code ignored;
  for (const fs::path& path : unfinished().paths) fs::remove_all(path, ignored);
}

}  // namespace whole_file
