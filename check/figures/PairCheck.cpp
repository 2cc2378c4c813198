#include <algorithm>

#include "polarline/check.h"

namespace polarline {

const Figure* PairCheck::figure(const std::string& name) const {
  const auto found = std::ranges::find_if(figures, [&](const Figure& each) { return name == each.name; });
  return found == figures.end() ? nullptr : &*found;
}

std::size_t Check::finished() const {
  return static_cast<std::size_t>(std::ranges::count_if(pairs, &PairCheck::finished));
}

}  // namespace polarline
