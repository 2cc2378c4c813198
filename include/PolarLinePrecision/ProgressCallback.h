#pragma once

#include <functional>

/// Told the percentage of work done, 0 to 100, on the caller's thread; false stops the run with status 35.
using ProgressCallback = std::function<bool(float)>;
