#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace polarline::results {

/// A text that is not the JSON that was wanted.
class JsonFault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Walks over a JSON text (RFC 8259) once, from front to back, and builds nothing: what the caller has no use for is
/// looked over and left where it is, which is what makes a document of a thousand dots cheap. Everything throws
/// `JsonFault` with the byte where the text is not as wanted.
class JsonCursor {
 public:
  /// The text outlives the cursor.
  explicit JsonCursor(std::string_view text) : text_(text) {}

  /// Calls `member(key)` for each member of an object; the call has to take the member's value.
  template <typename Member>
  void object(Member&& member) {
    open('{');
    for (bool is_first = true; goesOn('}', is_first); is_first = false) {
      const std::string key = text();
      colon();
      member(std::string_view(key));
    }
  }

  /// Calls `entry()` for each entry of a list; the call has to take it.
  template <typename Entry>
  void array(Entry&& entry) {
    open('[');
    for (bool is_first = true; goesOn(']', is_first); is_first = false) entry();
  }

  std::string text();
  /// Not a number for null.
  double number();
  bool truth();
  /// Takes a null; false where something else stands.
  bool null();
  bool isArray() { return next() == '['; }
  bool isObject() { return next() == '{'; }

  /// Takes any value, as strictly as if it were wanted.
  void skip();

  /// The text has to end here.
  void end();

  [[noreturn]] void fault(const std::string& wanted) const;

 private:
  char next();
  void open(char bracket);
  bool goesOn(char bracket, bool is_first);
  void colon();
  bool word(std::string_view word);
  struct Number {
    std::string_view written;
    bool has_exponent;
  };
  Number numberText();
  bool take(char c);
  void digits();
  double value(std::string_view number) const;
  void skipNumber();
  void appendEscape(std::string& taken);
  unsigned hex4();

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t depth_ = 0;  ///< Of open brackets.
};

}  // namespace polarline::results
