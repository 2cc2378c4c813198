#include "platform/XmlTraps.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

using documents::trapInXml;

constexpr const char* kBase64 = "base64 data";
constexpr const char* kType = "a text of a named type";
constexpr const char* kTag = "an unfinished tag at its end";

struct Text {
  const char* name;
  const char* insideRoot;
  const char* told;
};

void PrintTo(const Text& tested, std::ostream* stream) { *stream << tested.name; }

class XmlTrapsXmlText : public testing::TestWithParam<Text> {};

TEST_P(XmlTrapsXmlText, IsTold) {
  EXPECT_STREQ(trapInXml("<?xml version=\"1.0\"?>\n<opencv_storage>" + std::string(GetParam().insideRoot)),
               GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    Types, XmlTrapsXmlText,
    testing::Values(Text{"Binary", "<a type_id=\"binary\">", kBase64}, Text{"SingleQuotes", "<a type_id='str'>", kType},
                    Text{"BlanksAround", "<a  type_id = \t 'binary' >", kBase64},
                    Text{"OnLinesOfItsOwn", "<a\ntype_id\n=\n'str'\n>", kType},
                    Text{"SecondAttribute", "<a b='c>' type_id='binary'>", kBase64},
                    Text{"BehindAnEmptyOne", "<a type_id='' type_id='str'>", kType},
                    Text{"DeeperDown", "<a><b>1 <_ type_id='binary'>", kBase64},
                    Text{"BehindAClosedElement", "<a>1</a><b type_id='str'>", kType},
                    Text{"BehindATagInAnEntity", "<a>&<;</a><b type_id='str'>", kType},
                    Text{"BehindALineEndInAnEntity", "<a>&\r;<b type_id='binary'>", kBase64},
                    Text{"BehindALineEndInANumber", "<a>&#\r65;<b type_id='binary'>", kBase64},
                    Text{"BehindALineEndInAValue", "<a b='\r' type_id='binary'>", kBase64},
                    Text{"BehindAComment", "<!-- '<a b=\" - --><a type_id='binary'>", kBase64},
                    Text{"BehindTheShortestComment", "<!----><a type_id='binary'>", kBase64},
                    Text{"BehindACutOffEndOfAComment", "<!-- \r -->\n <a b='--> <c type_id=\"str\">", kType},
                    Text{"BehindWhatIsCutOff", "<a>1\r<b '=\n</a><b type_id='str'>", kType},
                    Text{"BehindWhatIsCutOffInATag", "<a \r b=\"\n type_id='str'>", kType}),
    [](const auto& tested) { return std::string(tested.param.name); });

INSTANTIATE_TEST_SUITE_P(Ends, XmlTrapsXmlText,
                         testing::Values(Text{"EqualsSign", "<a b=", kTag},
                                         Text{"EqualsSignAndBlanks", "<a b= \t\n\r\n", kTag},
                                         Text{"EqualsSignAndWhatIsCutOff", "<a b=\rc\n \r\"d\"", kTag},
                                         Text{"EqualsSignBehindAClosedElement", "<a>1</a><a b=", kTag},
                                         Text{"Ampersand", "<a>b&", kTag}, Text{"AmpersandInQuotes", "<a>\"b &", kTag},
                                         Text{"AmpersandBehindAnEntity", "<a>&amp;&", kTag}),
                         [](const auto& tested) { return std::string(tested.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Harmless, XmlTrapsXmlText,
    testing::Values(Text{"Text", "<a>\"binary\" type_id=\"str\"</a>", nullptr},
                    Text{"OtherAttribute", "<a b='binary' type='str'>", nullptr},
                    Text{"OtherTypes", "<a type_id='map' b='str'><b type_id='binaries'><c type_id=' str'>", nullptr},
                    Text{"Comment", "<!-- <a type_id='binary'> -- & = -->", nullptr},
                    Text{"CommentOfLines", "<!-- \n<a type_id='binary'>\n\r-->\n<b type_id='str'> -->", nullptr},
                    Text{"ClosingTag", "<a>1</a type_id='str'>", nullptr},
                    Text{"SecondRoot", "</opencv_storage><opencv_storage type_id='binary'>", nullptr},
                    Text{"CutOff", "<a>1\r<b type_id='binary'>\n</a>", nullptr},
                    Text{"Entities", "<a>&lt;b type_id='str'&gt; &#38;</a>", nullptr},
                    Text{"EqualsSignInAText", "</opencv_storage> =", nullptr},
                    Text{"EqualsSignInAComment", "</opencv_storage><!-- =", nullptr},
                    Text{"EqualsSignInAValue", "<a b='=", nullptr}, Text{"AmpersandInAValue", "<a b='&", nullptr},
                    Text{"AmpersandInAComment", "<!-- &", nullptr}, Text{"AmpersandAndALineEnd", "<a>&\n", nullptr},
                    Text{"TagWithoutAnEnd", "<a b", nullptr},
                    Text{"ClosingTagsOnly", "</opencv_storage></a></a><b type_id='str'>", nullptr}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(XmlTraps, HeaderAndRootHaveNoType) {
  EXPECT_EQ(trapInXml("<?xml version=\"1.0\" type_id='str'?><opencv_storage type_id='binary'>"), nullptr);
  EXPECT_STREQ(trapInXml("<?xml version="), kTag);
  EXPECT_EQ(trapInXml(""), nullptr);
}

}  // namespace
