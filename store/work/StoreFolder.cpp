#include "store/work/StoreFolder.h"

#include <fstream>
#include <system_error>

#include "platform/WholeFile.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMarkText = "{\"schema\": \"polarline-store/1\"}\n";

}  // namespace

StoreFolder::StoreFolder(const std::string& path, IfMissing if_missing) : path_(path), mark_(path_ / kMark) {
  if (hasMark()) return;
  std::error_code failure;
  if (if_missing == IfMissing::kRefuse) demandThere();
  if (if_missing == IfMissing::kMakeWhole && fs::exists(path_, failure))
    throw OutputError(path, std::string("is there and has no ") + kMark +
                                ": perhaps its disk is not mounted. A store is made where nothing stands yet");
  fs::create_directories(path_, failure);
  if (!fs::is_directory(path_)) throw OutputError(path, failure ? failure.message() : "is no folder");
  whole_file::write(mark_, kMarkText);
}

bool StoreFolder::hasMark() const {
  std::error_code failure;
  return fs::exists(mark_, failure);
}

void StoreFolder::demandThere() const {
  if (!hasMark()) throw OutputError(path_.string(), std::string("the store is away: it has no ") + kMark);
}

StoredPlace StoreFolder::place(const std::string& name) const { return {path_ / name.substr(0, 2), name}; }

StoredPlace StoreFolder::madePlace(const std::string& name) const {
  demandThere();
  StoredPlace place = this->place(name);
  std::error_code failure;
  fs::create_directory(place.folder, failure);  // One level: a store that is away must not be made anew.
  if (failure) throw OutputError(place.folder.string(), failure.message());
  return place;
}

std::optional<fs::file_time_type> StoreFolder::now(const StoredPlace& place) {
  const fs::path probe = whole_file::beside(place.folder / (place.name + ".clock"));
  whole_file::addUnfinished(probe);
  std::ofstream(probe) << "now";
  std::error_code failure;
  const fs::file_time_type time = fs::last_write_time(probe, failure);
  std::error_code ignored;
  fs::remove(probe, ignored);
  whole_file::forgetUnfinished(probe);
  return failure ? std::nullopt : std::optional(time);
}

void removeLeftovers(const StoredPlace& place) {
  std::error_code failure;
  for (fs::directory_iterator each(place.folder, failure), end; !failure && each != end; each.increment(failure)) {
    const std::string file = each->path().filename().string();
    std::error_code ignored;
    if (file.starts_with(place.name + ".") && whole_file::isPartial(each->path())) fs::remove(each->path(), ignored);
  }
}

}  // namespace polarline
