// Results that cannot be written: the figures come back all the same, and nothing else is harmed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iterator>

#include "support/FolderContents.h"
#include "support/FullDevice.h"
#include "support/OpenFiles.h"
#include "support/SpoiledSet.h"
#include "support/Unprivileged.h"

namespace {

using ::testing::HasSubstr;
namespace fs = std::filesystem;

const RenderedSet& rings() { return RenderedSet::of("ring_320"); }

const std::string& target() {
  static const std::string text = TempFolder::contentOf(rings().file("target.ini"));
  return text;
}

/// Every evaluation and every file but those in the folders that a run makes itself.
std::string everything() { return rings().polarWith({{"savepolarline", "0"}}); }

std::vector<double> figuresOf(const std::vector<PolarResultRecord>& records) {
  std::vector<double> figures;
  for (const PolarResultRecord& record : records) {
    figures.insert(figures.end(), {record.tri_rms, record.dy_means, record.dis_rms, record.gt_rms, record.space_rms,
                                   static_cast<double>(record.pairPoints.size())});
    figures.insert(figures.end(), record.tri_dis.begin(), record.tri_dis.end());
    figures.insert(figures.end(), record.pol_dis.begin(), record.pol_dis.end());
  }
  return figures;
}

std::ptrdiff_t entriesIn(const fs::path& folder) { return std::distance(fs::recursive_directory_iterator(folder), {}); }

/// Evaluates the first pair in memory.
RunOutcome evaluate(const std::string& polar, const fs::path& result_folder) {
  static const ExportedCalibParams calibration = rings().calibration();
  static const ImagePairList all = rings().images();
  const ImagePairList images = {{all[0][0]}, {all[1][0]}};
  RunOutcome outcome;
  const ConsoleCapture console;
  outcome.status = CalPolarLinePrecisionOutMat(polar.c_str(), target().c_str(), calibration, images, &outcome.records,
                                               nullptr, result_folder.c_str());
  outcome.out = console.out();
  outcome.error_text = errorText();
  return outcome;
}

/// What it comes to where nothing is written.
const std::vector<double>& figures() {
  static const std::vector<double> result = figuresOf(evaluate(everything(), "").records);
  return result;
}

void nextCallWritesAll() {
  const TempFolder good;
  EXPECT_EQ(figuresOf(evaluate(everything(), good.path()).records), figures());
  EXPECT_THAT(good.read("align_data_0.csv"), HasSubstr("Images_num_: 1_PolarVersion_: 1.3.3,"));
  EXPECT_GT(good.read("0_left_dy.csv").size(), 1000U);
}

struct ResultFolderFaults : ::testing::Test {
  TempFolder folder;
};

TEST_F(ResultFolderFaults, WhereNothingIsInTheWayAllIsWritten) {
  ASSERT_EQ(figures().size(), 22U);
  EXPECT_GT(figures()[0], 0.0);
  nextCallWritesAll();
}

struct Unwritable {
  const char* name;
  std::function<std::string(const TempFolder&)> make;
};

class ResultFolderFaultsUnwritable : public ResultFolderFaults, public ::testing::WithParamInterface<Unwritable> {};

TEST_P(ResultFolderFaultsUnwritable, LosesTheFilesAndKeepsTheFigures) {
  const std::string polar = everything();
  const std::string polar_with_folders = rings().polarText();
  const std::vector<double>& expected = figures();
  fs::permissions(folder.path(), fs::perms(0777));
  const std::string path = GetParam().make(folder);
  const auto before = contentsOf(folder.path());
  const std::ptrdiff_t entries_before = entriesIn(folder.path());
  const std::size_t open_before = openFiles();
  {
    const Unprivileged user;
    const RunOutcome outcome = evaluate(polar, path);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(figuresOf(outcome.records), expected);

    const RunOutcome wanting_folders = evaluate(polar_with_folders, path);
    EXPECT_EQ(wanting_folders.status, polar_status::kResultFolder);
    EXPECT_EQ(wanting_folders.error_text, "Make result file error!");
    EXPECT_THAT(wanting_folders.out, HasSubstr("Make result file error!\n"));
    EXPECT_TRUE(wanting_folders.records.empty());

    const RunOutcome frames = evaluate("evaluation: 1\nframe_work: 1", path);
    EXPECT_EQ(frames.status, 0);
    EXPECT_EQ(frames.records.size(), 1U);
  }
  EXPECT_EQ(contentsOf(folder.path()), before);
  EXPECT_EQ(entriesIn(folder.path()), entries_before) << "no folder is made";
  EXPECT_EQ(openFiles(), open_before);
}

std::string lockedFolder(const TempFolder& folder) {
  fs::create_directory(folder.file("locked"));
  folder.write("locked/earlier.csv", "earlier");
  fs::permissions(folder.file("locked"), fs::perms(0555));
  return folder.file("locked");
}

INSTANTIATE_TEST_SUITE_P(
    Folders, ResultFolderFaultsUnwritable,
    ::testing::Values(
        Unwritable{"Missing", [](const TempFolder& folder) { return folder.file("missing"); }},
        Unwritable{"BelowAMissingOne", [](const TempFolder& folder) { return folder.file("missing/below"); }},
        Unwritable{"AFile", [](const TempFolder& folder) { return folder.write("file", "kept"); }},
        Unwritable{"BelowAFile", [](const TempFolder& folder) { return folder.write("file", "kept") + "/below"; }},
        Unwritable{"ReadOnly", lockedFolder}, Unwritable{"TheSystemsOwn", [](const TempFolder&) { return "/proc"; }},
        Unwritable{"WithTooLongAName", [](const TempFolder& folder) { return folder.file(std::string(5000, 'x')); }},
        Unwritable{"WithTooLongAPath",
                   [](const TempFolder& folder) {
                     std::string path = folder.path().string();
                     while (path.size() < 10000) path += "/x";
                     return path;
                   }}),
    [](const auto& test) { return std::string(test.param.name); });

/// The names of all files of a run but its numbered summary, which passes over what is there.
std::vector<std::string> resultNames(const TempFolder& finished) {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(finished.path())) {
    const std::string name = fs::relative(entry.path(), finished.path()).string();
    if (entry.is_regular_file() && name != "align_data_0.csv") names.push_back(name);
  }
  return names;
}

TEST_F(ResultFolderFaults, LinksToAFullDeviceLoseThoseFilesOnly) {
  const TempFolder finished;
  ASSERT_EQ(evaluate(rings().polarText(), finished.path()).status, 0);
  const std::vector<std::string> names = resultNames(finished);
  ASSERT_EQ(names.size(), 11U) << "six tables and five pictures";
  for (const char* made : {"result", "result_left", "result_right"}) fs::create_directory(folder.file(made));
  for (const std::string& name : names) fs::create_symlink("/dev/full", folder.file(name));
  folder.write("earlier.csv", "earlier");

  const std::size_t open_before = openFiles();
  const RunOutcome outcome = evaluate(rings().polarText(), folder.path());
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(figuresOf(outcome.records), figures());
  EXPECT_EQ(folder.read("align_data_0.csv"), finished.read("align_data_0.csv"));
  EXPECT_EQ(folder.read("earlier.csv"), "earlier");
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
  EXPECT_EQ(openFiles(), open_before);
  nextCallWritesAll();
}

TEST_F(ResultFolderFaults, FullDeviceLosesTheContentOfEveryFile) {
  folder.write("earlier.csv", "earlier");
  const std::size_t open_before = openFiles();
  RunOutcome outcome;
  {
    const FullDevice full;
    outcome = evaluate(rings().polarText(), folder.path());
  }
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(figuresOf(outcome.records), figures());
  EXPECT_TRUE(folder.has("align_data_0.csv"));
  EXPECT_EQ(folder.read("align_data_0.csv"), "");
  EXPECT_EQ(folder.read("0_left_dy.csv"), "");
  EXPECT_EQ(folder.read("earlier.csv"), "earlier");
  EXPECT_EQ(openFiles(), open_before);

  EXPECT_EQ(figuresOf(evaluate(rings().polarText(), folder.path()).records), figures());
  EXPECT_THAT(folder.read("align_data_1.csv"), HasSubstr("Images_num_: 1_PolarVersion_: 1.3.3,"));
  EXPECT_GT(folder.read("0_left_dy.csv").size(), 1000U);
  EXPECT_TRUE(folder.has("result_right/0_right.png"));
}

TEST_F(ResultFolderFaults, FrameTableOnAFullDeviceLeavesTheRecords) {
  fs::create_symlink("/dev/full", folder.file("frame_result.csv"));
  const RunOutcome outcome = evaluate("evaluation: 1\nframe_work: 1", folder.path());
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.records.size(), 1U);
}

TEST_F(ResultFolderFaults, FoldersInThePlaceOfFilesStayAndTheirFilesAreLost) {
  for (const char* name : {"align_data_0.csv", "0_left_dy.csv", "0_left_dy.png", "0_right_tri.csv"})
    fs::create_directory(folder.file(name));
  folder.write("result", "a file");
  const RunOutcome outcome = evaluate(rings().polarText(), folder.path());
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(figuresOf(outcome.records), figures());
  for (const char* name : {"align_data_0.csv", "0_left_dy.csv", "0_left_dy.png", "0_right_tri.csv"})
    EXPECT_TRUE(fs::is_empty(folder.file(name))) << name;
  EXPECT_EQ(folder.read("result"), "a file");
  EXPECT_FALSE(folder.has("align_data_1.csv")) << "a folder does not open, so its name counts as free";
  EXPECT_TRUE(folder.has("0_right_tri.png"));
  EXPECT_TRUE(folder.has("result_left/0_left.png"));
}

TEST_F(ResultFolderFaults, LinkToNowhereIsNoFolderThatCanBeMade) {
  fs::create_symlink(folder.file("nowhere"), folder.file("result"));
  EXPECT_EQ(evaluate(rings().polarText(), folder.path()).status, polar_status::kResultFolder);
  EXPECT_FALSE(folder.has("nowhere"));
  EXPECT_TRUE(folder.has("result_left"));
}

/// Runs whose results go beside their image list.
struct ResultFolderFaultsReadOnly : SpoiledSet {
  std::int32_t rectified() {
    const ConsoleCapture quiet;
    return CalRecificationPrecision(folder.file("polar.txt").c_str(), folder.file("target.ini").c_str(), {},
                                    folder.file("list.txt").c_str(), &results);
  }
  void lock() const {
    for (const auto& entry : fs::directory_iterator(folder.path())) fs::permissions(entry.path(), fs::perms(0444));
    fs::permissions(folder.path(), fs::perms(0555));
  }
  ~ResultFolderFaultsReadOnly() override { fs::permissions(folder.path(), fs::perms(0755)); }
};

TEST_F(ResultFolderFaultsReadOnly, RunsOnDiskKeepTheirFigures) {
  folder.write("polar.txt", rings().polarWith({{"savepolarline", "0"}, {"discalswitch", "0"}}));
  ASSERT_EQ(run("calib.bin"), 0);
  const std::vector<double> expected = figuresOf(results);
  ASSERT_GT(expected.at(1), 0.0);
  for (const auto& [name, content] : contentsOf(folder.path())) {
    if (name.starts_with("align_data") || name.ends_with(".csv") || name.starts_with("polyparam"))
      fs::remove(folder.file(name));
  }
  const auto before = contentsOf(folder.path());
  lock();
  results.clear();
  const Unprivileged user;
  EXPECT_EQ(run("calib.bin"), 0) << "neither results nor the tables of the calibration can be written";
  EXPECT_EQ(figuresOf(results), expected);
  EXPECT_EQ(contentsOf(folder.path()), before);
}

TEST_F(ResultFolderFaultsReadOnly, RectifiedRunsKeepTheirFigures) {
  folder.write("polar.txt", "evaluation: 1\ndy_bias_switch: 1\ndy_bias_savecsv_swithch: 1\ndy_bias_savepng_swithch: 1");
  ASSERT_EQ(rectified(), 0);
  const std::vector<double> expected = figuresOf(results);
  ASSERT_GT(expected.at(1), 0.0);
  const auto before = contentsOf(folder.path());
  ASSERT_TRUE(before.contains("align_data.csv"));
  lock();
  results.clear();
  const Unprivileged user;
  EXPECT_EQ(rectified(), 0);
  EXPECT_EQ(figuresOf(results), expected);
  EXPECT_EQ(contentsOf(folder.path()), before) << "what an earlier run wrote stays";
}

TEST_F(ResultFolderFaultsReadOnly, FoldersForPicturesCannotBeMade) {
  lock();
  const Unprivileged user;
  EXPECT_EQ(run(), polar_status::kResultFolder);
  EXPECT_EQ(errorText(), "Make result file error!");
  EXPECT_THAT(out, HasSubstr("Make result file error!\n"));
  callersResultsAreUntouched();
}

using ResultFolderFaultsOfASet = SpoiledSet;

TEST_F(ResultFolderFaultsOfASet, RectifiedSummaryOnAFullDeviceLeavesTheRecords) {
  fs::create_symlink("/dev/full", folder.file("align_data.csv"));
  const ConsoleCapture quiet;
  EXPECT_EQ(CalRecificationPrecision("evaluation: 1\ndy_bias_switch: 1", folder.file("target.ini").c_str(), {},
                                     folder.file("list.txt").c_str(), &results),
            0);
  ASSERT_EQ(results.size(), 2U);
  EXPECT_GT(results[0].dy_means, 0.0);
}

}  // namespace
