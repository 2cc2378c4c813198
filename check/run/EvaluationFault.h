#pragma once

#include <optional>
#include <string>

#include "check/run/RunInputs.h"
#include "check/set/PictureSource.h"

namespace polarline {

/// What an evaluation of the library can't do with the pictures it was given.
struct EvaluationFault {
  std::string text;
  std::string advice;
};

/// Why the evaluations of the pictures that were taken last may have ended with an exception, as far as that shows from
/// outside: the library's own text names neither evaluation nor picture.
std::optional<EvaluationFault> evaluationFault(const RunInputs& inputs, const ListedPictures& pictures,
                                               std::size_t pair);

}  // namespace polarline
