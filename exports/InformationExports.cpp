#include <cstring>

#include "PolarLinePrecision.h"
#include "exports/ErrorChannel.h"
#include "polar/results/Summary.h"

char* GetPolarErrorInfo(char* buffer) {
  requireNonNull(buffer, "buffer");
  const std::string& text = error_channel::lastErrorText();
  std::memcpy(buffer, text.c_str(), text.size() + 1);
  return buffer;
}

bool GetVersionPolarLinePrecision(char* buffer) {
  requireNonNull(buffer, "buffer");
  std::memcpy(buffer, kVersion, std::strlen(kVersion) + 1);
  return true;
}
