#include "allocation/Sweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>
#include <opencv2/core.hpp>
#include <optional>
#include <set>
#include <system_error>
#include <utility>
#include <vector>

#include "allocation/FailingAllocations.h"

namespace {

using allocations::Failure;
using allocations::Place;

/// Everything that a call leaves.
struct Outcome {
  std::int32_t status = 0;
  std::string held;
  RepeatedCall::Files tables;

  bool operator==(const Outcome&) const = default;
};

Outcome undisturbed(const RepeatedCall& call) {
  call.reset();
  const std::int32_t status = call.make();
  return {status, call.held(), call.tables()};
}

/// The status, or nothing when an exception of the memory came.
std::optional<std::int32_t> callWithout(const RepeatedCall& call, std::size_t number, Failure failure) {
  std::optional<std::int32_t> status;
  try {
    allocations::withFailureAt(number, failure, [&] { status = call.make(); });
  } catch (const std::bad_alloc&) {
  } catch (const cv::Exception& error) {
    EXPECT_EQ(error.code, cv::Error::StsNoMem) << error.what();
  } catch (const std::system_error&) {
    // What goes wrong while a target document is opened is told as one that cannot be accessed.
  }
  return status;
}

struct Point {
  std::size_t number;
  const Place* place;
};

std::vector<Point> pointsOf(const std::vector<Place>& places, const std::string& spared_function) {
  std::vector<Point> points;
  for (const Place& place : places) {
    if (!spared_function.empty() && textOf(place).find(spared_function) != std::string::npos) continue;
    points.push_back({place.first, &place});
    if (place.last != place.first) points.push_back({place.last, &place});
  }
  std::sort(points.begin(), points.end(), [](const Point& a, const Point& b) { return a.number < b.number; });
  return points;
}

class Sweep {
 public:
  explicit Sweep(const RepeatedCall& call) : call_(call), reference_(undisturbed(call)) {}

  std::vector<Place> record() {
    // Twice, so that what is made once in a process is there.
    for (int k = 0; k < 2; ++k) EXPECT_EQ(undisturbed(call_), reference_);
    call_.reset();
    const std::size_t count = allocations::countOf([this] { call_.make(); });
    call_.reset();
    std::vector<Place> places = allocations::placesOf([this] { call_.make(); });
    std::size_t last = 0;
    for (const Place& place : places) last = std::max(last, place.last);
    EXPECT_EQ(last + 1, count) << "the call allocates differently each time";
    return places;
  }

  void refuse(const Point& point, Failure failure) {
    call_.reset();
    const std::string held = call_.held();
    const std::size_t live = allocations::live();
    const auto status = callWithout(call_, point.number, failure);
    std::string complaint = allocations::hasFailed() ? complaintOf(status, held) : "the failure never came";
    call_.reset();
    if (complaint.empty() && allocations::live() != live) complaint = "blocks are still allocated";
    if (complaint.empty() && !(undisturbed(call_) == reference_)) complaint = "the next call differs";
    if (complaint.empty()) return;
    ADD_FAILURE() << complaint << "\nmemory refused" << (failure == Failure::kForGood ? " for good" : "")
                  << " at allocation " << point.number << textOf(*point.place);
  }

 private:
  std::string complaintOf(std::optional<std::int32_t> status, const std::string& held) const {
    const RepeatedCall::Files tables = call_.tables();
    if (status == reference_.status) {
      if (call_.held() != reference_.held) return "a wrong answer: " + call_.held();
      return tables == reference_.tables ? "" : "a wrong table";
    }
    if (call_.keeps && call_.held() != held) return "a failure changed what the caller holds: " + call_.held();
    for (const auto& [name, bytes] : tables) {
      const auto whole = reference_.tables.find(name);
      if (whole == reference_.tables.end()) return "another table: " + name;
      if (!whole->second.starts_with(bytes)) return name + " is another table:\n" + bytes;
    }
    return "";
  }

  const RepeatedCall& call_;
  Outcome reference_;
};

}  // namespace

Swept refuseMemoryEverywhere(const RepeatedCall& call, std::size_t most) {
  Sweep sweep(call);
  const std::vector<Place> places = sweep.record();
  const std::vector<Point> points = pointsOf(places, call.spared_function);
  Swept swept;
  for (const Place& place : places) swept.allocations = std::max(swept.allocations, place.last + 1);
  swept.places = places.size();
  swept.points = points.size();
  const std::size_t stride = (points.size() - 1) / most + 1;
  for (std::size_t k = 0; k < points.size() && !::testing::Test::HasFailure(); k += stride) {
    sweep.refuse(points[k], Failure::kOnce);
    if (swept.tried % 4 == 0) sweep.refuse(points[k], Failure::kForGood);
    ++swept.tried;
  }
  return swept;
}
