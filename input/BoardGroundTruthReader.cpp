#include "input/BoardGroundTruthReader.h"

#include <array>
#include <cstddef>
#include <istream>
#include <span>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "platform/BoundedInput.h"
#include "platform/ClassicNumber.h"
#include "platform/ClassicStream.h"
#include "platform/Files.h"

namespace {

/// Points of a report, in either layout.
constexpr std::size_t kCsvPoints = 42;
/// The one line of a report that is used, counted from 1.
constexpr int kUsedLine = 11;
/// Fields of that line up to the last one of layout B, which reaches further than layout A.
constexpr std::size_t kUsedFields = 87;
/// Most points of a text list: far beyond any real board, and within what memory holds.
constexpr std::size_t kMostPoints = std::size_t{1} << 24;

/// Points `first` to `last` take two fields each, from `field` on.
struct FieldRange {
  std::size_t first;
  std::size_t last;
  std::size_t field;
};

constexpr std::array<FieldRange, 4> kLayoutA = {{{0, 16, 4}, {19, 22, 38}, {24, 24, 46}, {26, 41, 48}}};
constexpr std::array<FieldRange, 6> kLayoutB = {
    {{0, 0, 4}, {1, 6, 7}, {7, 16, 20}, {18, 23, 40}, {25, 35, 52}, {36, 41, 75}}};

std::vector<std::string> usedFields(const std::string& path) {
  std::ifstream stream = files::openInput(path);
  std::string line;
  for (int k = 0; k < kUsedLine; ++k) {
    if (!bounded::nextLine(stream, line)) return {};
  }
  std::istringstream pieces = classic::input(line);
  std::vector<std::string> fields;
  for (std::string field; fields.size() < kUsedFields && std::getline(pieces, field, ',');) fields.push_back(field);
  return fields;
}

float fieldValue(const std::vector<std::string>& fields, std::size_t index) {
  return index < fields.size() ? static_cast<float>(classic::toDouble(fields[index])) : 0.0F;
}

void readCsv(const std::string& path, std::span<const FieldRange> layout, BoardGroundTruth& points) {
  const std::vector<std::string> fields = usedFields(path);
  points.assign(kCsvPoints, cv::Point3f(0.0F, 0.0F, 0.0F));
  for (const FieldRange& range : layout) {
    std::size_t field = range.field;
    for (std::size_t id = range.first; id <= range.last; ++id, field += 2) {
      points.at(id).x = fieldValue(fields, field);
      points.at(id).y = fieldValue(fields, field + 1);
    }
  }
}

}  // namespace

void ReadBoardCsvLayoutA(const std::string& path, BoardGroundTruth& points) { readCsv(path, kLayoutA, points); }

void ReadBoardCsvLayoutB(const std::string& path, BoardGroundTruth& points) { readCsv(path, kLayoutB, points); }

void ReadBoardTxt(const std::string& path, BoardGroundTruth& points) {
  std::ifstream stream = files::openInput(path);
  BoardGroundTruth read;
  std::string line;
  while (bounded::nextLine(stream, line)) {
    if (points.size() + read.size() >= kMostPoints)
      throw std::length_error("a board of more than " + std::to_string(kMostPoints) + " points");
    cv::Point3f point(0.0F, 0.0F, 0.0F);
    classic::input(line) >> point.x >> point.y >> point.z;
    read.push_back(point);
  }
  points.insert(points.end(), read.begin(), read.end());
}
