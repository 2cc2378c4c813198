#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "polarline/check.h"

namespace polarline {

/// What decides whether a document of the store is left as it is.
struct StoredDocument {
  std::string id;
  Verdict verdict = Verdict::kError;
  int exit_code = 0;
  bool retry = false;
  std::string text;
};

/// None where there is no document, or none that is whole.
std::optional<StoredDocument> readStored(const std::filesystem::path& path);

}  // namespace polarline
