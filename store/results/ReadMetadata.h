#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace polarline::results {

/// What the list of a batch said of a set.
struct SetMetadata {
  std::vector<std::pair<std::string, std::string>> values;  ///< By key, ascending, each key once.
  std::string settings;                                     ///< Hash of the settings; empty where it is not told.
  std::string place{};  ///< Name of the document that the set has while its files can't be read; empty likewise.

  /// Empty where the key is missing.
  std::string value(std::string_view key) const;
};

/// Reads what stands beside a document: `{"metadata": {KEY: TEXT, ...}, "settings": "<hash>", "place": "<hash>"}`.
/// Throws `JsonFault`.
SetMetadata readMetadata(std::string_view text);

}  // namespace polarline::results
