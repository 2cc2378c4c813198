#include "input/ImageList.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/Files.h"
#include "support/ConsoleCapture.h"
#include "support/TempFolder.h"

namespace {

const std::string kHeaderFailed = "ParseHeaderLine failed!\n";
const std::string kContentFailed = "ParseContentLine failed!\n";
const std::string kCountFailed = "fname pairs does not agree with number of camera!\n";

/// A folder with the pictures a.png (value 10) to d.png (40), and a list.
class ImageList : public testing::Test {
 protected:
  ImageList() {
    for (int k = 0; k < 4; ++k) {
      const std::string name{static_cast<char>('a' + k)};
      files::writeImage(folder_.file(name + ".png"), cv::Mat(2, 3, CV_8UC1, cv::Scalar(10 * (k + 1))));
    }
  }

  std::int32_t read(const std::string& text) { return readPath(folder_.write("list.txt", text)); }

  std::int32_t readPath(const std::string& path) {
    const ConsoleCapture capture;
    const std::int32_t result = ReadImageList(path, images_);
    EXPECT_EQ(capture.out(), "");
    failure_ = capture.err();
    return result;
  }

  int value(std::size_t camera, std::size_t pair) const { return images_.at(camera).at(pair).at<std::uint8_t>(0, 0); }

  TempFolder folder_;
  ImagePairList images_ = {{cv::Mat::ones(1, 1, CV_8UC1)}};
  std::string failure_;
};

TEST_F(ImageList, LoadsByCameraAndLine) {
  ASSERT_EQ(read("#L R\na.png b.png\nc.png d.png\n"), 1);
  ASSERT_EQ(images_.size(), 2U);
  ASSERT_EQ(images_[0].size(), 2U);
  ASSERT_EQ(images_[1].size(), 2U);
  EXPECT_EQ(value(0, 0), 10);
  EXPECT_EQ(value(1, 0), 20);
  EXPECT_EQ(value(0, 1), 30);
  EXPECT_EQ(value(1, 1), 40);
  EXPECT_EQ(failure_, "");
}

TEST_F(ImageList, TheLastLineNeedsNoLineEnd) {
  ASSERT_EQ(read("#L R\na.png b.png"), 1);
  EXPECT_EQ(images_.at(1).size(), 1U);
}

TEST_F(ImageList, NamesAreRelativeToTheListsFolderByEitherSeparator) {
  folder_.write("list.txt", "#L R\na.png b.png\n");
  ASSERT_EQ(readPath(folder_.path().string() + "\\list.txt"), 1);
  EXPECT_EQ(value(1, 0), 20);
}

TEST_F(ImageList, ABareNameLooksInTheCurrentFolder) {
  folder_.write("list.txt", "#L R\na.png b.png\n");
  const std::filesystem::path kept = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  const std::int32_t result = readPath("list.txt");
  std::filesystem::current_path(kept);
  ASSERT_EQ(result, 1);
  EXPECT_EQ(value(0, 0), 10);
}

TEST_F(ImageList, AbsolutePathsInTheListDoNotWork) {
  ASSERT_EQ(read("#L\n" + folder_.file("a.png") + "\n"), 1);
  EXPECT_TRUE(images_.at(0).at(0).empty());
}

TEST_F(ImageList, ImagesStayAsDecoded) {
  files::writeImage(folder_.file("deep.png"), cv::Mat(2, 3, CV_16UC1, cv::Scalar(1000)));
  files::writeImage(folder_.file("colour.png"), cv::Mat(2, 3, CV_8UC3, cv::Scalar(1, 2, 3)));
  ASSERT_EQ(read("#L R\ndeep.png colour.png\n"), 1);
  EXPECT_EQ(images_.at(0).at(0).type(), CV_16UC1);
  EXPECT_EQ(images_.at(1).at(0).type(), CV_8UC3);
}

TEST_F(ImageList, AnImageThatFailsToDecodeStaysAsAnEmptyOne) {
  ASSERT_EQ(read("#L R\nlist.txt b.png\nc.png none.png\n"), 1);
  EXPECT_TRUE(images_.at(0).at(0).empty());
  EXPECT_TRUE(images_.at(1).at(1).empty());
  EXPECT_EQ(value(1, 0), 20);
}

TEST_F(ImageList, APictureOfMoreThan2To30PixelsRaisesTheExceptionOfOpenCV) {
  folder_.write("large.pgm", "P5\n40000 40000\n255\n");
  EXPECT_THROW(read("#L R\nlarge.pgm b.png\n"), cv::Exception);
}

struct HeaderCase {
  const char* name;
  const char* text;
  std::size_t cameras;
};

class ImageListHeaders : public ImageList, public testing::WithParamInterface<HeaderCase> {};

TEST_P(ImageListHeaders, CountTheCameras) {
  EXPECT_EQ(read(GetParam().text), GetParam().cameras == 0 ? 0 : 1);
  EXPECT_EQ(images_.size(), GetParam().cameras);
  EXPECT_EQ(failure_, GetParam().cameras == 0 ? kHeaderFailed : "");
  for (const auto& list : images_) EXPECT_TRUE(list.empty());
}

INSTANTIATE_TEST_SUITE_P(Lists, ImageListHeaders,
                         testing::Values(HeaderCase{"Close", "#L R\n", 2}, HeaderCase{"Apart", "# L   R\n", 2},
                                         HeaderCase{"Tabs", "#\tL\t\tR\t\n", 2}, HeaderCase{"One", "#L", 1},
                                         HeaderCase{"Three", "#a b c\r\n", 3}, HeaderCase{"HashAlone", "#\n", 0},
                                         HeaderCase{"HashAndBlanks", "# \t \r\n", 0}, HeaderCase{"NoHash", "L R\n", 0},
                                         HeaderCase{"BlankBeforeHash", " #L R\n", 0},
                                         HeaderCase{"EmptyLine", "\n#L R\n", 0}, HeaderCase{"EmptyFile", "", 0}),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(ImageList, ABlankLineInTheMiddleFailsAndKeepsEarlierImages) {
  EXPECT_EQ(read("#L R\na.png b.png\n\nc.png d.png\n"), 0);
  EXPECT_EQ(failure_, kContentFailed);
  EXPECT_EQ(images_.at(0).size(), 1U);
}

TEST_F(ImageList, ABlankLineAtTheEndFails) {
  EXPECT_EQ(read("#L R\na.png b.png\n\n"), 0);
  EXPECT_EQ(failure_, kContentFailed);
  EXPECT_EQ(read("#L R\na.png b.png\n \t"), 0);
  EXPECT_EQ(failure_, kContentFailed);
}

TEST_F(ImageList, AnotherTokenCountFailsAndKeepsEarlierImages) {
  EXPECT_EQ(read("#L R\na.png b.png\na.png b.png c.png\n"), 0);
  EXPECT_EQ(failure_, kCountFailed);
  EXPECT_EQ(images_.at(0).size(), 1U);
  EXPECT_EQ(images_.at(1).size(), 1U);
  EXPECT_EQ(read("#L R\na.png\n"), 0);
  EXPECT_EQ(failure_, kCountFailed);
}

TEST_F(ImageList, AListThatDoesNotOpenEmptiesTheTable) {
  const std::string path = folder_.file("gone.txt");
  EXPECT_EQ(readPath(path), 0);
  EXPECT_EQ(failure_, "Open " + path + " to read failed!\n");
  EXPECT_TRUE(images_.empty());
  EXPECT_EQ(readPath(folder_.path().string()), 0) << "a folder is no list";
}

TEST_F(ImageList, WindowsLineEndsReadTheSame) {
  ASSERT_EQ(read("#L R\r\na.png b.png\r\n"), 1);
  EXPECT_EQ(images_.size(), 2U);
  EXPECT_EQ(value(1, 0), 20);
  EXPECT_EQ(read("#L R\r\n\r\n"), 0);
  EXPECT_EQ(failure_, kContentFailed);
}

/// A content line for one camera of so many characters: blanks and a name.
std::string padded(std::size_t size) { return std::string(size - 5, ' ') + "a.png"; }

TEST_F(ImageList, ALineOf511CharactersIsRead) {
  ASSERT_EQ(read("#L\n" + padded(511) + "\n" + padded(511) + "\r\n" + padded(511)), 1);
  EXPECT_EQ(images_.at(0).size(), 3U);
}

TEST_F(ImageList, ALineOf512CharactersIsTheEndOfTheFile) {
  for (const char* end : {"\n", "\r\n", ""}) {
    ASSERT_EQ(read("#L\nb.png\n" + padded(512) + end), 1);
    EXPECT_EQ(images_.at(0).size(), 1U);
  }
  ASSERT_EQ(read("#L\n" + std::string(512, ' ') + "\nb.png\n"), 1) << "nothing behind it is looked at";
  EXPECT_TRUE(images_.at(0).empty());
}

TEST_F(ImageList, AnOverlongHeaderCountsItsFirst511Characters) {
  ASSERT_EQ(read("#L " + std::string(508, ' ') + "R\na.png\n"), 1);
  ASSERT_EQ(images_.size(), 1U);
  EXPECT_TRUE(images_[0].empty());
  EXPECT_EQ(read(std::string(600, 'x') + "\n"), 0);
  EXPECT_EQ(failure_, kHeaderFailed);
}

TEST_F(ImageList, NulBytesAreHarmless) {
  EXPECT_EQ(read(std::string("#L R\n\0\0 \0\n", 10)), 1);
  EXPECT_TRUE(images_.at(0).at(0).empty());
}

TEST_F(ImageList, NamesAreReadWithoutTheImages) {
  const ConsoleCapture capture;
  const ImageNames names = ReadImageNames(folder_.write("list.txt", "#L R\r\nnone.png sub/b.png\r\nc.png\td.png"));
  EXPECT_EQ(names.cameras, 2U);
  EXPECT_EQ(names.rows, (std::vector<std::vector<std::string>>{{"none.png", "sub/b.png"}, {"c.png", "d.png"}}));
  EXPECT_EQ(names.failure, "");
  EXPECT_EQ(files::nativePath(names.folder + "a.png"), folder_.file("a.png"));
  EXPECT_EQ(capture.err(), "");
}

TEST_F(ImageList, NamesTellWhatEndedThemAndPrintNothing) {
  const ConsoleCapture capture;
  const auto names = [&](const std::string& text) { return ReadImageNames(folder_.write("list.txt", text)); };
  EXPECT_EQ(names("a.png b.png\n").failure, kHeaderFailed);
  EXPECT_EQ(names("a.png b.png\n").cameras, 0U);
  EXPECT_EQ(names("#L R\na.png b.png\n\nc.png d.png\n").failure, kContentFailed);
  EXPECT_EQ(names("#L R\na.png b.png\n\nc.png d.png\n").rows.size(), 1U);
  EXPECT_EQ(names("#L R\na.png b.png\nc.png\n").failure, kCountFailed);
  const std::string gone = folder_.file("gone.txt");
  EXPECT_EQ(ReadImageNames(gone).failure, "Open " + gone + " to read failed!\n");
  EXPECT_EQ(capture.err(), "");
}

}  // namespace
