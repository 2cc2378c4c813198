// Which files a call leaves behind, and where names that look like commands or like other folders lead to.
#include <PolarLinePrecision.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <system_error>

#include "support/RenderedSet.h"

namespace {

using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using ::testing::UnorderedElementsAreArray;

using Names = std::vector<std::string>;

/// Everything below the folder by its relative path; folders end in "/".
std::map<std::string, std::string> contentOf(const TempFolder& folder) {
  std::map<std::string, std::string> content;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
    const std::string name = entry.path().lexically_relative(folder.path()).string();
    if (entry.is_directory()) {
      content[name + "/"] = "";
    } else {
      content[name] = folder.read(name);
    }
  }
  return content;
}

/// A value of the environment for the time of a test.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) {
    const char* const kept = std::getenv(name);
    was_set_ = kept != nullptr;
    if (was_set_) kept_ = kept;
    setenv(name, value.c_str(), 1);
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;
  ~Variable() { was_set_ ? setenv(name_, kept_.c_str(), 1) : unsetenv(name_); }

 private:
  const char* name_;
  bool was_set_ = false;
  std::string kept_;
};

/// A tree with all that a call could write to: the inputs' folders, a result folder, the working folder, and the folder
/// that the process has for temporary files, caches and settings.
struct WrittenFiles : ::testing::Test {
  const RenderedSet& set = RenderedSet::of("ring_320");
  TempFolder tree;
  std::filesystem::path kept_working = std::filesystem::current_path();
  Variable temporary{"TMPDIR", tree.file("tmp")};
  Variable home{"HOME", tree.file("tmp")};
  Variable cache{"XDG_CACHE_HOME", tree.file("tmp")};
  std::map<std::string, std::string> before;
  std::vector<PolarResultRecord> results;
  std::string polar = set.polarWith({{"evaluation", "1"},
                                     {"savepolarline", "1"},
                                     {"allpoints_calc_switch", "1"},
                                     {"triangulate_residual_switch", "1"},
                                     {"triangulate_dis_switch", "1"},
                                     {"discalswitch", "1"},
                                     {"discalsave", "1"},
                                     {"eccentricity", "1"},
                                     {"tri_bias_savepng_swithch", "1"},
                                     {"tir_bias_savecsv_swithch", "1"},
                                     {"dy_bias_switch", "1"},
                                     {"dy_bias_savecsv_swithch", "1"},
                                     {"dy_bias_savepng_swithch", "1"},
                                     {"allpointssavecsv_swithch", "1"},
                                     {"foursixmethod_swithch", "1"},
                                     {"oqc_switch", "1"},
                                     {"spaceRms_switch", "1"}});

  WrittenFiles() {
    for (const char* name : {"inputs", "calibration", "results", "work", "tmp"}) makeFolder(name);
    for (const char* name : {"list.txt", "target.ini", "left_0.png", "right_0.png", "left_1.png", "right_1.png"})
      std::filesystem::copy_file(set.file(name), tree.file(std::string("inputs/") + name));
    std::filesystem::copy_file(set.file("calib.bin"), tree.file("calibration/calib.bin"));
    std::filesystem::current_path(tree.path() / "work");
    before = contentOf(tree);
  }
  ~WrittenFiles() override { std::filesystem::current_path(kept_working); }

  void makeFolder(const std::string& name) const { std::filesystem::create_directory(tree.path() / name); }
  std::int32_t onDisk(const std::string& list) {
    const ConsoleCapture quiet;
    return CalPolarLinePrecision(polar.c_str(), tree.file("inputs/target.ini").c_str(),
                                 tree.file("calibration/calib.bin").c_str(), list.c_str(), &results);
  }
  std::int32_t inMemory(const std::string& result_folder) {
    const ExportedCalibParams calib = set.calibration();
    const ImagePairList images = set.images();
    const ConsoleCapture quiet;
    return CalPolarLinePrecisionOutMat(polar.c_str(), tree.file("inputs/target.ini").c_str(), calib, images, &results,
                                       nullptr, result_folder.c_str());
  }
  /// What is new since the last look. Whatever was there already must be as it was.
  Names appeared() {
    Names names;
    const auto now = contentOf(tree);
    for (const auto& [name, content] : before) {
      const auto found = now.find(name);
      EXPECT_TRUE(found != now.end() && found->second == content) << name << " is gone or has changed";
    }
    for (const auto& [name, content] : now)
      if (!before.contains(name)) names.push_back(name);
    before = now;
    return names;
  }

  static Names below(const std::string& folder, const Names& names) {
    Names result;
    for (const std::string& name : names) result.push_back(folder + "/" + name);
    return result;
  }
};

const Names kPictures = {"result/",
                         "result/0.png",
                         "result/1.png",
                         "result_left/",
                         "result_left/0_left.png",
                         "result_left/1_left.png",
                         "result_right/",
                         "result_right/0_right.png",
                         "result_right/1_right.png"};
const Names kRowTables = {"0_left_dy.csv", "1_left_dy.csv",    "0_left_dy.png",
                          "1_left_dy.png", "0_pointcloud.csv", "1_pointcloud.csv"};
const Names kResiduals = {"0_right_tri.csv", "1_right_tri.csv", "0_right_tri.png", "1_right_tri.png"};
const Names kDistances = {"0_diserr.csv", "1_diserr.csv", "0_tripoints.csv", "1_tripoints.csv"};
const Names kBoardChecks = {"0_boardcheck.csv", "1_boardcheck.csv"};
const Names kTables = {"polyparamirl_x.txt", "polyparamirl_y.txt", "polyparamirr_x.txt", "polyparamirr_y.txt"};

Names together(std::initializer_list<Names> lists) {
  Names all;
  for (const Names& list : lists) all.insert(all.end(), list.begin(), list.end());
  return all;
}

TEST_F(WrittenFiles, OfAnImageSetOnDiskAreBesideItsListAndItsBinaryCalibration) {
  ASSERT_EQ(onDisk(tree.file("inputs/list.txt")), 0);
  ASSERT_EQ(results.size(), 2U);
  EXPECT_THAT(
      appeared(),
      UnorderedElementsAreArray(together(
          {below("calibration", kTables),
           below("inputs", together({{"align_data_0.csv"}, kPictures, kRowTables, kResiduals, kBoardChecks}))})));
}

TEST_F(WrittenFiles, OfAnImageSetInMemoryAreInTheResultFolder) {
  ASSERT_EQ(inMemory(tree.file("results")), 0);
  ASSERT_EQ(results.size(), 2U);
  EXPECT_THAT(
      appeared(),
      UnorderedElementsAreArray(below(
          "results", together({{"align_data_0.csv"}, kPictures, kRowTables, kResiduals, kDistances, kBoardChecks}))));
}

TEST_F(WrittenFiles, OfNoResultFolderAreNone) {
  ASSERT_EQ(inMemory(""), 0);
  ASSERT_EQ(results.size(), 2U);
  EXPECT_THAT(appeared(), IsEmpty());
}

TEST_F(WrittenFiles, OfAFrameRunAreItsSummaryAndTheResiduals) {
  polar +=
      "\nframe_work: 1\nFrame_ID: [1,2,3]\nFrame_ID_DIS: [[1,2]]\nFrame_3D: [[0,0,0],[9,0,0],[9,9,0]]\n"
      "Frame_IRL: [[100,100],[160,100],[160,140]]\nFrame_IRR: [[100,100],[160,100],[160,140]]";
  ASSERT_EQ(inMemory(tree.file("results")), 0);
  ASSERT_EQ(results.size(), 2U);
  EXPECT_THAT(appeared(), UnorderedElementsAreArray(below("results", together({{"frame_result.csv"}, kResiduals}))));
}

TEST_F(WrittenFiles, OfImagesRectifiedElsewhereAreBesideTheirList) {
  const ConsoleCapture quiet;
  RectifiedParams rectified;
  for (const cv::Point3f& point : set.calibration().boardPoints) rectified.boardPoints.emplace_back(point);
  ASSERT_EQ(CalRecificationPrecision(polar.c_str(), tree.file("inputs/target.ini").c_str(), rectified,
                                     tree.file("inputs/list.txt").c_str(), &results),
            0);
  EXPECT_THAT(appeared(), UnorderedElementsAreArray(below("inputs", together({{"align_data.csv"}, kRowTables}))));
}

TEST_F(WrittenFiles, OfTheReadersAreTheTablesOfABinaryCalibration) {
  const ConsoleCapture quiet;
  const std::string binary = tree.file("calibration/calib.bin");
  const std::string list = tree.file("inputs/list.txt");
  MultiCalibration record;
  EXPECT_EQ(LoadCalibrationParamsMulti(binary.c_str(), &record, 0), 0);
  ImagePairList images;
  EXPECT_EQ(ReadCalibImagelist(list, &images), 0);
  BoardGroundTruth board;
  ReadBoardGTFromTxt(set.file("board_gt.txt"), &board);
  ReadBoardGTFromCSV(set.file("board_gt.txt"), &board, false);
  ReadBoardGTFromCSV(set.file("board_gt.txt"), &board, true);
  EXPECT_THAT(appeared(), IsEmpty());

  ExportedCalibParams calib;
  EXPECT_EQ(ReadCalibParams(binary, &calib), 0);
  EXPECT_THAT(appeared(), UnorderedElementsAreArray(below("calibration", kTables)));
  EXPECT_EQ(ReadTxtPolyParams(tree.file("calibration"), &calib), 0);
  EXPECT_THAT(appeared(), IsEmpty());
}

TEST_F(WrittenFiles, OfTheTemperatureExportAreTheTablesOfABinaryCalibration) {
  const ConsoleCapture quiet;
  const std::string list = tree.file("inputs/list.txt");
  EXPECT_EQ(CalTempCompensateCoeff(polar.c_str(), "", set.file("calib.json").c_str(), list.c_str()), 0);
  EXPECT_THAT(appeared(), IsEmpty());
  EXPECT_EQ(CalTempCompensateCoeff(polar.c_str(), "", tree.file("calibration/calib.bin").c_str(), list.c_str()), 0);
  EXPECT_THAT(appeared(), UnorderedElementsAreArray(below("calibration", kTables)));
}

/// Names that would start something, or lead elsewhere, if a shell or a careless join saw them.
struct WrittenFilesHostileNames : WrittenFiles {
  const std::string command = "$(touch${IFS}made);`touch${IFS}made`|touch${IFS}made&>made";
};

TEST_F(WrittenFilesHostileNames, FolderOfThatNameTakesItsFiles) {
  makeFolder(command);
  polar = "evaluation: 1\nspaceRms_switch: 0\nsavepolarline: 1";
  ASSERT_EQ(inMemory(tree.file(command)), 0);
  Names expected = below(command, {"align_data_0.csv", "result/", "result_left/", "result_right/"});
  expected.push_back(command + "/");
  EXPECT_THAT(appeared(), UnorderedElementsAreArray(expected));
}

TEST_F(WrittenFilesHostileNames, FolderWithBlanksMakesFoldersOfItsWords) {
  makeFolder("results $(touch made) ; `x` ..");
  appeared();
  polar = "savepolarline: 1";
  EXPECT_EQ(inMemory(tree.file("results $(touch made) ; `x` ..")), polar_status::kResultFolder);
  // The first word is a folder that is there; of "..\result" the parent of the working folder is meant.
  EXPECT_THAT(appeared(), UnorderedElementsAre("work/$(touch/", "work/made)/", "work/;/", "work/`x`/", "result/",
                                               "result_left/", "result_right/"));
}

TEST_F(WrittenFilesHostileNames, CallersFolderMayLeadUpwards) {
  polar = "evaluation: 1\nspaceRms_switch: 0";
  ASSERT_EQ(inMemory(tree.file("results/../inputs")), 0);
  EXPECT_THAT(appeared(), UnorderedElementsAre("inputs/align_data_0.csv"));
}

TEST_F(WrittenFilesHostileNames, ImagesAreReadWhereTheListSaysAndNameNoFile) {
  makeFolder("elsewhere");
  std::filesystem::copy_file(set.file("left_0.png"), tree.file("elsewhere/" + command + ".png"));
  tree.write("inputs/list.txt", "#L R\n../elsewhere/" + command + ".png ..\\inputs\\right_0.png\n");
  before = contentOf(tree);
  ASSERT_EQ(onDisk(tree.file("inputs/list.txt")), 0);
  ASSERT_EQ(results.size(), 1U);
  for (const std::string& name : appeared())
    EXPECT_TRUE(name.starts_with("inputs/") || name.starts_with("calibration/polyparamir")) << name;
}

TEST_F(WrittenFilesHostileNames, AbsoluteImageNameStaysBelowTheListsFolder) {
  tree.write("inputs/list.txt", "#L R\n" + set.file("left_0.png") + " " + set.file("right_0.png") + "\n");
  ImagePairList images;
  const ConsoleCapture quiet;
  EXPECT_EQ(ReadCalibImagelist(tree.file("inputs/list.txt"), &images), 0);
  EXPECT_TRUE(images.at(0).at(0).empty());
  EXPECT_TRUE(images.at(1).at(0).empty());
}

TEST_F(WrittenFilesHostileNames, TextsOfTheConfigurationsNameNoFile) {
  polar = "evaluation: 1\nresult_folder: " + tree.file("work") + "\nspaceRms_switch: 0\nframe_work: 1\n" + command +
          ": " + command + "\nFrame_ID: [../../made," + command + "]\nFrame_ID_DIS: [[../made," + command + "]]";
  const ConsoleCapture quiet;
  EXPECT_EQ(CalPolarLinePrecisionOutMat(polar.c_str(), "", {}, ImagePairList(2), &results, nullptr,
                                        tree.file("results").c_str()),
            polar_status::kNoResults);
  EXPECT_THAT(appeared(), UnorderedElementsAre("results/frame_result.csv"));
  EXPECT_EQ(tree.read("results/frame_result.csv"), "id ,0_0\n\n");
}

TEST_F(WrittenFilesHostileNames, TargetOfSuchANameIsReadOnly) {
  std::vector<PolarResultRecord> none;
  const ConsoleCapture quiet;
  const std::string target = "../" + command + ".json";
  EXPECT_THROW(CalPolarLinePrecisionOutMat("triangulate_residual_switch: 1", target.c_str(), set.calibration(),
                                           set.images(), &none, nullptr, tree.file("results").c_str()),
               std::system_error);
  EXPECT_THAT(appeared(), IsEmpty());
}

}  // namespace
