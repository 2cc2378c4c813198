#include "platform/DocumentTraps.h"

#include <gtest/gtest.h>

#include <opencv2/core.hpp>
#include <ostream>
#include <string>

#include "platform/Document.h"
#include "support/TempFolder.h"

namespace {

using documents::Syntax;
using documents::syntaxOf;
using documents::trapIn;

const std::string kNul(1, '\0');
const std::string kMark = "\xEF\xBB\xBF";
const std::string kYaml = "%YAML:1.0\n---\n";
const std::string kXml = "<?xml version=\"1.0\"?>\n<opencv_storage>\n";
/// Base64 of blanks, where the type of the numbers should stand.
const std::string kNoType = "ICAgICAgICAgICAgICAgICAgICAgICAgAAAAAAAA";

TEST(DocumentTrapsSyntaxOf, TheFirstCharactersTellBehindAByteOrderMark) {
  EXPECT_EQ(syntaxOf("{"), Syntax::kJson);
  EXPECT_EQ(syntaxOf("%YAML:1.0"), Syntax::kYaml);
  EXPECT_EQ(syntaxOf("<?xml"), Syntax::kXml);
  EXPECT_EQ(syntaxOf(kMark + "{"), Syntax::kJson);
  EXPECT_EQ(syntaxOf(kMark + "%YAML"), Syntax::kYaml);
  EXPECT_EQ(syntaxOf(kMark + "<?xml version"), Syntax::kXml);
}

TEST(DocumentTrapsSyntaxOf, MarksFartherBehindDoNot) {
  EXPECT_EQ(syntaxOf("{\"<?xml"), Syntax::kJson);
  EXPECT_EQ(syntaxOf("{ \"%YAML"), Syntax::kJson);
  for (const char* const text : {"", " {", "%YAM", "<?xm", "\n<?xml", "[", "a: 1"}) {
    EXPECT_EQ(syntaxOf(text), Syntax::kNone) << text;
  }
}

struct Trap {
  const char* name;
  std::string text;
  const char* told;
};

void PrintTo(const Trap& tested, std::ostream* stream) { *stream << tested.name; }

class DocumentTrapsFound : public testing::TestWithParam<Trap> {};

TEST_P(DocumentTrapsFound, IsToldAndRefused) {
  const char* const told = trapIn(GetParam().text);
  ASSERT_NE(told, nullptr);
  EXPECT_STREQ(told, GetParam().told);
  const TempFolder folder;
  EXPECT_THROW(documents::openForReading(folder.write("a.json", GetParam().text)), cv::Exception);
}

constexpr const char* kBase64 = "base64 data";
INSTANTIATE_TEST_SUITE_P(
    Base64, DocumentTrapsFound,
    testing::Values(
        Trap{"Json", "{\"a\":\"$base64$" + kNoType + "\"}", kBase64},
        Trap{"JsonWithTheMarkOfXml", "{\"<?xml\":\"$base64$" + kNoType + "\"}", kBase64},
        Trap{"Yaml", kYaml + "a: !!binary |\n  " + kNoType + "\n", kBase64},
        Trap{"YamlWithACaret", kYaml + "a: !^binary |\n  " + kNoType + "\n", kBase64},
        Trap{"YamlWithTheFullType", kYaml + "a: !<tag:yaml.org,2002:binary> |\n  " + kNoType + "\n", kBase64},
        Trap{"Xml", kXml + "<a type_id=\"binary\">\n" + kNoType + "\n</a></opencv_storage>\n", kBase64},
        Trap{"XmlInSingleQuotes", kXml + "<a type_id='binary'>\n" + kNoType + "\n</a></opencv_storage>\n", kBase64}),
    [](const auto& tested) { return std::string(tested.param.name); });

constexpr const char* kTag = "an unfinished tag at its end";
INSTANTIATE_TEST_SUITE_P(
    Xml, DocumentTrapsFound,
    testing::Values(
        Trap{"EqualsSignInTheHeader", "<?xml version=", kTag}, Trap{"EqualsSign", kXml + "<a b=", kTag},
        Trap{"EqualsSignAndBlanks", kXml + "<a b= \n\t\r\n", kTag},
        Trap{"EqualsSignAndANul", kXml + "<a b=" + kNul, kTag},
        Trap{"EqualsSignAndWhatIsCutOff", kXml + "<a b=\rc\n \r\"d\"", kTag},
        Trap{"EqualsSignBehindWhatIsCutOff", kXml + "<a c=\"\rd\" b=\r\n", kTag},
        Trap{"Ampersand", kXml + "<a>b&", kTag}, Trap{"AmpersandAndANul", kXml + "<a>b&" + kNul, kTag},
        Trap{"TextOfANamedType", kXml + "<a type_id=\"str\"></a></opencv_storage>\n", "a text of a named type"},
        Trap{"TheSameInSingleQuotes", kXml + "<a type_id='str'></a></opencv_storage>\n", "a text of a named type"}),
    [](const auto& tested) { return std::string(tested.param.name); });

INSTANTIATE_TEST_SUITE_P(HiddenBehindANul, DocumentTrapsFound,
                         testing::Values(Trap{"Json", "{\"a\": 7,\n" + kNul + "\"b\": 8\n}", "a NUL"},
                                         Trap{"Yaml", kYaml + "a: 7\nb:" + kNul + " 8\n", "a NUL"},
                                         Trap{"Xml", kXml + "<a>7</a><b>" + kNul + "8</b></opencv_storage>\n",
                                              "a NUL"}),
                         [](const auto& tested) { return std::string(tested.param.name); });

INSTANTIATE_TEST_SUITE_P(Yaml, DocumentTrapsFound,
                         testing::Values(Trap{"Dash", kYaml + "a: 1\n...\n-1\n", "a dash behind its end"},
                                         Trap{"DashBehindAByteOrderMark", kMark + kYaml + "- 1\n...\n- 2",
                                              "a dash behind its end"}),
                         [](const auto& tested) { return std::string(tested.param.name); });

struct Harmless {
  const char* name;
  std::string text;
  const char* b;  ///< What is read for "b"; every text holds a seven for "a".
};

void PrintTo(const Harmless& tested, std::ostream* stream) { *stream << tested.name; }

class DocumentTrapsHarmless : public testing::TestWithParam<Harmless> {};

TEST_P(DocumentTrapsHarmless, IsRead) {
  const TempFolder folder;
  const cv::FileStorage document = documents::openForReading(folder.write("a.json", GetParam().text));
  EXPECT_EQ(static_cast<int>(document["a"]), 7);
  EXPECT_EQ(static_cast<std::string>(document["b"]), GetParam().b);
}

INSTANTIATE_TEST_SUITE_P(
    Json, DocumentTrapsHarmless,
    testing::Values(Harmless{"Text", R"({"a": 7, "b": "binary str ... - !!binary $base64 = $base64$"})",
                             "binary str ... - !!binary $base64 = $base64$"},
                    Harmless{"TextOfAQuote", R"({"a": 7, "b": "\"$base64$\""})", "\"$base64$\""},
                    Harmless{"Comment", "{ // \"$base64$\n\"a\": 7, /* \"c\": \"$base64$\" */ \"b\": \"c\"}", "c"},
                    Harmless{"Key", R"({"$base64$": 1, "a": 7, "b": "c"})", "c"},
                    Harmless{"BehindTheRoot", R"({"a": 7, "b": "c"} "$base64$")", "c"},
                    Harmless{"KeyOfYaml", R"({ "%YAML": 7, "a": 7, "b": "c" })", "c"},
                    Harmless{"NulsBehind", "{\"a\": 7, \"b\": \"c\"}" + kNul + kNul, "c"}),
    [](const auto& tested) { return std::string(tested.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Yaml, DocumentTrapsHarmless,
    testing::Values(Harmless{"Text", kYaml + "a: 7\nb: c !!binary $base64$\n", "c !!binary $base64$"},
                    Harmless{"TextInQuotes", kYaml + "a: 7\nb: \"!!binary [{\"\n", "!!binary [{"},
                    Harmless{"TextInSingleQuotes", kYaml + "a: 7\nb: '!!binary '' ['\n", "!!binary ' ["},
                    Harmless{"NamedText", kYaml + "b: !str c: !!binary\na: 7\n", "c: !!binary"},
                    Harmless{"Comment", kYaml + "# !!binary\na: 7 # !!binary\nb: \"c\" # : - !!binary\n", "c"},
                    Harmless{"Key", kYaml + "a: 7\n!!binary: 1\nb: c\n", "c"},
                    Harmless{"OtherTypes", kYaml + "a: !int 7\nb: !!binaries c\nd: { mode:binary }\n", "c"},
                    Harmless{"TwoDocuments", kYaml + "a: 7\n...\n# -\n---\nb: c\n...\n", "c"},
                    Harmless{"Escape", kYaml + "a: 7\nb: \"c\\n\"", "c\n"},
                    Harmless{"NumberOfAnEscape", kYaml + "a: 7\nb: \"\\x103c\"\n",
                             "\x08"
                             "c"},
                    Harmless{"BackslashAtTheEnd", kYaml + "a: 7\nb: c\\x41", "c\\x41"},
                    Harmless{"ListThatEndsInAComma", kYaml + "a: 7\nc: [[1,]\nb: d\n", "d"}),
    [](const auto& tested) { return std::string(tested.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Xml, DocumentTrapsHarmless,
    testing::Values(
        Harmless{"Text", kXml + "<a>7</a><b>\"... - !!binary $base64$ type_id=\"</b></opencv_storage>",
                 "... - !!binary $base64$ type_id="},
        Harmless{"TextOfAType", kXml + "<a>7</a><b>\"binary\"</b><c>\"str\"</c></opencv_storage>", "binary"},
        Harmless{"Comment", kXml + "<!-- <b type_id=\"binary\"> = 'str' --><a>7</a><b>c</b></opencv_storage>", "c"},
        Harmless{"OtherAttribute",
                 kXml + "<a d='str'>7</a><b d = \"binary\" e='=' type_id='strings'>c</b></opencv_storage>", "c"},
        Harmless{
            "TypesOfHeaderAndRoot",
            "<?xml version=\"1.0\" type_id=\"str\"?><opencv_storage type_id='binary'><a>7</a><b>c</b></opencv_storage>",
            "c"},
        Harmless{"Entity", kXml + "<a>7</a><b>\"c &amp; d&#33;\"</b></opencv_storage>" + kNul, "c & d!"},
        Harmless{"EqualsSignBehindTheRoot", kXml + "<a>7</a><b>c</b></opencv_storage>\n<!-- =", "c"},
        Harmless{"LineEndBehindTheEqualsSign",
                 kXml + "<a>7</a><d type_id=\r\n\"map\"><c>1</c></d><b>c</b></opencv_storage>\n", "c"}),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
