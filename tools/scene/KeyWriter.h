#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tools/scene/Fields.h"

namespace scene {

/// Tells every value, in the shortest digits that read back to it.
class KeyWriter : public Fields {
 public:
  using Json = nlohmann::ordered_json;

  [[nodiscard]] const Json& json() const { return json_; }

  bool has(const char* /*key*/) override { return false; }
  void number(const char* key, double& value, Span span) override;
  void shorthand(const char* /*key*/, double& /*value*/, Span /*span*/) override {}
  void integer(const char* key, int& value, Span span) override;
  void seed(const char* key, std::uint64_t& value) override;
  void flag(const char* key, bool& value) override;
  void text(const char* key, std::string& value) override;
  void choice(const char* key, std::size_t& index, const std::vector<std::string>& names) override;
  void numbers(const char* key, const std::vector<double*>& values, Span span) override;
  void integers(const char* key, std::vector<int>& values, Span span) override;
  void object(const char* key, const Members& members) override;
  void list(const char* key, std::size_t size, const std::function<void(std::size_t)>& resize,
            const std::function<void(Fields&, std::size_t)>& element) override;

 private:
  Json json_ = Json::object();
};

}  // namespace scene
