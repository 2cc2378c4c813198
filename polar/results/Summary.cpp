#include "polar/results/Summary.h"

#include <array>
#include <vector>

#include "polar/results/FigureList.h"

namespace figure_list {

void nameIdDistances(std::ostream& stream, const PolarConfig& config) {
  for (std::size_t entry = 1; entry <= config.Cal_ID_DIS.size(); ++entry) stream << ",id_dis" << entry;
}

void nameFramePairs(std::ostream& stream, const PolarConfig& config) {
  for (const auto& ids : config.Frame_ID_DIS) stream << "," << ids.at(0) << "_" << ids.at(1);
}

}  // namespace figure_list

namespace {

using figure_list::Column;

bool isShown(const Column& column, figure_list::Summary summary, const PolarConfig& config) {
  return column.summary == summary && column.is_on(config);
}

template <typename Choice>
void writeHeader(std::ostream& stream, const PolarConfig& config, const Choice& isNamed) {
  stream << "id ";
  figure_list::forEach([&](const auto& figure) {
    const Column& column = figure.column;
    if (!isNamed(column)) return;
    stream << column.heading;
    if (column.name_entries != nullptr) column.name_entries(stream, config);
  });
  stream << std::endl;
}

void writeCells(std::ostream& stream, double value) { stream << "," << value; }

void writeCells(std::ostream& stream, float value) { stream << "," << value; }

void writeCells(std::ostream& stream, const std::array<float, 8>& values) {
  for (const float value : values) writeCells(stream, value);
}

void writeCells(std::ostream& stream, const std::vector<double>& values) {
  for (const double value : values) writeCells(stream, value);
}

}  // namespace

void writeSummaryHeader(std::ostream& stream, const PolarConfig& config) {
  writeHeader(stream, config,
              [&](const Column& column) { return isShown(column, figure_list::Summary::kPairs, config); });
}

void writeRectifiedHeader(std::ostream& stream, const PolarConfig& config) {
  writeHeader(stream, config, [&](const Column& column) {
    return column.in_rectified_header && isShown(column, figure_list::Summary::kPairs, config);
  });
}

void writeFrameHeader(std::ostream& stream, const PolarConfig& config) {
  writeHeader(stream, config,
              [&](const Column& column) { return isShown(column, figure_list::Summary::kFrames, config); });
}

void WriteResultRow(const PolarConfig& config, PairFigures& figures, std::ostream& stream, std::size_t index) {
  const bool is_frame = config.frame_work != 0;
  const auto summary = is_frame ? figure_list::Summary::kFrames : figure_list::Summary::kPairs;
  stream << "Images_num_: " << index + 1 << "_PolarVersion_: " << kVersion;
  figure_list::forEach([&](auto figure) {
    if constexpr (requires { writeCells(stream, figure.valueIn(figures)); }) {
      if (isShown(figure.column, summary, config)) writeCells(stream, figure.valueIn(figures));
    }
  });
  if (is_frame) figures.frameValues.clear();
  stream << std::endl;
}
