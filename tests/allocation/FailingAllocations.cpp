#include "allocation/FailingAllocations.h"

#include <execinfo.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <opencv2/core.hpp>
#include <sstream>
#include <unordered_map>

namespace {

using allocations::Failure;
using allocations::Place;

enum class Watch { kNone, kCount, kRecord, kFail };

/// All of it belongs to the one thread that the tests have.
struct State {
  Watch watch = Watch::kNone;
  std::size_t live = 0;
  std::size_t count = 0;
  std::size_t failing = 0;
  Failure failure = Failure::kOnce;
  bool has_failed = false;
};
State state;

struct Recorded {
  std::vector<Place> places;
  std::unordered_map<std::uint64_t, std::size_t> by_callers;
};
Recorded* recorded = nullptr;

/// Its own allocations are not looked at.
struct Unwatched {
  Watch kept = state.watch;
  Unwatched() { state.watch = Watch::kNone; }
  Unwatched(const Unwatched&) = delete;
  Unwatched& operator=(const Unwatched&) = delete;
  ~Unwatched() { state.watch = kept; }
};

std::uint64_t hashOf(const Place& place) {
  std::uint64_t hash = 14695981039346656037U;
  for (void* const caller : place.callers) hash = (hash ^ reinterpret_cast<std::uintptr_t>(caller)) * 1099511628211U;
  return hash;
}

/// The innermost frames are those of this file.
__attribute__((noinline)) void record(std::size_t number) {
  constexpr int kOwnFrames = 2;
  const Unwatched unwatched;
  std::array<void*, Place::kCallers + kOwnFrames> frames{};
  backtrace(frames.data(), static_cast<int>(frames.size()));
  Place place;
  std::copy(frames.begin() + kOwnFrames, frames.end(), place.callers.begin());
  place.first = number;
  const auto [entry, is_new] = recorded->by_callers.emplace(hashOf(place), recorded->places.size());
  if (is_new) recorded->places.push_back(place);
  recorded->places[entry->second].last = number;
}

/// Whether the next allocation is to fail.
bool nextFails() {
  if (state.watch == Watch::kNone) return false;
  const std::size_t number = state.count++;
  if (state.watch == Watch::kRecord) record(number);
  if (state.watch != Watch::kFail || number < state.failing) return false;
  if (number > state.failing && state.failure == Failure::kOnce) return false;
  state.has_failed = true;
  return true;
}

void* blockOf(std::size_t size, std::size_t alignment) {
  if (nextFails()) return nullptr;
  constexpr std::size_t kUsual = alignof(std::max_align_t);
  const std::size_t whole = (std::max<std::size_t>(size, 1) + alignment - 1) / alignment * alignment;
  void* const block = alignment <= kUsual ? std::malloc(whole) : std::aligned_alloc(alignment, whole);
  if (block != nullptr) ++state.live;
  return block;
}

void* blockOrThrow(std::size_t size, std::size_t alignment) {
  void* const block = blockOf(size, alignment);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void release(void* block) {
  if (block == nullptr) return;
  --state.live;
  std::free(block);
}

/// The data of a matrix comes from here; what describes it comes from `operator new`.
class CountedMatrices : public cv::MatAllocator {
 public:
  cv::UMatData* allocate(int dims, const int* sizes, int type, void* data, std::size_t* step, cv::AccessFlag /*flags*/,
                         cv::UMatUsageFlags /*usage*/) const override {
    std::size_t total = static_cast<std::size_t>(CV_ELEM_SIZE(type));
    for (int k = dims - 1; k >= 0; --k) {
      if (step != nullptr) {
        if (data != nullptr && step[k] != cv::Mat::AUTO_STEP) {
          total = step[k];
        } else {
          step[k] = total;
        }
      }
      total *= static_cast<std::size_t>(sizes[k]);
    }
    auto matrix = std::make_unique<cv::UMatData>(this);
    matrix->data = matrix->origdata = static_cast<uchar*>(data != nullptr ? data : dataOf(total));
    matrix->size = total;
    if (data != nullptr) matrix->flags |= cv::UMatData::USER_ALLOCATED;
    return matrix.release();
  }
  bool allocate(cv::UMatData* matrix, cv::AccessFlag /*flags*/, cv::UMatUsageFlags /*usage*/) const override {
    return matrix != nullptr;
  }
  void deallocate(cv::UMatData* matrix) const override {
    if (matrix == nullptr) return;
    if ((matrix->flags & cv::UMatData::USER_ALLOCATED) == 0) release(matrix->origdata);
    delete matrix;
  }

 private:
  static void* dataOf(std::size_t total) {
    constexpr std::size_t kAlignment = 64;
    void* const block = blockOf(total, kAlignment);
    if (block == nullptr) CV_Error_(cv::Error::StsNoMem, ("Failed to allocate %zu bytes", total));
    return block;
  }
};

}  // namespace

namespace allocations {

void takeOverMatrices() {
  static CountedMatrices matrices;
  cv::Mat::setDefaultAllocator(&matrices);
}

std::size_t live() { return state.live; }

std::string textOf(const Place& place) {
  std::ostringstream text;
  char** const names = backtrace_symbols(place.callers.data(), Place::kCallers);
  for (int k = 0; names != nullptr && k < Place::kCallers; ++k) text << "\n  " << names[k];
  std::free(names);
  return text.str();
}

namespace watch {

void startCounting() {
  state.count = 0;
  state.watch = Watch::kCount;
}

void startRecording() {
  recorded = new Recorded;
  state.count = 0;
  state.watch = Watch::kRecord;
}

void startFailing(std::size_t number, Failure failure) {
  state.count = 0;
  state.failing = number;
  state.failure = failure;
  state.has_failed = false;
  state.watch = Watch::kFail;
}

void stop() { state.watch = Watch::kNone; }

std::size_t count() { return state.count; }

bool hasFailed() { return state.has_failed; }

std::vector<Place> takePlaces() {
  const std::unique_ptr<Recorded> taken(recorded);
  recorded = nullptr;
  return std::move(taken->places);
}

}  // namespace watch
}  // namespace allocations

// The linker takes these in the place of the standard library's, also for the shared libraries below.

void* operator new(std::size_t size) { return blockOrThrow(size, 1); }
void* operator new[](std::size_t size) { return blockOrThrow(size, 1); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return blockOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return blockOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return blockOf(size, 1); }
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept { return blockOf(size, 1); }
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t& /*tag*/) noexcept {
  return blockOf(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t& /*tag*/) noexcept {
  return blockOf(size, static_cast<std::size_t>(alignment));
}

void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { release(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { release(block); }
void operator delete(void* block, std::align_val_t /*alignment*/) noexcept { release(block); }
void operator delete[](void* block, std::align_val_t /*alignment*/) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept { release(block); }
void operator delete[](void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept { release(block); }
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept { release(block); }
void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept { release(block); }
void operator delete(void* block, std::align_val_t /*alignment*/, const std::nothrow_t& /*tag*/) noexcept {
  release(block);
}
void operator delete[](void* block, std::align_val_t /*alignment*/, const std::nothrow_t& /*tag*/) noexcept {
  release(block);
}
