#include "calibrations/document/TextFile.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include "platform/BoundedInput.h"
#include "polarline/errors.h"

namespace calibrations {
namespace {

namespace fs = std::filesystem;

void requireFile(const std::string& path) {
  std::error_code failure;
  const fs::file_status status = fs::status(fs::path(path), failure);
  if (!fs::exists(status)) {
    throw polarline::InputError(
        path, failure && failure != std::errc::no_such_file_or_directory ? failure.message() : "there is no such file");
  }
  if (fs::is_directory(status)) throw polarline::InputError(path, "is a folder; a calibration file was wanted");
}

std::string bytesOf(const std::string& path) {
  // Directly, as the library's own opening takes a backslash in a name for a separator.
  std::ifstream stream(fs::path(path), std::ios::binary);
  if (!stream.is_open()) throw polarline::InputError(path, std::strerror(errno));
  try {
    return bounded::readText(stream);
  } catch (const std::length_error&) {
    throw polarline::InputError(
        path, "is longer than " + std::to_string(bounded::kLongestText) + " characters; a calibration file was wanted");
  }
}

}  // namespace

std::string textOfFile(const std::string& path) {
  requireFile(path);
  std::string text = bytesOf(path);
  if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);
  if (text.find('\0') != std::string::npos) throw polarline::InputError(path, "is binary; a text was wanted");
  if (text.find_first_not_of(" \t\r\n") == std::string::npos) throw polarline::InputError(path, "is empty");
  return text;
}

}  // namespace calibrations
