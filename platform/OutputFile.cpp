#include "platform/OutputFile.h"

#include <mutex>
#include <set>
#include <utility>

#include "platform/Files.h"

namespace files {
namespace {

struct Watches {
  std::mutex mutex;
  std::set<WriteWatch*> all;
};

Watches& watches() {
  static Watches known;
  return known;
}

}  // namespace

OutputFile::OutputFile(const std::string& path, std::ios::openmode mode)
    : std::ofstream(openOutput(path, mode)), path_(path) {}

OutputFile::~OutputFile() {
  if (path_.empty()) return;
  close();  // The last bytes go out here. A stream that never opened fails, too.
  if (!fail()) return;
  try {
    noteFailedWrite(path_);
  } catch (...) {  // Without memory the watches learn of it by the next failure.
    return;
  }
}

WriteWatch::WriteWatch(std::string folder) : folder_(std::move(folder)) {
  const std::lock_guard lock(watches().mutex);
  watches().all.insert(this);
}

WriteWatch::~WriteWatch() {
  const std::lock_guard lock(watches().mutex);
  watches().all.erase(this);
}

bool WriteWatch::failed() const {
  const std::lock_guard lock(watches().mutex);
  return failed_;
}

void noteFailedWrite(const std::string& path) {
  const std::string native = nativePath(path);
  const std::lock_guard lock(watches().mutex);
  for (WriteWatch* watch : watches().all) watch->failed_ = watch->failed_ || native.starts_with(watch->folder_ + "/");
}

}  // namespace files
