#include "calibrations/document/Node.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <string_view>

#include "calibrations/document/Shown.h"
#include "polarline/errors.h"

namespace calibrations {
namespace {

/// The number that a text is from its first to its last character, as YAML, JSON, Python and OpenCV write it.
std::optional<double> numberOf(std::string_view text) {
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (end != text.data() + text.size() || text.empty()) return std::nullopt;
  if (error == std::errc::result_out_of_range) {  // Too small is 0, too large is no finite number.
    return text.find("e-") == std::string_view::npos && text.find("E-") == std::string_view::npos ? HUGE_VAL : 0.0;
  }
  return number;
}

std::string listOf(std::initializer_list<const char*> names) {
  std::string list;
  for (const char* name : names) list += (list.empty() ? "" : " or ") + std::string(name);
  return list;
}

std::string shape(std::size_t rows, std::size_t cols) { return fmt::format("{} x {}", rows, cols); }

}  // namespace

Node Node::inside(const Value& value, const std::string& name) const {
  const bool isIndex = name.starts_with('[');
  return {value, place_ + (isRoot_ ? ": " : isIndex ? "" : "/") + name};
}

std::optional<Node> Node::find(const std::string& name) const {
  const Value* const member = value_->member(name);
  if (member == nullptr || member->kind == Value::Kind::kNothing) return std::nullopt;
  return inside(*member, name);
}

std::optional<Node> Node::find(std::initializer_list<const char*> names) const {
  for (const char* name : names) {
    if (std::optional<Node> found = find(name)) return found;
  }
  return std::nullopt;
}

Node Node::at(const std::string& name) const { return at({name.c_str()}); }

Node Node::at(std::initializer_list<const char*> names) const {
  if (std::optional<Node> found = find(names)) return *std::move(found);
  refuse("has no " + listOf(names));
}

std::vector<Node> Node::items() const {
  if (!isList()) refuse("found " + found() + "; a list was wanted");
  std::vector<Node> nodes;
  for (const Value& item : value_->items) nodes.push_back(inside(item, fmt::format("[{}]", nodes.size())));
  return nodes;
}

std::string Node::text() const {
  if (value_->kind != Value::Kind::kText) refuse("found " + found() + "; a text was wanted");
  return value_->text;
}

double Node::number() const {
  if (isMap() || isList()) return numbers(1).front();
  const std::optional<double> number = numberOf(value_->text);
  if (!number) refuse("found " + found() + "; a number was wanted");
  if (!std::isfinite(*number)) refuse("found " + found() + "; a finite number was wanted");
  if (std::abs(*number) > kLargest) refuse("found " + found() + "; a calibration holds no number beyond 1e9");
  return *number;
}

void Node::append(std::vector<double>& numbers) const {
  if (!isList()) return numbers.push_back(number());
  for (const Node& item : items()) {
    if (item.isMap()) item.refuse("found a map; a number was wanted");
    item.append(numbers);
  }
}

std::vector<double> Node::numbers() const {
  std::vector<double> numbers;
  if (!isMap()) {
    if (!isList()) refuse("found " + found() + "; a list of numbers was wanted");
    append(numbers);
    return numbers;
  }
  const Node data = at("data");
  if (data.isMap()) data.refuse("found a map; a list of numbers was wanted");
  data.append(numbers);
  const double rows = at("rows").number();
  const double cols = at("cols").number();
  if (rows * cols != static_cast<double>(numbers.size())) {
    refuse("found " + std::to_string(numbers.size()) + " numbers; rows " + at("rows").text() + " by cols " +
           at("cols").text() + " were said");
  }
  return numbers;
}

std::vector<double> Node::numbers(std::size_t count) const {
  std::vector<double> found = numbers();
  if (found.size() != count) {
    refuse("found " + std::to_string(found.size()) + " numbers; " + std::to_string(count) + " were wanted");
  }
  return found;
}

std::vector<double> Node::matrix(std::size_t rows, std::size_t cols) const {
  if (isMap() &&
      (at("rows").number() != static_cast<double>(rows) || at("cols").number() != static_cast<double>(cols))) {
    refuse("found a matrix of " + at("rows").text() + " x " + at("cols").text() + "; " + shape(rows, cols) +
           " was wanted");
  }
  if (isList() && !value_->items.empty() && value_->items.front().kind == Value::Kind::kList) {
    const std::vector<Node> lines = items();
    if (lines.size() != rows)
      refuse("found " + std::to_string(lines.size()) + " rows; " + shape(rows, cols) + " was wanted");
    for (const Node& line : lines) line.numbers(cols);
  }
  return numbers(rows * cols);
}

void Node::refuse(const std::string& problem) const { throw polarline::InputError(place_, problem); }

std::string Node::found() const {
  switch (value_->kind) {
    case Value::Kind::kMap:
      return "a map";
    case Value::Kind::kList:
      return "a list";
    case Value::Kind::kText:
      return shown(value_->text);
    default:
      return "nothing";
  }
}

}  // namespace calibrations
