#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace polarline {

/// Marks of a template, each with what stands in its place.
using PageMarks = std::array<std::pair<std::string_view, std::string>, 3>;

/// The template with each mark replaced; what replaces one is not looked at for others.
std::string filledMarks(std::string_view page, const PageMarks& marks);

}  // namespace polarline
