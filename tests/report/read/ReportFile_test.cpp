#include <gtest/gtest.h>

#include <string>

#include "polarline/errors.h"
#include "polarline/report.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

TEST(ReportFileOf, HasTheWholeText) {
  const TempFolder folder;
  const std::string text(3000001, 'x');  // No whole number of the pieces that are read.
  const ReportDocument document = readReportDocument(folder.write("r.json", text));
  EXPECT_EQ(document.text, text);
  EXPECT_EQ(document.path, folder.file("r.json"));
}

TEST(ReportFileOf, EmptyIsEmpty) {
  const TempFolder folder;
  EXPECT_EQ(readReportDocument(folder.write("r.json", "")).text, "");
}

TEST(ReportFileFailure, IsToldWithThePath) {
  const TempFolder folder;
  for (const std::string& path : {folder.file("none.json"), folder.path().string()}) {
    try {
      readReportDocument(path);
      FAIL() << "was taken";
    } catch (const InputError& error) {
      EXPECT_EQ(std::string(error.what()).rfind(path + ": ", 0), 0U) << error.what();
    }
  }
}

}  // namespace
}  // namespace polarline
