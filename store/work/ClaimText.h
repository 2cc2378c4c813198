#pragma once

#include <optional>
#include <string>

#include "platform/ProcessIdentity.h"

namespace polarline {

/// What a claim says of its worker, as JSON: host, process and since when.
std::string claimText(const process_identity::Identity& worker);

/// None for what is no claim.
std::optional<process_identity::Identity> claimant(const std::string& text);

}  // namespace polarline
