#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tools/scene/Fields.h"

namespace scene {

/// Reads one object. What can't be used throws `polarline::InputError` with the file, the key's path, what was found
/// and what was wanted.
class KeyReader : public Fields {
 public:
  using Json = nlohmann::ordered_json;

  /// `path` leads to the object, with a dot at its end unless it is empty. `object` must outlive the reader.
  KeyReader(const Json& object, std::string file, std::string path = "");

  bool has(const char* key) override;
  void number(const char* key, double& value, Span span) override;
  void shorthand(const char* key, double& value, Span span) override { number(key, value, span); }
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

  /// Refuses members that nobody has asked for.
  void finish() const;

 private:
  const Json* find(const std::string& key);
  [[noreturn]] void refuse(const std::string& key, const Json& found, const std::string& wanted) const;
  double numberOf(const std::string& key, const Json& found, Span span) const;
  int integerOf(const std::string& key, const Json& found, Span span) const;
  void readMembers(const std::string& key, const Json& found, const Members& members) const;

  const Json& object_;
  std::string file_, path_;
  std::vector<std::string> known_;
};

}  // namespace scene
