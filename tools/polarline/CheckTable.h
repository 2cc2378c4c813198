#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "polarline/check.h"

namespace command {

/// A check as a person reads it on a terminal: a line a pair, the worst pair, the limits, the verdict and why.
class CheckTable {
 public:
  /// `width`: columns that a line may take.
  CheckTable(std::size_t width, bool has_colours) : width_(width), has_colours_(has_colours) {}

  std::string header(const polarline::Check& check) const;
  /// A pair's line; the column headings stand above the first one.
  std::string row(const polarline::PairCheck& pair);
  /// What stands below the pairs.
  std::string conclusion(const polarline::Check& check) const;
  /// Of a check that fails the limits that do not hold and the verdict: all that is said of it where the rest is not.
  static std::string broken(const polarline::Check& check);

 private:
  /// A figure, or of a list that a limit judges by entry this entry.
  struct Column {
    std::string figure;
    std::optional<std::size_t> entry;

    std::string title() const;
    std::size_t width() const;
    std::string valueOf(const polarline::Figure* of) const;
    bool exceeds(const polarline::Figure& of) const;
  };

  void add(const Column& column);
  /// The figures that get a column, as far as there is room: those with a limit, then the main ones that the pair
  /// measured.
  void chooseColumns(const polarline::PairCheck& pair);
  std::string headings() const;
  /// The refined figures below the detected ones, in the same columns.
  std::string refinedRow(const polarline::RefinedPair& refined) const;
  /// The line of units below the headings.
  std::string units(const polarline::PairCheck& pair) const;
  /// The value, with a mark where it exceeds a limit.
  std::string cell(const Column& column, const polarline::Figure* figure) const;
  std::string coloured(const std::string& text, const char* code) const;

  std::size_t width_;
  bool has_colours_;
  bool has_columns_ = false;
  std::size_t room_ = 0;  ///< For further columns.
  std::vector<Column> columns_;
};

}  // namespace command
