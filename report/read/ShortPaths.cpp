#include "report/read/ShortPaths.h"

#include <algorithm>
#include <cstddef>

namespace polarline {
namespace {

constexpr std::string_view kSeparators = "/\\";
/// What a path in a sentence begins behind, and what ends it there.
constexpr std::string_view kBefore = " \t\n'\"(=:,;[";
constexpr std::string_view kBehind = " \t\n'\"()=:,;[]";

bool isSeparator(char c) { return kSeparators.find(c) != std::string_view::npos; }

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// "/x", "\x" or "C:\" stands there.
bool beginsAbsolute(std::string_view text) {
  if (text.size() >= 2 && isSeparator(text[0])) return kBehind.find(text[1]) == std::string_view::npos;
  return text.size() >= 3 && isLetter(text[0]) && text[1] == ':' && isSeparator(text[2]);
}

void replaceAll(std::string& text, const std::string& path, const std::string& name) {
  for (std::size_t at = text.find(path); at != std::string::npos; at = text.find(path, at + name.size()))
    text.replace(at, path.size(), name);
}

std::string withoutAbsolutePaths(std::string_view text) {
  constexpr std::size_t kDrive = 2;
  std::string out;
  while (!text.empty()) {
    const bool is_begin = out.empty() || kBefore.find(out.back()) != std::string_view::npos;
    if (!is_begin || !beginsAbsolute(text)) {
      out += text.front();
      text.remove_prefix(1);
      continue;
    }
    const std::size_t end = std::min(text.find_first_of(kBehind, isSeparator(text[0]) ? 0 : kDrive), text.size());
    out += fileName(text.substr(0, end));
    text.remove_prefix(end);
  }
  return out;
}

void shortenTexts(Json& json, const std::vector<std::string>& known) {
  if (json.is_string()) json = withoutFolders(json.get_ref<const std::string&>(), known);
  if (!json.is_structured()) return;
  for (Json& each : json) shortenTexts(each, known);
}

std::vector<std::string> pathsOf(const Json& document) {
  std::vector<std::string> paths;
  const auto take = [&paths](std::string path) {
    while (!path.empty() && isSeparator(path.back())) path.pop_back();
    if (path.find_first_of(kSeparators) != std::string::npos) paths.push_back(path);
  };
  take(document["set"]["folder"].get<std::string>());
  for (const Json& input : document["set"]["inputs"]) take(input["path"].get<std::string>());
  const Json diagnosis = document.value("diagnosis", Json());
  if (diagnosis.is_object() && diagnosis.contains("correction") && diagnosis["correction"].is_object())
    take(diagnosis["correction"]["path"].get<std::string>());
  std::ranges::sort(paths, std::ranges::greater(), &std::string::size);
  return paths;
}

}  // namespace

bool isAbsolute(std::string_view path) { return beginsAbsolute(path); }

std::string fileName(std::string_view path) {
  while (path.size() > 1 && isSeparator(path.back())) path.remove_suffix(1);
  const std::size_t separator = path.find_last_of(kSeparators);
  return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string withoutFolders(const std::string& text, const std::vector<std::string>& known) {
  if (text.find_first_of(kSeparators) == std::string::npos) return text;
  std::string shortened = text;
  for (const std::string& path : known) replaceAll(shortened, path, fileName(path));
  return withoutAbsolutePaths(shortened);
}

void shortenPaths(Json& document) {
  const std::vector<std::string> known = pathsOf(document);
  for (Json& input : document["set"]["inputs"]) input["path"] = fileName(input["path"].get_ref<const std::string&>());
  document["set"]["folder"] = fileName(document["set"]["folder"].get_ref<const std::string&>());
  for (Json& pair : document["pairs"]) {
    for (const char* side : {"left", "right"}) pair[side] = fileName(pair[side].get_ref<const std::string&>());
  }
  shortenTexts(document, known);
}

}  // namespace polarline
