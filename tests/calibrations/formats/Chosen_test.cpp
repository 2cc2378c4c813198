#include "calibrations/formats/Chosen.h"

#include <gtest/gtest.h>

#include "polarline/errors.h"

namespace {

using calibrations::chosen;
using calibrations::Document;

polarline::ImportOptions ofPair(int left, int right) {
  polarline::ImportOptions options;
  options.pair = {left, right};
  return options;
}

TEST(Chosen, IsTheFirstTwo) {
  EXPECT_EQ(chosen({}).left, 0U);
  EXPECT_EQ(chosen({}).right, 1U);
}

TEST(Chosen, IsWhatTheOptionSays) {
  EXPECT_EQ(chosen(ofPair(3, 1)).left, 3U);
  EXPECT_EQ(chosen(ofPair(3, 1)).right, 1U);
  EXPECT_THROW(chosen(ofPair(1, 1)), polarline::InputError);
  EXPECT_THROW(chosen(ofPair(-1, 1)), polarline::InputError);
}

TEST(ChosenDocuments, AreTwoUnlessTheOptionSaysWhich) {
  std::vector<Document> documents(2);
  documents[0].place = "first";
  documents[1].place = "second";
  EXPECT_EQ(cameraDocuments(documents, {}).right.place, "second");
  EXPECT_EQ(cameraDocuments(documents, ofPair(1, 0)).right.place, "first");
  EXPECT_THROW(cameraDocuments(documents, ofPair(0, 2)), polarline::InputError);
  documents.resize(3);
  EXPECT_THROW(cameraDocuments(documents, {}), polarline::InputError);
  EXPECT_EQ(cameraDocuments(documents, ofPair(1, 0)).left.place, "second");
}

}  // namespace
