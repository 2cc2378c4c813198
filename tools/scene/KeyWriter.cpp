#include "tools/scene/KeyWriter.h"

#include <array>
#include <charconv>

namespace scene {
namespace {

/// A number that is read to single precision needs no more digits than that has.
double shortest(double value, Span span) {
  if (!span.single) return value;
  std::array<char, 64> digits{};
  const auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<float>(value)).ptr;
  double shortened = 0.0;
  std::from_chars(digits.data(), end, shortened);
  return shortened;
}

}  // namespace

void KeyWriter::number(const char* key, double& value, Span span) { json_[key] = shortest(value, span); }
void KeyWriter::integer(const char* key, int& value, Span /*span*/) { json_[key] = value; }
void KeyWriter::seed(const char* key, std::uint64_t& value) { json_[key] = value; }
void KeyWriter::flag(const char* key, bool& value) { json_[key] = value; }
void KeyWriter::text(const char* key, std::string& value) { json_[key] = value; }

void KeyWriter::choice(const char* key, std::size_t& index, const std::vector<std::string>& names) {
  json_[key] = names.at(index);
}

void KeyWriter::numbers(const char* key, const std::vector<double*>& values, Span span) {
  json_[key] = Json::array();
  for (const double* value : values) json_[key].push_back(shortest(*value, span));
}

void KeyWriter::integers(const char* key, std::vector<int>& values, Span /*span*/) { json_[key] = values; }

void KeyWriter::object(const char* key, const Members& members) {
  KeyWriter inner;
  members(inner);
  json_[key] = inner.json();
}

void KeyWriter::list(const char* key, std::size_t size, const std::function<void(std::size_t)>& /*resize*/,
                     const std::function<void(Fields&, std::size_t)>& element) {
  json_[key] = Json::array();
  for (std::size_t k = 0; k < size; ++k) {
    KeyWriter inner;
    element(inner, k);
    json_[key].push_back(inner.json());
  }
}

}  // namespace scene
