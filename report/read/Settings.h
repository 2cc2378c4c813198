#pragma once

#include "report/read/Json.h"

namespace polarline {

/// A number of the polar configuration that a check ran with; `otherwise` where the document does not tell it.
double settingOf(const Json& document, const char* key, double otherwise = 0.0);

}  // namespace polarline
