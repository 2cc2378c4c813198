#pragma once

#include <string>

#include "polarline/check.h"

/// How the documents of a store are called.
namespace polarline::names {

/// What tells options that may give other figures or another verdict from each other.
std::string settingsHash(const CheckOptions& options);

/// Of a set's id under such settings: 64 hexadecimal digits.
std::string byId(const std::string& id, const std::string& settings);

/// Of a set whose files can't be read: by its path.
std::string byPath(const std::string& folder, const std::string& settings);

}  // namespace polarline::names
