#include "check/set/InputFiles.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>

#include "check/set/Fingerprint.h"
#include "check/set/SetIdentity.h"
#include "check/set/UnreadInput.h"
#include "platform/BoundedInput.h"
#include "platform/FileHandle.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

/// None of a file that is longer than any that is read. Throws `UnreadInput`.
std::optional<std::string> bytesWithin(const std::string& path) {
  const FileHandle file(std::fopen(path.c_str(), "rb"));
  if (!file) throw UnreadInput(path, std::strerror(errno), path, errno);
  std::string bytes;
  std::string block(std::size_t{1} << 16U, ' ');
  while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
    bytes.append(block, 0, count);
    if (bytes.size() > bounded::kLongestText) return std::nullopt;
  }
  if (std::ferror(file.get()) != 0) throw UnreadInput(path, std::strerror(errno), path, errno);
  return bytes;
}

/// The readers go by the end of a name. What they can't open, and what is longer than a name may be, is left out.
std::string nameOfCopy(const SetInput& file) {
  constexpr std::size_t kMost = 64;
  std::string name = fs::path(file.path).filename().string();
  if (name.size() > kMost) name.erase(0, name.size() - kMost);
  std::ranges::replace_if(
      name, [](char c) { return c == '\n' || c == '?' || c == '\\'; }, '_');
  return file.role + "-" + name;
}

}  // namespace

InputFiles::InputFiles(const Set& set) : hashes_(namedFiles(set)) {
  try {
    folder_ = std::make_unique<whole_file::PartialFolder>(fs::temp_directory_path() / "polarline");
  } catch (const std::exception&) {  // It has no place; the files themselves are read.
  }
  for (SetInput& file : hashes_) {
    const auto bytes = bytesWithin(file.path);
    file.sha256 = bytes ? sha256(*bytes) : sha256OfFile(file.path);
    if (const std::string copy = bytes ? copied(*bytes, file) : ""; !copy.empty())
      copies_.emplace_back(copy, file.path);
  }
}

/// Empty where there is no place for it.
std::string InputFiles::copied(const std::string& content, const SetInput& file) {
  if (!folder_) return {};
  const fs::path path = folder_->path() / nameOfCopy(file);
  std::ofstream copy(path, std::ios::binary);
  copy << content;
  copy.close();
  return copy ? path.string() : std::string();
}

InputFile InputFiles::of(const std::string& path) const {
  const auto found = std::ranges::find(copies_, path, &InputFile::shown);
  return found != copies_.end() ? *found : InputFile(path);
}

}  // namespace polarline
