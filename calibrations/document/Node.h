#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "calibrations/document/Document.h"

namespace calibrations {

/// A value together with its place, so that each failure names both. It looks into a document that must outlive it.
/// Whatever is not as wanted is a `polarline::InputError` with what was found.
class Node {
 public:
  explicit Node(const Document& document) : value_(&document.root), place_(document.place), isRoot_(true) {}

  /// The member of the first of the names that is there and holds anything.
  std::optional<Node> find(std::initializer_list<const char*> names) const;
  std::optional<Node> find(const std::string& name) const;
  Node at(std::initializer_list<const char*> names) const;
  Node at(const std::string& name) const;
  bool has(const std::string& name) const { return find(name).has_value(); }

  bool isMap() const { return value_->kind == Value::Kind::kMap; }
  bool isList() const { return value_->kind == Value::Kind::kList; }
  /// The items of a list.
  std::vector<Node> items() const;

  std::string text() const;
  /// One finite number, not beyond `kLargest`; also one alone in a matrix.
  double number() const;
  /// The numbers of a list, of a list of lists, or of a matrix {rows, cols, data}, row by row.
  std::vector<double> numbers() const;
  /// As many as wanted.
  std::vector<double> numbers(std::size_t count) const;
  /// Of a matrix of that shape, or of a plain list of as many numbers.
  std::vector<double> matrix(std::size_t rows, std::size_t cols) const;

  const std::string& place() const { return place_; }
  [[noreturn]] void refuse(const std::string& problem) const;

  /// Beyond all that a calibration holds.
  static constexpr double kLargest = 1e9;

 private:
  Node(const Value& value, std::string place) : value_(&value), place_(std::move(place)) {}
  Node inside(const Value& value, const std::string& name) const;
  void append(std::vector<double>& numbers) const;
  std::string found() const;

  const Value* value_;
  std::string place_;
  bool isRoot_ = false;
};

}  // namespace calibrations
