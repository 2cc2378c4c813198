#include "calibrations/document/JsonText.h"

#include <cstdint>
#include <nlohmann/json.hpp>

#include "calibrations/document/ValueBuilder.h"
#include "polarline/errors.h"

namespace calibrations {
namespace {

/// Takes the parser's events; numbers stay as they are written.
class JsonEvents : public nlohmann::json_sax<nlohmann::json> {
 public:
  ValueBuilder builder;
  std::string problem;

  bool null() override { return done(builder.nothing()); }
  bool boolean(bool value) override { return done(builder.text(value ? "true" : "false")); }
  bool number_integer(std::int64_t value) override { return done(builder.text(std::to_string(value))); }
  bool number_unsigned(std::uint64_t value) override { return done(builder.text(std::to_string(value))); }
  bool number_float(double /*value*/, const std::string& written) override { return done(builder.text(written)); }
  // NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name)
  bool string(std::string& value) override { return done(builder.text(value)); }
  bool binary(nlohmann::json::binary_t& /*value*/) override { return false; }
  bool start_object(std::size_t /*elements*/) override {
    builder.beginMap();
    return true;
  }
  bool key(std::string& value) override {
    builder.key(value);
    return true;
  }
  bool end_object() override { return done(builder.end()); }
  bool start_array(std::size_t /*elements*/) override {
    builder.beginList();
    return true;
  }
  bool end_array() override { return done(builder.end()); }
  bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                   const nlohmann::json::exception& error) override {
    const std::string text = error.what();
    problem = text.substr(text.find("] ") + 2);  // Behind the parser's own number of the error.
    return false;
  }

 private:
  static bool done(const Value& /*value*/) { return true; }
};

}  // namespace

Value valueOfJson(const std::string& text, const std::string& path) {
  JsonEvents events;
  try {
    if (!nlohmann::json::sax_parse(text, &events)) throw polarline::InputError(path, "is no JSON: " + events.problem);
  } catch (const UnreadableValue& found) {
    throw polarline::InputError(path, std::string("has ") + found.what() + ", which is not read");
  }
  return events.builder.take().value_or(Value{});
}

}  // namespace calibrations
