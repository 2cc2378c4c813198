#include "check/explain/WarningOf.h"

#include "polarline/explain.h"

namespace polarline {

Warning warningOf(const std::string& code, const std::string& text, int pair) {
  const auto explained = explain(code);
  return {code, text, explained ? explained->advice : "", pair};
}

}  // namespace polarline
