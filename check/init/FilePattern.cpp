#include "check/init/FilePattern.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "check/init/NaturalOrder.h"
#include "polarline/errors.h"

namespace init {
namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 11> kPictureExtensions = {".png", ".jpg", ".jpeg", ".bmp", ".tif", ".tiff",
                                                                 ".pgm", ".pnm", ".webp", ".jp2", ".ppm"};

/// Behind the list that begins at `[`, and whether the character is in it; npos where no list ends.
std::size_t matchList(std::string_view pattern, char c, bool& fits) {
  std::size_t at = 1;
  const bool inverted = at < pattern.size() && pattern[at] == '!';
  if (inverted) ++at;
  bool found = false;
  for (const std::size_t first = at; at < pattern.size() && (pattern[at] != ']' || at == first); ++at) {
    const bool range = at + 2 < pattern.size() && pattern[at + 1] == '-' && pattern[at + 2] != ']';
    const char last = range ? pattern[at + 2] : pattern[at];
    found = found || (pattern[at] <= c && c <= last);
    if (range) at += 2;
  }
  fits = found != inverted;
  return at < pattern.size() ? at + 1 : std::string_view::npos;
}

/// How much of the pattern the character uses up; 0: it does not fit.
std::size_t usedBy(char character, std::string_view pattern) {
  if (pattern[0] == '[') {
    bool in_list = false;
    const std::size_t end = matchList(pattern, character, in_list);
    if (end != std::string_view::npos) return in_list ? end : 0;
  }
  return pattern[0] == '?' || pattern[0] == character ? 1 : 0;
}

/// Only the last '*' need ever be tried again, so that many of them cost no more than the product of both lengths.
bool fitsBehindDot(std::string_view name, std::string_view pattern) {
  std::string_view behind_star;
  std::string_view star_name;
  bool has_star = false;
  while (!name.empty()) {
    if (!pattern.empty() && pattern[0] == '*') {
      pattern.remove_prefix(1);
      behind_star = pattern;
      star_name = name;
      has_star = true;
    } else if (const std::size_t used = pattern.empty() ? 0 : usedBy(name[0], pattern); used > 0) {
      pattern.remove_prefix(used);
      name.remove_prefix(1);
    } else if (has_star) {
      star_name.remove_prefix(1);
      name = star_name;
      pattern = behind_star;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*') == std::string_view::npos;
}

bool isPattern(const std::string& text) { return text.find_first_of("*?[") != std::string::npos; }

bool isPicture(const fs::path& path) {
  std::string extension = path.extension().string();
  std::ranges::transform(extension, extension.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
  return std::ranges::find(kPictureExtensions, extension) != kPictureExtensions.end();
}

/// The names in a folder; none for one that does not open.
std::vector<fs::path> namesIn(const fs::path& folder) {
  std::vector<fs::path> names;
  std::error_code ignored;
  for (fs::directory_iterator entry(folder.empty() ? "." : folder, ignored), end; !ignored && entry != end;
       entry.increment(ignored)) {
    names.push_back(entry->path().filename());
  }
  return names;
}

using Pieces = std::vector<std::string>;

bool isFolder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path.empty() ? "." : path, ignored);
}

void collect(const fs::path& folder, Pieces::const_iterator piece, Pieces::const_iterator end, Pieces& found) {
  std::error_code ignored;
  if (piece == end) {
    if (fs::is_regular_file(folder, ignored)) found.push_back(folder.string());
    return;
  }
  if (*piece == "**") {
    collect(folder, piece + 1, end, found);
    for (const fs::path& name : namesIn(folder)) {
      // Not into links, which may lead back.
      if (isFolder(folder / name) && !fs::is_symlink(folder / name, ignored)) collect(folder / name, piece, end, found);
    }
    return;
  }
  if (!isPattern(*piece)) return collect(folder / *piece, piece + 1, end, found);
  for (const fs::path& name : namesIn(folder)) {
    if (fitsPattern(name.string(), *piece)) collect(folder / name, piece + 1, end, found);
  }
}

Pieces expanded(const std::string& pattern) {
  const fs::path path(pattern);
  Pieces pieces;
  for (const fs::path& piece : path.relative_path()) pieces.push_back(piece.string());
  Pieces found;
  collect(path.root_path(), pieces.begin(), pieces.end(), found);
  return found;
}

Pieces picturesIn(const std::string& folder) {
  Pieces found;
  std::error_code ignored;
  for (const fs::path& name : namesIn(folder)) {
    const fs::path path = fs::path(folder) / name;
    if (isPicture(name) && fs::is_regular_file(path, ignored)) found.push_back(path.string());
  }
  return found;
}

Pieces picturesOf(const std::string& named, const std::string& side) {
  std::error_code ignored;
  if (fs::is_regular_file(named, ignored)) return {named};
  if (isFolder(named)) {
    Pieces found = picturesIn(named);
    if (found.empty()) throw polarline::InputError(named, "the folder of the " + side + " pictures holds no picture");
    return found;
  }
  if (!isPattern(named)) throw polarline::InputError(named, "there is no such picture or folder (" + side + ")");
  Pieces found = expanded(named);
  if (found.empty()) throw polarline::InputError(named, "no " + side + " picture fits this pattern");
  return found;
}

}  // namespace

bool fitsPattern(std::string_view name, std::string_view pattern) {
  if (name.starts_with('.') && !pattern.starts_with('.')) return false;
  return fitsBehindDot(name, pattern);
}

std::vector<std::string> picturesNamed(const std::vector<std::string>& named, const std::string& side) {
  Pieces all;
  for (const std::string& name : named) {
    const Pieces found = picturesOf(name, side);
    all.insert(all.end(), found.begin(), found.end());
  }
  if (all.empty()) throw polarline::InputError("no " + side + " pictures are named");
  std::ranges::sort(all, naturallyBefore);
  all.erase(std::unique(all.begin(), all.end()), all.end());
  return all;
}

}  // namespace init
