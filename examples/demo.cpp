// Evaluates a rendered data set and prints the figures beside what the renderer knows to be true.
#include <PolarLinePrecision.h>
#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cmath>
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
  printFigures("id_dis", pair.id_dis);
  printFigure("dis_rms", pair.dis_rms);
  printFigure("nor_rms", pair.nor_rms);
  printFigure("zero_dis", pair.zero_dis);
  printFigures("icp rms", std::array<double, 4>{pair.icp_x_rms, pair.icp_y_rms, pair.icp_z_rms, pair.icp_nor_rms});
  printFigure("gt_rms", pair.gt_rms);
  printFigure("space_rms", pair.space_rms);
  printFigures("PoseReport", pair.PoseReport);
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
  return 0;
}

int run(const std::string& folder) {
  const DataSet set(folder);
  int status = printRowDifferences(set);
  if (status == 0) status = printEveryFigure(set);
  fmt::print("\nTables (CSV) and pictures (PNG): {0} and {0}/figures\n", set.folder.string());
  return status == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Evaluates a rendered data set and prints the figures beside the truth.");
  std::string folder;
  app.add_option("folder", folder, "Data set made by `scene render`")->required()->check(CLI::ExistingDirectory);
  CLI11_PARSE(app, argc, argv);
  try {
    return run(folder);
  } catch (const std::exception& failure) {
    fmt::print(stderr, "{}\n", failure.what());
    return 1;
  }
}
