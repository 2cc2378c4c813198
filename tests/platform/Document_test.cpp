#include "platform/Document.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <opencv2/core.hpp>
#include <ostream>
#include <stdexcept>
#include <string>

#include "platform/BoundedInput.h"
#include "support/TempFolder.h"

namespace {

using documents::kMostOpenings;

std::string repeated(const std::string& text, std::size_t count) {
  std::string result;
  for (std::size_t k = 0; k < count; ++k) result += text;
  return result;
}

struct Nesting {
  const char* name;
  const char* before;
  const char* opening;
  const char* core;
  const char* closing;
  const char* behind;
  std::size_t fixed;  ///< Openings of the text around.
  std::size_t each;   ///< Openings of one level.
};

void PrintTo(const Nesting& tested, std::ostream* stream) { *stream << tested.name; }

class NestedDocument : public testing::TestWithParam<Nesting> {
 protected:
  TempFolder folder;

  /// The extension has no say in what the document is.
  std::string nested(std::size_t levels) const {
    const Nesting& form = GetParam();
    return folder.write("a.json", form.before + repeated(form.opening, levels) + form.core +
                                      repeated(form.closing, levels) + form.behind);
  }
};

TEST_P(NestedDocument, IsReadUpToTheLimitAndRefusedBeyond) {
  const std::size_t most = (kMostOpenings - GetParam().fixed) / GetParam().each;
  EXPECT_TRUE(documents::openForReading(nested(most)).isOpened());
  EXPECT_THROW(documents::openForReading(nested(most + 1)), cv::Exception);
}

TEST_P(NestedDocument, OfAMillionLevelsDoesNotEndTheProcess) {
  EXPECT_THROW(documents::openForReading(nested(1000000)), cv::Exception);
}

INSTANTIATE_TEST_SUITE_P(Forms, NestedDocument,
                         testing::Values(Nesting{"JsonLists", R"({"a": )", "[", "", "]", "}", 1, 1},
                                         Nesting{"JsonMaps", R"({"a": )", R"({"b":)", "1", "}", "}", 1, 1},
                                         Nesting{"YamlLists", "%YAML:1.0\n---\na: ", "[", "", "]", "\n", 5, 1},
                                         Nesting{"YamlDashes", "%YAML:1.0\n---\na:\n ", "- ", "1", "", "\n", 5, 1},
                                         Nesting{"Xml", "<?xml version=\"1.0\"?>\n<opencv_storage>\n", "<a>", "",
                                                 "</a>", "</opencv_storage>\n", 3, 2}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(Document, BracketsInQuotesCountAndClosingOnesDoNotHelp) {
  const TempFolder folder;
  const auto listOf = [&](const char* item, std::size_t count) {
    return folder.write("a.json", "{\"a\": [1" + repeated(item, count) + "]}");
  };
  EXPECT_TRUE(documents::openForReading(listOf(", []", kMostOpenings - 2)).isOpened());
  EXPECT_THROW(documents::openForReading(listOf(", []", kMostOpenings - 1)), cv::Exception);
  EXPECT_THROW(documents::openForReading(listOf(", \"]\", [\"[\"]", kMostOpenings / 2)), cv::Exception);
}

TEST(Document, NumbersMayBeAsManyAsTheyLike) {
  const TempFolder folder;
  const cv::FileStorage document =
      documents::openForReading(folder.write("a.json", "{\"a\": [1" + repeated(", -1.5e-05", 50000) + "]}"));
  EXPECT_EQ(document["a"].size(), 50001U);
}

TEST(Document, RefusalNamesCountAndLimit) {
  const TempFolder folder;
  try {
    documents::openForReading(folder.write("a.json", std::string(20000, '{')));
    FAIL() << "no exception";
  } catch (const cv::Exception& error) {
    EXPECT_EQ(error.code, cv::Error::StsParseError);
    EXPECT_NE(error.err.find("opens 20000 brackets, tags or keys, the most is 10000"), std::string::npos) << error.err;
  }
}

const std::string kYaml = "%YAML:1.0\n---\n";
const std::string kXml = "<?xml version=\"1.0\"?>\n<opencv_storage>\n";
/// Base64 of blanks, where the type of the numbers should stand.
const std::string kNoType = "ICAgICAgICAgICAgICAgICAgICAgICAgAAAAAAAA";

class Trap : public testing::TestWithParam<std::string> {};

TEST_P(Trap, IsRefusedBeforeTheParserFallsIntoIt) {
  const TempFolder folder;
  EXPECT_THROW(documents::openForReading(folder.write("a.json", GetParam())), cv::Exception);
}

INSTANTIATE_TEST_SUITE_P(EndlessBase64, Trap,
                         testing::Values("{\"a\":\"$base64$" + kNoType + "\"}",
                                         kYaml + "a: !!binary |\n  " + kNoType + "\n",
                                         kXml + "<a type_id=\"binary\">\n" + kNoType + "\n</a></opencv_storage>\n",
                                         kXml + "<a type_id='binary'>\n" + kNoType + "\n</a></opencv_storage>\n"));
INSTANTIATE_TEST_SUITE_P(EndlessTypedBase64, Trap,
                         testing::Values(kYaml + "a: !^binary |\n  " + kNoType + "\n",
                                         kYaml + "a: !<tag:yaml.org,2002:binary> |\n  " + kNoType + "\n"));
INSTANTIATE_TEST_SUITE_P(EndlessYaml, Trap,
                         testing::Values(kYaml + "a: 1\n...\n-1\n", "%YAML:1.0\n---%YAML:1.0\n---\n-\n",
                                         "\xef\xbb\xbf" + kYaml + "- 1\n...\n- 2"));
INSTANTIATE_TEST_SUITE_P(NullPointerInXml, Trap,
                         testing::Values("<?xml version=", kXml + "<a b=", kXml + "<a b= \n\t\r\n",
                                         kXml + "<a b=" + std::string(1, '\0'), kXml + "<a b=\rc\n \r\"d\"",
                                         kXml + "<a>b&"));
INSTANTIATE_TEST_SUITE_P(HiddenBehindANul, Trap,
                         testing::Values("{\"a\": 7,\n" + std::string(1, '\0') + "\"b\": 8\n}",
                                         kYaml + "a: 7\nb:" + std::string(1, '\0') + " 8\n",
                                         kXml + "<a>7</a><b>" + std::string(1, '\0') + "8</b></opencv_storage>\n"));

class HarmlessDocument : public testing::TestWithParam<std::string> {};

TEST_P(HarmlessDocument, IsRead) {
  const TempFolder folder;
  EXPECT_EQ(static_cast<int>(documents::openForReading(folder.write("a.json", GetParam()))["a"]), 7);
}

INSTANTIATE_TEST_SUITE_P(
    LikeTraps, HarmlessDocument,
    testing::Values("{\"a\": 7, \"b\": \"binary\", \"c\": \"... - !!binary =\"}", "{\"a\": 7}" + std::string(3, '\0'),
                    kYaml + "a: 7\nb: \"$base64$ binary\"\nc: x=\n...\n# -\n---\nd: 2\n...\n",
                    kXml + "<a>7</a><b>c &amp; d</b></opencv_storage>" + std::string(3, '\0'),
                    kXml + "<a>7</a><b>\"... - !!binary $base64$\"</b><c d = \"=\">1</c></opencv_storage>\n"));

TEST(Document, RefusalNamesTheTrap) {
  const TempFolder folder;
  try {
    documents::openForReading(folder.write("a.json", "{\"a\":\"$base64$"));
    FAIL() << "no exception";
  } catch (const cv::Exception& error) {
    EXPECT_EQ(error.code, cv::Error::StsParseError);
    EXPECT_NE(error.err.find("a.json has base64 data, which is not read"), std::string::npos) << error.err;
  }
}

TEST(Document, MissingFileIsNotOpen) {
  const TempFolder folder;
  EXPECT_FALSE(documents::openForReading(folder.file("none.json")).isOpened());
}

TEST(Document, FolderIsNotOpen) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.file("folder.json"));
  EXPECT_FALSE(documents::openForReading(folder.file("folder.json")).isOpened());
}

TEST(Document, OfMoreCharactersThanATextMayHaveIsRefused) {
  const TempFolder folder;
  const std::string path = folder.write("a.json", "{ \"a\": 7 }");
  std::filesystem::resize_file(path, bounded::kLongestText);
  EXPECT_EQ(static_cast<int>(documents::openForReading(path)["a"]), 7);
  std::filesystem::resize_file(path, bounded::kLongestText + 1);
  EXPECT_THROW(documents::openForReading(path), std::length_error);
}

TEST(Document, ThatCannotBeParsedIsTheLibrarysException) {
  const TempFolder folder;
  EXPECT_THROW(documents::openForReading(folder.write("a.json", "{ \"a\": [1, \n")), cv::Exception);
}

TEST(Document, OfANameWithAQuestionMarkIsNeitherReadNorWritten) {
  const TempFolder folder;
  const std::string before = folder.write("a", "{ \"a\": 1 }");
  const std::string whole = folder.write("a?b.json", "{ \"a\": 2 }");
  EXPECT_FALSE(documents::openForReading(whole).isOpened());
  EXPECT_FALSE(documents::openForWriting(whole).isOpened());
  EXPECT_EQ(static_cast<int>(documents::openForReading(before)["a"]), 1);
}

TEST(Document, IsWrittenInTheSyntaxOfItsExtension) {
  const TempFolder folder;
  for (const char* const name : {"a.json", "a.yml", "a.xml"}) {
    {
      cv::FileStorage document = documents::openForWriting(folder.path().string() + "\\" + name);
      document << "a" << 7;
    }
    EXPECT_EQ(static_cast<int>(documents::openForReading(folder.file(name))["a"]), 7) << name;
  }
  EXPECT_FALSE(documents::openForWriting(folder.file("none") + "/a.json").isOpened());
}

TEST(Document, TakesThePathsOwnSeparator) {
  const TempFolder folder;
  folder.write("a.json", "{ \"a\": 1 }");
  EXPECT_TRUE(documents::openForReading(folder.path().string() + "\\a.json").isOpened());
}

}  // namespace
