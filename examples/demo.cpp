// Evaluates a rendered data set and prints the figures beside what the renderer knows to be true.
#include <PolarLinePrecision.h>
#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

namespace {

/// Keeps the library's own console lines out of the demo's tables, in a file beside the results.
class ConsoleToFile {
 public:
  explicit ConsoleToFile(const std::filesystem::path& path) : file_(path), kept_(std::cout.rdbuf(file_.rdbuf())) {}
  ConsoleToFile(const ConsoleToFile&) = delete;
  ConsoleToFile& operator=(const ConsoleToFile&) = delete;
  ~ConsoleToFile() { std::cout.rdbuf(kept_); }

 private:
  std::ofstream file_;
  std::streambuf* kept_;
};

struct DataSet {
  std::filesystem::path folder;
  std::string polar, target, calibration, list, board;

  explicit DataSet(const std::filesystem::path& path)
      : folder(path),
        polar((path / "polar.txt").string()),
        target((path / "target.ini").string()),
        calibration((path / "calib.json").string()),
        list((path / "list.txt").string()),
        board((path / "board_gt.txt").string()) {
    if (!std::filesystem::exists(calibration)) calibration = (path / "calib.bin").string();
  }
};

struct RowDifferences {
  double mean = 0.0, min = 0.0, max = 0.0;
};

RowDifferences trueRowDifferences(const nlohmann::json& pair) {
  RowDifferences truth{0.0, 1e9, 0.0};
  std::size_t count = 0;
  for (const auto& dot : pair.at("dots")) {
    if (!dot.at(1).get<bool>() || !dot.at(2).get<bool>()) continue;
    const double dy = std::abs(dot.back().get<double>());
    truth.mean += dy;
    truth.min = std::min(truth.min, dy);
    truth.max = std::max(truth.max, dy);
    ++count;
  }
  truth.mean /= static_cast<double>(count);
  return truth;
}

int printFailure(const char* what, int status) {
  std::array<char, 4096> text{};
  fmt::print(stderr, "{} ended with {}: {}\n", what, status, GetPolarErrorInfo(text.data()));
  return status;
}

int printRowDifferences(const DataSet& set) {
  std::vector<PolarResultRecord> pairs;
  int status = 0;
  {
    const ConsoleToFile quiet(set.folder / "console.txt");
    status =
        CalPolarLinePrecision(set.polar.c_str(), set.target.c_str(), set.calibration.c_str(), set.list.c_str(), &pairs);
  }
  if (status != 0) return printFailure("CalPolarLinePrecision", status);
  std::ifstream truthFile(set.folder / "truth.json");
  const auto truth = nlohmann::json::parse(truthFile);
  fmt::print("Row differences after rectification, pixels (true values: of the calibration that the files tell)\n\n");
  fmt::print("{:>4} {:>10} {:>10} {:>10}   {:>10} {:>10} {:>10}\n", "pair", "dy_means", "dy_min", "dy_max", "true mean",
             "true min", "true max");
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const RowDifferences known = trueRowDifferences(truth.at("pairs").at(i));
    fmt::print("{:>4} {:>10.5f} {:>10.5f} {:>10.5f}   {:>10.5f} {:>10.5f} {:>10.5f}\n", i, pairs[i].dy_means,
               pairs[i].dy_min, pairs[i].dy_max, known.mean, known.min, known.max);
  }
  return 0;
}

void printFigure(const char* name, double value) { fmt::print("  {:<12} {:.6f}\n", name, value); }

template <typename List>
void printFigures(const char* name, const List& values) {
  fmt::print("  {:<12}", name);
  for (const double value : values) fmt::print(" {:.6f}", value);
  fmt::print("\n");
}

void printRecord(std::size_t index, const PolarResultRecord& pair) {
  fmt::print("\npair {}: {} points\n", index, pair.pairPoints.size());
  printFigure("tri_rms", pair.tri_rms);
  printFigure("tri_mean", pair.tri_mean);
  printFigure("tri_max", pair.tri_max);
  printFigures("tri_dis", pair.tri_dis);
  printFigure("dy_means", pair.dy_means);
  printFigures("pol_dis", pair.pol_dis);
  printFigure("dis_rms", pair.dis_rms);
  printFigure("nor_rms", pair.nor_rms);
  printFigure("zero_dis", pair.zero_dis);
  printFigures("icp rms", std::array<double, 4>{pair.icp_x_rms, pair.icp_y_rms, pair.icp_z_rms, pair.icp_nor_rms});
  printFigure("gt_rms", pair.gt_rms);
  printFigure("space_rms", pair.space_rms);
}

/// Where the board stands: needs the compensated measurement, here without the evaluations of rectified pairs, which
/// switch it off.
int printPoses(const DataSet& set, const ExportedCalibParams& calibration, const ImagePairList& images) {
  std::ifstream file(set.polar);
  std::stringstream polar;
  polar << file.rdbuf() << "\neccentricity: 1\ndy_bias_switch: 0\nfoursixmethod_swithch: 0\ndiscalsave: 0";
  std::vector<PolarResultRecord> pairs;
  int status = 0;
  {
    const ConsoleToFile quiet(set.folder / "figures" / "console_poses.txt");
    status = CalPolarLinePrecisionOutMat(polar.str().c_str(), set.target.c_str(), calibration, images, &pairs, nullptr,
                                         nullptr);
  }
  if (status != 0) return printFailure("CalPolarLinePrecisionOutMat", status);
  fmt::print("\nPose of the board: rotation vector (degrees) and distance of its middle, left then right camera\n");
  for (const PolarResultRecord& pair : pairs) printFigures("PoseReport", pair.PoseReport);
  return 0;
}

/// The virtual camera as the run prints it: " Virtual camera cx: ", " Virtual camera cy: ", " Virtual camera f: ".
RectifiedParams printedGeometry(const std::filesystem::path& console, const ExportedCalibParams& calibration) {
  RectifiedParams rectified;
  std::ifstream file(console);
  for (std::string line; std::getline(file, line);) {
    const auto value = [&](const char* label) { return std::stod(line.substr(std::string(label).size())); };
    if (line.starts_with(" Virtual camera cx: ")) rectified.cx = value(" Virtual camera cx: ");
    if (line.starts_with(" Virtual camera cy: ")) rectified.cy = value(" Virtual camera cy: ");
    if (line.starts_with(" Virtual camera f: ")) rectified.focal = value(" Virtual camera f: ");
  }
  const auto& t = calibration.extrinsics;
  rectified.baseline = -std::hypot(t[3], t[4], t[5]);  // Negative, as the disparity is told right less left.
  rectified.boardPoints.assign(calibration.boardPoints.begin(), calibration.boardPoints.end());
  return rectified;
}

/// The pictures that the run has saved, evaluated as pairs rectified elsewhere: row differences again, and the
/// distances of `Cal_ID_DIS`.
int printRectified(const DataSet& set, const ExportedCalibParams& calibration) {
  const std::filesystem::path folder = set.folder / "figures";
  std::ofstream list(folder / "list.txt");
  list << "#L R\n";
  for (int i = 0; std::filesystem::exists(folder / fmt::format("result_left/{}_left.png", i)); ++i)
    list << fmt::format("result_left/{0}_left.png result_right/{0}_right.png\n", i);
  list.close();
  std::ifstream file(set.polar);
  std::stringstream polar;
  polar << file.rdbuf() << "\noqc_switch: 1";
  std::vector<PolarResultRecord> pairs;
  int status = 0;
  {
    const ConsoleToFile quiet(folder / "console_rectified.txt");
    status = CalRecificationPrecision(polar.str().c_str(), set.target.c_str(),
                                      printedGeometry(folder / "console.txt", calibration),
                                      (folder / "list.txt").string().c_str(), &pairs);
  }
  if (status != 0) return printFailure("CalRecificationPrecision", status);
  fmt::print("\nThe saved rectified pairs, evaluated as they stand\n");
  for (const PolarResultRecord& pair : pairs) {
    printFigure("dy_means", pair.dy_means);
    printFigures("id_dis", pair.id_dis);
  }
  return 0;
}

/// The same set with the board's true coordinates, in memory: every figure.
int printEveryFigure(const DataSet& set) {
  const std::string results = (set.folder / "figures").string();
  std::filesystem::create_directories(results);
  ExportedCalibParams calibration;
  ImagePairList images;
  std::vector<PolarResultRecord> pairs;
  int status = 0;
  {
    const ConsoleToFile quiet(set.folder / "figures" / "console.txt");
    ReadCalibParams(set.calibration, &calibration);
    ReadBoardGTFromTxt(set.board, &calibration.boardPoints);
    ReadCalibImagelist(set.list, &images);
    status = CalPolarLinePrecisionOutMat(set.polar.c_str(), set.target.c_str(), calibration, images, &pairs, nullptr,
                                         results.c_str());
  }
  if (status != 0) return printFailure("CalPolarLinePrecisionOutMat", status);
  fmt::print("\nEvery figure, with the board's true coordinates (board unit, pixels, degrees)\n");
  for (std::size_t i = 0; i < pairs.size(); ++i) printRecord(i, pairs[i]);
  status = printPoses(set, calibration, images);
  return status != 0 ? status : printRectified(set, calibration);
}

int run(const std::string& folder) {
  const DataSet set(folder);
  int status = printRowDifferences(set);
  if (status == 0) status = printEveryFigure(set);
  fmt::print("\nTables (CSV) and pictures (PNG): {0} and {0}/figures\n", set.folder.string());
  return status == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) try {
  CLI::App app("Evaluates a rendered data set and prints the figures beside the truth.");
  std::string folder;
  app.add_option("folder", folder, "Data set made by `scene render`")->required()->check(CLI::ExistingDirectory);
  CLI11_PARSE(app, argc, argv);
  return run(folder);
} catch (const std::exception& failure) {
  std::fputs(failure.what(), stderr);
  return 1;
}
