#include "check/init/ListNames.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>

#include "polarline/errors.h"

namespace init {
namespace {

namespace fs = std::filesystem;

/// A longer line ends the list.
constexpr std::size_t kLongestLine = 511;

/// Without links in the folders, so that ".." leads where it says.
fs::path realPath(const std::string& path) {
  std::error_code failure;
  fs::path real = fs::canonical(fs::absolute(path).parent_path(), failure);
  if (failure) throw polarline::InputError(path, failure.message());
  return real / fs::path(path).filename();
}

/// Of a folder that need not be there, without a separator at its end.
fs::path realFolder(const std::string& folder) {
  const fs::path path = fs::absolute(folder) / "";
  std::error_code failure;
  const fs::path real = fs::weakly_canonical(path, failure);
  const fs::path closed = failure ? path.lexically_normal() : real;
  return closed.has_filename() ? closed : closed.parent_path();
}

bool canBeListed(const std::string& name) {
  return !name.empty() && std::ranges::all_of(name, [](char c) { return c > ' ' && c < '\x7f' && c != '\\'; });
}

bool isLetterOrDigit(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

std::string safeExtension(const fs::path& path) {
  const std::string extension = path.extension().string();
  const bool safe = extension.size() > 1 && std::all_of(extension.begin() + 1, extension.end(), isLetterOrDigit);
  return safe ? extension : "";
}

/// Gives names in the set's folder that no picture of the set bears there.
class Namer {
 public:
  Namer(const std::string& folder, const std::vector<PicturePair>& pairs) : folder_(realFolder(folder)) {
    for (const auto& [left, right] : pairs) {
      taken_.insert(realPath(left));
      taken_.insert(realPath(right));
    }
  }

  ListedPicture whereItIs(const std::string& path) const {
    const fs::path real = realPath(path);
    return {real.lexically_relative(folder_).generic_string(), real.string(), Placement::kWhereItIs};
  }

  ListedPicture inFolder(const std::string& path, const char* side, std::size_t index, Placement placement) const {
    const fs::path real = realPath(path);
    const std::string extension = safeExtension(real);
    std::string name = fmt::format("{}_{:04}{}", side, index, extension);
    for (int again = 1; taken_.contains(folder_ / name) && folder_ / name != real; ++again)
      name = fmt::format("{}_{:04}_{}{}", side, index, again, extension);
    return {name, real.string(), folder_ / name == real ? Placement::kWhereItIs : placement};
  }

 private:
  fs::path folder_;
  std::set<fs::path> taken_;
};

std::string lineText(const ListedLine& line) { return line.left.name + " " + line.right.name; }

}  // namespace

std::vector<ListedLine> listNames(const std::string& folder, const std::vector<PicturePair>& pairs, bool copy) {
  const Namer namer(folder, pairs);
  const Placement moved = copy ? Placement::kCopy : Placement::kLink;
  std::vector<ListedLine> lines;
  for (std::size_t k = 0; k < pairs.size(); ++k) {
    const auto& [left, right] = pairs[k];
    ListedLine line{namer.whereItIs(left), namer.whereItIs(right)};
    const bool too_long = lineText(line).size() > kLongestLine;
    if (copy || too_long || !canBeListed(line.left.name)) line.left = namer.inFolder(left, "left", k, moved);
    if (copy || too_long || !canBeListed(line.right.name)) line.right = namer.inFolder(right, "right", k, moved);
    lines.push_back(std::move(line));
  }
  return lines;
}

std::string listText(const std::vector<ListedLine>& lines) {
  std::string text = "#L R\n";
  for (const ListedLine& line : lines) text += lineText(line) + "\n";
  return text;
}

}  // namespace init
