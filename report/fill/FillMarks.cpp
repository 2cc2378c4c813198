#include "report/fill/FillMarks.h"

#include <cstddef>

namespace polarline {

std::string filledMarks(std::string_view page, const PageMarks& marks) {
  std::size_t size = page.size();
  for (const auto& mark : marks) size += mark.second.size();
  std::string text;
  text.reserve(size);
  while (!page.empty()) {
    std::size_t at = page.size();
    const std::pair<std::string_view, std::string>* first = nullptr;
    for (const auto& mark : marks) {
      const std::size_t found = page.find(mark.first);
      if (found >= at) continue;
      at = found;
      first = &mark;
    }
    text += page.substr(0, at);
    if (first == nullptr) break;
    text += first->second;
    page.remove_prefix(at + first->first.size());
  }
  return text;
}

}  // namespace polarline
