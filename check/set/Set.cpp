#include "polarline/set.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <system_error>

#include "check/set/ByteOrderMark.h"
#include "check/set/ListedPairs.h"
#include "check/set/UnreadInput.h"
#include "input/ImageList.h"
#include "platform/FileHandle.h"
#include "platform/Files.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

std::string whyMissing(const std::error_code& failure, const std::string& usually) {
  return failure && failure != std::errc::no_such_file_or_directory ? failure.message() : usually;
}

/// What does not exist without the system's saying why is missing.
int errorOf(const std::error_code& failure) { return failure ? failure.value() : ENOENT; }

/// Throws unless the path is a file with content that opens.
void requireFile(const std::string& path) {
  std::error_code failure;
  const fs::file_status status = fs::status(path, failure);
  if (!fs::exists(status))
    throw UnreadInput(path, whyMissing(failure, "there is no such file"), path, errorOf(failure));
  if (fs::is_directory(status)) throw InputError(path, "is a folder; a file was wanted");
  if (fs::is_fifo(status)) throw InputError(path, "is a pipe, which gives its content once; a file was wanted");
  const FileHandle file(std::fopen(path.c_str(), "rb"));
  if (!file) throw UnreadInput(path, std::strerror(errno), path, errno);
  if (std::fgetc(file.get()) != EOF) return;
  if (std::ferror(file.get()) != 0) throw UnreadInput(path, std::strerror(errno), path, errno);
  throw InputError(path, "is empty");
}

/// The first of the names that the folder has; empty for none.
std::string found(const std::string& folder, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    std::string path = (fs::path(folder) / name).string();
    std::error_code failure;
    if (fs::exists(path, failure)) return path;
    if (failure) throw UnreadInput(path, failure.message(), path, failure.value());
  }
  return {};
}

std::string listOf(std::initializer_list<const char*> names) {
  std::string list;
  for (const char* name : names) list += (list.empty() ? "" : ", ") + std::string(name);
  return list;
}

/// Any: as long as the folder is there, what it lacks is missing for good.
std::string fileIn(const std::string& folder) { return (fs::path(folder) / "polar.txt").string(); }

void complete(std::string& path, const std::string& folder, const char* what, bool needed,
              std::initializer_list<const char*> names) {
  if (path.empty() && !folder.empty()) path = found(folder, names);
  if (!path.empty()) return requireFile(path);
  if (needed && folder.empty())
    throw InputError(std::string("no set was named, and no ") + what + "; the folder of a set was wanted, with " +
                     listOf(names));
  if (needed)
    throw UnreadInput(folder,
                      std::string("has no ") + what + " (" + listOf(names) +
                          "); 'polarline init' makes a set of pictures, a calibration and a board",
                      fileIn(folder), ENOENT);
}

std::string beginningOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  std::string beginning(byte_order_mark::kMark.size(), ' ');
  stream.read(beginning.data(), static_cast<std::streamsize>(beginning.size()));
  return beginning;
}

/// Whoever moved a list or wrote whole paths into it has to learn where its names are looked for.
std::string missingText(const std::string& name, const std::string& folder) {
  const fs::path place = fs::path(files::nativePath(folder + "-")).parent_path();
  const std::string of = place.empty() ? "the current folder" : place.string();
  const bool is_whole = fs::path(files::nativePath(name)).is_absolute();
  return "there is no picture " + name + " in " + of + "; the names of a list are relative to its own folder" +
         (is_whole ? ", one from the root as well: take the folders off it, or link the picture there" : "");
}

void requirePictures(const std::vector<ListedPair>& pairs, const std::string& list) {
  for (const ListedPair& pair : pairs) {
    for (const std::string& name : {pair.left, pair.right}) {
      const std::string path = files::nativePath(pair.folder + name);
      std::error_code failure;
      const fs::file_status status = fs::status(path, failure);
      if (fs::exists(status)) continue;
      throw UnreadInput(list + ", line " + std::to_string(pair.line),
                        whyMissing(failure, missingText(name, pair.folder)), path, errorOf(failure));
    }
  }
}

void requireFolder(const std::string& folder) {
  std::error_code failure;
  const fs::file_status status = fs::status(folder, failure);
  if (!fs::exists(status))
    throw UnreadInput(folder, whyMissing(failure, "there is no such folder"), fileIn(folder), errorOf(failure));
  if (!fs::is_directory(status)) throw InputError(folder, "is no folder; a folder with the files of a set was wanted");
}

}  // namespace

Set openSetWithoutList(const Set& named) {
  Set set = named;
  set.list.clear();
  if (!set.folder.empty()) requireFolder(set.folder);
  complete(set.polar, set.folder, "polar configuration", true, {"polar.txt"});
  complete(set.target, set.folder, "description of the board", true,
           {"target.ini", "target.json", "target.yml", "target.yaml", "target.xml"});
  complete(set.rectified, set.folder, "geometry of rectified pairs", false, {"rectified.txt"});
  const bool calibrated = set.rectified.empty();
  complete(set.calibration, set.folder, "calibration", calibrated, {"calib.json", "calib.bin"});
  complete(set.board, set.folder, "true positions of the dots", false, {"board_gt.txt"});
  complete(set.limits, set.folder, "limits", false, {"limits.txt"});
  return set;
}

Set openSet(const Set& named) {
  Set set = openSetWithoutList(named);
  set.list = named.list;
  complete(set.list, set.folder, "image list", true, {"list.txt"});
  return set;
}

std::vector<ListedPair> listedPairs(const InputFile& file) {
  constexpr std::size_t kFirstLine = 2;  // Below the header.
  const std::string& list = file.shown;
  const ImageNames names = ReadImageNames(file.path);
  const std::string folder = files::SplitPath(list).folder + files::kPathSeparator;  // Not that of a copy.
  std::vector<ListedPair> pairs;
  for (const std::vector<std::string>& row : names.rows) {
    if (names.cameras != 2)
      throw InputError(list, "line 1: names " + std::to_string(names.cameras) + " cameras; 2 were wanted (#L R)");
    pairs.push_back({pairs.size() + kFirstLine, row[0], row[1], folder});
  }
  const std::string place = list + ", line " + std::to_string(pairs.size() + kFirstLine);
  if (names.cameras == 0)
    throw InputError(list + ", line 1",
                     "no header; '#L R' was wanted" + byte_order_mark::wordsOf(beginningOf(file.path)));
  if (!names.failure.empty()) throw InputError(place, "two file names were wanted, without blanks in them");
  if (pairs.empty()) throw InputError(list, "lists no pair");
  requirePictures(pairs, list);
  return pairs;
}

std::vector<ListedPair> listedPairs(const std::string& list) { return listedPairs(InputFile(list)); }

std::vector<std::string> filesOf(const Set& named) {
  const Set set = openSet(named);
  std::vector<std::string> paths = {set.polar, set.target, set.calibration, set.list,
                                    set.board, set.limits, set.rectified};
  std::erase(paths, "");
  for (const ListedPair& pair : listedPairs(set.list)) {
    for (const std::string& name : {pair.left, pair.right}) paths.push_back(files::nativePath(pair.folder + name));
  }
  return paths;
}

}  // namespace polarline
