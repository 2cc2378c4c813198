#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "calibrations/document/Value.h"

namespace calibrations {

enum class Syntax : std::uint8_t { kYaml, kJson, kLiteral, kXml };

/// One document of a file.
struct Document {
  std::string place;  ///< The file, and which of its documents where there are several.
  Syntax syntax = Syntax::kYaml;
  Value root;  ///< A map.
};

/// The documents of a file; its syntax is told by its content. Throws `polarline::InputError`.
std::vector<Document> readDocuments(const std::string& path);

}  // namespace calibrations
