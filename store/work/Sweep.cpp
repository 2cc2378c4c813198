#include "store/work/Sweep.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "platform/WholeFile.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSign = "polarline-store.worker";

/// The folders in which checks that were killed had their copies of a set's files.
void sweepCopies() {
  std::error_code failure;
  const fs::path folder = fs::temp_directory_path(failure);
  for (fs::directory_iterator each(folder, failure), end; !failure && each != end; each.increment(failure)) {
    std::error_code ignored;
    if (each->path().filename().string().starts_with("polarline.") && whole_file::isAbandoned(each->path()))
      fs::remove_all(each->path(), ignored);
  }
}

class Broom {
 public:
  explicit Broom(const StoreFolder& store) : store_(store) {}

  void run() {
    const std::vector<fs::path> all = entriesOf(store_.path());
    std::vector<fs::path> signs;
    for (const fs::path& each : all) {
      if (!isLeft(each)) continue;
      if (each.filename().string().starts_with(kSign))
        signs.push_back(each);
      else
        remove(each);
    }
    if (signs.empty()) return;
    for (const fs::path& each : all) {
      if (each.filename().string().size() != 2) continue;  // Folders of documents; others in a store are not ours.
      for (const fs::path& file : entriesOf(each)) {
        if (isLeft(file)) remove(file);
      }
    }
    for (const fs::path& each : signs) remove(each);  // Last: who is killed meanwhile leaves them to the next.
  }

 private:
  static std::vector<fs::path> entriesOf(const fs::path& folder) {
    std::vector<fs::path> entries;
    std::error_code failure;
    for (fs::directory_iterator each(folder, failure), end; !failure && each != end; each.increment(failure))
      entries.push_back(each->path());
    return entries;
  }

  static void remove(const fs::path& path) {
    std::error_code ignored;
    fs::remove(path, ignored);
  }

  bool isLeft(const fs::path& path) {
    return whole_file::isPartial(path) && (whole_file::isAbandoned(path) || isOfOld(path));
  }

  /// A worker of another machine holds its claim while it writes a document, however long that takes.
  bool isOfOld(const fs::path& path) {
    const std::string file = path.filename().string();
    const StoredPlace place{path.parent_path(), file.substr(0, file.find('.'))};
    std::error_code failure;
    const auto written = fs::last_write_time(path, failure);
    if (failure || fs::exists(place.claim(), failure) || failure) return false;
    if (!now_) now_ = StoreFolder::now(store_.root());
    return now_ && *now_ - written > std::chrono::hours(24);
  }

  const StoreFolder& store_;
  std::optional<fs::file_time_type> now_;
};

}  // namespace

WorkerSign::WorkerSign(const StoreFolder& store) : path_(whole_file::beside(store.path() / kSign)) {
  whole_file::addUnfinished(path_);
  std::ofstream file(path_);
}

WorkerSign::~WorkerSign() {
  std::error_code ignored;
  fs::remove(path_, ignored);
  whole_file::forgetUnfinished(path_);
}

void sweep(const StoreFolder& store) {
  Broom(store).run();
  sweepCopies();
}

}  // namespace polarline
