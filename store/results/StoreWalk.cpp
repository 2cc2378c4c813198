#include "store/results/StoreWalk.h"

#include <algorithm>
#include <string_view>
#include <system_error>

#include "polarline/errors.h"

namespace polarline::results {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kDocumentEnd = ".json";
constexpr std::string_view kMetadataEnd = ".metadata.json";
constexpr std::size_t kFolderDigits = 2;

bool isHex(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

/// The document's name; empty for another file.
std::string_view documentName(std::string_view file, std::string_view folder) {
  if (!file.ends_with(kDocumentEnd)) return {};
  const std::string_view name = file.substr(0, file.size() - kDocumentEnd.size());
  return isHex(name) && name.starts_with(folder) ? name : std::string_view{};
}

void listFolder(const fs::path& store, const std::string& folder, std::vector<FoundDocument>& found) {
  std::error_code failure;
  fs::directory_iterator entry(store / folder, failure);
  for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
    const std::string file = entry->path().filename().string();
    const std::string_view name = documentName(file, folder);
    if (!name.empty()) found.push_back({std::string(name), {}, {}});
  }
  if (failure) throw InputError((store / folder).string(), "can't be listed: " + failure.message());
}

}  // namespace

fs::path documentPath(const fs::path& store, const std::string& name) {
  return store / name.substr(0, kFolderDigits) / std::string(name).append(kDocumentEnd);
}

fs::path metadataPath(const fs::path& store, const std::string& name) {
  return store / name.substr(0, kFolderDigits) / std::string(name).append(kMetadataEnd);
}

std::vector<FoundDocument> walkStore(const fs::path& store) {
  std::vector<FoundDocument> found;
  std::error_code failure;
  fs::directory_iterator entry(store, failure);
  for (; !failure && entry != fs::directory_iterator(); entry.increment(failure)) {
    const std::string folder = entry->path().filename().string();
    if (folder.size() == kFolderDigits && isHex(folder) && entry->is_directory(failure))
      listFolder(store, folder, found);
  }
  if (failure) throw InputError(store.string(), "can't be listed: " + failure.message());
  for (FoundDocument& each : found) {
    each.document = stateOf(documentPath(store, each.name));
    each.metadata = stateOf(metadataPath(store, each.name));
  }
  std::erase_if(found, [](const FoundDocument& each) { return !each.document.isThere(); });
  std::ranges::sort(found, {}, &FoundDocument::name);
  return found;
}

}  // namespace polarline::results
