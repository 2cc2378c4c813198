#pragma once

#include <cstddef>
#include <istream>
#include <string>

/// Reading of texts that a caller names, within bounds: any path may lead to a file of gigabytes, or to one without an
/// end.
namespace bounded {

/// Most characters of a text or a line: far beyond any real one, and within what memory holds.
inline constexpr std::size_t kLongestText = std::size_t{1} << 24;

/// The next line without its line feed, as `std::getline` reads it; false behind the last one. Throws
/// `std::length_error` for a line of more than `kLongestText` characters.
bool nextLine(std::istream& stream, std::string& line);

/// The rest of the stream. Throws `std::length_error` for more than `kLongestText` characters.
std::string readText(std::istream& stream);

}  // namespace bounded
