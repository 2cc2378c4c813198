#include "platform/Document.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <opencv2/core.hpp>
#include <ostream>
#include <stdexcept>
#include <string>

#include "platform/BoundedInput.h"
#include "platform/TrapNames.h"
#include "support/TempFolder.h"

namespace {

using documents::kMostLevels;

std::string repeated(const std::string& text, std::size_t count) {
  std::string result;
  for (std::size_t k = 0; k < count; ++k) result += text;
  return result;
}

const std::string kYaml = "%YAML:1.0\n---\n";
const std::string kXml = "<?xml version=\"1.0\"?>\n<opencv_storage>\n";

/// A document of levels inside each other.
struct Nesting {
  const char* name;
  std::string before;
  const char* opening;
  const char* core;
  const char* closing;
  std::string between;  ///< Behind the levels, in front of as many again.
  const char* behind;
  std::size_t around;  ///< Levels of the text around.
};

void PrintTo(const Nesting& tested, std::ostream* stream) { *stream << tested.name; }

class DocumentNested : public testing::TestWithParam<Nesting> {
 protected:
  TempFolder folder;

  std::string levels(std::size_t count) const {
    return repeated(GetParam().opening, count) + GetParam().core + repeated(GetParam().closing, count);
  }

  /// The extension has no say in what the document is.
  cv::FileStorage opened(const std::string& levels) const {
    return documents::openForReading(folder.write("a.json", GetParam().before + levels + GetParam().behind));
  }
};

TEST_P(DocumentNested, IsReadUpToTheLimitAndRefusedBeyond) {
  const std::size_t most = kMostLevels - GetParam().around;
  EXPECT_TRUE(opened(levels(most)).isOpened());
  EXPECT_THROW(opened(levels(most + 1)), cv::Exception);
}

TEST_P(DocumentNested, OfAMillionLevelsDoesNotEndTheProcess) { EXPECT_THROW(opened(levels(1000000)), cv::Exception); }

TEST_P(DocumentNested, ClosedLevelsDoNotCount) {
  const std::string most = levels(kMostLevels - GetParam().around);
  EXPECT_TRUE(opened(most + GetParam().between + most).isOpened());
  EXPECT_THROW(opened(most + GetParam().between + GetParam().opening + most + GetParam().closing), cv::Exception);
}

/// Levels by ever deeper lines.
std::string indentedDashes(std::size_t count) {
  std::string result;
  for (std::size_t k = 0; k < count; ++k) result += std::string(k, ' ') + "-\n";
  return result;
}

INSTANTIATE_TEST_SUITE_P(
    Forms, DocumentNested,
    testing::Values(Nesting{"JsonLists", R"({"a": [)", "[", "", "]", ", ", "]}", 2},
                    Nesting{"JsonMaps", R"({"a": [)", R"({"b":)", "1", "}", ", ", "]}", 2},
                    Nesting{"YamlLists", kYaml + "a: [", "[", "1", "]", ", ", "]\n", 2},
                    Nesting{"YamlMaps", kYaml + "a: [", "{b: ", "1", "}", ", ", "]\n", 2},
                    Nesting{"YamlDashes", kYaml + "a:\n - ", "- ", "1", "", "\n - ", "\n", 2},
                    Nesting{"YamlDashesBehindLines", kYaml + indentedDashes(1000) + std::string(1000, ' ') + "- ", "- ",
                            "1", "", "\n" + std::string(1000, ' ') + "- ", "\n", 1001},
                    Nesting{"YamlKeys", kYaml + "a:\n - ", "b: ", "1", "", "\n - ", "\n", 2},
                    Nesting{"YamlRoots", kYaml, "b: ", "1", "", "\n...\n---\n", "\n", 0},
                    Nesting{"Xml", kXml, "<a>", "1", "</a>", " ", "</opencv_storage>\n", 1},
                    Nesting{"XmlLists", kXml + "<a>", "<_>", "1", "</_>", "", "</a></opencv_storage>\n", 2}),
    [](const auto& tested) { return std::string(tested.param.name); });

/// A document of "a" with more entries side by side than levels may be inside each other.
struct Row {
  const char* name;
  std::string before;
  std::string (*entry)(const std::string& number);
  const char* behind;
};

void PrintTo(const Row& tested, std::ostream* stream) { *stream << tested.name; }

class DocumentRowOfEntries : public testing::TestWithParam<Row> {};

/// Of a list of one, or a map of one, what is inside.
int numberIn(const cv::FileNode& node) {
  return node.isSeq() || node.isMap() ? numberIn(*node.begin()) : static_cast<int>(node);
}

TEST_P(DocumentRowOfEntries, IsReadWhole) {
  constexpr std::size_t kCount = kMostLevels + 1;
  std::string text = GetParam().before;
  for (std::size_t k = 0; k < kCount; ++k) text += GetParam().entry(std::to_string(k));
  const TempFolder folder;
  const cv::FileStorage document = documents::openForReading(folder.write("a.json", text + GetParam().behind));
  const cv::FileNode entries = document["a"];
  ASSERT_EQ(entries.size(), kCount);
  int expected = 0;
  for (const cv::FileNode& entry : entries) ASSERT_EQ(numberIn(entry), expected++);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, DocumentRowOfEntries,
    testing::Values(
        Row{"JsonLists", "{\"a\": [", [](const std::string& k) { return "[" + k + "],"; }, "]}"},
        Row{"JsonMaps", "{\"a\": [", [](const std::string& k) { return "{\"b\": " + k + "},\n"; }, "]}"},
        Row{"JsonMembers", "{\"a\": {", [](const std::string& k) { return "\"b" + k + "\": " + k + ","; }, "}}"},
        Row{"YamlItems", kYaml + "a:\n", [](const std::string& k) { return "  - " + k + "\n"; }, ""},
        Row{"YamlItemsOfMaps", kYaml + "a:\n", [](const std::string& k) { return "  - b: " + k + "\n"; }, ""},
        Row{"YamlKeys", kYaml + "a:\n", [](const std::string& k) { return "  b" + k + ": " + k + "\n"; }, ""},
        Row{"YamlKeysOfLists", kYaml + "a:\n", [](const std::string& k) { return "  b" + k + ":\n    - " + k + "\n"; },
            ""},
        Row{"YamlLists", kYaml + "a: [", [](const std::string& k) { return (k == "0" ? "[" : ", [") + k + "]"; },
            "]\n"},
        Row{"XmlElements", kXml + "<a>", [](const std::string& k) { return "<_>" + k + "</_>"; },
            "</a></opencv_storage>"},
        Row{"XmlMembers", kXml + "<a>", [](const std::string& k) { return "<b" + k + ">" + k + "</b" + k + ">\n"; },
            "</a></opencv_storage>"}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(Document, NumbersMayBeAsManyAsTheyLike) {
  const TempFolder folder;
  const std::string numbers = repeated(", -1.5e-05", 15000) + repeated(", -.5", 15000);
  const std::string xml = repeated(" -1.5e-05", 15000) + repeated(" -.5", 15000);
  for (const std::string& text : {"{\"a\": [1" + numbers + "]}", kYaml + "a: [1" + numbers + "]\n",
                                  kXml + "<a>1" + xml + "</a></opencv_storage>\n"}) {
    EXPECT_EQ(documents::openForReading(folder.write("a.json", text))["a"].size(), 30001U) << text.substr(0, 20);
  }
}

/// Marks of levels, in quotes and in a comment. A text has less than 4096 characters.
TEST(Document, MarksInTextsAndCommentsAreNoLevels) {
  const TempFolder folder;
  const std::string marks = repeated("[{", 2000);
  const auto rowOf = [](const std::string& text) { return repeated(text + ", ", 5); };
  const std::string yaml = repeated("# [{ - a:\n", 3000) + "a: 7\nb: [" + rowOf("'" + marks + "'") +
                           rowOf("\"" + marks + "\"") + rowOf("c" + marks) + "{" + marks + ": 1} ]\n" + "d" +
                           repeated("[{", 9000) + ": 1\n";
  const std::string text = "<_>\"" + repeated("&lt;", 1000) + "\"</_>";
  for (const std::string& document : {"{ /*" + repeated("[{", 6000) + "*/ \"a\": 7, \"b\": [" +
                                          rowOf("\"" + marks + "\"") + "], \"" + repeated("[{", 6000) + "\": 1 }",
                                      kYaml + yaml,
                                      kXml + "<!--" + repeated("<c>", 11000) + "--><a b='" + repeated("<c>", 11000) +
                                          "'>7</a><b>" + repeated(text, 11) + "</b></opencv_storage>"}) {
    const cv::FileStorage opened = documents::openForReading(folder.write("a.json", document));
    EXPECT_EQ(static_cast<int>(opened["a"]), 7) << document.substr(0, 20);
    EXPECT_GE(opened["b"].size(), 5U) << document.substr(0, 20);
  }
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

TEST(Document, RefusalNamesTheLimit) {
  EXPECT_EQ(kMostLevels, 10000U);
  expectRefusal("{\"a\":" + std::string(20000, '['), "a.json has more than 10000 levels inside each other");
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
