#pragma once

#include <string>

#include "report/fleet/ReadFleet.h"

namespace polarline {

/// "Yield 98.4 % on 2026-11-21 (…); in the 28 days before …": what the page says first.
std::string fleetHeadline(const Fleet& fleet);

/// What stands on the fleet's page without its script, as HTML: the headline, the yield of each station and model, the
/// figures, the worst sets.
std::string fleetStatic(const Fleet& fleet);

}  // namespace polarline
