#include "polar/results/RecordExport.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <utility>

#include "polar/results/FigureList.h"

namespace {

TriPointRecord callerForm(const PairPointRecord& point) {
  TriPointRecord record;
  record.id = point.id;
  record.left_x = point.left_x;
  record.left_y = point.left_y;
  record.right_x = point.right_x;
  record.right_y = point.right_y;
  record.x = point.x;
  record.y = point.y;
  record.z = point.z;
  record.dis_rms = point.dis_rms;
  return record;
}

// What the caller gets is what was measured, widened where the caller's field is wider.
void take(std::vector<PairPointRecord>& points, std::vector<TriPointRecord>& field) {
  field.reserve(points.size());
  for (const PairPointRecord& point : points) field.push_back(callerForm(point));
}

void take(std::array<float, 8>& values, std::array<double, 8>& field) {
  std::copy(values.begin(), values.end(), field.begin());
}

template <typename Value, typename Field>
void take(Value& value, Field& field) {
  field = std::move(value);
}

/// The caller's lists get their size at once: those of a board of 5000 points have 25 million entries.
void giveDistances(const PairDistances& distances, std::vector<TriPointRecord>& points) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    const std::span<const float> errors = distances.errorsOf(i);
    auto& list = points[i].dis_errors;
    list.resize(errors.size());
    for (std::size_t k = 0; k < errors.size(); ++k) list[k] = {distances.idOfOther(i, k), errors[k]};
  }
}

PolarResultRecord callerForm(PairFigures&& figures) {
  PolarResultRecord record;
  figure_list::forEach([&](auto figure) {
    if constexpr (figure.kInRecord) take(figure.valueIn(figures), figure.fieldOf(record));
  });
  if (figures.distances) giveDistances(*figures.distances, record.pairPoints);
  figures = {};  // The caller's lists and ours of one pair only are held at once.
  return record;
}

}  // namespace

void FillResultRecord(const PairFigures& figures, PairFigures& record) {
  record = figures;
  record.detect_canvas = figures.detect_canvas.clone();
}

int ExportResults(std::vector<PairFigures>&& records, std::vector<PolarResultRecord>& results) {
  results.clear();
  results.reserve(records.size());
  for (PairFigures& record : records) results.push_back(callerForm(std::move(record)));
  records.clear();
  return 0;
}
