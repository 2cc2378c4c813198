#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace init {

/// A piece of a file's path: a run of digits, a run of letters, or one other character.
struct NamePiece {
  std::string text;
  bool is_number = false;

  bool operator==(const NamePiece&) const = default;
};
using NamePieces = std::vector<NamePiece>;

bool isDigit(char c);

/// The pieces of a text, in its order. Bytes beyond ASCII count as letters.
NamePieces piecesOf(std::string_view text);

/// The path without the extension of its last name. What holds no letter is none: the 7 of `frame.7`.
std::string_view withoutExtension(std::string_view path);

/// Digits without the zeros in front of them; at least one digit stays.
std::string_view withoutLeadingZeros(std::string_view digits);

}  // namespace init
