#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <tuple>

#include "Imported.h"
#include "Layouts.h"

namespace {

using polarline::Calibration;
using polarline::Camera;
using polarline::ImportOptions;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The formulas of polarline/calibration.h, written down once more; `Number` is what they are held in.
template <typename Number>
Number narrowed(double value) {
  return static_cast<Number>(value);
}

template <typename Number>
cv::Point2d imaged(const Calibration& calibration, bool in_right, cv::Vec3d point) {
  const auto f = [](double value) { return static_cast<double>(narrowed<Number>(value)); };
  const Camera& camera = in_right ? calibration.right : calibration.left;
  if (in_right) {
    const double a = f(calibration.rx);
    const double b = f(calibration.ry);
    const double c = f(calibration.rz);
    point = {std::cos(b) * point[0] + std::sin(b) * point[2], point[1],
             -std::sin(b) * point[0] + std::cos(b) * point[2]};
    point = {point[0], std::cos(a) * point[1] - std::sin(a) * point[2],
             std::sin(a) * point[1] + std::cos(a) * point[2]};
    point = {std::cos(c) * point[0] - std::sin(c) * point[1], std::sin(c) * point[0] + std::cos(c) * point[1],
             point[2]};
    point += cv::Vec3d(f(calibration.tx), f(calibration.ty), f(calibration.tz));
  }
  std::array<double, 6> k{};
  for (std::size_t i = 0; i < k.size(); ++i) k.at(i) = f(camera.k.at(i));
  const double x = point[0] / point[2];
  const double y = point[1] / point[2];
  const double s = x * x + y * y;
  cv::Point2d lens;
  if (calibration.type == 2) {
    const double r = std::sqrt(s);
    const double t = std::atan(r);
    const double bent =
        t * (1 + k[0] * std::pow(t, 2) + k[1] * std::pow(t, 4) + k[2] * std::pow(t, 6) + k[3] * std::pow(t, 8));
    lens = {x * bent / r, y * bent / r};
  } else {
    const double radial =
        (1 + k[0] * s + k[1] * s * s + k[2] * s * s * s) / (1 + k[3] * s + k[4] * s * s + k[5] * s * s * s);
    const double p1 = f(camera.p1);
    const double p2 = f(camera.p2);
    lens = {x * radial + 2 * p1 * x * y + p2 * (s + 2 * x * x), y * radial + p1 * (s + 2 * y * y) + 2 * p2 * x * y};
  }
  return {f(camera.fx) * lens.x + f(camera.cx), f(camera.fy) * lens.y + f(camera.cy)};
}

Rig withFive() {
  Rig rig;
  rig.D_left.push_back(-0.01);
  rig.D_right.push_back(0.02);
  return rig;
}

Rig withTwelve() {
  Rig rig = rationalRig();
  rig.D_left.resize(12, 0.0);
  rig.D_right.resize(12, 0.0);
  return rig;
}

Rig withoutLens() {
  Rig rig;
  rig.D_left.clear();
  rig.D_right.clear();
  return rig;
}

struct Case {
  const char* name;
  const char* format;
  Rig rig;
  std::function<layouts::Texts(const Rig&)> texts;
  int type;
  const char* model = "";
  bool hasSize = true;
};

std::vector<Case> cases() {
  const auto ros = [](const char* model) { return [model](const Rig& rig) { return layouts::ros(rig, model); }; };
  const auto mrcal = [](const char* model) { return [model](const Rig& rig) { return layouts::mrcal(rig, model); }; };
  return {{"OpenCvFour", "opencv", Rig(), layouts::openCv, 0, "brown", false},
          {"OpenCvFive", "opencv", withFive(), layouts::openCv, 0, "", false},
          {"OpenCvEight", "opencv", rationalRig(), layouts::openCv, 1, "", false},
          {"OpenCvTwelve", "opencv", withTwelve(), layouts::openCv, 1, "", false},
          {"OpenCvFisheye", "opencv", fisheyeRig(), layouts::openCv, 2, "fisheye", false},
          {"RosPlumbBob", "ros", withFive(), ros("plumb_bob"), 0},
          {"RosRational", "ros", rationalRig(), ros("rational_polynomial"), 1},
          {"RosEquidistant", "ros", fisheyeRig(), ros("equidistant"), 2},
          {"KalibrChain", "kalibr", Rig(), layouts::kalibrChain, 0},
          {"KalibrFromBody", "kalibr", Rig(), layouts::kalibrFromBody, 0},
          {"KalibrToBody", "kalibr", fisheyeRig(), layouts::kalibrToBody, 2},
          {"BasaltFisheye", "basalt", fisheyeRig(), layouts::basalt, 2},
          {"BasaltRational", "basalt", rationalRig(), layouts::basalt, 1},
          {"BasaltPinhole", "basalt", withoutLens(), layouts::basalt, 0},
          {"MrcalPinhole", "mrcal", withoutLens(), mrcal("LENSMODEL_PINHOLE"), 0},
          {"MrcalFour", "mrcal", Rig(), mrcal("LENSMODEL_OPENCV4"), 0},
          {"MrcalFive", "mrcal", withFive(), mrcal("LENSMODEL_OPENCV5"), 0},
          {"MrcalEight", "mrcal", rationalRig(), mrcal("LENSMODEL_OPENCV8"), 1},
          {"MrcalTwelve", "mrcal", withTwelve(), mrcal("LENSMODEL_OPENCV12"), 1},
          {"Euroc", "euroc", Rig(), layouts::euroc, 0}};
}

class ImportOfEachFormat : public testing::TestWithParam<Case> {
 protected:
  polarline::ImportedCalibration result(ImportOptions options = {}) const {
    options.model = GetParam().model;
    return imported(GetParam().texts(GetParam().rig), options);
  }

  /// The largest difference between where OpenCV and where ours images points.
  template <typename Number>
  double worst(const Calibration& calibration, bool swapped = false) const {
    const Rig& rig = GetParam().rig;
    double largest = 0.0;
    for (const double x : {-0.2, -0.05, 0.1, 0.2}) {
      for (const double y : {-0.15, 0.03, 0.15}) {
        const cv::Vec3d point(x, y, 0.5);
        const cv::Vec3d seen = swapped ? rig.R() * point + rig.T : point;
        for (const bool in_right : {false, true}) {
          const cv::Point2d is = imaged<Number>(calibration, in_right != swapped, seen);
          largest = std::max(largest, cv::norm(is - rig.imaged(in_right, cv::Point3d(point))));
        }
      }
    }
    return largest;
  }
};

TEST_P(ImportOfEachFormat, ImagesEachPointWhereTheFileDid) { EXPECT_LT(worst<double>(result().calibration), 1e-9); }

TEST_P(ImportOfEachFormat, ImagesEachPointThereInSinglePrecision) {
  EXPECT_LT(worst<float>(result().calibration), 1e-4);
}

TEST_P(ImportOfEachFormat, SwapsTheCameras) {
  ImportOptions options;
  options.swap = true;
  EXPECT_LT(worst<double>(result(options).calibration, true), 1e-9);
}

TEST_P(ImportOfEachFormat, IsToldByItsContent) {
  const polarline::ImportedCalibration found = result();
  EXPECT_EQ(found.format, GetParam().format);
  EXPECT_EQ(found.calibration.type, GetParam().type);
  EXPECT_EQ(found.calibration.left.size.width, GetParam().hasSize ? 640 : 0);
  EXPECT_EQ(found.calibration.right.size.height, GetParam().hasSize ? 480 : 0);
  EXPECT_NEAR(polarline::baselineOf(found.calibration), cv::norm(GetParam().rig.T), 1e-15);
}

TEST_P(ImportOfEachFormat, MayBeNamed) {
  ImportOptions options;
  options.format = GetParam().format;
  EXPECT_EQ(result(options).format, GetParam().format);
}

TEST_P(ImportOfEachFormat, WarnsOfNothingButTheSize) {
  ImportOptions options;
  options.scale = 1000.0;
  for (const std::string& code : codesOf(result(options))) EXPECT_EQ(code, GetParam().hasSize ? "" : "no_image_size");
}

TEST_P(ImportOfEachFormat, WarnsOfABaselineInMetres) {
  const polarline::ImportedCalibration found = result();
  EXPECT_THAT(codesOf(found), testing::Contains("baseline_in_metres"));
  ImportOptions options;
  options.baseline = 62.0;  // Who says the length has thought of the unit.
  EXPECT_THAT(codesOf(result(options)), testing::Not(testing::Contains("baseline_in_metres")));
}

TEST_P(ImportOfEachFormat, ComesBackFromOpenCv) {
  const Calibration there = result().calibration;
  const Calibration back = imported({polarline::openCvText(there)}).calibration;
  EXPECT_EQ(back.type, there.type);
  for (const auto& [is, was] : {std::pair(back.left, there.left), std::pair(back.right, there.right)}) {
    EXPECT_EQ(std::tie(is.fx, is.fy, is.cx, is.cy, is.k, is.p1, is.p2),
              std::tie(was.fx, was.fy, was.cx, was.cy, was.k, was.p1, was.p2));
    EXPECT_EQ(std::tie(is.size.width, is.size.height), std::tie(was.size.width, was.size.height));
  }
  EXPECT_EQ(polarline::calibrationJson(back), polarline::calibrationJson(there)) << "to the last digit";
}

TEST_P(ImportOfEachFormat, ComesBackFromOurJson) {
  const Calibration there = result().calibration;
  ImportOptions options;
  options.model = there.type == 2 ? "fisheye" : "brown";
  const Calibration back = imported({polarline::calibrationJson(there)}, options).calibration;
  EXPECT_EQ(back.type, there.type);
  EXPECT_EQ(polarline::calibrationJson(back), polarline::calibrationJson(there)) << "to the last digit";
}

/// Every file cut short anywhere is refused, or is a whole calibration all the same, and nothing worse happens.
TEST_P(ImportOfEachFormat, RefusesWhatIsCutShort) {
  const layouts::Texts whole = GetParam().texts(GetParam().rig);
  ImportOptions options;
  options.model = GetParam().model;
  const std::size_t end = whole.back().find_last_of("0123456789");
  for (std::size_t length = 0; length < end; length += 7) {
    layouts::Texts cut = whole;
    cut.back().resize(length);
    const std::string text = refusal(cut, options);
    EXPECT_TRUE(length > end / 2 || !text.empty()) << cut.back();
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, ImportOfEachFormat, testing::ValuesIn(cases()),
                         [](const auto& each) { return each.param.name; });

TEST(ImportScale, MultipliesTheTranslationOnly) {
  ImportOptions options;
  options.scale = 1000.0;
  const Calibration metres = imported(layouts::kalibrChain(Rig())).calibration;
  const Calibration millimetres = imported(layouts::kalibrChain(Rig()), options).calibration;
  EXPECT_DOUBLE_EQ(millimetres.tx, -62.0);
  EXPECT_DOUBLE_EQ(millimetres.ty, 0.9);
  EXPECT_DOUBLE_EQ(millimetres.tz, -1.3);
  EXPECT_EQ(millimetres.rx, metres.rx);
  EXPECT_EQ(millimetres.left.fx, metres.left.fx);
}

TEST(ImportBaseline, SetsTheLengthAndKeepsTheDirection) {
  ImportOptions options;
  options.baseline = 124.0;
  const Calibration calibration = imported(layouts::kalibrChain(Rig()), options).calibration;
  EXPECT_NEAR(polarline::baselineOf(calibration), 124.0, 1e-12);
  EXPECT_NEAR(calibration.ty / calibration.tx, -0.0009 / 0.062, 1e-15);
}

TEST(ImportBaseline, WarnsWhereTheFileSaysAnother) {
  const auto codesWith = [](double baseline) {
    ImportOptions options;
    options.baseline = baseline;
    return codesOf(imported(layouts::kalibrChain(Rig()), options));  // 0.062 long.
  };
  EXPECT_THAT(codesWith(0.2), testing::Contains("baseline_overridden"));
  EXPECT_THAT(codesWith(124.0), testing::Contains("baseline_overridden"));
  EXPECT_THAT(codesWith(62.0), testing::Not(testing::Contains("baseline_overridden"))) << "millimetres";
  EXPECT_THAT(codesWith(6.2), testing::Not(testing::Contains("baseline_overridden"))) << "centimetres";
  EXPECT_THAT(codesWith(0.063), testing::Contains("baseline_overridden"));
}

TEST(ImportSize, IsThatOfTheOption) {
  ImportOptions options;
  options.model = "brown";
  options.size = polarline::Size{1280, 960};
  const polarline::ImportedCalibration found = imported(layouts::openCv(Rig()), options);
  EXPECT_EQ(found.calibration.left.size.width, 1280);
  EXPECT_EQ(found.calibration.right.size.height, 960);
  EXPECT_THAT(codesOf(found), ElementsAre("baseline_in_metres"));
}

TEST(ImportSize, WarnsWhereTheFileSaysAnother) {
  ImportOptions options;
  options.size = polarline::Size{640, 512};
  const polarline::ImportedCalibration found = imported(layouts::kalibrChain(Rig()), options);
  EXPECT_EQ(found.calibration.left.size.height, 512);
  EXPECT_THAT(codesOf(found), ElementsAre("image_size_overridden", "image_size_overridden", "baseline_in_metres"));
  EXPECT_EQ(found.warnings[0].text, "left: 640x480 in the file, 640x512 was said");
}

TEST(ImportRotation, WarnsOfOnePrintedTooShort) {
  Rig rig;
  rig.turn = {0.0, 0.02, 0.0};
  // cos 0.02 = 0.99980001: printed as 0.9998, the length of the columns is off by 2e-8; as 0.9999 by 2e-4.
  const auto extrinsics = [](const char* cosine) {
    return std::string("R: [") + cosine + ", 0, 0.01999867, 0, 1, 0, -0.01999867, 0, " + cosine + "]\nT: [-60, 0, 0]\n";
  };
  ImportOptions options;
  options.model = "brown";
  options.size = polarline::Size{640, 480};
  EXPECT_THAT(codesOf(imported({layouts::openCvIntrinsics(rig), extrinsics("0.9998")}, options)), IsEmpty());
  EXPECT_THAT(codesOf(imported({layouts::openCvIntrinsics(rig), extrinsics("0.9999")}, options)),
              ElementsAre("rounded_rotation"));
}

/// Angles that lose a digit when they are taken from their rotation.
Calibration withAngles() {
  Calibration calibration = imported(layouts::kalibrChain(Rig())).calibration;
  calibration.rx = 0.1;
  calibration.ry = -0.2;
  calibration.rz = 0.3;
  return calibration;
}

TEST(ImportAngles, AreThoseOfOurFilesUnlessRHasBeenChanged) {
  const std::string text = polarline::openCvText(withAngles());
  EXPECT_EQ(imported({text}).calibration.ry, -0.2);
  // A turn of 0.3 about z alone.
  const std::size_t at = text.find("data: ", text.find("\nR: ")) + 6;
  const std::string turned = text.substr(0, at) +
                             "[0.955336489125606, -0.29552020666133955, 0, 0.29552020666133955, 0.955336489125606, 0, "
                             "0, 0, 1]" +
                             text.substr(text.find('\n', at));
  const Calibration changed = imported({turned}).calibration;
  EXPECT_EQ(changed.rx, 0.0);
  EXPECT_EQ(changed.ry, 0.0);
  EXPECT_NEAR(changed.rz, 0.3, 1e-15);
}

TEST(ImportAngles, AreOfTheOtherCameraWhereTheyAreSwapped) {
  ImportOptions options;
  options.swap = true;
  const std::string text = polarline::openCvText(withAngles());
  const Calibration there = imported({text}, options).calibration;
  EXPECT_NE(there.rx, 0.1);
  EXPECT_NEAR(imported({polarline::openCvText(there)}, options).calibration.rx, 0.1, 1e-15);
}

struct Wrong {
  const char* name;
  std::function<void(ImportOptions&)> set;
  const char* text;
};

class ImportOptionsRefused : public testing::TestWithParam<Wrong> {};

TEST_P(ImportOptionsRefused, WithTheOptionAndWhatWasFound) {
  ImportOptions options;
  GetParam().set(options);
  EXPECT_THAT(refusal(layouts::kalibrChain(Rig()), options), HasSubstr(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    All, ImportOptionsRefused,
    testing::Values(
        Wrong{"ScaleZero", [](auto& o) { o.scale = 0.0; }, "--scale: found 0; a factor above 0 was wanted"},
        Wrong{"ScaleNegative", [](auto& o) { o.scale = -1.0; }, "--scale: found -1"},
        Wrong{"ScaleNaN", [](auto& o) { o.scale = std::nan(""); }, "--scale: found nan"},
        Wrong{"ScaleInfinite", [](auto& o) { o.scale = HUGE_VAL; }, "--scale: found inf"},
        Wrong{"ScaleTooLarge", [](auto& o) { o.scale = 1e12; }, "a: found a baseline of 0.062"},
        Wrong{"ScaleTooSmall", [](auto& o) { o.scale = 1e-12; }, "a: found a baseline of 0.062"},
        Wrong{"BaselineZero", [](auto& o) { o.baseline = 0.0; }, "--baseline: found 0; a length above 0 was wanted"},
        Wrong{"BaselineInfinite", [](auto& o) { o.baseline = HUGE_VAL; }, "--baseline: found inf"},
        Wrong{"BaselineWithScale", [](auto& o) { o.baseline = 60.0, o.scale = 1000.0; }, "leave --scale out"},
        Wrong{"Model", [](auto& o) { o.model = "mei"; }, "--model: found 'mei'; brown or fisheye was wanted"},
        Wrong{"ModelOfAnother", [](auto& o) { o.model = "fisheye"; }, "a: the cameras are brown; --model says fisheye"},
        Wrong{"Format", [](auto& o) { o.format = "matlab"; }, "--format: found 'matlab'; one of opencv, ros, kalibr"},
        Wrong{"FormatOfAnother", [](auto& o) { o.format = "euroc"; },
              "a: found 1 camera(s); the left and the right one"},
        Wrong{"PairTwice",
              [](auto& o) {
                o.pair = {1, 1};
              },
              "--pair: found 1 1; two different cameras"},
        Wrong{"PairNegative",
              [](auto& o) {
                o.pair = {0, -1};
              },
              "--pair: found 0 -1"},
        Wrong{"PairBeyond",
              [](auto& o) {
                o.pair = {0, 2};
              },
              "a: has no cam2, but 2 camera(s)"}),
    [](const auto& each) { return each.param.name; });

TEST(ImportFiles, AreNeeded) { EXPECT_EQ(refusal({}), "found no file; those of a calibration were wanted"); }

TEST(ImportFiles, NamesWhatCannotBeOpened) {
  const TempFolder folder;
  EXPECT_THROW(polarline::importCalibration({folder.file("none")}, {}), polarline::InputError);
  EXPECT_THROW(polarline::importCalibration({folder.path().string()}, {}), polarline::InputError);
}

TEST(ImportFiles, MayHaveAnyName) {
  const TempFolder folder;
  for (const char* name : {"a b", "it's \"one\"", "back\\slash", "line\nfeed", "no utf \xff\xfe", "what?.gz"}) {
    const std::string path = folder.write(name, layouts::kalibrChain(Rig()).front());
    EXPECT_EQ(polarline::importCalibration({path}, {}).format, "kalibr") << name;
  }
}

TEST(ImportPair, RefusesTwoLensTypes) {
  const std::string text = with(layouts::kalibrChain(Rig()).front(), "radtan", "equidistant");
  EXPECT_EQ(refusal({text}), "a: the left camera is fisheye, the right one brown; two of one lens model were wanted");
}

TEST(ImportPair, RefusesCamerasInOnePlace) {
  Rig rig;
  rig.T = {0, 0, 0};
  EXPECT_THAT(refusal(layouts::kalibrChain(rig)), HasSubstr("found a baseline of 0; two cameras apart were wanted"));
}

}  // namespace
