#pragma once

#include <string>

#include "calibrations/document/Value.h"
#include "polarline/errors.h"

/// A value on one line: lists in brackets, maps in braces, nothing as a tilde.
inline std::string line(const calibrations::Value& value) {
  using Kind = calibrations::Value::Kind;
  if (value.kind == Kind::kNothing) return "~";
  if (value.kind == Kind::kText) return value.text;
  std::string text;
  for (std::size_t k = 0; k < value.items.size(); ++k) {
    text += (k == 0 ? "" : " ") + (value.kind == Kind::kMap ? value.keys.at(k) + "=" : "") + line(value.items[k]);
  }
  return value.kind == Kind::kMap ? "{" + text + "}" : "[" + text + "]";
}

/// What `read` says of a text that it refuses; empty when it does not.
template <typename Read>
std::string refusedBy(Read read, const std::string& text) {
  try {
    read(text, "file");
    return {};
  } catch (const polarline::InputError& error) {
    return error.what();
  }
}
