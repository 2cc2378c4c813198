#pragma once

#include <chrono>
#include <string>

/// Prints a line of the run's log: what was done, the milliseconds since `start`, and the number that the line carries
/// for the callback (the first two lines of a call carry constants there, which differ from what the callback gets; the
/// log keeps them).
void printTimedLine(const std::string& what, std::chrono::steady_clock::time_point start, double callback);
