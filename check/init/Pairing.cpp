#include "check/init/Pairing.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string_view>

#include "check/init/NameKeys.h"
#include "check/init/StampMatch.h"
#include "check/init/Warnings.h"
#include "polarline/errors.h"

namespace init {
namespace {

using Names = std::vector<std::string>;
using Pairs = std::vector<std::pair<std::size_t, std::size_t>>;
using Indices = std::vector<std::size_t>;

/// Names of both sides that bear one key.
struct Candidates {
  Indices left;
  Indices right;
};

struct ExactMatch {
  Pairs pairs;
  std::vector<Candidates> ambiguous;
  NameKey key;  ///< Of the first pair.
};

ExactMatch matchExactly(const KeyReading& reading) {
  std::map<std::string, Candidates> by_key;
  for (std::size_t k = 0; k < reading.left.size(); ++k) by_key[reading.left[k].exact()].left.push_back(k);
  for (std::size_t k = 0; k < reading.right.size(); ++k) by_key[reading.right[k].exact()].right.push_back(k);
  ExactMatch match;
  for (const auto& [key, names] : by_key) {
    if (names.left.empty() || names.right.empty()) continue;
    if (names.left.size() == 1 && names.right.size() == 1)
      match.pairs.emplace_back(names.left[0], names.right[0]);
    else
      match.ambiguous.push_back(names);
  }
  std::ranges::sort(match.pairs);
  if (!match.pairs.empty()) match.key = reading.left[match.pairs[0].first];
  return match;
}

ExactMatch bestExact(const std::vector<KeyReading>& readings) {
  ExactMatch best;
  for (const KeyReading& reading : readings) {
    ExactMatch match = matchExactly(reading);
    const bool more = match.pairs.size() > best.pairs.size();
    const bool first_of_any = best.pairs.empty() && match.pairs.empty() && best.ambiguous.empty();
    if (more || first_of_any) best = std::move(match);
  }
  return best;
}

StampMatch bestStamps(const std::vector<KeyReading>& readings) {
  StampMatch best;
  for (const KeyReading& reading : readings) {
    StampMatch match = matchStamps(reading);
    if (match.pairs.size() > best.pairs.size()) best = std::move(match);
  }
  return best;
}

std::string joined(const Names& names, const Indices& indices) {
  std::string text;
  for (const std::size_t index : indices) text += (text.empty() ? "" : ", ") + names[index];
  return text;
}

[[noreturn]] void refuseAmbiguous(const Names& left, const Names& right, const ExactMatch& match) {
  const Candidates& first = match.ambiguous.front();
  throw polarline::InputError("names that count the same: left " + joined(left, first.left) + "; right " +
                              joined(right, first.right) +
                              ". One picture a side was wanted: narrow the patterns, or pair by order");
}

std::string fileName(const std::string& path) { return std::filesystem::path(path).filename().string(); }

[[noreturn]] void refuseUnpaired(const Names& left, const Names& right) {
  throw polarline::InputError("no picture has a partner: left " + left.front() + " (" + std::to_string(left.size()) +
                              " in all), right " + right.front() + " (" + std::to_string(right.size()) +
                              " in all). Names that agree in the part that varies were wanted, or pairing by order");
}

std::string howExact(const ExactMatch& match, const Names& left, const Names& right) {
  const auto [l, r] = match.pairs.front();
  std::string part;
  for (const NamePiece& piece : match.key.pieces) part += (part.empty() ? "" : " ") + piece.text;
  const std::string names = fileName(left[l]) + " with " + fileName(right[r]);
  if (part.empty()) return "as the only ones: " + names;
  return "by the part of the names that varies: " + part + " in " + names;
}

std::string howStamps(const StampMatch& match) {
  return "by time stamps: partners differ by up to " + std::to_string(match.difference) +
         ", the nearest neighbours of a side by " + std::to_string(match.spacing);
}

/// Whether all right names' numbers are the left ones' and the same more, in their order.
bool countedFromAnotherStart(const KeyReading& reading) {
  std::optional<long long> shift;
  for (std::size_t k = 0; k < reading.left.size(); ++k) {
    const NamePieces& a = reading.left[k].pieces;
    const NamePieces& b = reading.right[k].pieces;
    constexpr std::size_t kMostDigits = 18;
    if (a.size() != 1 || b.size() != 1 || !a[0].is_number || !b[0].is_number) return false;
    if (a[0].text.size() > kMostDigits || b[0].text.size() > kMostDigits) return false;
    const long long difference = std::stoll(b[0].text) - std::stoll(a[0].text);
    if (shift && *shift != difference) return false;
    shift = difference;
  }
  return shift && *shift != 0;
}

bool countedFromAnotherStart(const std::vector<KeyReading>& readings, const Names& left, const Names& right) {
  if (left.size() != right.size() || left.size() < 2) return false;
  return std::ranges::any_of(readings, [](const auto& reading) { return countedFromAnotherStart(reading); });
}

Pairs inOrder(const Names& left, const Names& right) {
  if (left.size() != right.size())
    throw polarline::InputError("pairing by order wants as many left pictures as right ones: found " +
                                std::to_string(left.size()) + " and " + std::to_string(right.size()));
  Pairs pairs;
  for (std::size_t k = 0; k < left.size(); ++k) pairs.emplace_back(k, k);
  return pairs;
}

Indices withoutPartner(const Pairs& pairs, std::size_t count, bool right) {
  std::vector<bool> has(count, false);
  for (const auto& [l, r] : pairs) has[right ? r : l] = true;
  Indices alone;
  for (std::size_t k = 0; k < count; ++k) {
    if (!has[k]) alone.push_back(k);
  }
  return alone;
}

Pairing orderGuessed(const Names& left, const Names& right) {
  Pairing pairing{inOrder(left, right), {}, {}, "in their order, as the two sides count from different starts", {}};
  pairing.warnings.push_back(
      warning("pairs_guessed",
              "The numbers of the two sides differ by the same amount throughout, so the pictures were paired in "
              "their order: " +
                  fileName(left[0]) + " with " + fileName(right[0])));
  return pairing;
}

Pairing chosen(const Names& left, const Names& right, polarline::PairBy by) {
  using polarline::PairBy;
  if (by == PairBy::kOrder) return {inOrder(left, right), {}, {}, "in their order, as was asked for", {}};
  const std::vector<KeyReading> readings = keyReadings(left, right);
  const ExactMatch exact = bestExact(readings);
  const StampMatch near = by == PairBy::kNames ? StampMatch{} : bestStamps(readings);
  const bool stamps_are_better = near.pairs.size() > exact.pairs.size() && (near.long_numbers || exact.pairs.empty());
  if (by == PairBy::kStamps || (stamps_are_better && exact.ambiguous.empty())) {
    if (near.pairs.empty()) refuseUnpaired(left, right);
    return {near.pairs, {}, {}, howStamps(near), {}};
  }
  if (!exact.ambiguous.empty()) refuseAmbiguous(left, right, exact);
  const bool shifted = by == PairBy::kAuto && countedFromAnotherStart(readings, left, right);
  if (exact.pairs.empty() && shifted) return orderGuessed(left, right);
  if (exact.pairs.empty()) refuseUnpaired(left, right);
  Pairing pairing{exact.pairs, {}, {}, howExact(exact, left, right), {}};
  if (shifted && exact.pairs.size() < left.size())
    pairing.warnings.push_back(
        warning("pairs_shifted", "Both sides have " + std::to_string(left.size()) +
                                     " pictures, but count from different starts; they were paired by number"));
  return pairing;
}

}  // namespace

Pairing paired(const Names& left, const Names& right, polarline::PairBy by) {
  const std::set<std::string> of_right(right.begin(), right.end());
  for (const std::string& name : left) {
    if (of_right.contains(name)) throw polarline::InputError(name, "is named as a left picture and as a right one");
  }
  Pairing pairing = chosen(left, right, by);
  pairing.alone_left = withoutPartner(pairing.pairs, left.size(), false);
  pairing.alone_right = withoutPartner(pairing.pairs, right.size(), true);
  return pairing;
}

}  // namespace init
