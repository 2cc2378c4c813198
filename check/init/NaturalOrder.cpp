#include "check/init/NaturalOrder.h"

#include <algorithm>
#include <compare>

#include "check/init/NamePieces.h"

namespace init {
namespace {

std::strong_ordering compared(const NamePiece& a, const NamePiece& b) {
  if (!a.is_number || !b.is_number) return a.text <=> b.text;
  const std::string_view x = withoutLeadingZeros(a.text);
  const std::string_view y = withoutLeadingZeros(b.text);
  return x.size() != y.size() ? x.size() <=> y.size() : x <=> y;
}

}  // namespace

bool naturallyBefore(std::string_view a, std::string_view b) {
  const NamePieces x = piecesOf(a);
  const NamePieces y = piecesOf(b);
  const auto order = std::lexicographical_compare_three_way(x.begin(), x.end(), y.begin(), y.end(), compared);
  return order != std::strong_ordering::equal ? order == std::strong_ordering::less : a < b;
}

}  // namespace init
