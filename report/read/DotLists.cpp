#include "report/read/DotLists.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace polarline {
namespace {

std::vector<std::int32_t> idsOf(const Place& points) {
  points.numberList("id");
  std::vector<std::int32_t> ids;
  for (const Json& each : points.json()["id"]) {
    const double id = each.is_number() ? each.get<double>() : std::numeric_limits<double>::quiet_NaN();
    const bool is_whole = std::abs(id) <= std::numeric_limits<std::int32_t>::max() && id == std::floor(id);
    if (!is_whole) points.refuse(fmt::format("id[{}]", ids.size()), "is no whole number of 32 bits");
    ids.push_back(static_cast<std::int32_t>(id));
  }
  return ids;
}

void requireLength(const Place& points, const char* key, const Json& list, std::size_t dots) {
  if (!list.empty() && list.size() != dots)
    points.refuse(key, fmt::format("found {} entries, wanted {} as in id", list.size(), dots));
}

std::vector<std::string> textsOf(const Place& points, const char* key, std::size_t dots) {
  if (!points.json().contains(key)) return {};
  const Json& list = points.textList(key).json()[key];
  requireLength(points, key, list, dots);
  return list.get<std::vector<std::string>>();
}

std::vector<double> numbersOf(const Place& points, const char* key, std::size_t dots) {
  if (!points.json().contains(key)) return {};
  const Json& list = points.numberList(key).json()[key];
  requireLength(points, key, list, dots);
  std::vector<double> numbers;
  numbers.reserve(list.size());
  for (const Json& each : list)
    numbers.push_back(each.is_null() ? std::numeric_limits<double>::quiet_NaN() : each.get<double>());
  return numbers;
}

}  // namespace

DotLists readDots(const Place& points) {
  DotLists dots;
  dots.id = idsOf(points);
  const auto take = [&](std::vector<double>& list, const char* key) { list = numbersOf(points, key, dots.id.size()); };
  take(dots.left_x, "left_x");
  take(dots.left_y, "left_y");
  take(dots.right_x, "right_x");
  take(dots.right_y, "right_y");
  take(dots.dy, "dy");
  take(dots.residual, "residual");
  take(dots.x, "x");
  take(dots.y, "y");
  take(dots.z, "z");
  take(dots.rectified_left_x, "rectified_left_x");
  take(dots.rectified_left_y, "rectified_left_y");
  take(dots.rectified_right_x, "rectified_right_x");
  take(dots.rectified_right_y, "rectified_right_y");
  take(dots.left_sd_x, "left_sd_x");
  take(dots.left_sd_y, "left_sd_y");
  take(dots.right_sd_x, "right_sd_x");
  take(dots.right_sd_y, "right_sd_y");
  dots.left_state = textsOf(points, "left_state", dots.id.size());
  dots.right_state = textsOf(points, "right_state", dots.id.size());
  return dots;
}

}  // namespace polarline
