#include "platform/ExclusiveFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

#include "platform/WholeFile.h"
#include "polarline/errors.h"

#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

namespace fs = std::filesystem;

[[noreturn]] void failAt(const fs::path& place, int error) {
  throw polarline::OutputError(place.string(), std::generic_category().message(error));
}

#if defined(_WIN32)

int makeNew(const fs::path& path) {
  return _wopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY, _S_IWRITE);
}
bool writeWhole(int handle, std::string_view content) {
  return _write(handle, content.data(), static_cast<unsigned>(content.size())) == static_cast<int>(content.size());
}
void closeHandle(int handle) { _close(handle); }

#else

int makeNew(const fs::path& path) { return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666); }
bool writeWhole(int handle, std::string_view content) {
  errno = ENOSPC;  // What a write means that takes less than it was given.
  return write(handle, content.data(), content.size()) == static_cast<ssize_t>(content.size());
}
void closeHandle(int handle) { close(handle); }

#endif

/// A file under a name of its own, with the content; -1 and `errno` where that can't be.
int makeBeside(const fs::path& path, std::string_view content) {
  const int handle = makeNew(path);
  if (handle < 0 || writeWhole(handle, content)) return handle;
  const int error = errno;
  closeHandle(handle);
  errno = error;
  return -1;
}

/// Devices without second names for a file. There the content comes after the name.
bool hasNoLinks(const std::error_code& failure) {
  return failure == std::errc::operation_not_permitted || failure == std::errc::operation_not_supported ||
         failure == std::errc::function_not_supported || failure == std::errc::not_supported;
}

}  // namespace

std::unique_ptr<ExclusiveFile> ExclusiveFile::take(const fs::path& place, std::string_view content) {
  const fs::path own = whole_file::beside(place);
  whole_file::addUnfinished(own);
  int handle = makeBeside(own, content);
  const int error = errno;
  std::error_code failure;
  if (handle >= 0) fs::create_hard_link(own, place, failure);
  std::error_code ignored;
  fs::remove(own, ignored);
  whole_file::forgetUnfinished(own);
  if (handle < 0) failAt(place, error);
  if (hasNoLinks(failure)) {
    closeHandle(handle);
    handle = makeBeside(place, content);
    failure = handle < 0 ? std::error_code(errno, std::generic_category()) : std::error_code();
  }
  if (!failure) return std::unique_ptr<ExclusiveFile>(new ExclusiveFile(place, handle));
  if (handle >= 0) closeHandle(handle);
  // Whoever got the place before may have cleared away what stood beside it.
  if (failure == std::errc::file_exists ||
      (failure == std::errc::no_such_file_or_directory && fs::exists(place, ignored)))
    return nullptr;
  failAt(place, failure.value());
}

ExclusiveFile::ExclusiveFile(fs::path place, int handle) : place_(std::move(place)), handle_(handle) {
  whole_file::addUnfinished(place_);
}

ExclusiveFile::~ExclusiveFile() {
  whole_file::forgetUnfinished(place_);
  std::error_code ignored;
  if (isThere()) fs::remove(place_, ignored);
  closeHandle(handle_);
}

#if defined(_WIN32)

void ExclusiveFile::touch() const { static_cast<void>(writeWhole(handle_, " ")); }

bool ExclusiveFile::isThere() const {
  std::error_code ignored;
  return fs::exists(place_, ignored);
}

#else

void ExclusiveFile::touch() const { static_cast<void>(futimens(handle_, nullptr)); }

bool ExclusiveFile::isThere() const {
  struct stat own {};
  struct stat there {};
  return fstat(handle_, &own) == 0 && stat(place_.c_str(), &there) == 0 && own.st_ino == there.st_ino &&
         own.st_dev == there.st_dev;
}

#endif
