#include "store/fleet/Courses.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <numeric>
#include <utility>

namespace polarline::fleet {
namespace {

constexpr std::size_t kMostStreams = 400;
constexpr std::size_t kMostCourseNumbers = 40000;
constexpr std::size_t kLeastPoints = 12, kMostPoints = 100;

/// The groups of a station and model: what a chart shows as one.
struct Stream {
  std::vector<std::size_t> groups;
  std::size_t sets = 0;
};

std::vector<Stream> streamsOf(const Cells& cells, const std::vector<std::vector<std::size_t>>& places) {
  std::map<std::pair<int, int>, Stream> found;
  for (std::size_t group = 0; group < cells.groups.size(); ++group) {
    Stream& stream = found[{cells.groups[group][0], cells.groups[group][1]}];
    stream.groups.push_back(group);
    stream.sets += places[group].size();
  }
  std::vector<Stream> streams;
  streams.reserve(found.size());
  for (auto& [key, stream] : found) streams.push_back(std::move(stream));
  return streams;
}

/// The least number of sets a point that makes no more points of the stream than there is room for.
std::size_t setsOfAPoint(const Stream& stream, const std::vector<std::vector<std::size_t>>& places, std::size_t most) {
  const auto points = [&](std::size_t each) {
    std::size_t count = 0;
    for (const std::size_t group : stream.groups) count += places[group].size() / each;
    return count;
  };
  std::size_t each = std::max<std::size_t>(1, stream.sets / (most + stream.groups.size()));
  while (points(each) > most) ++each;
  return each;
}

double meanOf(const std::vector<double>& values, const std::vector<std::size_t>& places, std::size_t begin,
              std::size_t each) {
  double sum = 0.0;
  int count = 0;
  for (std::size_t k = begin; k < begin + each; ++k) {
    const double value = values[places[k]];
    if (std::isnan(value)) continue;
    sum += value;
    ++count;
  }
  return count == 0 ? std::numeric_limits<double>::quiet_NaN() : sum / count;
}

std::int64_t minuteOf(const FleetSet& set, const Cells& cells) {
  constexpr std::int64_t kSeconds = 60, kSecondsOfADay = 86400, kMinutesOfADay = 1440;
  const std::int64_t day = dayOf(set.time);
  return (day - cells.first_day) * kMinutesOfADay + (set.time - day * kSecondsOfADay) / kSeconds;
}

FigureCourse courseOf(std::size_t group, std::size_t each, const std::vector<std::size_t>& places,
                      const FleetSets& sets, const Cells& cells, const MeasuredValues& values) {
  FigureCourse course{group, each, places.size() % each, {}, {}, {}};
  for (std::size_t end = each; end <= places.size(); end += each) {
    course.begins.push_back(minuteOf(sets.at(places[end - each]), cells));
    course.minutes.push_back(minuteOf(sets.at(places[end - 1]), cells));
  }
  for (const std::vector<double>& measure : values) {
    std::vector<double>& points = course.values.emplace_back();
    for (std::size_t begin = 0; begin + each <= places.size(); begin += each)
      points.push_back(meanOf(measure, places, begin, each));
  }
  return course;
}

}  // namespace

std::vector<FigureCourse> coursesOf(const FleetSets& sets, const Cells& cells, const MeasuredValues& values,
                                    std::size_t& left_out) {
  std::vector<std::vector<std::size_t>> places(cells.groups.size());  // Of a group, by time.
  for (std::size_t place = 0; place < sets.size(); ++place) {
    const FleetSet& set = sets.at(place);
    if (set.group >= 0 && set.ending != Ending::kError) places[static_cast<std::size_t>(set.group)].push_back(place);
  }
  std::vector<Stream> streams = streamsOf(cells, places);
  const std::size_t numbers_of_a_point = streams.size() * std::max<std::size_t>(values.size(), 1);
  const std::size_t most =
      std::clamp(kMostCourseNumbers / std::max<std::size_t>(numbers_of_a_point, 1), kLeastPoints, kMostPoints);
  std::ranges::stable_sort(streams, std::greater<>(), &Stream::sets);
  left_out = streams.size() - std::min(streams.size(), kMostStreams);
  streams.resize(streams.size() - left_out);

  std::vector<FigureCourse> courses;
  for (const Stream& stream : streams) {
    const std::size_t each = setsOfAPoint(stream, places, most);
    for (const std::size_t group : stream.groups) {
      if (places[group].size() >= each) courses.push_back(courseOf(group, each, places[group], sets, cells, values));
    }
  }
  std::ranges::sort(courses, {}, &FigureCourse::group);
  return courses;
}

}  // namespace polarline::fleet
