#include "polar/run/RunTexts.h"

#include "platform/Console.h"

void printTimedLine(const std::string& what, std::chrono::steady_clock::time_point start, double callback) {
  const std::chrono::nanoseconds elapsed = std::chrono::steady_clock::now() - start;
  console::line(what, "\t----time:", static_cast<double>(elapsed.count()) / 1e6, "\t-----callback:", callback);
}
