#include <PolarLinePrecision.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <locale>

#include "allocation/RepeatableProcess.h"
#include "allocation/Sweep.h"
#include "support/FigureText.h"
#include "support/FolderContents.h"
#include "support/RenderedSet.h"
#include "support/SmallScene.h"

namespace {

/// Numbers as a text in full precision.
struct NumberText {
  std::ostringstream stream;

  NumberText() {
    stream.imbue(std::locale::classic());
    stream << std::hexfloat;
  }
  template <typename List>
  void all(const List& list) {
    for (const auto value : list) stream << static_cast<double>(value) << ' ';
  }
  void of(const ExportedCameraCalib& camera) {
    all(std::array<double, 4>{camera.height, camera.width, static_cast<double>(camera.poly_nx),
                              static_cast<double>(camera.poly_ny)});
    all(camera.intrinsics);
    all(camera.poly_x);
    all(camera.poly_y);
  }
};

std::string textOf(const ExportedCalibParams& calibration) {
  NumberText text;
  text.of(calibration.left);
  text.of(calibration.right);
  text.all(calibration.extrinsics);
  return text.stream.str();
}

std::string textOf(const BoardGroundTruth& points) {
  NumberText text;
  for (const cv::Point3f& point : points) text.all(std::array<float, 3>{point.x, point.y, point.z});
  return text.stream.str();
}

std::string textOf(const MultiCalibration& record) {
  NumberText text;
  text.stream << record.short_text << record.long_text << int{record.n} << record.model_code;
  for (const std::string& name : record.camera_names) text.stream << name;
  for (const std::string& name : record.model_names) text.stream << name;
  for (const MultiCalibrationEntry& entry : record.entries) {
    text.stream << entry.camera_name << entry.height << ' ' << entry.width << ' ';
    text.all(entry.parameters);
    text.all(entry.extrinsics);
    text.all(entry.table_block);
  }
  return text.stream.str();
}

struct ReaderAllocations : ::testing::Test {
  RenderedSet set{small_scene::dots()};
  TempFolder folder;
  ExportedCalibParams calibration;
  BoardGroundTruth board;
  MultiCalibration record;
  ImagePairList images;
  RepeatableProcess process;

  RepeatedCall intoCalibration(std::function<std::int32_t()> make) {
    RepeatedCall call;
    call.reset = [this] {
      calibration = {};
      calibration.left.intrinsics[0] = 4711.0;
    };
    call.make = std::move(make);
    call.held = [this] { return textOf(calibration); };
    return call;
  }
  RepeatedCall intoBoard(std::function<std::int32_t()> make) {
    RepeatedCall call;
    call.reset = [this] { board = BoardGroundTruth(1, {1.0F, 2.0F, 3.0F}); };
    call.make = std::move(make);
    call.held = [this] { return textOf(board); };
    return call;
  }
  /// Every place is tried.
  static void expectSound(const RepeatedCall& call, std::size_t fewest_places) {
    const Swept swept = refuseMemoryEverywhere(call, std::numeric_limits<std::size_t>::max());
    EXPECT_EQ(swept.tried, swept.points);
    EXPECT_GE(swept.places, fewest_places);
    RecordProperty("points", static_cast<int>(swept.points));
  }
};

TEST_F(ReaderAllocations, JsonCalibration) {
  const std::string path = set.file("calib.json");
  expectSound(intoCalibration([&] { return ReadCalibParams(path, &calibration); }), 25);
}

TEST_F(ReaderAllocations, BinaryCalibrationAndTheTablesThatItLeaves) {
  const std::string path = folder.file("calib.bin");
  std::filesystem::copy_file(set.file("calib.bin"), path);
  RepeatedCall call = intoCalibration([&] { return ReadCalibParams(path, &calibration); });
  const auto reset = call.reset;
  call.reset = [this, reset] {
    reset();
    for (const auto& [name, bytes] : contentsOf(folder.path()))
      if (name != "calib.bin") std::filesystem::remove(folder.path() / name);
  };
  call.tables = [this] { return contentsOf(folder.path()); };
  expectSound(call, 30);
}

TEST_F(ReaderAllocations, CalibrationOfSeveralModels) {
  const std::string path = set.file("calib.bin");
  RepeatedCall call;
  call.reset = [this] {
    record = {};
    record.short_text = "held";
  };
  call.make = [&] { return LoadCalibrationParamsMulti(path.c_str(), &record, 0); };
  call.held = [this] { return textOf(record); };
  expectSound(call, 5);
}

TEST_F(ReaderAllocations, TextTables) {
  for (const char* name : {"polyparamirl_x.txt", "polyparamirl_y.txt", "polyparamirr_x.txt", "polyparamirr_y.txt"}) {
    std::string table;
    for (int line = 1; line <= 500; ++line) table += std::to_string(line) + ".5\n";
    folder.write(name, table);
  }
  const std::string path = folder.path().string();
  expectSound(intoCalibration([&] { return ReadTxtPolyParams(path, &calibration); }), 15);
}

TEST_F(ReaderAllocations, BoardFromAReport) {
  std::string row;
  for (int field = 0; field < 90; ++field) row += (field == 0 ? "" : ",") + std::to_string(field) + ".25";
  const std::string path = folder.write("board.csv", "\n\n\n\n\n\n\n\n\n\n" + row + "\n");
  for (const bool second_layout : {false, true})
    expectSound(intoBoard([&, second_layout] { return ReadBoardGTFromCSV(path, &board, second_layout); }), 8);
}

TEST_F(ReaderAllocations, BoardFromAList) {
  const std::string path = folder.write("board.txt", "17.500000000000001 35.000000000000001 0.5\n1 2 3\n4 5 6\n");
  expectSound(intoBoard([&] {
                ReadBoardGTFromTxt(path, &board);
                return 0;
              }),
              8);
}

TEST_F(ReaderAllocations, ImageList) {
  const std::string path = set.file("list.txt");
  RepeatedCall call;
  call.reset = [this] { images = {}; };
  call.make = [&] { return ReadCalibImagelist(path, &images); };
  call.keeps = false;  // It is emptied first.
  call.held = [this] {
    NumberText text;
    for (const auto& list : images)
      for (const cv::Mat& image : list)
        text.all(std::array<double, 3>{image.rows * 1.0, image.cols * 1.0, cv::sum(image)[0]});
    return text.stream.str();
  };
  expectSound(call, 18);
}

}  // namespace
