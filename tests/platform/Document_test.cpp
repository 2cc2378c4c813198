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

class DocumentNested : public testing::TestWithParam<Nesting> {
 protected:
  TempFolder folder;

  /// The extension has no say in what the document is.
  std::string nested(std::size_t levels) const {
    const Nesting& form = GetParam();
    return folder.write("a.json", form.before + repeated(form.opening, levels) + form.core +
                                      repeated(form.closing, levels) + form.behind);
  }
};

TEST_P(DocumentNested, IsReadUpToTheLimitAndRefusedBeyond) {
  const std::size_t most = (kMostOpenings - GetParam().fixed) / GetParam().each;
  EXPECT_TRUE(documents::openForReading(nested(most)).isOpened());
  EXPECT_THROW(documents::openForReading(nested(most + 1)), cv::Exception);
}

TEST_P(DocumentNested, OfAMillionLevelsDoesNotEndTheProcess) {
  EXPECT_THROW(documents::openForReading(nested(1000000)), cv::Exception);
}

INSTANTIATE_TEST_SUITE_P(Forms, DocumentNested,
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
  const std::string numbers = repeated(", -1.5e-05", 15000) + repeated(", -.5", 15000);
  const std::string xml = repeated(" -1.5e-05", 15000) + repeated(" -.5", 15000);
  for (const std::string& text :
       {"{\"a\": [1" + numbers + "]}", "%YAML:1.0\n---\na: [1" + numbers + "]\n",
        "<?xml version=\"1.0\"?>\n<opencv_storage>\n<a>1" + xml + "</a></opencv_storage>\n"}) {
    EXPECT_EQ(documents::openForReading(folder.write("a.json", text))["a"].size(), 30001U) << text.substr(0, 20);
  }
}

TEST(Document, MarksOfAnotherSyntaxMayBeAsManyAsTheyLike) {
  const TempFolder folder;
  const std::string json = "{\"a\": 7, \"b\": \"" + repeated("<", 4000) + "\", \"c\": \"" + repeated("<", 4000) +
                           "\", \"d\": \"" + repeated("-:", 2000) + "\"}";
  EXPECT_EQ(static_cast<int>(documents::openForReading(folder.write("a.json", json))["a"]), 7);
}

void expectRefusal(const std::string& content, const std::string& told) {
  const TempFolder folder;
  try {
    documents::openForReading(folder.write("a.json", content));
    FAIL() << "no exception";
  } catch (const cv::Exception& error) {
    EXPECT_EQ(error.code, cv::Error::StsParseError);
    EXPECT_NE(error.err.find(told), std::string::npos) << error.err;
  }
}

TEST(Document, RefusalNamesCountAndLimit) {
  expectRefusal(std::string(20000, '{'), "opens 20000 brackets, tags or keys, the most is 10000");
}

TEST(Document, RefusalNamesTheTrap) { expectRefusal("{\"a\":\"$base64$", "a.json has base64 data, which is not read"); }

TEST(Document, YamlKeyOfNothingIsAParseErrorAsWell) {
  expectRefusal("%YAML:1.0\n---\na: { : 2}\n", "a.json has a key without a name");
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

TEST(Document, OfANameThatMeansAnotherFileToOpenCvIsNeitherReadNorWritten) {
  const TempFolder folder;
  const std::string before = folder.write("a", "{ \"a\": 1 }");
  for (const char* const name : {"a?b.json", "a?", "a.json?b", "a.gz", "a.gz7"}) {
    const std::string whole = folder.write(name, "{ \"a\": 2 }");
    EXPECT_FALSE(documents::openForReading(whole).isOpened()) << name;
    EXPECT_FALSE(documents::openForWriting(whole).isOpened()) << name;
    EXPECT_EQ(folder.read(name), "{ \"a\": 2 }") << name;
  }
  EXPECT_EQ(static_cast<int>(documents::openForReading(before)["a"]), 1);
  EXPECT_TRUE(documents::openForReading(folder.write("a.gzip", "{ \"a\": 2 }")).isOpened());
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
