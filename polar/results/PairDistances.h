#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

/// The signed distance error, board unit, of each point to every other: a board of 5000 dots has 25 million, so they
/// are held once, in columns, and whoever needs them shares them.
class PairDistances {
 public:
  /// Of no point yet; their ids in order.
  explicit PairDistances(std::vector<std::int32_t> ids) : ids_(std::move(ids)) {
    if (!ids_.empty()) errors_.reserve(ids_.size() * (ids_.size() - 1));
  }

  /// To the next point of the first point whose errors are not complete; a point has none to itself.
  void add(float error) { errors_.push_back(error); }

  const std::vector<std::int32_t>& ids() const { return ids_; }
  /// Of the point at a place, to the others in their order.
  std::span<const float> errorsOf(std::size_t point) const {
    const std::size_t others = ids_.size() - 1;
    return std::span(errors_).subspan(point * others, others);
  }
  /// The id of the other point that an error of the point at a place is to.
  std::int32_t idOfOther(std::size_t point, std::size_t k) const { return ids_[k < point ? k : k + 1]; }

 private:
  std::vector<std::int32_t> ids_;
  std::vector<float> errors_;
};
