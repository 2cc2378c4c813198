#include "check/init/SetWriter.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/WholeFile.h"
#include "polarline/errors.h"

namespace init {
namespace {

namespace fs = std::filesystem;

/// Every name under which a set's files, of any form, are looked for; limits stay the caller's.
constexpr std::array<const char*, 11> kSetNames = {"polar.txt",   "target.ini",   "target.json",  "target.yml",
                                                   "target.yaml", "target.xml",   "calib.json",   "calib.bin",
                                                   "list.txt",    "board_gt.txt", "rectified.txt"};

bool isThere(const fs::path& path) {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(path, ignored));
}

std::string contentOf(const fs::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void refuse(const std::string& folder, const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  if (!text.empty()) throw polarline::InputError(folder, "holds already " + text + "; --force replaces what is there");
}

void check(const std::error_code& failure, const fs::path& path) {
  if (failure) throw polarline::OutputError(path.string(), failure.message());
}

/// A folder that nobody else has and that takes the place of the user's, or gives it its files.
struct Workplace {
  fs::path folder;
  fs::path shown;  ///< What the user calls it.
};

void place(const ListedPicture& picture, const Workplace& at, std::vector<std::string>& written) {
  if (picture.placement == Placement::kWhereItIs) return;
  std::error_code failure = std::make_error_code(std::errc::not_supported);
  if (picture.placement == Placement::kLink) fs::create_symlink(picture.source, at.folder / picture.name, failure);
  if (failure) fs::copy_file(picture.source, at.folder / picture.name, failure);  // Also where there are no links.
  // A copy that fails for want of space is told as an error of input and output; a writing says what it was.
  if (failure) whole_file::write(at.folder / picture.name, contentOf(picture.source), at.shown / picture.name);
  written.push_back(picture.name);
}

/// Everything into the folder; the names.
std::vector<std::string> fill(const Workplace& at, const SetFiles& files, const std::vector<ListedLine>& lines) {
  std::vector<std::string> written;
  for (const ListedLine& line : lines) {
    place(line.left, at, written);
    place(line.right, at, written);
  }
  for (const auto& [name, content] : files) {
    whole_file::write(at.folder / name, content, at.shown / name);
    written.push_back(name);
  }
  return written;
}

std::vector<std::string> writeNew(const fs::path& folder, const SetFiles& files, const std::vector<ListedLine>& lines) {
  std::error_code failure;
  if (folder.has_parent_path()) fs::create_directories(folder.parent_path(), failure);
  check(failure, folder);
  const whole_file::PartialFolder partial(folder);
  std::vector<std::string> written = fill({partial.path(), folder}, files, lines);
  fs::rename(partial.path(), folder, failure);
  check(failure, folder);
  return written;
}

std::vector<std::string> writeInto(const fs::path& folder, const SetFiles& files,
                                   const std::vector<ListedLine>& lines) {
  const whole_file::PartialFolder partial(folder / "set");
  std::vector<std::string> written = fill({partial.path(), folder}, files, lines);
  const whole_file::Together together;
  std::error_code failure;
  for (const char* name : kSetNames) {
    if (!files.contains(name)) fs::remove(folder / name, failure);
    check(failure, folder / name);
  }
  for (const std::string& name : written) {
    fs::rename(partial.path() / name, folder / name, failure);
    check(failure, folder / name);
  }
  return written;
}

}  // namespace

void requirePlace(const std::string& folder) {
  std::error_code ignored;
  if (folder.empty()) throw polarline::InputError("no folder is named for the set");
  if (isThere(folder) && !fs::is_directory(folder, ignored))
    throw polarline::InputError(
        folder, "is a file; the folder of the set was wanted, as in 'polarline init FOLDER --left ...'");
}

void refuseOldSet(const std::string& folder, const SetFiles& kept, bool with_limits) {
  std::vector<std::string> in_the_way;
  for (const char* name : kSetNames) {
    const fs::path path = fs::path(folder) / name;
    const auto same = kept.find(name);
    if (isThere(path) && (same == kept.end() || contentOf(path) != same->second)) in_the_way.emplace_back(name);
  }
  if (with_limits && isThere(fs::path(folder) / "limits.txt")) in_the_way.emplace_back("limits.txt");
  refuse(folder, in_the_way);
}

void refuseOldPictures(const std::string& folder, const std::vector<ListedLine>& lines) {
  std::vector<std::string> in_the_way;
  const auto look = [&](const ListedPicture& picture) {
    const bool moved = picture.placement != Placement::kWhereItIs;
    if (moved && isThere(fs::path(folder) / picture.name)) in_the_way.push_back(picture.name);
  };
  for (const ListedLine& line : lines) {
    look(line.left);
    look(line.right);
  }
  refuse(folder, in_the_way);
}

std::vector<std::string> writeSet(const std::string& folder, const SetFiles& files,
                                  const std::vector<ListedLine>& lines) {
  fs::path place = folder;
  if (!place.has_filename()) place = place.parent_path();
  std::vector<std::string> written = isThere(place) ? writeInto(place, files, lines) : writeNew(place, files, lines);
  std::ranges::sort(written);
  return written;
}

}  // namespace init
