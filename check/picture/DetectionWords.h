#pragma once

#include <string>

#include "check/picture/SeenPicture.h"

/// The outcome of a detection in words, and what to do where it stopped.
struct DetectionWords {
  std::string text;
  std::string advice;  ///< Empty for `DetectionStep::kDone`.
};

DetectionWords wordsOf(const SeenPicture& seen);
