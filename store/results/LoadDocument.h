#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "store/results/DocumentRows.h"
#include "store/results/ReadMetadata.h"
#include "store/results/StoredFile.h"

namespace polarline::results {

/// A document and what stands beside it, read and parsed.
struct LoadedDocument {
  std::string name;
  FileState document;  ///< Of none: it is gone.
  std::string sha256;  ///< Of its bytes.
  std::optional<DocumentRows> rows;
  std::string document_fault;  ///< Why there are no rows.
  FileState metadata;
  SetMetadata set;
  std::string metadata_fault;  ///< Why it was not taken.
};

/// Never throws for what the files are: that is a fault told in the result.
LoadedDocument loadDocument(const std::filesystem::path& store, const std::string& name);

}  // namespace polarline::results
