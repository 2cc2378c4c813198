#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "polarline/calibration.h"

/// A JSON calibration of ours with another infra-red pair; all else of it, as the colour camera, stays as it is.
/// Nothing where `json` is no document with such a pair.
std::optional<std::string> withInfraredPair(std::string_view json, const polarline::Calibration& calibration);
