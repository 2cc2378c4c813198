#include "report/picture/SetBoard.h"

#include <gtest/gtest.h>

#include "MadeDocument.h"
#include "check/set/Fingerprint.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

/// A document of a board of 3 rows and 4 columns with such a file of measured places.
cv::Point3d placeOfDot5(const std::string& content) {
  const TempFolder folder;
  Check check = made_document::check();
  check.inputs = {{"board", folder.write("board_gt.txt", content), sha256(content)}};
  return *boardOf(made_document::json(check), "").placeOf(5);
}

TEST(SetBoardOf, HasThePlacesOfTheFile) {
  std::string content;
  for (int k = 0; k < 12; ++k) content += std::to_string(k) + ".5 2 0.25\n";
  EXPECT_EQ(placeOfDot5(content), cv::Point3d(5.5, 2.0, 0.25));
}

TEST(SetBoardOf, HasTheGridWithoutOne) {
  EXPECT_EQ(placeOfDot5("0 0 0\n"), cv::Point3d(10.0, 10.0, 0.0)) << "too few";
  EXPECT_EQ(placeOfDot5("no numbers\n"), cv::Point3d(10.0, 10.0, 0.0));
  EXPECT_EQ(*boardOf(made_document::json(made_document::check()), "").placeOf(5), cv::Point3d(10.0, 10.0, 0.0));
}

}  // namespace
}  // namespace polarline
