#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "polarline/api.h"

namespace polarline {

/// A status, a warning, an exit code or a figure in words.
struct Explanation {
  std::string code;     ///< As it is shown: "-9", "too_few_shared", "exit 3".
  std::string name;     ///< A stable word.
  std::string meaning;  ///< A sentence.
  std::string advice;   ///< What to do.
  std::string unit;     ///< Of a figure, "pixels", "board unit", "1"; empty for what is none.
};

/// Everything that can be explained: exit codes of the command, statuses of the library, warnings, steps of a
/// detection, figures.
POLARLINE_API const std::vector<Explanation>& explanations();

/// All that a code or name may mean, in the order of `explanations()`: a bare number is a status of the library, a
/// status of a pair and an exit code of the command. Empty for what nobody says.
POLARLINE_API std::vector<Explanation> explainAll(const std::string& code);

/// "; did you mean dy_means?": the codes and names nearest to one that nobody says; empty where none is near.
POLARLINE_API std::string nearestCodes(const std::string& code);

/// The first of these by code or name as it is shown; none for what nobody says.
POLARLINE_API std::optional<Explanation> explain(const std::string& code);

/// Why a pair was given up, by `Reason::code` and `Reason::of_residuals`; none for a code that no pair has.
POLARLINE_API std::optional<Explanation> explainPair(std::int32_t code, bool of_residuals = false);

/// Explanations as a person reads them: code and name, what it means, what to do.
POLARLINE_API std::string explanationsText(const std::vector<Explanation>& all);

/// The same as one JSON object, `schema` "polarline-explain/1" (docs/schema/polarline-explain-1.schema.json).
POLARLINE_API std::string explanationsJson(const std::vector<Explanation>& all);

}  // namespace polarline
