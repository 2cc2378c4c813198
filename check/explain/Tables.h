#pragma once

#include <span>

/// What is explained, by kind, in the order in which it is listed.
namespace polarline {

/// An `Explanation` as it is written down.
struct Entry {
  const char* code;
  const char* name;
  const char* meaning;
  const char* advice;
};

std::span<const Entry> exitEntries();
/// Of the library, and what a check says where the library has no number for it.
std::span<const Entry> statusEntries();
/// Of checks and detections.
std::span<const Entry> warningEntries();
/// Where a detection may stop.
std::span<const Entry> stepEntries();

}  // namespace polarline
