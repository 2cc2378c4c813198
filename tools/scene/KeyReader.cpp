#include "tools/scene/KeyReader.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "polarline/errors.h"
#include "tools/scene/Single.h"

namespace scene {
namespace {

constexpr std::size_t kLongestQuote = 60;

/// The value as the file has it, cut where it is long.
std::string shown(const KeyReader::Json& found) {
  const std::string text = found.dump(-1, ' ', true, KeyReader::Json::error_handler_t::replace);
  return text.size() <= kLongestQuote ? text : fmt::format("{:.{}}...", text, kLongestQuote);
}

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

}  // namespace

KeyReader::KeyReader(const Json& object, std::string file, std::string path)
    : object_(object), file_(std::move(file)), path_(std::move(path)) {}

const KeyReader::Json* KeyReader::find(const std::string& key) {
  if (std::ranges::count(known_, key) == 0) known_.push_back(key);
  const auto found = object_.find(key);
  return found == object_.end() ? nullptr : &*found;
}

void KeyReader::refuse(const std::string& key, const Json& found, const std::string& wanted) const {
  throw polarline::InputError(file_ + ": " + path_ + key, fmt::format("found {}, wanted {}", shown(found), wanted));
}

double KeyReader::numberOf(const std::string& key, const Json& found, Span span) const {
  const double value = found.is_number() ? found.get<double>() : std::nan("");
  if (!(value >= span.low && value <= span.high))
    refuse(key, found, fmt::format("a number from {} to {}", span.low, span.high));
  return span.single ? single(value) : value;
}

int KeyReader::integerOf(const std::string& key, const Json& found, Span span) const {
  const double value = found.is_number_integer() ? found.get<double>() : std::nan("");
  if (!(value >= span.low && value <= span.high))
    refuse(key, found, fmt::format("a whole number from {} to {}", span.low, span.high));
  return static_cast<int>(value);
}

bool KeyReader::has(const char* key) { return find(key) != nullptr; }

void KeyReader::number(const char* key, double& value, Span span) {
  if (const Json* found = find(key)) value = numberOf(key, *found, span);
}

void KeyReader::integer(const char* key, int& value, Span span) {
  if (const Json* found = find(key)) value = integerOf(key, *found, span);
}

void KeyReader::seed(const char* key, std::uint64_t& value) {
  const Json* found = find(key);
  if (found == nullptr) return;
  if (!found->is_number_unsigned()) refuse(key, *found, "a whole number from 0 to 18446744073709551615");
  value = found->get<std::uint64_t>();
}

void KeyReader::flag(const char* key, bool& value) {
  const Json* found = find(key);
  if (found == nullptr) return;
  if (!found->is_boolean()) refuse(key, *found, "true or false");
  value = found->get<bool>();
}

void KeyReader::text(const char* key, std::string& value) {
  const Json* found = find(key);
  if (found == nullptr) return;
  if (!found->is_string() || std::ranges::any_of(found->get_ref<const std::string&>(), isControl))
    refuse(key, *found, "a text without control characters");
  value = found->get<std::string>();
}

void KeyReader::choice(const char* key, std::size_t& index, const std::vector<std::string>& names) {
  const Json* found = find(key);
  if (found == nullptr) return;
  const auto name = std::ranges::find(names, found->is_string() ? found->get<std::string>() : "");
  if (name == names.end()) refuse(key, *found, fmt::format("one of {}", fmt::join(names, ", ")));
  index = static_cast<std::size_t>(name - names.begin());
}

void KeyReader::numbers(const char* key, const std::vector<double*>& values, Span span) {
  const Json* found = find(key);
  if (found == nullptr) return;
  if (!found->is_array() || found->size() != values.size())
    refuse(key, *found, fmt::format("a list of {} numbers", values.size()));
  for (std::size_t k = 0; k < values.size(); ++k)
    *values[k] = numberOf(fmt::format("{}[{}]", key, k), (*found)[k], span);
}

void KeyReader::integers(const char* key, std::vector<int>& values, Span span) {
  const Json* found = find(key);
  if (found == nullptr) return;
  if (!found->is_array()) refuse(key, *found, "a list of whole numbers");
  values.clear();
  for (const Json& each : *found) values.push_back(integerOf(fmt::format("{}[{}]", key, values.size()), each, span));
}

void KeyReader::readMembers(const std::string& key, const Json& found, const Members& members) const {
  if (!found.is_object()) refuse(key, found, "an object");
  KeyReader inner(found, file_, path_ + key + ".");
  members(inner);
  inner.finish();
}

void KeyReader::object(const char* key, const Members& members) {
  if (const Json* found = find(key)) readMembers(key, *found, members);
}

void KeyReader::list(const char* key, std::size_t /*size*/, const std::function<void(std::size_t)>& resize,
                     const std::function<void(Fields&, std::size_t)>& element) {
  const Json* found = find(key);
  if (found == nullptr) return;
  if (!found->is_array() || found->empty() || found->size() > kMostPairs)
    refuse(key, *found, fmt::format("a list of 1 to {} objects", kMostPairs));
  resize(found->size());
  for (std::size_t k = 0; k < found->size(); ++k)
    readMembers(fmt::format("{}[{}]", key, k), (*found)[k], [&](Fields& fields) { element(fields, k); });
}

void KeyReader::finish() const {
  for (const auto& [key, value] : object_.items()) {
    if (std::ranges::find(known_, key) != known_.end()) continue;
    const std::string name = shown(Json(key));
    throw polarline::InputError(
        file_ + ": " + path_ + name.substr(1, name.size() - 2),
        fmt::format("found a key that nothing reads, wanted one of {}", fmt::join(known_, ", ")));
  }
}

}  // namespace scene
