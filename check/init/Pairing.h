#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "polarline/init.h"

namespace init {

/// Which picture of the left side goes with which of the right one, by their places in the lists of names.
struct Pairing {
  std::vector<std::pair<std::size_t, std::size_t>> pairs;  ///< By the left names' order.
  std::vector<std::size_t> alone_left;                     ///< Without a partner.
  std::vector<std::size_t> alone_right;
  std::string how;  ///< By what they were paired, in words.
  std::vector<polarline::Warning> warnings;
};

/// Pairs the pictures of two sides. Both lists hold a name or more, in natural order. Throws `InputError` where none
/// has a partner, and where one has two.
Pairing paired(const std::vector<std::string>& left, const std::vector<std::string>& right,
               polarline::PairBy by = polarline::PairBy::kAuto);

}  // namespace init
