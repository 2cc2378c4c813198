#include "store/results/LoadDocument.h"

#include <system_error>

#include "check/set/Fingerprint.h"
#include "store/results/JsonCursor.h"
#include "store/results/ReadDocument.h"
#include "store/results/StoreWalk.h"

namespace polarline::results {
namespace {

/// Reads a file and hands it to a reader; what goes wrong is the result.
template <typename Reader>
std::string readBy(const std::filesystem::path& path, FileState& state, Reader&& reader) {
  try {
    const StoredFile file = readStoredFile(path);
    state = file.state;
    if (state.isThere()) reader(file.text);
    return {};
  } catch (const JsonFault& fault) {
    return fault.what();
  } catch (const std::system_error& error) {
    // Nothing of the file is known, so that the next merge tries again.
    state = {};
    return "can't be read: " + error.code().message();
  }
}

}  // namespace

LoadedDocument loadDocument(const std::filesystem::path& store, const std::string& name) {
  LoadedDocument loaded;
  loaded.name = name;
  loaded.document_fault = readBy(documentPath(store, name), loaded.document, [&](const std::string& text) {
    loaded.sha256 = sha256(text);
    loaded.rows = readDocument(text);
  });
  loaded.metadata_fault = readBy(metadataPath(store, name), loaded.metadata,
                                 [&](const std::string& text) { loaded.set = readMetadata(text); });
  return loaded;
}

}  // namespace polarline::results
