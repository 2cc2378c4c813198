#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace polarline {

/// JSON (RFC 8259) made piece by piece, so that a document need not be in memory as a whole, and with numbers that
/// read back to the same float or double. What is no finite number is null; bytes that are no UTF-8 become U+FFFD.
class JsonText {
 public:
  enum class Form : std::uint8_t {
    kForPeople,  ///< A line for each member of the outer objects, blanks behind commas.
    kShort,      ///< No blanks and no lines.
  };

  explicit JsonText(Form form = Form::kForPeople) : is_short_(form == Form::kShort) {}

  JsonText& object();
  JsonText& array();
  JsonText& end();  ///< Of the innermost object or array.
  JsonText& key(std::string_view name);

  JsonText& value(std::string_view text);
  JsonText& value(const char* text) { return value(std::string_view(text)); }
  JsonText& value(const std::string& text) { return value(std::string_view(text)); }
  JsonText& value(double number);
  JsonText& value(float number);
  /// A number that came from a float reads back to that.
  JsonText& value(double number, bool is_single) {
    return is_single ? value(static_cast<float>(number)) : value(number);
  }
  JsonText& value(std::int64_t number);
  JsonText& value(std::int32_t number) { return value(std::int64_t{number}); }
  JsonText& value(std::size_t number) { return value(static_cast<std::int64_t>(number)); }
  JsonText& value(bool truth);
  JsonText& null();
  /// What is JSON already.
  JsonText& raw(std::string_view json);

  template <typename Value>
  JsonText& member(std::string_view name, const Value& content) {
    return key(name).value(content);
  }
  template <typename Item>
  JsonText& list(std::string_view name, const std::vector<Item>& items) {
    key(name).array();
    for (const Item& item : items) value(item);
    return end();
  }

  /// The text since the last call.
  std::string take();

 private:
  void separate();
  /// Whether each member of the innermost object has a line of its own.
  bool isInLines() const;
  void newLine();

  bool is_short_;
  std::string text_;
  std::vector<char> open_;  ///< The closing brackets, innermost last.
  bool is_first_ = true;    ///< Of the innermost object or array.
  bool is_behind_key_ = false;
};

}  // namespace polarline
