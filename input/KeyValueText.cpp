#include "input/KeyValueText.h"

#include <cstddef>
#include <sstream>

#include "platform/ClassicStream.h"
#include "platform/Pieces.h"

namespace {

constexpr const char* kBlanks = " \n\r\t";

std::string trimmedStart(const std::string& text) {
  const std::size_t start = text.find_first_not_of(kBlanks);
  return start == std::string::npos ? std::string() : text.substr(start);
}

// For a text of blanks only, npos + 1 wraps around to 0, which gives the empty text.
std::string trimmedEnd(const std::string& text) { return text.substr(0, text.find_last_not_of(kBlanks) + 1); }

template <typename T>
void extract(const std::string& text, T& destination) {
  std::istringstream stream = classic::input(text);
  stream >> destination;
}

template <typename T>
T numberOf(const std::string& item) {
  T number{};
  extract(trimmedStart(trimmedEnd(item)), number);
  return number;
}

/// Gives `inner` the text between the outer brackets of the value's first word. The opening bracket is optional, the
/// closing one is not.
bool unwrapList(const std::string& value, std::string& inner) {
  std::string token;
  extract(value, token);
  if (token.starts_with('[')) token.erase(0, 1);
  if (!token.ends_with(']')) return false;
  token.pop_back();
  inner = token;
  return true;
}

template <typename T>
std::vector<T> rowOf(std::string chunk) {
  if (chunk.ends_with('[')) chunk.pop_back();
  std::vector<T> row;
  for (std::string item : piecesOf(chunk, ',')) {
    if (item.starts_with('[')) item.erase(0, 1);
    // The comma between two rows leaves an empty item.
    if (item.find_first_not_of(kBlanks) != std::string::npos) row.push_back(numberOf<T>(item));
  }
  return row;
}

template <typename T>
void readValue(const std::string& inner, std::vector<T>& list) {
  list.clear();
  for (const std::string& item : piecesOf(inner, ',')) list.push_back(numberOf<T>(item));
}

template <typename T>
void readValue(const std::string& inner, std::vector<std::vector<T>>& rows) {
  rows.clear();
  for (const std::string& chunk : piecesOf(inner, ']')) rows.push_back(rowOf<T>(chunk));
}

template <typename T>
bool lookupScalar(const KeyValueTable& table, const std::string& key, T& destination) {
  const auto entry = table.find(key);
  if (entry == table.end()) return false;
  extract(entry->second, destination);
  return true;
}

template <typename List>
bool lookupList(const KeyValueTable& table, const std::string& key, List& destination) {
  const auto entry = table.find(key);
  std::string inner;
  if (entry == table.end() || !unwrapList(entry->second, inner)) return false;
  readValue(inner, destination);
  return true;
}

}  // namespace

KeyValueTable parseKeyValueText(const std::string& text) {
  KeyValueTable table;
  std::istringstream lines = classic::input(text);
  for (std::string line; std::getline(lines, line);) {
    const std::size_t colon = line.find(':');
    if (line.starts_with('#') || colon == std::string::npos) continue;
    table[trimmedEnd(line.substr(0, colon))] = trimmedStart(line.substr(colon + 1));
  }
  return table;
}

bool lookup(const KeyValueTable& table, const std::string& key, std::int32_t& destination) {
  return lookupScalar(table, key, destination);
}

bool lookup(const KeyValueTable& table, const std::string& key, float& destination) {
  return lookupScalar(table, key, destination);
}

bool lookup(const KeyValueTable& table, const std::string& key, bool& destination) {
  return lookupScalar(table, key, destination);
}

bool lookup(const KeyValueTable& table, const std::string& key, std::vector<double>& destination) {
  return lookupList(table, key, destination);
}

bool lookup(const KeyValueTable& table, const std::string& key, std::vector<std::int32_t>& destination) {
  return lookupList(table, key, destination);
}

bool lookup(const KeyValueTable& table, const std::string& key, std::vector<std::vector<double>>& destination) {
  return lookupList(table, key, destination);
}

bool lookup(const KeyValueTable& table, const std::string& key, std::vector<std::vector<std::int32_t>>& destination) {
  return lookupList(table, key, destination);
}
