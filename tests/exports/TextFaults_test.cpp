// Texts as other systems and damaged disks leave them: line ends of other kinds, marks before the first character, NUL
// bytes, very long lines, names beyond ASCII.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <opencv2/imgcodecs.hpp>

#include "support/SpoiledSet.h"

namespace {

using ::testing::HasSubstr;
using ::testing::Not;
namespace fs = std::filesystem;

const std::string kMark = "\xEF\xBB\xBF";  // The byte order mark of UTF-8.
constexpr std::size_t kLong = 10'000'000;

/// `size` bytes, of which some may be NUL.
template <std::size_t size>
std::string bytes(const char (&text)[size]) {
  return {text, size - 1};
}

struct Texts : ::testing::Test {
  TempFolder folder;
  ConsoleCapture console;

  /// What a run of one grey pair answers.
  std::int32_t run(const std::string& polar, const std::string& target) const {
    const ImagePairList images(2, std::vector<cv::Mat>(1, cv::Mat(60, 60, CV_8UC1, cv::Scalar(90))));
    std::vector<PolarResultRecord> results;
    return CalPolarLinePrecisionOutMat(polar.c_str(), target.c_str(), {}, images, &results, nullptr, nullptr);
  }
};

struct TextFaultsPolar : Texts {
  /// Whether a run reads the line of a ground-truth point that is none: the one line that shows in the status.
  bool readsThePoint(const std::string& text) const {
    return run(folder.write("polar.txt", text), "board_type: 2") == polar_status::kBadGroundTruthPoint;
  }
};

TEST_F(TextFaultsPolar, LineEndsOfEitherKindEndALine) {
  EXPECT_TRUE(readsThePoint("x_y: 0\nPolPoint1_GT: [1]\ntype: 0\n"));
  EXPECT_TRUE(readsThePoint("x_y: 0\r\nPolPoint1_GT: [1]\r\ntype: 0\r\n"));
}

TEST_F(TextFaultsPolar, CarriageReturnAloneEndsNoLine) {
  EXPECT_FALSE(readsThePoint("x_y: 0\rPolPoint1_GT: [1]\rtype: 0\r"));
  EXPECT_TRUE(readsThePoint("PolPoint1_GT: [1]\rx_y: 0\r")) << "the first key is the line's";
}

TEST_F(TextFaultsPolar, MarkBelongsToTheFirstKey) {
  EXPECT_FALSE(readsThePoint(kMark + "PolPoint1_GT: [1]\n"));
  EXPECT_TRUE(readsThePoint(kMark + "# comment\nPolPoint1_GT: [1]\n"));
}

TEST_F(TextFaultsPolar, NulIsACharacterLikeOthers) {
  EXPECT_FALSE(readsThePoint(bytes("\0PolPoint1_GT: [1]\n")));
  EXPECT_FALSE(readsThePoint(bytes("PolPoint1_GT\0: [1]\n")));
  EXPECT_TRUE(readsThePoint(bytes("\0\0\0\nx\0: \0\nPolPoint1_GT: [1]\n\0")));
  EXPECT_TRUE(readsThePoint(bytes("PolPoint1_GT: [1,2,3]\0\n"))) << "a list that does not end in its bracket";
}

TEST_F(TextFaultsPolar, LongLinesAreReadToTheirEnd) {
  for (const char filler : {'x', ':', '\0'})
    EXPECT_TRUE(readsThePoint(std::string(kLong, filler) + "\nPolPoint1_GT: [1]\n")) << int{filler};
  for (const char* key : {"type:", "f_scale:", "eccentricity:", "TriPoint1_GT:", "Cal_ID_DIS: ["})
    EXPECT_TRUE(readsThePoint(key + std::string(1'000'000, '9') + "\nPolPoint1_GT: [1]\n")) << key;
  EXPECT_TRUE(readsThePoint("PolPoint1_GT:" + std::string(kLong, ' ') + "[1]"));
  EXPECT_TRUE(readsThePoint("PolPoint1_GT: [" + std::string(1'000'000, ',') + "]"));
}

struct TextFaultsTarget : Texts {
  /// The console lines of a run that tell the board's last point.
  std::string boardOf(const std::string& text) const {
    run("type: 0", folder.write("target.ini", text));
    return console.out();
  }
};

constexpr const char* kOfThreeByFive = "checke_pointend:40 20 0\n";

TEST_F(TextFaultsTarget, LineEndsOfEitherKindEndALine) {
  EXPECT_THAT(boardOf("board_type: 1\nrows: 3\ncols: 5\nstep: 10\n"), HasSubstr(kOfThreeByFive));
}

TEST_F(TextFaultsTarget, WindowsLineEndsReadTheSame) {
  EXPECT_THAT(boardOf("board_type: 1\r\nrows: 3\r\ncols: 5\r\nstep: 10\r\n"), HasSubstr(kOfThreeByFive));
}

TEST_F(TextFaultsTarget, CarriageReturnAloneEndsNoLine) {
  EXPECT_THAT(boardOf("board_type: 1\rrows: 3\rcols: 5\rstep: 10\r"), Not(HasSubstr("checke_pointend:")))
      << "a board without dots";
}

TEST_F(TextFaultsTarget, MarkBelongsToTheFirstKey) {
  EXPECT_THAT(boardOf(kMark + "board_type: 1\nrows: 3\ncols: 5\nstep: 10\n"),
              HasSubstr("checke_pointend:1260 1225 0\n"))
      << "without its type the board is the default one";
}

TEST_F(TextFaultsTarget, NulAndLongLinesDoNoHarm) {
  EXPECT_THAT(boardOf(std::string(kLong, 'x') + "\nland_mark1_x: " + std::string(1'000'000, '9') +
                      bytes("\n\0:\0\nboard_type: 1\nrows: 3\0\ncols: 5\n") + "step: 10"),
              HasSubstr(kOfThreeByFive));
}

struct TextFaultsList : Texts {
  ImagePairList images;

  TextFaultsList() {
    for (const char* name : {"a.png", "b.png"}) cv::imwrite(folder.file(name), cv::Mat(2, 3, CV_8UC1, cv::Scalar(9)));
  }
  std::int32_t read(const std::string& text) { return ReadCalibImagelist(folder.write("list.txt", text), &images); }
  std::size_t decoded() const {
    std::size_t count = 0;
    for (const auto& list : images) {
      for (const cv::Mat& image : list) count += image.empty() ? 0U : 1U;
    }
    return count;
  }
};

TEST_F(TextFaultsList, WindowsLineEndsReadTheSame) {
  EXPECT_EQ(read("#L R\r\na.png b.png\r\na.png b.png\r\n"), 0);
  EXPECT_EQ(decoded(), 4U);
}

TEST_F(TextFaultsList, CarriageReturnAloneMakesOneHeader) {
  EXPECT_EQ(read("#L R\ra.png b.png\r"), 0);
  EXPECT_EQ(images.size(), 3U) << "the names are only counted";
  EXPECT_EQ(decoded(), 0U);
}

TEST_F(TextFaultsList, MarkBeforeTheHeaderFails) {
  EXPECT_EQ(read(kMark + "#L R\na.png b.png\n"), polar_status::kInputUnreadable);
  EXPECT_EQ(console.err(), "ParseHeaderLine failed!\n");
  EXPECT_TRUE(images.empty());
}

TEST_F(TextFaultsList, NulBytesMakeOtherNames) {
  EXPECT_EQ(read(bytes("#L\0R x\n\0 b.png\na.png b.png\n")), 0);
  ASSERT_EQ(images.size(), 2U);
  EXPECT_TRUE(images[0].at(0).empty());
  EXPECT_FALSE(images[0].at(1).empty());
}

TEST_F(TextFaultsList, LongLinesEndTheList) {
  EXPECT_EQ(read("#L R\na.png b.png\n" + std::string(kLong, 'x') + "\na.png b.png\n"), 0);
  EXPECT_EQ(decoded(), 2U);
  EXPECT_EQ(read("#L R " + std::string(kLong, 'x') + "\na.png b.png\n"), 0);
  EXPECT_EQ(images.size(), 3U);
  EXPECT_EQ(decoded(), 0U);
}

TEST_F(TextFaultsList, NamesBeyondAsciiWork) {
  fs::rename(folder.file("a.png"), folder.file("gerät_左.png"));
  EXPECT_EQ(read("#l\xC3\xBCnks R\ngerät_左.png b.png\n"), 0);
  EXPECT_EQ(decoded(), 2U);
}

struct TextFaultsTable : Texts {
  ExportedCalibParams calibration;

  const std::array<float, 500>& read(const std::string& text) {
    for (const char* name : {"polyparamirl_y.txt", "polyparamirr_x.txt", "polyparamirr_y.txt"}) folder.write(name, "");
    folder.write("polyparamirl_x.txt", text);
    EXPECT_EQ(ReadTxtPolyParams(folder.path().string(), &calibration), 0);
    return calibration.left.poly_x;
  }
};

TEST_F(TextFaultsTable, WindowsLineEndsReadTheSame) { EXPECT_EQ(read("1.5\r\n2.5\r\n").at(1), 2.5F); }

TEST_F(TextFaultsTable, CarriageReturnAloneEndsNoLine) {
  EXPECT_EQ(read("1.5\r2.5\r").at(0), 1.5F);
  EXPECT_EQ(calibration.left.poly_x[1], 0.0F);
}

TEST_F(TextFaultsTable, MarkSpoilsItsLineOnly) {
  EXPECT_EQ(read(kMark + "1.5\n2.5\n").at(0), 0.0F);
  EXPECT_EQ(calibration.left.poly_x[1], 2.5F);
}

TEST_F(TextFaultsTable, NulAndLongLinesKeepTheirPlace) {
  const std::string longest(kLong, '0');
  EXPECT_EQ(read(bytes("\0"
                       "1.5\n2.5\0\n") +
                 longest + "3.5\n" + std::string(kLong, ' ') + "4.5\n")
                .at(0),
            0.0F);
  EXPECT_EQ(calibration.left.poly_x[1], 2.5F);
  EXPECT_EQ(calibration.left.poly_x[2], 3.5F);
  EXPECT_EQ(calibration.left.poly_x[3], 4.5F);
}

struct TextFaultsBoard : Texts {
  BoardGroundTruth points;

  const BoardGroundTruth& readList(const std::string& text) {
    points.clear();
    ReadBoardGTFromTxt(folder.write("board.txt", text), &points);
    return points;
  }
  cv::Point3f readReport(const std::string& text) {
    EXPECT_EQ(ReadBoardGTFromCSV(folder.write("board.csv", text), &points, false), 0);
    EXPECT_EQ(points.size(), 42U);
    return points.at(0);
  }
};

TEST_F(TextFaultsBoard, LineEndsOfEitherKindEndALine) {
  EXPECT_EQ(readList("1 2 3\r\n4 5 6\r\n"), (BoardGroundTruth{{1, 2, 3}, {4, 5, 6}}));
  EXPECT_EQ(readList("1 2 3\r4 5 6\r"), (BoardGroundTruth{{1, 2, 3}})) << "a carriage return alone ends no line";
  std::string windows;
  for (int k = 0; k < 10; ++k) windows += "x,y\r\n";
  EXPECT_EQ(readReport(windows + "0,1,2,3,4.5,5\r\n"), cv::Point3f(4.5F, 5.0F, 0.0F));
  EXPECT_EQ(readReport(std::string(10, '\r') + "0,1,2,3,4.5,5\r"), cv::Point3f()) << "one line, not eleven";
}

TEST_F(TextFaultsBoard, MarkSpoilsItsLineOnly) {
  EXPECT_EQ(readList(kMark + "1 2 3\n4 5 6\n"), (BoardGroundTruth{{0, 0, 0}, {4, 5, 6}}));
  EXPECT_EQ(readReport(kMark + std::string(10, '\n') + "0,1,2,3,4.5,5\n"), cv::Point3f(4.5F, 5.0F, 0.0F));
}

TEST_F(TextFaultsBoard, NulEndsANumber) {
  EXPECT_EQ(readList(bytes("1 2\0 3\n\0\n4 5 6\n")), (BoardGroundTruth{{1, 2, 0}, {0, 0, 0}, {4, 5, 6}}));
  EXPECT_EQ(readReport(std::string(10, '\n') + bytes("\0,1,\0,3,4.5\0"
                                                     "7,5\n")),
            cv::Point3f(4.5F, 5.0F, 0.0F));
}

TEST_F(TextFaultsBoard, LongLinesAreReadToTheirEnd) {
  EXPECT_EQ(readList("1" + std::string(kLong, ' ') + "2 3 4\n4 5 6" + std::string(kLong, 'x') + "\n7 8 9"),
            (BoardGroundTruth{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
  const std::string before = std::string(10, '\n') + "0,1,2,3,";
  EXPECT_EQ(readReport(before + std::string(kLong, ' ') + "4.5,5\n"), cv::Point3f(4.5F, 5.0F, 0.0F));
  EXPECT_EQ(readReport(before + "4.5,5" + std::string(kLong, ',') + "\n"), cv::Point3f(4.5F, 5.0F, 0.0F));
}

using TextFaultsOfNames = SpoiledSet;

TEST_F(TextFaultsOfNames, FoldersAndFilesBeyondAsciiWork) {
  const fs::path set = folder.path() / "Prüfstand_測定";
  fs::create_directory(set);
  for (const char* name : {"left_0.png", "right_0.png", "calib.bin"}) fs::rename(folder.file(name), set / name);
  fs::rename(set / "left_0.png", set / "gerät_左.png");
  fs::rename(set / "calib.bin", set / "kalibrierung_ä.bin");
  fs::rename(folder.file("polar.txt"), set / "einstellungen_ö.txt");
  fs::rename(folder.file("target.ini"), set / "tafel_板.ini");
  folder.write("Prüfstand_測定/liste_表.txt", "#links_左 rechts_右\ngerät_左.png right_0.png\n");
  const ConsoleCapture quiet;
  EXPECT_EQ(CalPolarLinePrecision((set / "einstellungen_ö.txt").c_str(), (set / "tafel_板.ini").c_str(),
                                  (set / "kalibrierung_ä.bin").c_str(), (set / "liste_表.txt").c_str(), &results),
            0);
  EXPECT_EQ(results.size(), 1U);
  for (const char* name : {"align_data_0.csv", "0_left_dy.csv", "0_left_dy.png", "result/0.png",
                           "result_left/0_left.png", "polyparamirr_y.txt"})
    EXPECT_GT(fs::file_size(set / name), 0U) << name;
}

}  // namespace
