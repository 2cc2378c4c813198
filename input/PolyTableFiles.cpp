#include "input/PolyTableFiles.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <sstream>
#include <utility>
#include <vector>

#include "PolarLinePrecision/Status.h"
#include "input/PolyTables.h"
#include "platform/BoundedInput.h"
#include "platform/ClassicStream.h"
#include "platform/Console.h"
#include "platform/Files.h"

namespace {

constexpr const char* kLeftX = "/polyparamirl_x.txt";
constexpr const char* kLeftY = "/polyparamirl_y.txt";
constexpr const char* kRightX = "/polyparamirr_x.txt";
constexpr const char* kRightY = "/polyparamirr_y.txt";

void writeTable(const std::string& path, const PolyTable& table) {
  std::ofstream stream = files::openOutput(path);
  for (const float value : table) stream << value << '\n';
}

std::vector<float> readTable(const std::string& path) {
  console::line(path);
  std::ifstream stream = files::openInput(path);
  std::vector<float> values;
  std::string line;
  while (values.size() < std::tuple_size_v<PolyTable> && bounded::nextLine(stream, line)) {
    float value = 0.0F;
    classic::input(line) >> value;
    values.push_back(value);
  }
  return values;
}

void copyTable(std::vector<float> values, PolyTable& table) {
  values.resize(table.size());
  std::ranges::copy(values, table.begin());
}

/// Meant: the grid and the image size are always these, as the files do not record them.
void setTextFormSizes(ExportedCameraCalib& camera) {
  camera.poly_nx = 6;
  camera.poly_ny = 4;
  camera.height = 1200.0;
  camera.width = 1920.0;
}

}  // namespace

void writePolyTableFiles(const std::string& folder, const StereoCalibParams& calib) {
  writeTable(folder + kLeftX, calib.left.poly_x);
  writeTable(folder + kLeftY, calib.left.poly_y);
  writeTable(folder + kRightX, calib.right.poly_x);
  writeTable(folder + kRightY, calib.right.poly_y);
}

std::int32_t readPolyTableFiles(const std::string& folder, ExportedCalibParams* out) {
  const std::array<std::string, 4> paths = {folder + kLeftX, folder + kLeftY, folder + kRightX, folder + kRightY};
  if (!std::ranges::all_of(paths, files::exists)) {
    // Meant: the text names this one file, whichever is missing.
    console::line("path/polyparamirl_x.txt is not exists!");
    return polar_status::kInputUnreadable;
  }
  std::array<std::vector<float>, 4> tables;
  std::ranges::transform(paths, tables.begin(), readTable);
  copyTable(std::move(tables[0]), out->left.poly_x);
  copyTable(std::move(tables[1]), out->left.poly_y);
  copyTable(std::move(tables[2]), out->right.poly_x);
  copyTable(std::move(tables[3]), out->right.poly_y);
  setTextFormSizes(out->left);
  setTextFormSizes(out->right);
  return polar_status::kSuccess;
}
