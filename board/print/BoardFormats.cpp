#include <algorithm>
#include <cctype>
#include <filesystem>
#include <string>

#include "polarline/board.h"
#include "polarline/errors.h"

namespace polarline {

BoardFormat boardFormat(const std::string& path) {
  if (path == "-") return BoardFormat::kSvg;
  std::string ending = std::filesystem::path(path).extension().string();
  std::ranges::transform(ending, ending.begin(), [](unsigned char letter) { return std::tolower(letter); });
  if (ending == ".svg") return BoardFormat::kSvg;
  if (ending == ".pdf") return BoardFormat::kPdf;
  if (ending == ".png") return BoardFormat::kPng;
  throw InputError(path, "wanted a name that ends in .svg, .pdf or .png");
}

}  // namespace polarline
