#pragma once

#include <string>

namespace polarline {

/// What every figure, cause and warning means, by its name, as JSON.
std::string nameTexts();

}  // namespace polarline
