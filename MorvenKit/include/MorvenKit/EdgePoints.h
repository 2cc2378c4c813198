#pragma once

#include <initializer_list>
#include <memory>
#include <opencv2/core.hpp>
#include <utility>
#include <vector>

namespace kestrune::morvenkit {

/// The edge points of a detected point, which never change once they are found. Copies share them: a detection hands
/// its points from list to list many times.
class EdgePoints {
 public:
  using List = std::vector<cv::Point2f>;

  EdgePoints() = default;
  EdgePoints(List points) : points_(std::make_shared<const List>(std::move(points))) {}
  EdgePoints(std::initializer_list<cv::Point2f> points) : EdgePoints(List(points)) {}

  const List& list() const {
    static const List kNone;
    return points_ ? *points_ : kNone;
  }
  operator const List&() const { return list(); }

  bool empty() const { return list().empty(); }
  List::size_type size() const { return list().size(); }
  const cv::Point2f& operator[](List::size_type index) const { return list()[index]; }
  List::const_iterator begin() const { return list().begin(); }
  List::const_iterator end() const { return list().end(); }

  friend bool operator==(const EdgePoints& a, const EdgePoints& b) { return a.list() == b.list(); }

 private:
  std::shared_ptr<const List> points_;
};

}  // namespace kestrune::morvenkit
