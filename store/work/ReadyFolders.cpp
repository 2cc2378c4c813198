#include "store/work/ReadyFolders.h"

#include <algorithm>
#include <fstream>
#include <system_error>
#include <tuple>
#include <utility>

#include "platform/BoundedInput.h"
#include "platform/Pieces.h"
#include "store/work/MetadataEntry.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

fs::path readyFile(const std::string& folder) { return fs::path(folder) / "ready"; }

}  // namespace

std::vector<WatchedFolder> foldersIn(const std::string& folder) {
  std::vector<WatchedFolder> found;
  std::error_code failure;
  for (fs::directory_iterator each(folder, failure), end; !failure && each != end; each.increment(failure)) {
    std::error_code ignored;
    if (!each->is_directory(ignored) || each->path().filename().string().starts_with('.')) continue;
    WatchedFolder seen{each->path().string(), false, {}};
    std::error_code missing;
    seen.ready = fs::last_write_time(readyFile(seen.path), missing);
    seen.is_ready = !missing;
    found.push_back(std::move(seen));
  }
  std::ranges::sort(found, {}, [](const WatchedFolder& each) { return std::tie(each.ready, each.path); });
  return found;
}

BatchSet readySet(const WatchedFolder& folder) {
  BatchSet set;
  set.folder = folder.path;
  const std::string place = readyFile(folder.path).string();
  std::ifstream stream(place, std::ios::binary);
  for (const std::string& entry : wordsOf(bounded::readText(stream), "\r\n\t")) addMetadata(entry, place, set.metadata);
  return set;
}

}  // namespace polarline
