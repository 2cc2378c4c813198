#include <PolarLinePrecision.h>

#include "fuzz/Harness.h"

// The same bytes as a polynomial table, as a CSV report in both layouts and as a text list.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] {
    for (const char* name : {"polyparamirl_x.txt", "polyparamirl_y.txt", "polyparamirr_x.txt", "polyparamirr_y.txt"})
      fuzzing::writeInput(name, data, size);
    const std::string path = fuzzing::writeInput("board.csv", data, size);
    ExportedCalibParams calibration;
    BoardGroundTruth board;
    ReadTxtPolyParams(fuzzing::folder().string(), &calibration);
    ReadBoardGTFromCSV(path, &board, false);
    ReadBoardGTFromCSV(path, &board, true);
    ReadBoardGTFromTxt(path, &board);
  });
}
