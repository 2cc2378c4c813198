#include "platform/UnnamedFile.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "polarline/errors.h"

UnnamedFile::UnnamedFile() : file_(std::tmpfile()) {
  if (!file_) fail();
}

void UnnamedFile::fail() {
  if (error_ == 0) error_ = errno;
  throw polarline::OutputError("a temporary file", std::generic_category().message(error_));
}

void UnnamedFile::append(std::string_view content) {
  if (error_ != 0 || std::fwrite(content.data(), 1, content.size(), file_.get()) != content.size()) fail();
}

void UnnamedFile::read(const std::function<void(const std::string& piece)>& take) {
  constexpr std::size_t kPiece = std::size_t{1} << 16U;
  if (error_ != 0 || std::fflush(file_.get()) != 0 || std::fseek(file_.get(), 0, SEEK_SET) != 0) fail();
  std::string piece(kPiece, ' ');
  while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), file_.get())) take(piece.substr(0, count));
}
