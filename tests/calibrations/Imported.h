#pragma once

#include <string>
#include <vector>

#include "polarline/calibration.h"
#include "polarline/errors.h"
#include "support/TempFolder.h"

/// Imports texts as if they were files named a, b, c.
inline polarline::ImportedCalibration imported(const std::vector<std::string>& texts,
                                               const polarline::ImportOptions& options = {}) {
  const TempFolder folder;
  std::vector<std::string> files;
  for (const std::string& text : texts)
    files.push_back(folder.write(std::string(1, static_cast<char>('a' + files.size())), text));
  return polarline::importCalibration(files, options);
}

/// What is said of texts that can't be used, without the folder; empty when they can.
inline std::string refusal(const std::vector<std::string>& texts, const polarline::ImportOptions& options = {}) {
  try {
    imported(texts, options);
    return {};
  } catch (const polarline::InputError& error) {
    const std::string text = error.what();
    const std::size_t begin = text.starts_with("/") ? text.rfind('/', text.find(": ")) + 1 : 0;
    return text.substr(begin);
  }
}

inline std::vector<std::string> codesOf(const polarline::ImportedCalibration& imported) {
  std::vector<std::string> codes;
  for (const polarline::Warning& each : imported.warnings) codes.push_back(each.code);
  return codes;
}

/// A text with its first `from` replaced.
inline std::string with(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  if (at == std::string::npos) throw std::invalid_argument("no " + from);
  return text.replace(at, from.size(), to);
}
