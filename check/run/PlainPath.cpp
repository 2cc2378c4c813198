#include "check/run/PlainPath.h"

#include <filesystem>
#include <system_error>

#include "polarline/errors.h"

namespace polarline {

namespace fs = std::filesystem;

PlainPath::PlainPath(const std::string& path) : path_(path) {
  if (path.find_first_of("\n?\\") == std::string::npos) return;
  folder_ = std::make_unique<whole_file::PartialFolder>(fs::temp_directory_path() / "polarline");
  const fs::path link = folder_->path() / ("file" + fs::path(path).extension().string());
  std::error_code failure;
  fs::create_symlink(fs::absolute(path), link, failure);
  if (failure) throw OutputError(link.string(), failure.message());
  path_ = link.string();
}

}  // namespace polarline
