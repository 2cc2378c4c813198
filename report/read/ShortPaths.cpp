#include "report/read/ShortPaths.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <set>

namespace polarline {
namespace {

constexpr std::string_view kSeparators = "/\\";
/// What a path in a sentence begins behind, and what may stand behind its end.
constexpr std::string_view kBefore = " \t\n'\"(=:,;[";
constexpr std::string_view kBehind = " \t\n'\"()=:,;[]";

bool isSeparator(char c) { return kSeparators.find(c) != std::string_view::npos; }

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

/// "/x", "\x" or "C:\" stands there.
bool beginsAbsolute(std::string_view text) {
  if (text.size() >= 2 && isSeparator(text[0])) return kBehind.find(text[1]) == std::string_view::npos;
  return text.size() >= 3 && isLetter(text[0]) && text[1] == ':' && isSeparator(text[2]);
}

/// "./x", "../x" or "~/x", too: folders beside the one at hand tell as much.
bool beginsPath(std::string_view text) {
  for (const std::string_view begin : {"..", ".", "~"}) {
    if (text.starts_with(begin) && beginsAbsolute(text.substr(begin.size())) && isSeparator(text[begin.size()]))
      return true;
  }
  return beginsAbsolute(text);
}

bool isEnd(std::string_view text, std::size_t at) {
  return at >= text.size() || kBehind.find(text[at]) != std::string_view::npos;
}

/// A file of a kind that a check reads or writes ends in there: "calib.json, line 3". At the end it would be a folder.
bool endsFile(std::string_view text) {
  constexpr std::array<std::string_view, 18> kKinds = {"txt",  "ini", "json", "yml", "yaml", "xml",
                                                       "bin",  "csv", "html", "png", "bmp",  "jpg",
                                                       "jpeg", "tif", "tiff", "pgm", "gz",   "md"};
  const auto ends = [text](std::string_view kind) {
    for (std::size_t at = text.find(kind, 1); at != std::string_view::npos; at = text.find(kind, at + 1)) {
      const std::size_t end = at + kind.size();
      if (text[at - 1] == '.' && end < text.size() && isEnd(text, end)) return true;
    }
    return false;
  };
  return std::ranges::any_of(kKinds, ends);
}

/// The quote or bracket that closes the one before a path; 0 without one.
char closing(char opening) {
  constexpr std::string_view kOpen = "'\"([", kClosed = "'\")]";
  const std::size_t at = kOpen.find(opening);
  return at == std::string_view::npos ? '\0' : kClosed[at];
}

/// An apostrophe within a word closes nothing.
bool hasClosing(std::string_view text, char closed) {
  for (std::size_t at = text.find(closed); at != std::string_view::npos; at = text.find(closed, at + 1)) {
    if (isEnd(text, at + 1)) return true;
  }
  return false;
}

/// Is the path over somewhere between two separators? Names of folders have blanks, commas and brackets, too: where a
/// sentence leaves it open they count as parts of the name, so that rather too much is left out than too little.
bool isOverIn(std::string_view between, char closed) {
  if (between.empty()) return false;
  if (kBefore.find(between.back()) != std::string_view::npos || (closed != '\0' && hasClosing(between, closed)))
    return true;
  for (const std::string_view stop : {"\n", ": ", "; ", " '", " \""}) {
    if (between.find(stop) != std::string_view::npos) return true;
  }
  return endsFile(between);
}

/// Where the last part of a path lies in the text that begins with it. What stands there may go on with the sentence:
/// where a name with blanks ends is not known, and need not be. Only a separator at its end is told.
struct LastPart {
  std::size_t begin = 0;
  std::size_t separator = std::string_view::npos;
};

/// @param folders So much of the text is known to be folders.
LastPart lastPart(std::string_view text, std::size_t folders, char closed) {
  constexpr std::string_view kApostrophe = "'\\''";  // Within a word that is quoted for a shell.
  LastPart part{folders};
  for (std::size_t from = folders;;) {
    const std::size_t next = text.find_first_of(kSeparators, from);
    if (next == std::string_view::npos) return part;
    if (next > from && text.substr(next - 1).starts_with(kApostrophe)) {
      from = next + kApostrophe.size() - 1;
      continue;
    }
    if (isOverIn(text.substr(from, next - from), closed)) return part;
    if (isEnd(text, next + 1)) {
      part.separator = next;
      return part;
    }
    part.begin = from = next + 1;
  }
}

/// The folders at the text's begin by a path that is known; 0 where none is there.
std::size_t knownFolders(std::string_view text, const std::vector<std::string>& known) {
  for (const std::string& path : known) {
    if (!text.starts_with(path)) continue;
    const std::size_t end = path.size();
    if (end < text.size() && isSeparator(text[end]))
      return isEnd(text, end + 1) ? end - fileName(path).size() : end + 1;
    if (isEnd(text, end)) return end - fileName(path).size();
  }
  return 0;
}

/// Each folder above it, too, but for a bare word: that may be anything else.
void addPath(std::set<std::string>& paths, std::string path) {
  for (;;) {
    while (!path.empty() && isSeparator(path.back())) path.pop_back();
    const std::size_t separator = path.find_last_of(kSeparators);
    if (separator == std::string::npos) return;
    paths.insert(path);
    path.resize(separator);
  }
}

void shortenTexts(Json& json, const std::vector<std::string>& known) {
  if (json.is_string()) json = withoutFolders(json.get_ref<const std::string&>(), known);
  if (!json.is_structured()) return;
  for (Json& each : json) shortenTexts(each, known);
}

std::vector<std::string> pathsOf(const Json& document, const std::vector<std::string>& others) {
  std::set<std::string> paths;
  for (const std::string& other : others) addPath(paths, other);
  addPath(paths, document["set"]["folder"].get<std::string>());
  for (const Json& input : document["set"]["inputs"]) addPath(paths, input["path"].get<std::string>());
  const Json diagnosis = document.value("diagnosis", Json());
  if (diagnosis.is_object() && diagnosis.contains("correction") && diagnosis["correction"].is_object())
    addPath(paths, diagnosis["correction"]["path"].get<std::string>());
  std::vector<std::string> longest_first(paths.begin(), paths.end());
  std::ranges::stable_sort(longest_first, std::ranges::greater(), &std::string::size);
  return longest_first;
}

}  // namespace

bool isAbsolute(std::string_view path) { return beginsAbsolute(path); }

std::string fileName(std::string_view path) {
  while (path.size() > 1 && isSeparator(path.back())) path.remove_suffix(1);
  const std::size_t separator = path.find_last_of(kSeparators);
  return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string withoutFolders(std::string_view text, const std::vector<std::string>& known) {
  if (text.find_first_of(kSeparators) == std::string_view::npos) return std::string(text);
  std::string out;
  char before = ' ';  // In the text, not in what is left of it.
  while (!text.empty()) {
    std::size_t taken = 1;
    const bool is_begin = kBefore.find(before) != std::string_view::npos;
    const std::size_t folders = is_begin ? knownFolders(text, known) : 0;
    if (folders == 0 && (!is_begin || !beginsPath(text))) {
      out += text.front();
    } else {
      constexpr std::size_t kDrive = 2;
      const bool has_drive = folders == 0 && text[1] == ':';
      const LastPart last = lastPart(text, has_drive ? kDrive : folders, closing(before));
      const bool is_whole = last.separator != std::string_view::npos;
      out += is_whole ? text.substr(last.begin, last.separator - last.begin) : "";
      taken = is_whole ? last.separator + 1 : last.begin;
    }
    before = text[taken - 1];
    text.remove_prefix(taken);
  }
  return out;
}

void shortenPaths(Json& document, const std::vector<std::string>& others) {
  const std::vector<std::string> known = pathsOf(document, others);
  for (Json& input : document["set"]["inputs"]) input["path"] = fileName(input["path"].get_ref<const std::string&>());
  document["set"]["folder"] = fileName(document["set"]["folder"].get_ref<const std::string&>());
  for (Json& pair : document["pairs"]) {
    for (const char* side : {"left", "right"}) pair[side] = fileName(pair[side].get_ref<const std::string&>());
  }
  shortenTexts(document, known);
}

}  // namespace polarline
