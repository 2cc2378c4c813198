#pragma once

#include "check/document/JsonText.h"
#include "polarline/check.h"

/// What the JSON document tells of that which a check begins with.
namespace polarline {

/// `set`: its name, folder and files.
void writeSet(JsonText& json, const Check& check);

/// `settings`, `board` and `cameras`, as the run took them.
void writeConditions(JsonText& json, const Check& check);

}  // namespace polarline
