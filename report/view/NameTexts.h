#pragma once

#include <set>
#include <string>

#include "report/read/Json.h"

namespace polarline {

/// The figures, causes and warnings that a document names.
std::set<std::string> namesIn(const Json& document);

/// What every figure, cause and warning means, by its name, as JSON.
std::string nameTexts();

/// The same of these alone: all of them are a tenth of a small page.
std::string nameTexts(const std::set<std::string>& names);

}  // namespace polarline
