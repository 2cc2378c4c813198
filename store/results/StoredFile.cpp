#include "store/results/StoredFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <system_error>

namespace polarline::results {
namespace {

/// Ten thousand pairs have less.
constexpr std::int64_t kLongest = std::int64_t{1} << 30U;

class Descriptor {
 public:
  explicit Descriptor(int descriptor) : descriptor_(descriptor) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  operator int() const { return descriptor_; }  // NOLINT(google-explicit-constructor): it is one

 private:
  int descriptor_;
};

[[noreturn]] void failWith(int error) { throw std::system_error(error, std::generic_category()); }

bool isGone(int error) { return error == ENOENT || error == ENOTDIR; }

FileState stateOf(const struct stat& status) {
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  return {status.st_size, status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec,
          static_cast<std::int64_t>(status.st_ino)};
}

}  // namespace

FileState stateOf(const std::filesystem::path& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
  return stateOf(status);
}

StoredFile readStoredFile(const std::filesystem::path& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (file < 0) {
    if (isGone(errno)) return {};
    failWith(errno);
  }
  struct stat status {};
  if (fstat(file, &status) != 0) failWith(errno);
  if (!S_ISREG(status.st_mode)) failWith(EINVAL);
  StoredFile read{stateOf(status), {}};
  if (read.state.size > kLongest) failWith(EFBIG);
  read.text.resize(static_cast<std::size_t>(read.state.size));
  std::size_t filled = 0;
  while (filled < read.text.size()) {
    const ssize_t count = ::read(file, read.text.data() + filled, read.text.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) failWith(errno);
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  read.text.resize(filled);
  return read;
}

}  // namespace polarline::results
