#include "polarline/init.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <opencv2/imgcodecs.hpp>

#include "polarline/errors.h"
#include "polarline/set.h"
#include "support/FigureText.h"
#include "support/FolderContents.h"
#include "support/MemoryRun.h"
#include "support/RenderedSet.h"
#include "support/SmallScene.h"
#include "support/StrippedScene.h"
#include "support/Unprivileged.h"

namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// A run through the exports on the files of a set, with further lines of the polar configuration.
std::vector<PolarResultRecord> figuresOf(const polarline::Set& set, const std::string& lines) {
  const ConsoleCapture quiet;
  ExportedCalibParams calibration;
  ReadCalibParams(set.calibration, &calibration);
  ReadBoardGTFromTxt(set.board, &calibration.boardPoints);
  ImagePairList images;
  ReadCalibImagelist(set.list, &images);
  std::vector<PolarResultRecord> records;
  const std::string polar = TempFolder::contentOf(set.polar) + "\n" + lines;
  CalPolarLinePrecisionOutMat(polar.c_str(), set.target.c_str(), calibration, images, &records, nullptr, nullptr);
  return records;
}

polarline::Set setIn(const std::string& folder) {
  polarline::Set named;
  named.folder = folder;
  return polarline::openSet(named);
}

struct SceneCase {
  const char* name;
  std::function<scene::Scene()> scene;
  std::string model;  ///< For the import.
  std::string lines;  ///< What the scene's configuration has otherwise.
};

class InitOfAStrippedScene : public testing::TestWithParam<SceneCase> {};

TEST_P(InitOfAStrippedScene, GivesTheScenesFigures) {
  const RenderedSet scene(GetParam().scene());
  StrippedScene stripped(scene);
  stripped.request.import.model = GetParam().model;
  const polarline::MadeSet made = polarline::initSet(stripped.request);
  EXPECT_EQ(made.type, scene.scene().settings.type);
  // The compared switches are the scene's; lines of the same key win from below.
  const auto mine = figuresOf(setIn(stripped.request.folder), GetParam().lines);
  const auto own = figuresOf(setIn(scene.file(".")), "");
  ASSERT_THAT(mine, SizeIs(own.size()));
  ASSERT_FALSE(mine.empty());
  EXPECT_EQ(FigureText::of(mine), FigureText::of(own));
}

scene::Scene fisheyeScene() {
  scene::Scene scene = small_scene::of(scene::fisheyeRig({644, 515, 60.0}), scene::bigDotBoard(7, 9));
  scene.settings.type = 2;
  scene.settings.f_scale = 0.75;
  return scene;
}

INSTANTIATE_TEST_SUITE_P(
    Scenes, InitOfAStrippedScene,
    testing::Values(SceneCase{"Dots", [] { return small_scene::withSecondPose(small_scene::dots()); }, "", ""},
                    SceneCase{"Circles", small_scene::circles, "", ""}, SceneCase{"Rings", small_scene::rings, "", ""},
                    SceneCase{"Polynomial", small_scene::polynomial, "", ""},
                    SceneCase{"Fisheye", fisheyeScene, "fisheye", "f_scale: 0.75"}),
    [](const auto& test) { return test.param.name; });

/// Works on the two pairs of a small board.
class Init : public testing::Test {
 protected:
  Init() : stripped_(MemoryRun::twoPairs()), request(stripped_.request) {}

  const TempFolder& folder() const { return stripped_.folder(); }
  std::string set(const std::string& name) const { return request.folder + "/" + name; }
  std::string refusal() const {
    try {
      polarline::initSet(request);
    } catch (const polarline::InputError& error) {
      return error.what();
    }
    return "";
  }
  static std::vector<std::string> codes(const polarline::MadeSet& made) {
    std::vector<std::string> codes;
    for (const polarline::Warning& warning : made.warnings) codes.push_back(warning.code);
    return codes;
  }

 private:
  StrippedScene stripped_;

 protected:
  polarline::InitRequest& request;
};

TEST_F(Init, WritesACompleteSet) {
  const polarline::MadeSet made = polarline::initSet(request);
  EXPECT_THAT(made.files, ElementsAre("board_gt.txt", "calib.json", "list.txt", "polar.txt", "target.ini"));
  EXPECT_EQ(TempFolder::contentOf(set("list.txt")),
            "#L R\n../left_0.png ../right_0.png\n../left_1.png ../right_1.png\n");
  EXPECT_EQ(TempFolder::contentOf(set("calib.json")), folder().read("calib.json"));
  EXPECT_EQ(TempFolder::contentOf(set("board_gt.txt")), MemoryRun::twoPairs().text("board_gt.txt"));
  EXPECT_THAT(made.pairs, SizeIs(2));
  EXPECT_THAT(made.alone_left, IsEmpty());
  EXPECT_EQ(made.picture.width, 128);
  EXPECT_EQ(made.picture.height, 102);
  EXPECT_EQ(made.left.found, 63U);
  EXPECT_EQ(made.right.found, 63U);
  EXPECT_NEAR(made.baseline, 60.0, 0.1);
  EXPECT_THAT(made.corners, ElementsAre(20, 24, 38, 42));
  EXPECT_THAT(codes(made), IsEmpty());
  EXPECT_EQ(made.next, "polarline check " + request.folder);
}

TEST_F(Init, TellsWhatStayedWithoutAPartner) {
  fs::rename(folder().file("right_1.png"), folder().file("right_7.png"));
  const polarline::MadeSet made = polarline::initSet(request);
  EXPECT_THAT(made.pairs, SizeIs(1));
  EXPECT_THAT(made.alone_left, ElementsAre(folder().file("left_1.png")));
  EXPECT_THAT(made.alone_right, ElementsAre(folder().file("right_7.png")));
  EXPECT_THAT(codes(made), testing::Contains("pictures_alone"));
}

TEST_F(Init, NamesThatAListCantHoldAreLinked) {
  fs::create_directory(folder().file("odd place"));
  for (const char* name : {"left_0.png", "left_1.png", "right_0.png", "right_1.png"})
    fs::rename(folder().file(name), folder().file("odd place") + "/" + name);
  request.left = {folder().file("odd place/left_*")};
  request.right = {folder().file("odd place/right_*")};
  const polarline::MadeSet made = polarline::initSet(request);
  EXPECT_THAT(codes(made), ElementsAre("pictures_linked"));
  EXPECT_EQ(TempFolder::contentOf(set("list.txt")),
            "#L R\nleft_0000.png right_0000.png\nleft_0001.png right_0001.png\n");
  EXPECT_THAT(figuresOf(setIn(request.folder), ""), SizeIs(2));
}

TEST_F(Init, CopiesMakeASetThatStandsAlone) {
  request.copy = true;
  polarline::initSet(request);
  for (const char* name : {"left_0.png", "left_1.png", "right_0.png", "right_1.png"}) fs::remove(folder().file(name));
  EXPECT_THAT(figuresOf(setIn(request.folder), ""), SizeIs(2));
}

TEST_F(Init, MakesASetWhereThePicturesAndTheCalibrationAre) {
  fs::remove(folder().file("calib.bin"));
  request.folder = folder().path().string();
  polarline::initSet(request);
  EXPECT_THAT(figuresOf(setIn(request.folder), ""), SizeIs(2));
}

TEST_F(Init, RefusesToReplaceASet) {
  polarline::initSet(request);
  const auto before = contentsOf(request.folder);
  EXPECT_THAT(refusal(), AllOf(HasSubstr("polar.txt"), HasSubstr("list.txt"), HasSubstr("--force")));
  EXPECT_EQ(contentsOf(request.folder), before);
  request.force = true;
  request.calibration = {folder().file("calib.bin")};
  polarline::initSet(request);
  EXPECT_FALSE(fs::exists(set("calib.json"))) << "it would be read in the place of the binary one";
  EXPECT_EQ(TempFolder::contentOf(set("calib.bin")), folder().read("calib.bin"));
}

TEST_F(Init, RefusesSidesWithoutPictures) {
  request.left = {folder().file("nothing_*.png")};
  EXPECT_THAT(refusal(), HasSubstr("no left picture fits this pattern"));
  request.left = {folder().file("left_*.png")};
  request.right = {};
  EXPECT_THAT(refusal(), HasSubstr("no right pictures are named"));
  EXPECT_FALSE(fs::exists(request.folder));
}

TEST_F(Init, RefusesPicturesThatDoNotDecode) {
  folder().write("right_1.png", "no picture");
  EXPECT_THAT(refusal(), AllOf(HasSubstr("can't be decoded"), HasSubstr("right_1.png")));
  EXPECT_FALSE(fs::exists(request.folder));
}

TEST_F(Init, RefusesMixedSizes) {
  cv::imwrite(folder().file("left_1.png"), cv::Mat(51, 64, CV_8UC1, cv::Scalar(90)));
  EXPECT_THAT(refusal(), AllOf(HasSubstr("left_1.png (64x51"), HasSubstr("most are 128x102")));
}

TEST_F(Init, RefusesPicturesOfAnotherSizeThanTheCalibration) {
  for (const char* name : {"left_0.png", "left_1.png", "right_0.png", "right_1.png"})
    cv::imwrite(folder().file(name), cv::Mat(51, 64, CV_8UC1, cv::Scalar(90)));
  request.calibration = {folder().file("calib.bin")};
  EXPECT_THAT(refusal(), HasSubstr("64x51, but the calibration of the left camera was made at 128x102"));
  // The JSON tells no size, but the middles of its lenses lie near (64, 51), the corner of these pictures.
  request.calibration = {folder().file("calib.json")};
  EXPECT_THAT(refusal(), HasSubstr("made for another size"));
}

TEST_F(Init, RefusesABoardThatNobodyKnows) {
  request.board = "chess:9x7:20";
  EXPECT_THAT(refusal(), HasSubstr("chess"));
}

TEST_F(Init, RefusesACalibrationThatIsNone) {
  request.calibration = {folder().write("notes.txt", "no calibration at all\n")};
  EXPECT_THAT(refusal(), HasSubstr("notes.txt"));
  request.calibration = {folder().file("not_there.json")};
  EXPECT_THAT(refusal(), HasSubstr("not_there.json: No such file"));
  request.calibration = {};
  EXPECT_THAT(refusal(), HasSubstr("no calibration is named"));
}

TEST_F(Init, RefusesANamelessFolderAndAFileInItsPlace) {
  request.folder = folder().write("file", "mine");
  EXPECT_THAT(refusal(), HasSubstr("is a file; the folder of the set was wanted"));
  request.force = true;
  request.calibration = {"not_there.json"};  // Who forgets the folder may have named a calibration in its place.
  EXPECT_THAT(refusal(), HasSubstr("is a file; the folder of the set was wanted"));
  request.folder = "";
  EXPECT_THAT(refusal(), HasSubstr("no folder is named"));
}

TEST_F(Init, WithoutRightToWriteItIsAnOutputError) {
  fs::create_directory(folder().file("closed"));
  fs::permissions(folder().path(), fs::perms::all);
  const Unprivileged bound;
  request.folder = folder().file("closed/set");
  EXPECT_THROW(polarline::initSet(request), polarline::OutputError);
}

TEST_F(Init, WarnsOfDotsThatAreTooSmallWithTheNumbers) {
  for (const char* name : {"left_0.png", "left_1.png", "right_0.png", "right_1.png"}) {
    // The board in the middle of a picture that is searched at its own scale: its dots have some 3 pixels there.
    const cv::Mat small = cv::imread(folder().file(name), cv::IMREAD_UNCHANGED);
    cv::Mat large(600, 800, small.type(), cv::Scalar(60));
    small.copyTo(large(cv::Rect({336, 249}, small.size())));
    cv::imwrite(folder().file(name), large);
  }
  // A calibration of that size.
  std::string calibration = folder().read("calib.json");
  request.calibration = {folder().write("large.json", calibration)};
  request.import.size = polarline::Size{800, 600};
  const polarline::MadeSet made = polarline::initSet(request);
  EXPECT_THAT(codes(made), testing::Contains("board_not_found"));
  const auto small = std::ranges::find(made.warnings, "dots_small", &polarline::Warning::code);
  ASSERT_NE(small, made.warnings.end());
  EXPECT_THAT(small->text, HasSubstr("800 pixels wide dots of 5.7 to 27.0 pixels"));
}

TEST_F(Init, WarnsOfACalibrationInOtherUnits) {
  request.import.scale = 0.001;
  const polarline::MadeSet made = polarline::initSet(request);
  EXPECT_THAT(codes(made), ElementsAre("baseline_unit"));
}

TEST_F(Init, WarnsOfExchangedSides) {
  std::swap(request.left, request.right);
  EXPECT_THAT(codes(polarline::initSet(request)), ElementsAre("sides_exchanged"));
}

TEST_F(Init, PicturesOfThreeChannelsGoWithoutResiduals) {
  for (const char* name : {"left_0.png", "left_1.png", "right_0.png", "right_1.png"})
    cv::imwrite(folder().file(name), cv::imread(folder().file(name), cv::IMREAD_COLOR));
  const polarline::MadeSet made = polarline::initSet(request);
  EXPECT_THAT(codes(made), ElementsAre("residuals_off"));
  EXPECT_THAT(figuresOf(setIn(request.folder), ""), SizeIs(2));
}

TEST_F(Init, WritesLimitsThatAreAskedFor) {
  request.limits = {"dy_means <= 0.1", "|tri_dis[0]|<=0.5"};
  polarline::initSet(request);
  EXPECT_EQ(TempFolder::contentOf(set("limits.txt")), "dy_means <= 0.1\n|tri_dis[0]|<=0.5\n");
  EXPECT_THAT(refusal(), HasSubstr("limits.txt"));
  request.limits = {"dy_mean<=0.1"};
  EXPECT_THAT(refusal(), HasSubstr("dy_mean"));
}

TEST_F(Init, AnImportedCalibrationGivesTheScenesFigures) {
  polarline::Calibration calibration = polarline::importCalibration(request.calibration, {}).calibration;
  for (double* length : {&calibration.tx, &calibration.ty, &calibration.tz}) *length /= 1000;
  calibration.left.size = calibration.right.size = {128, 102};
  request.calibration = {folder().write("metres.yml", polarline::openCvText(calibration))};
  request.import.scale = 1000;
  const polarline::MadeSet made = polarline::initSet(request);
  EXPECT_EQ(made.calibration_format, "opencv");
  EXPECT_THAT(codes(made), IsEmpty());
  const auto mine = figuresOf(setIn(request.folder), "");
  EXPECT_THAT(mine, SizeIs(2));
  EXPECT_EQ(FigureText::of(mine), FigureText::of(figuresOf(setIn(MemoryRun::twoPairs().file(".")), "")));
}

TEST_F(Init, ReportsProgress) {
  std::size_t last = 0;
  std::size_t all = 0;
  request.progress = [&](std::size_t done, std::size_t count) {
    last = done;
    all = count;
  };
  polarline::initSet(request);
  EXPECT_EQ(last, 4U);
  EXPECT_EQ(all, 4U);
}

TEST(InitPairBy, HasFourNames) {
  EXPECT_EQ(polarline::pairByOf("auto"), polarline::PairBy::kAuto);
  EXPECT_EQ(polarline::pairByOf("names"), polarline::PairBy::kNames);
  EXPECT_EQ(polarline::pairByOf("stamps"), polarline::PairBy::kStamps);
  EXPECT_EQ(polarline::pairByOf("order"), polarline::PairBy::kOrder);
  EXPECT_THROW(polarline::pairByOf("Order"), polarline::InputError);
}

}  // namespace
