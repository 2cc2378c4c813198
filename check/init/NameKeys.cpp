#include "check/init/NameKeys.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string_view>

namespace init {
namespace {

using Names = std::vector<std::string>;
using Places = std::set<std::size_t>;

/// The names of one side in pieces, all of one count.
struct Columns {
  std::vector<NamePieces> rows;
  std::size_t count = 0;
  Places varying;
};

/// Nothing if the names have different numbers of pieces.
std::optional<Columns> columnsOf(const Names& names) {
  Columns columns;
  for (const std::string& name : names) columns.rows.push_back(piecesOf(withoutExtension(name)));
  columns.count = columns.rows.front().size();
  for (const NamePieces& row : columns.rows) {
    if (row.size() != columns.count) return std::nullopt;
    for (std::size_t k = 0; k < columns.count; ++k) {
      if (row[k] != columns.rows.front()[k]) columns.varying.insert(k);
    }
  }
  return columns;
}

NameKey keyAt(const NamePieces& row, const Places& places) {
  NameKey key;
  for (const std::size_t place : places) key.pieces.push_back(row[place]);
  if (places.size() < 2) return key;
  const std::size_t last = *places.rbegin();
  const std::size_t before = *std::next(places.rbegin());
  key.is_decimal = last == before + 2 && row[last].is_number && row[before].is_number && row[before + 1].text == ".";
  return key;
}

std::vector<NameKey> keysAt(const Columns& columns, const Places& places) {
  std::vector<NameKey> keys;
  for (const NamePieces& row : columns.rows) keys.push_back(keyAt(row, places));
  return keys;
}

/// Places counted from the end of a name; nothing if one lies in front of a name of `count` pieces.
std::optional<Places> fromEnd(const Places& places, std::size_t count_there, std::size_t count) {
  Places moved;
  for (const std::size_t place : places) {
    if (place + count < count_there) return std::nullopt;
    moved.insert(place + count - count_there);
  }
  return moved;
}

/// Pieces that vary on either side, counted from the end, which is the front too where the counts are equal.
std::optional<KeyReading> byEitherSide(const Columns& left, const Columns& right) {
  const std::optional<Places> of_right = fromEnd(right.varying, right.count, left.count);
  if (!of_right) return std::nullopt;
  Places places = left.varying;
  places.insert(of_right->begin(), of_right->end());
  const std::optional<Places> there = fromEnd(places, left.count, right.count);
  if (!there) return std::nullopt;
  return KeyReading{keysAt(left, places), keysAt(right, *there)};
}

/// The same counted from the front; nothing where that is the same.
std::optional<KeyReading> byEitherSideFromFront(const Columns& left, const Columns& right) {
  if (left.count == right.count) return std::nullopt;
  Places places = left.varying;
  places.insert(right.varying.begin(), right.varying.end());
  if (!places.empty() && *places.rbegin() >= std::min(left.count, right.count)) return std::nullopt;
  return KeyReading{keysAt(left, places), keysAt(right, places)};
}

std::size_t commonLength(const Names& names, bool at_end, std::size_t most) {
  std::size_t length = 0;
  const auto at = [&](const std::string& name) { return at_end ? name[name.size() - 1 - length] : name[length]; };
  while (length < most && std::ranges::all_of(names, [&](const auto& name) { return at(name) == at(names[0]); }))
    ++length;
  return length;
}

/// What is left when the beginning and end that all names share are gone. A number is never cut.
std::vector<NameKey> middles(const Names& paths) {
  Names names;
  for (const std::string& path : paths) names.emplace_back(withoutExtension(path));
  const std::size_t shortest = std::ranges::min(names, {}, &std::string::size).size();
  std::size_t front = commonLength(names, false, shortest);
  std::size_t end = commonLength(names, true, shortest - front);
  while (front > 0 && isDigit(names[0][front - 1])) --front;
  while (end > 0 && isDigit(names[0][names[0].size() - end])) --end;
  std::vector<NameKey> keys;
  for (const std::string& name : names)
    keys.push_back({piecesOf(name.substr(front, name.size() - front - end)), false});
  return keys;
}

}  // namespace

std::string NameKey::exact() const {
  std::string text;
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    std::string_view piece = pieces[k].text;
    const bool is_fraction = is_decimal && k + 1 == pieces.size();
    if (is_fraction) piece = piece.substr(0, piece.find_last_not_of('0') + 1);
    if (pieces[k].is_number && !is_fraction) piece = withoutLeadingZeros(piece);
    text += std::string(piece) + '/';
  }
  return text;
}

std::vector<KeyReading> keyReadings(const Names& left, const Names& right) {
  std::vector<KeyReading> readings;
  const auto add = [&](std::optional<KeyReading> reading) {
    if (reading) readings.push_back(std::move(*reading));
  };
  const std::optional<Columns> a = columnsOf(left);
  const std::optional<Columns> b = columnsOf(right);
  if (a && b) {
    add(byEitherSide(*a, *b));
    add(byEitherSideFromFront(*a, *b));
    add(KeyReading{keysAt(*a, a->varying), keysAt(*b, b->varying)});
  }
  add(KeyReading{middles(left), middles(right)});
  return readings;
}

}  // namespace init
