// Images on disk that cannot be read, whole or at all.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "support/OpenFiles.h"
#include "support/SpoiledSet.h"

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;
namespace fs = std::filesystem;

struct Spoiling {
  const char* name;
  std::function<void(const TempFolder&, const std::string& image)> spoil;
};

class ImageFaultsUnreadable : public SpoiledSet, public ::testing::WithParamInterface<Spoiling> {
 protected:
  void spoil(const std::string& image) const { GetParam().spoil(folder, image); }
  ImagePairList readList() const {
    const ConsoleCapture quiet;
    ImagePairList images;
    EXPECT_EQ(ReadCalibImagelist(folder.file("list.txt"), &images), 0);
    return images;
  }
};

TEST_P(ImageFaultsUnreadable, IsAnEmptyOneInItsPlace) {
  spoil("right_0.png");
  const std::size_t open_before = openFiles();
  const ImagePairList images = readList();
  EXPECT_EQ(openFiles(), open_before);
  ASSERT_EQ(images.size(), 2U);
  ASSERT_EQ(images[1].size(), 2U);
  EXPECT_TRUE(images[1][0].empty());
  EXPECT_FALSE(images[1][1].empty());
  EXPECT_FALSE(images[0][0].empty());
}

TEST_P(ImageFaultsUnreadable, EndsTheRunThatReachesIt) {
  folder.write("polar.txt", "type: 1\nspaceRms_switch: 0\nevaluation: 1");
  EXPECT_FALSE(readList().at(1).at(1).empty()) << "it was there while the list was read";
  spoil("right_1.png");
  EXPECT_EQ(run(), polar_status::kImages);
  EXPECT_EQ(errorText(), "Read image Error!");
  EXPECT_THAT(out, HasSubstr("The image is empty!\n"));
  callersResultsAreUntouched();
  EXPECT_EQ(folder.read("align_data_0.csv"), "id \nImages_num_: 1_PolarVersion_: 1.3.3\n")
      << "the row of the pair before stays";
}

TEST_P(ImageFaultsUnreadable, EndsARectifiedRunThatReachesIt) {
  spoil("left_1.png");
  const ConsoleCapture quiet;
  EXPECT_EQ(CalRecificationPrecision("evaluation: 1\nspaceRms_switch: 0", folder.file("target.ini").c_str(), {},
                                     folder.file("list.txt").c_str(), &results),
            polar_status::kImages);
  EXPECT_EQ(errorText(), "Read image Error!");
  callersResultsAreUntouched();
  EXPECT_EQ(folder.read("align_data.csv"), "id \nImages_num_: 1_PolarVersion_: 1.3.3\n");
}

void truncate(const TempFolder& folder, const std::string& image, std::uintmax_t size) {
  ASSERT_GT(fs::file_size(folder.file(image)), size);
  fs::resize_file(folder.file(image), size);
}

/// Cut so many bytes before its end.
Spoiling cutBefore(const char* name, std::uintmax_t bytes) {
  return {name, [bytes](const TempFolder& folder, const std::string& image) {
            truncate(folder, image, fs::file_size(folder.file(image)) - bytes);
          }};
}

Spoiling cutAt(const char* name, std::uintmax_t size) {
  return {name, [size](const TempFolder& folder, const std::string& image) { truncate(folder, image, size); }};
}

// A PNG begins with its signature (8 bytes) and its header (25), and ends in a mark of 12.
INSTANTIATE_TEST_SUITE_P(
    Spoilings, ImageFaultsUnreadable,
    ::testing::Values(Spoiling{"Vanished", [](const TempFolder& folder,
                                              const std::string& image) { fs::remove(folder.file(image)); }},
                      Spoiling{"LinkToNowhere",
                               [](const TempFolder& folder, const std::string& image) {
                                 fs::remove(folder.file(image));
                                 fs::create_symlink(folder.file("nowhere.png"), folder.file(image));
                               }},
                      Spoiling{"LinkToItself",
                               [](const TempFolder& folder, const std::string& image) {
                                 fs::remove(folder.file(image));
                                 fs::create_symlink(folder.file(image), folder.file(image));
                               }},
                      Spoiling{"Folder",
                               [](const TempFolder& folder, const std::string& image) {
                                 fs::remove(folder.file(image));
                                 fs::create_directory(folder.file(image));
                               }},
                      Spoiling{"Text", [](const TempFolder& folder,
                                          const std::string& image) { folder.write(image, "this is no picture"); }},
                      cutAt("WithoutAByte", 0), cutAt("InTheSignature", 5), cutAt("BehindTheSignature", 8),
                      cutAt("InTheHeader", 20), cutAt("BehindTheHeader", 33), cutAt("InThePixels", 20000),
                      cutBefore("BeforeTheEndMark", 12), cutBefore("InTheEndMark", 4)),
    [](const auto& test) { return std::string(test.param.name); });

using ImageFaults = SpoiledSet;

TEST_F(ImageFaults, VanishedImageLeavesTheFilesOfThePairsBeforeAndMayComeBack) {
  fs::rename(folder.file("right_1.png"), folder.file("elsewhere.png"));
  EXPECT_EQ(run(), polar_status::kImages);
  EXPECT_GT(folder.read("0_left_dy.csv").size(), 1000U);
  fs::rename(folder.file("elsewhere.png"), folder.file("right_1.png"));
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(results.size(), 2U);
}

TEST_F(ImageFaults, PictureOfAnotherFormatUnderItsNameIsRead) {
  fs::remove(folder.file("left_0.png"));
  std::string grey = "P5 4 3 255\n";
  grey.append(12, '\x5A');
  folder.write("left_0.png", grey);
  const ConsoleCapture quiet;
  ImagePairList images;
  EXPECT_EQ(ReadCalibImagelist(folder.file("list.txt"), &images), 0);
  EXPECT_EQ(images.at(0).at(0).size(), cv::Size(4, 3));
}

TEST_F(ImageFaults, ListThatVanishesAfterItWasReadLeavesTheImagesInMemory) {
  const ConsoleCapture console;
  ImagePairList images;
  ASSERT_EQ(ReadCalibImagelist(folder.file("list.txt"), &images), 0);
  for (const char* name : {"list.txt", "left_0.png", "right_0.png", "left_1.png", "right_1.png"})
    fs::remove(folder.file(name));
  EXPECT_EQ(CalPolarLinePrecision(folder.file("polar.txt").c_str(), folder.file("target.ini").c_str(),
                                  folder.file("calib.json").c_str(), folder.file("list.txt").c_str(), &results),
            polar_status::kImages);
  EXPECT_THAT(console.err(), StartsWith("Open " + folder.file("list.txt") + " to read failed!\n"));
  callersResultsAreUntouched();
  EXPECT_EQ(CalPolarLinePrecisionOutMat(folder.file("polar.txt").c_str(), folder.file("target.ini").c_str(),
                                        RenderedSet::of("ring_320").calibration(), images, &results, nullptr, nullptr),
            0);
  EXPECT_EQ(results.size(), 2U);
}

}  // namespace
