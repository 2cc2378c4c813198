#include <cstddef>
#include <filesystem>
#include <fstream>
#include <ios>
#include <string>
#include <system_error>

#include "polarline/errors.h"
#include "polarline/report.h"

namespace polarline {
namespace {

/// Ten thousand pairs have less; a device without an end has more.
constexpr std::size_t kLongest = std::size_t{1} << 30U;
constexpr std::size_t kPiece = std::size_t{1} << 20U;

}  // namespace

ReportDocument readReportDocument(const std::string& path) {
  std::error_code failure;
  if (std::filesystem::is_directory(path, failure))
    throw InputError(path, "is a folder; a document was wanted (of a store: what 'polarline merge' makes of it)");
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw InputError(path, "cannot be read");
  ReportDocument document;
  document.path = path;
  std::string piece(kPiece, ' ');
  while (stream.read(piece.data(), static_cast<std::streamsize>(kPiece)) || stream.gcount() > 0) {
    document.text.append(piece, 0, static_cast<std::size_t>(stream.gcount()));
    if (document.text.size() > kLongest) throw InputError(path, "is longer than any document of a check");
  }
  if (stream.bad()) throw InputError(path, "cannot be read");
  return document;
}

}  // namespace polarline
