#include <fmt/format.h>

#include <iterator>

#include "polarline/detect.h"

namespace polarline {

std::string pointsCsv(const Detection& detection) {
  std::string csv = "id,row,column,x,y\n";
  for (const Dot& dot : detection.dots) {
    fmt::format_to(std::back_inserter(csv), "{},{},{},{},{}\n", dot.id, dot.row, dot.column, dot.x, dot.y);
  }
  return csv;
}

}  // namespace polarline
