#include "platform/WarningTable.h"

#include <algorithm>
#include <stdexcept>

namespace warnings {

polarline::Warning make(const Table& table, const std::string& code, const std::string& text, int pair) {
  const auto found = std::ranges::find_if(table, [&](const Code& each) { return each.code == code; });
  if (found == table.end()) throw std::out_of_range("no warning has the code " + code);
  return {code, text, found->advice, pair};
}

}  // namespace warnings
