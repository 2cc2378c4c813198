#include "check/init/NumberingCheck.h"

#include <fmt/format.h>

#include <cctype>
#include <optional>
#include <string>
#include <string_view>

#include "check/init/Warnings.h"
#include "check/picture/NumberingProblem.h"

namespace init {
namespace {

using polarline::Detection;
using polarline::Warning;

std::string capital(std::string text) {
  if (!text.empty()) text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
  return text;
}

/// The text says nothing of the picture yet.
std::optional<Warning> problemOf(const Detection& detection) {
  if (detection.found) {
    std::optional<Warning> problem = polarline::numberingProblem(detection);
    if (problem) *problem = {problem->code, problem->text, capital(problem->advice), 0};
    return problem;
  }
  Warning none = warning("board_not_found", detection.text, 0);
  if (!detection.advice.empty()) none.advice = capital(detection.advice) + "; polarline detect shows what was seen";
  return none;
}

Warning placed(Warning warning, std::string_view pictures) {
  warning.text = warning.code == "board_not_found"
                     ? fmt::format("The board was not found in {} of the first pair: {}", pictures, warning.text)
                     : fmt::format("In {} of the first pair {}", pictures, warning.text);
  return warning;
}

}  // namespace

std::vector<Warning> judgeNumbering(const Detection& left, const Detection& right) {
  const std::optional<Warning> of_left = problemOf(left);
  const std::optional<Warning> of_right = problemOf(right);
  if (of_left && of_right && of_left->code == of_right->code && of_left->text == of_right->text)
    return {placed(*of_left, "both pictures")};
  std::vector<Warning> warnings;
  if (of_left) warnings.push_back(placed(*of_left, "the left picture"));
  if (of_right) warnings.push_back(placed(*of_right, "the right picture"));
  return warnings;
}

}  // namespace init
