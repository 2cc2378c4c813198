#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "store/results/StoredFile.h"

namespace polarline::results {

/// A document in a store folder, `DIR/ab/abcdef....json`, and what stands beside it.
struct FoundDocument {
  std::string name;  ///< "abcdef...."
  FileState document;
  FileState metadata;  ///< Of `abcdef....metadata.json`.
};

/// The documents of a store folder by their names. Claims, temporary files and whatever else lies there is passed over.
/// Throws `InputError` for a folder that can't be listed.
std::vector<FoundDocument> walkStore(const std::filesystem::path& store);

/// Where a document lies, and what stands beside it.
std::filesystem::path documentPath(const std::filesystem::path& store, const std::string& name);
std::filesystem::path metadataPath(const std::filesystem::path& store, const std::string& name);

}  // namespace polarline::results
