#include "check/run/OutFolder.h"

#include <fstream>
#include <regex>
#include <system_error>
#include <vector>

#include "polarline/errors.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

void require(const std::error_code& failure, const fs::path& path) {
  if (failure) throw OutputError(path.string(), failure.message());
}

/// The library's writers do not tell of a full disk: one more file does. `out` is the folder that users know.
void requireSpace(const fs::path& folder, const fs::path& out) {
  constexpr std::size_t kProbe = std::size_t{1} << 16U;
  const fs::path probe = folder / "space";
  std::ofstream stream(probe, std::ios::binary);
  stream << std::string(kProbe, ' ') << std::flush;
  if (!stream) throw OutputError(out.string(), "the files of the run could not be written; is there space left?");
  fs::remove(probe);
}

fs::path freeSummary(const fs::path& folder) {
  int number = 0;
  const auto candidate = [&] { return folder / ("align_data_" + std::to_string(number) + ".csv"); };
  while (fs::exists(candidate())) ++number;
  return candidate();
}

/// Where a file of the run belongs.
fs::path placeOf(const fs::path& relative, const fs::path& out) {
  static const std::regex summary("align_data_[0-9]+\\.csv");
  return std::regex_match(relative.string(), summary) ? freeSummary(out) : out / relative;
}

void moveInto(const fs::path& from, const fs::path& out) {
  std::vector<fs::path> files;
  std::error_code failure;
  for (const auto& entry : fs::recursive_directory_iterator(from)) {
    const fs::path relative = fs::relative(entry.path(), from);
    if (entry.is_directory()) {
      fs::create_directories(out / relative, failure);
      require(failure, out / relative);
    } else {
      files.push_back(relative);
    }
  }
  for (const fs::path& relative : files) {
    const fs::path place = placeOf(relative, out);
    fs::rename(from / relative, place, failure);
    require(failure, place);
  }
}

}  // namespace

OutFolder::OutFolder(const std::string& out) : out_(out) {
  if (out.empty()) return;
  if (out.find('\\') != std::string::npos)
    throw InputError(out, "holds a backslash, which the library takes for the separator of folders");
  std::error_code ignored;
  if (fs::exists(out_, ignored) && !fs::is_directory(out_, ignored)) throw OutputError(out, "is no folder");
  const fs::path parent = fs::absolute(out_).parent_path();
  fs::create_directories(parent, ignored);
  partial_ = std::make_unique<whole_file::PartialFolder>(fs::absolute(out_));
}

std::string OutFolder::resultFolder(const PolarConfig& config) const {
  if (!partial_) return {};
  if (config.savepolarline != 0 && config.frame_work == 0) {
    for (const char* name : {"result", "result_left", "result_right"}) fs::create_directory(partial_->path() / name);
  }
  return partial_->path().string();
}

void OutFolder::commit() {
  if (!partial_) return;
  requireSpace(partial_->path(), out_);
  std::error_code failure;
  fs::create_directory(out_, failure);
  require(failure, out_);
  moveInto(partial_->path(), fs::absolute(out_));
}

}  // namespace polarline
