#include "polar/results/RecordExport.h"

#include <algorithm>
#include <array>
#include <utility>

#include "polar/results/FigureList.h"

namespace {

/// Uses the point up: its lists move on, or go.
TriPointRecord takeCallerForm(PairPointRecord& point) {
  TriPointRecord record;
  record.id = point.id;
  record.left_x = point.left_x;
  record.left_y = point.left_y;
  record.right_x = point.right_x;
  record.right_y = point.right_y;
  record.x = point.x;
  record.y = point.y;
  record.z = point.z;
  record.dis_errors = std::move(point.dis_errors);
  // The relative errors stay behind; freeing them here keeps the peak at one list of distances a point.
  point.nor_errors = {};
  record.dis_rms = point.dis_rms;
  return record;
}

// What the caller gets is what was measured, widened where the caller's field is wider.
void take(std::vector<PairPointRecord>& points, std::vector<TriPointRecord>& field) {
  field.reserve(points.size());
  for (PairPointRecord& point : points) field.push_back(takeCallerForm(point));
}

void take(std::array<float, 8>& values, std::array<double, 8>& field) {
  std::copy(values.begin(), values.end(), field.begin());
}

template <typename Value, typename Field>
void take(Value& value, Field& field) {
  field = std::move(value);
}

PolarResultRecord callerForm(PairFigures&& figures) {
  PolarResultRecord record;
  figure_list::forEach([&](auto figure) {
    if constexpr (figure.kInRecord) take(figure.valueIn(figures), figure.fieldOf(record));
  });
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
