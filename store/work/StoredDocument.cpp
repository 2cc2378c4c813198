#include "store/work/StoredDocument.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <ios>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "polarline/exit_code.h"

namespace polarline {
namespace {

using Json = nlohmann::json;

/// Takes the few values out of a document while it is parsed, and passes over its points.
class Reader final : public nlohmann::json_sax<Json> {
 public:
  std::optional<StoredDocument> result() const {
    if (!is_check_ || !has_retry_ || !has_verdict_) return std::nullopt;
    StoredDocument document = document_;
    const std::array<int, 3> by_verdict = {kDone, kLimitExceeded, kNoFigure};
    document.exit_code = exit_code_.value_or(by_verdict.at(static_cast<std::size_t>(document.verdict)));
    return document;
  }

  bool null() override { return true; }
  bool boolean(bool value) override {
    if (isAt("status", "retry")) {
      document_.retry = value;
      has_retry_ = true;
    }
    return true;
  }
  bool number_integer(number_integer_t value) override { return take(value); }
  bool number_unsigned(number_unsigned_t value) override { return take(static_cast<std::int64_t>(value)); }
  bool number_float(number_float_t /*value*/, const string_t& /*text*/) override { return true; }
  bool string(string_t& value) override {
    if (isAt("schema")) is_check_ = value.starts_with("polarline-check/");
    if (isAt("verdict")) return takeVerdict(value);
    if (isAt("set", "id")) document_.id = value;
    if (isAt("status", "text")) document_.text = value;
    return true;
  }
  bool binary(binary_t& /*value*/) override { return false; }
  bool start_object(std::size_t /*size*/) override { return enter(); }
  bool end_object() override { return leave(); }
  bool start_array(std::size_t /*size*/) override { return enter(); }
  bool end_array() override { return leave(); }
  bool key(string_t& name) override {
    if (depth_ == 1) outer_ = name;
    if (depth_ == 2) inner_ = name;
    return true;
  }
  bool parse_error(std::size_t /*place*/, const std::string& /*token*/,
                   const nlohmann::detail::exception& /*e*/) override {
    return false;
  }

 private:
  bool enter() {
    ++depth_;
    return true;
  }
  bool leave() {
    --depth_;
    return true;
  }
  bool isAt(const char* outer) const { return depth_ == 1 && outer_ == outer; }
  bool isAt(const char* outer, const char* inner) const { return depth_ == 2 && outer_ == outer && inner_ == inner; }
  bool take(std::int64_t value) {
    if (isAt("status", "exit_code")) exit_code_ = static_cast<int>(value);
    return true;
  }
  bool takeVerdict(const std::string& word) {
    has_verdict_ = word == "pass" || word == "fail" || word == "error";
    document_.verdict = word == "pass" ? Verdict::kPass : word == "fail" ? Verdict::kFail : Verdict::kError;
    return has_verdict_;
  }

  StoredDocument document_;
  std::optional<int> exit_code_;
  bool is_check_ = false, has_retry_ = false, has_verdict_ = false;
  int depth_ = 0;
  std::string outer_, inner_;
};

}  // namespace

std::optional<StoredDocument> readStored(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) return std::nullopt;
  Reader reader;
  try {
    if (!Json::sax_parse(stream, &reader)) return std::nullopt;
  } catch (const std::ios_base::failure&) {  // A folder, or a disk that can't read it.
    return std::nullopt;
  }
  return reader.result();
}

}  // namespace polarline
