#include "check/figures/PairReading.h"

#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <memory>

#include "check/figures/PairReason.h"
#include "polar/results/FigureList.h"

namespace polarline {
namespace {

constexpr float kNone = std::numeric_limits<float>::quiet_NaN();

void takeValues(double value, Figure& figure) { figure.values = {value}; }

void takeValues(float value, Figure& figure) {
  figure.is_single = true;
  figure.values = {static_cast<double>(value)};
}

void takeValues(const std::array<float, 8>& values, Figure& figure) {
  figure.is_single = figure.is_list = true;
  figure.values.assign(values.begin(), values.end());
}

void takeValues(const std::vector<double>& values, Figure& figure) {
  figure.is_list = true;
  figure.values = values;
}

/// Sets a list's entry for each dot, at the place of its id.
class PointTable {
 public:
  explicit PointTable(const PairObservation& seen) {
    for (const auto* dots : {&seen.raw, &seen.rectified}) {
      for (const SharedDot& dot : *dots) place_.emplace(dot.id, 0);
    }
    std::size_t next = 0;
    for (auto& [id, place] : place_) {
      place = next++;
      points.id.push_back(id);
    }
  }

  template <typename ValueOf>
  void fill(std::vector<float>& list, const std::vector<SharedDot>& dots, const ValueOf& valueOf) {
    list.assign(points.id.size(), kNone);
    for (std::size_t k = 0; k < dots.size(); ++k) list[place_.at(dots[k].id)] = valueOf(dots[k], k);
  }

  PairPoints points;

 private:
  std::map<std::int32_t, std::size_t> place_;
};

}  // namespace

PairPoints pointsOf(const PairObservation& seen) {
  PointTable table(seen);
  PairPoints& points = table.points;
  const auto position = [&](std::size_t k) {
    return k < seen.positions.size() ? seen.positions[k] : cv::Point3f(kNone, kNone, kNone);
  };
  table.fill(points.left_x, seen.raw, [](const SharedDot& dot, std::size_t) { return dot.left.x; });
  table.fill(points.left_y, seen.raw, [](const SharedDot& dot, std::size_t) { return dot.left.y; });
  table.fill(points.right_x, seen.raw, [](const SharedDot& dot, std::size_t) { return dot.right.x; });
  table.fill(points.right_y, seen.raw, [](const SharedDot& dot, std::size_t) { return dot.right.y; });
  table.fill(points.x, seen.raw, [&](const SharedDot&, std::size_t k) { return position(k).x; });
  table.fill(points.y, seen.raw, [&](const SharedDot&, std::size_t k) { return position(k).y; });
  table.fill(points.z, seen.raw, [&](const SharedDot&, std::size_t k) { return position(k).z; });
  table.fill(points.residual, seen.raw,
             [&](const SharedDot&, std::size_t k) { return k < seen.residuals.size() ? seen.residuals[k] : kNone; });
  table.fill(points.rectified_left_x, seen.rectified, [](const SharedDot& dot, std::size_t) { return dot.left.x; });
  table.fill(points.rectified_left_y, seen.rectified, [](const SharedDot& dot, std::size_t) { return dot.left.y; });
  table.fill(points.rectified_right_x, seen.rectified, [](const SharedDot& dot, std::size_t) { return dot.right.x; });
  table.fill(points.rectified_right_y, seen.rectified, [](const SharedDot& dot, std::size_t) { return dot.right.y; });
  table.fill(points.dy, seen.rectified, [](const SharedDot& dot, std::size_t) { return dot.left.y - dot.right.y; });
  return std::move(table.points);
}

std::vector<Figure> ownFigures(const PairEvaluator& evaluator) {
  std::vector<Figure> figures;
  figure_list::forEach([&](auto entry) {
    Figure figure;
    figure.name = entry.name;
    figure.unit = entry.unit;
    figure.meaning = entry.meaning;
    if constexpr (requires { takeValues(entry.valueIn(evaluator.figures), figure); }) {
      takeValues(entry.valueIn(evaluator.figures), figure);
      figure.is_own = evaluator.figures.isMeasured(entry.kGroup);
      if (!figure.is_own) figure.values.clear();
      figures.push_back(std::move(figure));
    }
  });
  return figures;
}

std::vector<std::string> figureNames() {
  const PairEvaluator nothing(std::make_shared<const PolarConfig>());
  std::vector<std::string> names;
  for (const Figure& figure : ownFigures(nothing)) names.emplace_back(figure.name);
  return names;
}

std::optional<FigureShape> figureShape(const std::string& name) {
  std::optional<FigureShape> shape;
  const PairFigures none;
  figure_list::forEach([&](auto entry) {
    Figure figure;
    if constexpr (requires { takeValues(entry.valueIn(none), figure); }) {
      if (name != entry.name) return;
      takeValues(entry.valueIn(none), figure);
      shape = FigureShape{figure.is_list, figure.is_list ? figure.values.size() : 0};
    }
  });
  return shape;
}

PairCheck PairReading::read(bool finished, std::int32_t status, const PairEvaluator& evaluator) {
  PairCheck pair;
  pair.finished = finished;
  pair.found_left = evaluator.seen.found[0];
  pair.found_right = evaluator.seen.found[1];
  if (!finished) pair.reason = reasonOf(status, evaluator);
  pair.figures = ownFigures(evaluator);
  auto figure = pair.figures.begin();
  figure_list::forEach([&](auto entry) {
    if constexpr (requires { takeValues(entry.valueIn(evaluator.figures), *figure); }) {
      Figure recorded;
      takeValues(entry.valueIn(evaluator.figures), recorded);
      // Some lists are cleared behind each pair: their figures are not in the record of the next one.
      const bool was_measured = measured_before_.test(static_cast<std::size_t>(entry.kGroup));
      figure->is_carried = !figure->is_own && was_measured && !recorded.values.empty();
      ++figure;
    }
  });
  pair.points = pointsOf(evaluator.seen);
  measured_before_ |= evaluator.figures.measured;
  return pair;
}

}  // namespace polarline
