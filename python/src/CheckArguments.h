#pragma once

#include <pybind11/pybind11.h>

#include <cstddef>
#include <optional>
#include <utility>

#include "polarline/set.h"

/// What callers give to one check and to many alike.
namespace binding {

using PairRange = std::optional<std::pair<std::size_t, std::size_t>>;

/// Bytes or text by key, as `Set` has its members.
polarline::Set setOf(const pybind11::dict& files);

}  // namespace binding
