#pragma once

#include <cstdint>
#include <initializer_list>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "report/read/Json.h"

namespace polarline {

/// An object of a document, of which keys are demanded. What is not as wanted throws `InputError` with the file, the
/// key, what was found and what was wanted.
class Place {
 public:
  Place(const Json& json, std::string file) : Place(json, std::move(file), "") {}

  const Json& json() const { return *json_; }

  Place object(const char* key) const;
  /// None where the key is null or missing.
  std::optional<Place> objectIfAny(const char* key) const;
  /// The objects of a list.
  std::vector<Place> objects(const char* key) const;
  /// The members of an object that are objects themselves.
  std::vector<Place> members(const char* key) const;

  const Place& texts(std::initializer_list<const char*> keys) const;
  const Place& truths(std::initializer_list<const char*> keys) const;
  /// Numbers or null.
  const Place& numbers(std::initializer_list<const char*> keys) const;
  /// Whole numbers from 0 that a 32-bit number holds.
  const Place& counts(std::initializer_list<const char*> keys) const;
  /// A number, null, or a list of these.
  const Place& figures(const char* key) const;
  const Place& textList(const char* key) const;
  const Place& numberList(const char* key) const;
  const Place& oneOf(const char* key, std::initializer_list<const char*> words) const;

  const std::string& text(const char* key) const;
  std::size_t count(const char* key) const;
  std::int32_t whole(const char* key) const;

  [[noreturn]] void refuse(const std::string& key, const std::string& problem) const;

 private:
  Place(const Json& json, std::string file, std::string path);
  const Json& at(const char* key) const;
  Place inner(const Json& json, const std::string& key) const;
  [[noreturn]] void refuse(const char* key, const Json& found, const std::string& wanted) const;

  const Json* json_;
  std::string file_;
  std::string path_;  ///< Of the object in the document, with a dot behind it; empty for the document.
};

}  // namespace polarline
