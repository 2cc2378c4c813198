#include "bench/Stopwatch.h"

#include <chrono>
#include <ctime>

double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

double wallSeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}
