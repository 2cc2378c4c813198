#pragma once

#include <string>
#include <string_view>

#include "report/read/Json.h"

namespace polarline {

/// The JSON of a text. Throws `InputError` with line and column for what is none, for one that is nested deeper than
/// any document of ours, and for an object of so many members that looking one up would take a while.
/// @param place The file, for the message.
/// @param look  Sees each value when it has been parsed, and may change it.
Json parseJson(std::string_view text, const std::string& place, const Json::parser_callback_t& look = nullptr);

}  // namespace polarline
