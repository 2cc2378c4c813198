#pragma once

#include <cstddef>
#include <vector>

#include "report/read/Json.h"

namespace polarline {

/// The places of a document's pairs, those first whose details the page should have before those of others: by turns
/// the worst by a figure, those given up, and others spread evenly over the list.
std::vector<std::size_t> detailOrder(const Json& pairs, const std::string& figure);

}  // namespace polarline
