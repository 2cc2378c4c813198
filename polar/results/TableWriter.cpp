#include "polar/results/TableWriter.h"

#include <algorithm>

void TableWriter::flush() {
  stream_.write(buffer_.data(), static_cast<std::streamsize>(used_));
  used_ = 0;
}

void TableWriter::text(std::string_view value) {
  while (!value.empty()) {
    if (used_ == buffer_.size()) flush();
    const std::size_t part = std::min(value.size(), buffer_.size() - used_);
    std::copy_n(value.data(), part, buffer_.data() + used_);
    used_ += part;
    value.remove_prefix(part);
  }
}
