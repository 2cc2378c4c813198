#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <nlohmann/json.hpp>
#include <regex>
#include <string>

/// Judges a JSON document by a schema of JSON Schema 2020-12, as far as our schemas use it. A keyword that it does not
/// know is a failure, so that none is passed over.
class SchemaCheck {
 public:
  using Json = nlohmann::ordered_json;

  explicit SchemaCheck(const Json& schema) : root_(schema) {}

  /// The first thing that is wrong, empty when all is well.
  std::string problem(const Json& document) const { return judge(root_, document, "$"); }

 private:
  std::string judge(const Json& schema, const Json& value, const std::string& at) const {
    for (const auto& [keyword, rule] : schema.items()) {
      const std::string found = judgeKeyword(schema, keyword, rule, value, at);
      if (!found.empty()) return found;
    }
    return "";
  }

  std::string judgeKeyword(const Json& schema, const std::string& keyword, const Json& rule, const Json& value,
                           const std::string& at) const {
    const auto unless = [&](bool holds) { return holds ? "" : at + ": " + keyword; };
    if (keyword == "type") return unless(isOfType(rule.get<std::string>(), value));
    if (keyword == "const") return unless(value == rule);
    if (keyword == "enum") return unless(std::find(rule.begin(), rule.end(), value) != rule.end());
    if (keyword == "minimum") return unless(!value.is_number() || value.get<double>() >= rule.get<double>());
    if (keyword == "maximum") return unless(!value.is_number() || value.get<double>() <= rule.get<double>());
    if (keyword == "minItems") return unless(!value.is_array() || value.size() >= rule.get<std::size_t>());
    if (keyword == "maxItems") return unless(!value.is_array() || value.size() <= rule.get<std::size_t>());
    if (keyword == "pattern")
      return unless(!value.is_string() ||
                    std::regex_search(value.get<std::string>(), std::regex(rule.get<std::string>())));
    if (keyword == "items") return judgeItems(rule, value, at);
    if (keyword == "properties") return judgeProperties(schema, value, at);
    if (keyword == "anyOf") return unless(anyOf(rule, value, at));
    if (keyword == "$ref") return judge(root_.at(Json::json_pointer(rule.get<std::string>().substr(1))), value, at);
    constexpr std::array kNoRules{"$schema", "$id", "$defs", "title", "description", "additionalProperties"};
    return std::find(kNoRules.begin(), kNoRules.end(), keyword) != kNoRules.end() ? "" : "unknown keyword " + keyword;
  }

  static bool isOfType(const std::string& type, const Json& value) {
    if (type == "object") return value.is_object();
    if (type == "array") return value.is_array();
    if (type == "string") return value.is_string();
    if (type == "boolean") return value.is_boolean();
    if (type == "integer") return value.is_number() && std::floor(value.get<double>()) == value.get<double>();
    return type == "number" && value.is_number();
  }

  std::string judgeItems(const Json& rule, const Json& value, const std::string& at) const {
    if (!value.is_array()) return "";
    for (const Json& item : value) {
      if (std::string found = judge(rule, item, at + "[]"); !found.empty()) return found;
    }
    return "";
  }

  /// Our schemas refuse every member that they do not describe.
  std::string judgeProperties(const Json& schema, const Json& value, const std::string& at) const {
    if (!value.is_object()) return "";
    for (const auto& [key, member] : value.items()) {
      const auto described = schema["properties"].find(key);
      if (described == schema["properties"].end()) {
        if (schema.value("additionalProperties", true)) continue;
        return at + "." + key + ": additionalProperties";
      }
      if (std::string found = judge(*described, member, at + "." + key); !found.empty()) return found;
    }
    return "";
  }

  bool anyOf(const Json& rule, const Json& value, const std::string& at) const {
    return std::any_of(rule.begin(), rule.end(), [&](const Json& each) { return judge(each, value, at).empty(); });
  }

  Json root_;
};
