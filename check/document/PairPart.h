#pragma once

#include "check/document/JsonText.h"
#include "polarline/check.h"

namespace polarline {

/// A pair of the JSON document: its state, figures, points, and what is known of its pictures.
void writePair(JsonText& json, const PairCheck& pair);

}  // namespace polarline
