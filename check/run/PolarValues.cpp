#include "check/run/PolarValues.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>
#include <type_traits>
#include <vector>

#include "input/PolarConfigKeys.h"
#include "platform/ClassicStream.h"
#include "platform/Pieces.h"

namespace polarline {
namespace {

constexpr const char* kBlanks = " \n\r\t";

/// Whether nothing but blanks or a comment stands behind what was read.
bool isAtEnd(std::istringstream& stream) {
  const auto next = stream.peek();
  if (next == std::istringstream::traits_type::eof()) return true;
  std::string rest;
  const bool is_apart = std::string_view(kBlanks).find(static_cast<char>(next)) != std::string_view::npos;
  return is_apart && (!(stream >> rest) || rest.starts_with('#'));
}

/// Whether the text is a number and nothing more: the reader would drop the rest in silence.
template <typename T>
bool isWhole(const std::string& text) {
  std::istringstream stream = classic::input(text);
  T number{};
  return static_cast<bool>(stream >> number) && isAtEnd(stream);
}

/// A whole number may be written as 1.0, which the reader takes for 1, too.
template <>
bool isWhole<std::int32_t>(const std::string& text) {
  std::istringstream stream = classic::input(text);
  std::istringstream exact = classic::input(text);
  std::int32_t number = 0;
  double same = 0.0;
  return stream >> number && exact >> same && static_cast<double>(number) == same && isAtEnd(exact);
}

/// A switch is on with every number but 0, also where the extraction of a bool wants 0 or 1.
template <>
bool isWhole<bool>(const std::string& text) {
  return isWhole<double>(text);
}

/// What the list's brackets hold: of the value's first word, whose opening bracket may be missing.
std::optional<std::string> insideBrackets(const std::string& value) {
  std::istringstream stream = classic::input(value);
  std::string word;
  stream >> word;
  if (!word.ends_with(']')) return std::nullopt;
  word.pop_back();
  return word.starts_with('[') ? word.substr(1) : word;
}

template <typename T>
bool areNumbers(const std::string& items) {
  return std::ranges::all_of(piecesOf(items, ','), isWhole<T>);
}

/// Items of rows may be empty: the commas between two rows leave such ones.
template <typename T>
bool isRow(std::string row) {
  std::erase(row, '[');
  return std::ranges::all_of(piecesOf(row, ','), [](const std::string& item) {
    return item.find_first_not_of(kBlanks) == std::string::npos || isWhole<T>(item);
  });
}

bool areThreeNumbers(const std::string& value) {
  const auto items = insideBrackets(value);
  return items && piecesOf(*items, ',').size() == 3 && areNumbers<double>(*items);
}

template <typename T>
bool isUnderstood(const std::string& value, const T* /*type*/) {
  return isWhole<T>(value);
}

template <typename T>
bool isUnderstood(const std::string& value, const std::vector<T>* /*type*/) {
  const auto items = insideBrackets(value);
  return items && areNumbers<T>(*items);
}

template <typename T>
bool isUnderstood(const std::string& value, const std::vector<std::vector<T>>* /*type*/) {
  const auto rows = insideBrackets(value);
  return rows && std::ranges::all_of(piecesOf(*rows, ']'), isRow<T>);
}

/// Numbers with which a run can measure nothing. Empty for the others.
std::string wantedNumber(const std::string& key, const std::string& value) {
  double number = 0.0;
  std::istringstream stream = classic::input(value);
  if (!(stream >> number)) return {};
  // The library scales the pictures by it: with 0 nothing is left of them, and below 0 nothing is to be seen.
  if (key == "f_scale" && !(number > 0.0)) return "a number above 0";
  if ((key == "evalu_model" || key == "x_y") && number != 0.0 && number != 1.0) return "0 or 1";
  return {};
}

bool isLarge(const std::string& value, double most) {
  double number = 0.0;
  std::istringstream stream = classic::input(value);
  return stream >> number && std::abs(number) > most && isAtEnd(stream);
}

template <typename T>
std::string wantedOf(const std::string& value) {
  if constexpr (std::is_same_v<T, bool>) return "0 or 1";
  if constexpr (std::is_same_v<T, std::int32_t>)
    return isLarge(value, std::numeric_limits<T>::max()) ? "a whole number of at most 2147483647" : "a whole number";
  if constexpr (std::is_same_v<T, float>)
    return isLarge(value, std::numeric_limits<T>::max()) ? "a number of at most 3.4e38" : "a number";
  return "a list of numbers such as [1,2,3], without blanks,";
}

template <>
std::string wantedOf<std::vector<std::vector<double>>>(const std::string& /*value*/) {
  return "a list of lists of numbers such as [[1,2],[3,4]], without blanks,";
}

template <>
std::string wantedOf<std::vector<std::vector<std::int32_t>>>(const std::string& value) {
  return wantedOf<std::vector<std::vector<double>>>(value);
}

}  // namespace

std::optional<std::string> wantedInstead(const std::string& key, const std::string& value) {
  if (std::string number = wantedNumber(key, value); !number.empty()) return number;
  std::optional<std::string> wanted;
  polar_keys::forEach([&](const auto& each) {
    using Value = typename std::remove_cvref_t<decltype(each)>::Value;
    const Value* const type = nullptr;
    if (key != each.name) return;
    if (each.rule == polar_keys::Rule::kThreeNumbers && !areThreeNumbers(value))
      wanted = "a list of three numbers such as [1,2,3], without blanks,";
    else if (!isUnderstood(value, type))
      wanted = wantedOf<Value>(value);
  });
  return wanted;
}

}  // namespace polarline
