#include <PolarLinePrecision.h>
#include <gtest/gtest.h>

#include <opencv2/imgcodecs.hpp>
#include <system_error>

#include "support/ConsoleCapture.h"
#include "support/TempFolder.h"

namespace {

struct ReaderExports : ::testing::Test {
  TempFolder folder;
  ConsoleCapture console;
};

TEST_F(ReaderExports, MissingFilesAreToldOnTheConsole) {
  const std::string path = folder.file("none.bin");
  ExportedCalibParams calib;
  ImagePairList images;
  BoardGroundTruth board;
  EXPECT_EQ(ReadCalibParams(path, &calib), polar_status::kFileMissing);
  EXPECT_EQ(ReadCalibImagelist(path, &images), polar_status::kFileMissing);
  EXPECT_EQ(ReadBoardGTFromCSV(path, &board, false), polar_status::kFileMissing);
  EXPECT_EQ(ReadBoardGTFromCSV(path, &board, true), polar_status::kFileMissing);
  const std::string line = path + " is not exists!\n";
  EXPECT_EQ(console.out(), line + line + line + line);
}

TEST_F(ReaderExports, StatusErrorOtherThanNotFoundRaises) {
  ExportedCalibParams calib;
  try {
    ReadCalibParams(std::string(5000, 'a'), &calib);
    FAIL() << "no exception";
  } catch (const std::filesystem::filesystem_error& error) {
    EXPECT_NE(std::string(error.what()).find("exists"), std::string::npos);
  }
}

TEST_F(ReaderExports, CalibrationComesLeftFirst) {
  const std::string path = folder.write(
      "calib.json", R"({"IR_L": {"Fx": 11, "P2": 12}, "IR_R": {"Fx": 21, "Rotate": {"RX": 1, "RY": 2, "RZ": 3},)"
                    R"( "Translate": {"TX": 4, "TY": 5, "TZ": 6}}, "COLOR": {"Fx": 31}})");
  ExportedCalibParams calib;
  calib.boardPoints = {{1, 2, 3}};
  EXPECT_EQ(ReadCalibParams(path, &calib), 0);
  EXPECT_EQ(calib.left.intrinsics[0], 11.0);
  EXPECT_EQ(calib.left.intrinsics[11], 12.0);
  EXPECT_EQ(calib.right.intrinsics[0], 21.0);
  EXPECT_EQ(calib.extrinsics, (std::array<double, 6>{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(calib.boardPoints.size(), 1U);
}

TEST_F(ReaderExports, CalibrationReadersOwnStatusIsIgnored) {
  ExportedCalibParams calib;
  EXPECT_EQ(ReadCalibParams(folder.write("calib.txt", "x"), &calib), 0);
  EXPECT_EQ(console.out(), "readCalibResult error: invalid fileType\n");
}

TEST_F(ReaderExports, ImageListTellsItsOutcome) {
  cv::imwrite(folder.file("a.png"), cv::Mat(3, 4, CV_16UC1, cv::Scalar(1000)));
  ImagePairList images;
  EXPECT_EQ(ReadCalibImagelist(folder.write("list.txt", "# L   R\na.png a.png\n"), &images), 0);
  ASSERT_EQ(images.size(), 2U);
  EXPECT_EQ(images[1].at(0).type(), CV_16UC1);
  EXPECT_EQ(ReadCalibImagelist(folder.write("bad.txt", "L R\n"), &images), polar_status::kInputUnreadable);
  EXPECT_EQ(console.out(), "readCalibImagelist() success!\nreadCalibImagelist() failed!\n");
}

TEST_F(ReaderExports, TextTablesNeedAllFourFiles) {
  for (const char* name : {"polyparamirl_x.txt", "polyparamirl_y.txt", "polyparamirr_x.txt"})
    folder.write(name, "1.5\n2.5\n");
  ExportedCalibParams calib;
  EXPECT_EQ(ReadTxtPolyParams(folder.path().string(), &calib), polar_status::kInputUnreadable);
  EXPECT_EQ(console.out(), "path/polyparamirl_x.txt is not exists!\n");
  folder.write("polyparamirr_y.txt", "3.5\n");
  EXPECT_EQ(ReadTxtPolyParams(folder.path().string(), &calib), 0);
  EXPECT_EQ(calib.left.poly_x[1], 2.5F);
  EXPECT_EQ(calib.right.poly_y[0], 3.5F);
  EXPECT_EQ(calib.right.poly_y[499], 0.0F);
  EXPECT_EQ(calib.left.poly_nx, 6);
  EXPECT_EQ(calib.right.poly_ny, 4);
  EXPECT_EQ(calib.left.width, 1920.0);
  EXPECT_EQ(calib.right.height, 1200.0);
}

TEST_F(ReaderExports, TextBoardAppendsAndSaysNothing) {
  BoardGroundTruth board{{9, 9, 9}};
  ReadBoardGTFromTxt(folder.write("board.txt", "1 2 3\n4.5\t5 6\n"), &board);
  ReadBoardGTFromTxt(folder.file("none.txt"), &board);
  EXPECT_EQ(board, (BoardGroundTruth{{9, 9, 9}, {1, 2, 3}, {4.5F, 5, 6}}));
  EXPECT_TRUE(console.out().empty());
}

TEST_F(ReaderExports, CsvLayoutsDifferByTheCallersFlag) {
  std::string row;
  for (int field = 0; field < 90; ++field) row += (field == 0 ? "" : ",") + std::to_string(field);
  const std::string path = folder.write("board.csv", "\n\n\n\n\n\n\n\n\n\n" + row + "\n");
  BoardGroundTruth board{{9, 9, 9}};
  EXPECT_EQ(ReadBoardGTFromCSV(path, &board, false), 0);
  ASSERT_EQ(board.size(), 42U);
  EXPECT_EQ(board[1], cv::Point3f(6, 7, 0));
  EXPECT_EQ(ReadBoardGTFromCSV(path, &board, true), 0);
  ASSERT_EQ(board.size(), 42U);
  EXPECT_EQ(board[1], cv::Point3f(7, 8, 0));
}

TEST_F(ReaderExports, BinaryLoaderRefusesNullAndOptions) {
  MultiCalibration record;
  EXPECT_EQ(LoadCalibrationParamsMulti(nullptr, &record, 0), polar_status::kNullArgument);
  EXPECT_EQ(LoadCalibrationParamsMulti("x", nullptr, 0), polar_status::kNullArgument);
  EXPECT_EQ(LoadCalibrationParamsMulti("x", &record, 1), polar_status::kNotSupported);
  EXPECT_EQ(LoadCalibrationParamsMulti(folder.file("none.bin").c_str(), &record, 0), ENOENT);
}

}  // namespace
