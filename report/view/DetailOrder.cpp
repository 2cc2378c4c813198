#include "report/view/DetailOrder.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

namespace polarline {
namespace {

using Places = std::vector<std::size_t>;

double sizeOf(const Json& pair, const std::string& figure) {
  const auto found = pair["figures"].find(figure);
  return found != pair["figures"].end() && found->is_number() ? std::abs(found->get<double>()) : -1.0;
}

Places worstFirst(const Json& pairs, const std::string& figure) {
  std::vector<double> sizes;
  Places places;
  for (const Json& pair : pairs) {
    sizes.push_back(sizeOf(pair, figure));
    if (sizes.back() >= 0.0) places.push_back(sizes.size() - 1);
  }
  std::ranges::stable_sort(places, std::ranges::greater(), [&](std::size_t place) { return sizes[place]; });
  return places;
}

Places givenUp(const Json& pairs) {
  Places places;
  for (std::size_t place = 0; place < pairs.size(); ++place) {
    if (pairs[place]["state"] != "finished") places.push_back(place);
  }
  return places;
}

/// Each next one halves a gap that the ones before left: 0, 1/2, 1/4, 3/4, 1/8... of the list (van der Corput 1935).
Places evenly(std::size_t count) {
  Places places;
  const std::size_t steps = std::bit_ceil(count);
  const int bits = std::countr_zero(steps);
  for (std::size_t step = 0; step < steps; ++step) {
    std::size_t reversed = 0;
    for (int bit = 0; bit < bits; ++bit)
      reversed |= (step >> static_cast<unsigned>(bit) & 1U) << static_cast<unsigned>(bits - 1 - bit);
    if (reversed < count) places.push_back(reversed);
  }
  return places;
}

}  // namespace

std::vector<std::size_t> detailOrder(const Json& pairs, const std::string& figure) {
  const std::array<Places, 3> lists = {worstFirst(pairs, figure), givenUp(pairs), evenly(pairs.size())};
  std::vector<bool> is_taken(pairs.size(), false);
  Places order;
  for (std::size_t turn = 0; order.size() < pairs.size(); ++turn) {
    for (const Places& list : lists) {
      if (turn >= list.size() || is_taken[list[turn]]) continue;
      is_taken[list[turn]] = true;
      order.push_back(list[turn]);
    }
  }
  return order;
}

}  // namespace polarline
