#include "report/read/Place.h"

#include <fmt/format.h>

#include <algorithm>

#include "polarline/errors.h"

namespace polarline {
namespace {

bool isNumber(const Json& json) { return json.is_number() || json.is_null(); }

bool isWhole(const Json& json, std::int64_t least) {
  if (!json.is_number_integer()) return false;
  if (json.is_number_unsigned() && json.get<std::uint64_t>() > std::numeric_limits<std::int32_t>::max()) return false;
  const auto number = json.get<std::int64_t>();
  return number >= least && number <= std::numeric_limits<std::int32_t>::max();
}

/// A value in a few words.
std::string shown(const Json& json) {
  if (json.is_object()) return "an object";
  if (json.is_array()) return "a list";
  constexpr std::size_t kLongest = 40;
  const std::string text = json.dump(-1, ' ', true, Json::error_handler_t::replace);
  return text.size() <= kLongest ? text : text.substr(0, kLongest) + "...";
}

}  // namespace

Place::Place(const Json& json, std::string file, std::string path)
    : json_(&json), file_(std::move(file)), path_(std::move(path)) {
  if (!json.is_object()) {
    throw InputError(file_, (path_.empty() ? "" : path_.substr(0, path_.size() - 1) + ": ") + "found " + shown(json) +
                                ", wanted an object");
  }
}

Place Place::inner(const Json& json, const std::string& key) const { return {json, file_, path_ + key + "."}; }

void Place::refuse(const std::string& key, const std::string& problem) const {
  throw InputError(file_, path_ + key + ": " + problem);
}

void Place::refuse(const char* key, const Json& found, const std::string& wanted) const {
  refuse(key, "found " + shown(found) + ", wanted " + wanted);
}

const Json& Place::at(const char* key) const {
  const auto found = json_->find(key);
  if (found == json_->end()) refuse(key, "found nothing, but a document of a check has this key");
  return *found;
}

Place Place::object(const char* key) const { return inner(at(key), key); }

std::optional<Place> Place::objectIfAny(const char* key) const {
  const auto found = json_->find(key);
  if (found == json_->end() || found->is_null()) return std::nullopt;
  return inner(*found, key);
}

std::vector<Place> Place::objects(const char* key) const {
  const Json& list = at(key);
  if (!list.is_array()) refuse(key, list, "a list");
  std::vector<Place> all;
  all.reserve(list.size());
  for (const Json& each : list) all.push_back(inner(each, fmt::format("{}[{}]", key, all.size())));
  return all;
}

std::vector<Place> Place::members(const char* key) const {
  const Place object = this->object(key);
  std::vector<Place> all;
  for (const auto& [name, each] : object.json_->items()) all.push_back(object.inner(each, name));
  return all;
}

const Place& Place::texts(std::initializer_list<const char*> keys) const {
  for (const char* key : keys) {
    if (!at(key).is_string()) refuse(key, at(key), "a text");
  }
  return *this;
}

const Place& Place::truths(std::initializer_list<const char*> keys) const {
  for (const char* key : keys) {
    if (!at(key).is_boolean()) refuse(key, at(key), "true or false");
  }
  return *this;
}

const Place& Place::numbers(std::initializer_list<const char*> keys) const {
  for (const char* key : keys) {
    if (!isNumber(at(key))) refuse(key, at(key), "a number or null");
  }
  return *this;
}

const Place& Place::counts(std::initializer_list<const char*> keys) const {
  for (const char* key : keys) {
    if (!isWhole(at(key), 0)) refuse(key, at(key), "a whole number from 0");
  }
  return *this;
}

const Place& Place::figures(const char* key) const {
  const Place all = object(key);
  for (const auto& [name, value] : all.json_->items()) {
    const bool is_list = value.is_array() && std::ranges::all_of(value, isNumber);
    if (!is_list && !isNumber(value)) all.refuse(name.c_str(), value, "a number, null, or a list of numbers");
  }
  return *this;
}

const Place& Place::textList(const char* key) const {
  const Json& list = at(key);
  const auto is_text = [](const Json& each) { return each.is_string(); };
  if (!list.is_array() || !std::ranges::all_of(list, is_text)) refuse(key, list, "a list of texts");
  return *this;
}

const Place& Place::numberList(const char* key) const {
  const Json& list = at(key);
  if (!list.is_array() || !std::ranges::all_of(list, isNumber)) refuse(key, list, "a list of numbers");
  return *this;
}

const Place& Place::oneOf(const char* key, std::initializer_list<const char*> words) const {
  const Json& found = at(key);
  const auto is_it = [&found](const char* word) { return found == word; };
  if (std::ranges::any_of(words, is_it)) return *this;
  std::string wanted;
  for (const char* word : words) wanted += (wanted.empty() ? "'" : " or '") + std::string(word) + "'";
  refuse(key, found, wanted);
}

const std::string& Place::text(const char* key) const { return texts({key}).at(key).get_ref<const std::string&>(); }

std::size_t Place::count(const char* key) const { return counts({key}).at(key).get<std::size_t>(); }

std::int32_t Place::whole(const char* key) const {
  const Json& found = at(key);
  if (!isWhole(found, std::numeric_limits<std::int32_t>::min())) refuse(key, found, "a whole number");
  return found.get<std::int32_t>();
}

}  // namespace polarline
