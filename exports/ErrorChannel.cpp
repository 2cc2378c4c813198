#include "exports/ErrorChannel.h"

#include <stdexcept>
#include <utility>

namespace {

std::string& storage() {
  static std::string lastErrorText = " ";
  return lastErrorText;
}

}  // namespace

namespace error_channel {

const std::string& lastErrorText() { return storage(); }

void take(std::string text) { storage() = std::move(text); }

std::int32_t fail(std::string text, std::int32_t status) {
  take(std::move(text));
  return status;
}

}  // namespace error_channel

void requireNonNull(const void* pointer, const char* name) {
  if (pointer == nullptr) throw std::logic_error(std::string(name) + " must not be null");
}
