#include "check/init/NamePieces.h"

#include <algorithm>

namespace init {
namespace {

enum class Kind { kDigit, kLetter, kOther };

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
}
Kind kindOf(char c) { return isDigit(c) ? Kind::kDigit : isLetter(c) ? Kind::kLetter : Kind::kOther; }

}  // namespace

bool isDigit(char c) { return c >= '0' && c <= '9'; }

NamePieces piecesOf(std::string_view text) {
  NamePieces pieces;
  Kind before = Kind::kOther;
  for (const char c : text) {
    const Kind kind = kindOf(c);
    if (kind == Kind::kOther || kind != before) pieces.push_back({"", kind == Kind::kDigit});
    pieces.back().text += c;
    before = kind;
  }
  return pieces;
}

std::string_view withoutExtension(std::string_view path) {
  const std::size_t slash = path.find_last_of('/');
  const std::size_t dot = path.find_last_of('.');
  const std::size_t name = slash == std::string_view::npos ? 0 : slash + 1;
  if (dot == std::string_view::npos || dot <= name) return path;
  const std::string_view extension = path.substr(dot + 1);
  return std::ranges::any_of(extension, isLetter) ? path.substr(0, dot) : path;
}

std::string_view withoutLeadingZeros(std::string_view digits) {
  const std::size_t first = digits.find_first_not_of('0');
  if (first == std::string_view::npos) return digits.empty() ? digits : digits.substr(digits.size() - 1);
  return digits.substr(first);
}

}  // namespace init
