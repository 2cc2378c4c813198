#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// Configuration text of `key: value` lines, and typed readings of its values.
using KeyValueTable = std::map<std::string, std::string>;

/// The lines of a text as a table. Empty lines, lines whose first character is `#` and lines without a colon are left
/// out. The key is what stands before the first colon, blanks at its end cut off; the value is the rest, blanks at its
/// start cut off. Of equal keys the last line wins.
KeyValueTable parseKeyValueText(const std::string& text);

/// Reads one value by formatted extraction in the classic locale: what follows the value is ignored, a bool is written
/// 0 or 1, a text without a value gives the extraction's own result (0 for letters, the nearest limit for a number
/// out of range), an empty one leaves the destination as it was. Returns whether the key is there; without it the
/// destination is not touched.
bool lookup(const KeyValueTable& table, const std::string& key, std::int32_t& destination);
bool lookup(const KeyValueTable& table, const std::string& key, float& destination);
bool lookup(const KeyValueTable& table, const std::string& key, bool& destination);

/// Reads a list such as `[1,2,3]`, written without blanks, its opening bracket optional. An item without a number is 0.
/// False and an untouched destination when the key is missing or the value's first word does not end in `]`.
bool lookup(const KeyValueTable& table, const std::string& key, std::vector<double>& destination);
bool lookup(const KeyValueTable& table, const std::string& key, std::vector<std::int32_t>& destination);

/// Reads a list of rows such as `[[1,2],[3,4,5]]`, written without blanks. Rows may differ in length; an empty item
/// falls away. Fails as the flat list does.
bool lookup(const KeyValueTable& table, const std::string& key, std::vector<std::vector<double>>& destination);
bool lookup(const KeyValueTable& table, const std::string& key, std::vector<std::vector<std::int32_t>>& destination);
