#include <fmt/format.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "polarline/report.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

/// What stands in a URL as it is, the separators of folders among it.
bool isPlain(char c) {
  const bool is_letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
  return is_letter || std::string_view("-._~/").find(c) != std::string_view::npos;
}

std::string percentEncoded(const std::string& path) {
  std::string url;
  for (const char c : path) {
    if (isPlain(c)) {
      url += c;
    } else {
      url += fmt::format("%{:02X}", static_cast<unsigned char>(c));
    }
  }
  return url;
}

/// Without links and dots, as far as the folders are there.
fs::path wholePath(const fs::path& path) { return fs::weakly_canonical(fs::absolute(path)); }

}  // namespace

std::string urlFromPage(const std::string& page, const std::string& folder) {
  const fs::path from = page == "-" ? fs::current_path() : wholePath(page).parent_path();
  const std::string way = wholePath(folder).lexically_relative(from).generic_string();
  // "pages/" leads where "pages" does.
  return percentEncoded(way.size() > 1 && way.back() == '/' ? way.substr(0, way.size() - 1) : way);
}

}  // namespace polarline
