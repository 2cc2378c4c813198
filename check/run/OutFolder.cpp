#include "check/run/OutFolder.h"

#include <regex>
#include <system_error>
#include <vector>

#include "polarline/errors.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

void requireDone(const std::error_code& failure, const fs::path& path) {
  if (failure) throw OutputError(path.string(), failure.message());
}

fs::path freeSummary(const fs::path& folder) {
  int number = 0;
  const auto candidate = [&] { return folder / ("align_data_" + std::to_string(number) + ".csv"); };
  while (fs::exists(candidate())) ++number;
  return candidate();
}

/// Where a file of the run belongs; what a file can't replace is found before the first one has moved.
fs::path freePlaceOf(const fs::path& relative, const fs::path& out) {
  static const std::regex summary("align_data_[0-9]+\\.csv");
  if (std::regex_match(relative.string(), summary)) return freeSummary(out);
  fs::path place = out / relative;
  if (std::error_code ignored; fs::is_directory(place, ignored))
    throw OutputError(place.string(), "is a folder, where a file belongs");
  return place;
}

void moveInto(const fs::path& from, const fs::path& out) {
  std::vector<fs::path> files;
  std::error_code failure;
  for (const auto& entry : fs::recursive_directory_iterator(from)) {
    const fs::path relative = fs::relative(entry.path(), from);
    if (entry.is_directory()) {
      fs::create_directories(out / relative, failure);
      requireDone(failure, out / relative);
    } else {
      files.push_back(relative);
    }
  }
  std::vector<fs::path> places;
  places.reserve(files.size());
  for (const fs::path& relative : files) places.push_back(freePlaceOf(relative, out));
  for (std::size_t k = 0; k < files.size(); ++k) {
    fs::rename(from / files[k], places[k], failure);
    requireDone(failure, places[k]);
  }
}

}  // namespace

OutFolder::OutFolder(const std::string& out) : out_(out) {
  if (out.empty()) return;
  if (out.find('\\') != std::string::npos)
    throw InputError(out, "holds a backslash, which the library takes for the separator of folders");
  std::error_code ignored;
  if (fs::exists(out_, ignored) && !fs::is_directory(out_, ignored)) throw OutputError(out, "is no folder");
  if (fs::is_symlink(out_, ignored) && !fs::exists(out_, ignored))
    throw OutputError(out, "is a link that leads nowhere; a folder was wanted");
  const fs::path parent = fs::absolute(out_).parent_path();
  fs::create_directories(parent, ignored);
  partial_ = std::make_unique<whole_file::PartialFolder>(fs::absolute(out_));
  watch_ = std::make_unique<files::WriteWatch>(partial_->path().string());
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
  if (watch_->failed())
    throw OutputError(out_.string(), "the files of the run could not be written; is there space left?");
  std::error_code failure;
  fs::create_directory(out_, failure);
  requireDone(failure, out_);
  moveInto(partial_->path(), fs::absolute(out_));
}

}  // namespace polarline
