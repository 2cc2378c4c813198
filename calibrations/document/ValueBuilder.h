#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "calibrations/document/Value.h"

namespace calibrations {

/// What a document holds that is not read, in words.
class UnreadableValue : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Builds values from what a parser reports, piece by piece, and bounds them: none nests deeper than `kDeepest`, and
/// all documents of a file together hold no more than `kMost`, however often they repeat themselves. Throws
/// `UnreadableValue`.
class ValueBuilder {
 public:
  static constexpr std::size_t kDeepest = 32;
  static constexpr std::size_t kMost = 200000;
  static constexpr std::size_t kMostKeys = 1000;  ///< Of one map, which is searched from its first.

  void beginList() { begin(Value::Kind::kList); }
  void beginMap() { begin(Value::Kind::kMap); }
  /// Ends the innermost list or map and returns where it stands now.
  const Value& end();
  void key(const std::string& key);
  const Value& text(std::string text);
  const Value& nothing() { return add({}); }
  /// A value that stood in the document before.
  const Value& again(const Value& value);

  /// Whether the next piece is a key of a map.
  bool wantsKey() const;
  /// The value, when it is whole. The next one may follow.
  std::optional<Value> take() { return std::exchange(whole_, std::nullopt); }

 private:
  struct Open {
    Value value;
    std::optional<std::string> key;
  };

  void begin(Value::Kind kind);
  const Value& add(Value value);
  void countMore(std::size_t count);

  std::vector<Open> open_;
  std::optional<Value> whole_;
  std::size_t count_ = 0;
};

}  // namespace calibrations
