#pragma once

#include "check/document/JsonText.h"
#include "polarline/check.h"

/// What the JSON document tells of that which came of a check.
namespace polarline {

/// `status`: whether the run came to its end.
void writeStatus(JsonText& json, const Status& status);

/// `summary`, `limits`, `verdict`, `diagnosis` and `warnings`: what all pairs together say.
void writeOutcome(JsonText& json, const Check& check);

}  // namespace polarline
