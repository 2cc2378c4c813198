#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

/// The allocations of this process: `operator new` in all its forms and the data of every `cv::Mat`. They are counted,
/// and one of them can be made to fail as it would without memory: `std::bad_alloc`, a null pointer from the form that
/// does not throw, `cv::Exception` with `StsNoMem` from a matrix.
///
/// Out of reach: what C libraries and `cv::fastMalloc` outside of matrices take from the C library.
namespace allocations {

/// Makes matrices take part. Before the first matrix.
void takeOverMatrices();

/// Blocks that are allocated and not yet freed.
std::size_t live();

/// A place in the program that allocates, told by its callers: the same callers are the same place.
struct Place {
  static constexpr int kCallers = 12;
  std::array<void*, kCallers> callers{};
  std::size_t first = 0;  ///< Number of its first allocation in the recorded call.
  std::size_t last = 0;
};

/// Where a place is, as far as symbols tell.
std::string textOf(const Place& place);

/// Calls `action` and remembers its places in the order in which they came first.
template <typename Action>
std::vector<Place> placesOf(const Action& action);

enum class Failure {
  kOnce,     ///< That allocation alone; memory is there again at once.
  kForGood,  ///< That one and all that follow in the call.
};

/// What `withFailureAt` and `countOf` need; use those.
namespace watch {
void startCounting();
void startRecording();
void startFailing(std::size_t number, Failure failure);
void stop();
std::size_t count();
bool hasFailed();
std::vector<Place> takePlaces();

/// Stops at the end of a scope, however it ends.
struct Stop {
  Stop() = default;
  Stop(const Stop&) = delete;
  Stop& operator=(const Stop&) = delete;
  ~Stop() { stop(); }
};
}  // namespace watch

template <typename Action>
std::vector<Place> placesOf(const Action& action) {
  {
    const watch::Stop stop;
    watch::startRecording();
    action();
  }
  return watch::takePlaces();
}

/// Allocations that `action` makes.
template <typename Action>
std::size_t countOf(const Action& action) {
  const watch::Stop stop;
  watch::startCounting();
  action();
  return watch::count();
}

/// Calls `action` while the allocation of that number, from 0, fails. What it throws passes.
template <typename Action>
void withFailureAt(std::size_t number, Failure failure, const Action& action) {
  const watch::Stop stop;
  watch::startFailing(number, failure);
  action();
}

/// Whether the last `withFailureAt` came to its failure.
inline bool hasFailed() { return watch::hasFailed(); }

}  // namespace allocations
