#pragma once

/// Marks what the shared library `polarline` offers.
#if defined(_WIN32)
#if defined(POLARLINE_SHARED)
#define POLARLINE_API __declspec(dllimport)
#else
#define POLARLINE_API
#endif
#else
#define POLARLINE_API __attribute__((visibility("default")))
#endif
