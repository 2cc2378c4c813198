#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace scene {

/// The JSON value of a text, its members in their order. What is no JSON, and a key that stands twice in an object,
/// throws `polarline::InputError` with the file, line, column and key, what was found and what was wanted.
nlohmann::ordered_json jsonDocument(const std::string& text, const std::string& file);

}  // namespace scene
