#include "calibrations/document/XmlText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/Texts.h"

namespace {

using calibrations::valueOfXml;
using testing::HasSubstr;

std::string storage(const std::string& content) {
  return "<?xml version=\"1.0\"?>\n<opencv_storage>\n" + content + "</opencv_storage>\n";
}

TEST(XmlText, HoldsWhatOpenCvStores) {
  EXPECT_EQ(line(valueOfXml(storage("<a type_id=\"opencv-matrix\"><rows>1</rows><cols>2</cols><dt>d</dt>"
                                    "<data>1.5 -2.0000000000000001e-01</data></a><b>3</b><c>\"text\"</c>"),
                            "file")),
            "{a={rows=1 cols=2 dt=d data=[1.5 -0.2]} b=3 c=text}");
}

TEST(XmlText, IsRefusedWhereItIsNone) {
  EXPECT_EQ(refusedBy(valueOfXml, "<html>"), "file: is no OpenCV storage in XML");
  EXPECT_EQ(refusedBy(valueOfXml, storage("<a>1</b>")), "file: is no OpenCV storage in XML");
}

TEST(XmlText, IsRefusedWhereItIsATrap) {
  std::string deep;
  for (int k = 0; k < 40; ++k) deep += "<a>";
  deep += "1";
  for (int k = 0; k < 40; ++k) deep += "</a>";
  EXPECT_EQ(refusedBy(valueOfXml, storage(deep)), "file: has more than 32 levels, which is not read");
}

}  // namespace
