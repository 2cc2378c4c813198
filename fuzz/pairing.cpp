#include "check/init/Pairing.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <sstream>
#include <vector>

#include "check/init/FilePattern.h"
#include "fuzz/Harness.h"
#include "polarline/errors.h"

namespace {

/// The names of both sides, a line each, left ones first; a line "=" is between them. Few, as their numbers multiply.
struct Sides {
  std::vector<std::string> left, right;

  explicit Sides(const std::string& text) {
    constexpr std::size_t kMostNames = 12;
    std::istringstream lines(text);
    bool is_right = false;
    for (std::string line; std::getline(lines, line);) {
      std::vector<std::string>& side = is_right ? right : left;
      if (line == "=" && !is_right)
        is_right = true;
      else if (!line.empty() && side.size() < kMostNames && std::ranges::count(side, line) == 0)
        side.push_back(line);
    }
  }
};

/// Each picture is in one pair or alone, and nothing is made up.
void requireEachOnce(const init::Pairing& pairing, const Sides& sides) {
  std::multiset<std::size_t> left(pairing.alone_left.begin(), pairing.alone_left.end());
  std::multiset<std::size_t> right(pairing.alone_right.begin(), pairing.alone_right.end());
  for (const auto& [of_left, of_right] : pairing.pairs) {
    left.insert(of_left);
    right.insert(of_right);
  }
  for (const auto& [seen, all] : {std::pair{&left, sides.left.size()}, {&right, sides.right.size()}}) {
    if (seen->size() != all || std::set<std::size_t>(seen->begin(), seen->end()).size() != all) std::abort();
    if (!seen->empty() && *seen->rbegin() >= all) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Sides sides(std::string(data, data + size));
  if (sides.left.empty() || sides.right.empty()) return 0;
  using enum polarline::PairBy;
  for (const polarline::PairBy by : {kAuto, kNames, kStamps, kOrder}) {
    try {  // Any other exception is a finding.
      requireEachOnce(init::paired(sides.left, sides.right, by), sides);
    } catch (const polarline::InputError&) {
      continue;
    }
  }
  init::fitsPattern(sides.left.front(), sides.right.front());
  return 0;
}
