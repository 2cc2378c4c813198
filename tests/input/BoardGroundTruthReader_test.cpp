#include "input/BoardGroundTruthReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <stdexcept>

#include "support/CommaLocale.h"
#include "support/TempFolder.h"

namespace {

using Reader = void (*)(const std::string&, BoardGroundTruth&);

/// Ten lines that do not count, one whose field k is k + 0.5, and more.
std::string report(std::size_t fields, const std::string& line_end = "\n") {
  std::string text;
  for (int k = 0; k < 10; ++k) text += "9,9,9,9,9,9,9,9" + line_end;
  for (std::size_t k = 0; k < fields; ++k) text += (k == 0 ? "" : ",") + std::to_string(k) + ".5";
  return text + line_end + "8,8,8,8,8,8,8,8" + line_end;
}

BoardGroundTruth readCsv(Reader reader, const std::string& text) {
  const TempFolder folder;
  BoardGroundTruth points = {{1, 2, 3}};
  reader(folder.write("report.csv", text), points);
  return points;
}

struct LayoutCase {
  const char* name;
  Reader reader;
  std::map<std::size_t, int> first_fields;  ///< Of every point that has fields.
};

class BoardGroundTruthReaderLayouts : public testing::TestWithParam<LayoutCase> {};

void expectPoints(const BoardGroundTruth& points, const std::map<std::size_t, int>& first_fields, int fields) {
  ASSERT_EQ(points.size(), 42U);
  for (std::size_t id = 0; id < points.size(); ++id) {
    const auto entry = first_fields.find(id);
    const int field = entry == first_fields.end() ? fields : entry->second;
    EXPECT_EQ(points[id].x, field < fields ? static_cast<float>(field) + 0.5F : 0.0F) << id;
    EXPECT_EQ(points[id].y, field + 1 < fields ? static_cast<float>(field) + 1.5F : 0.0F) << id;
    EXPECT_EQ(points[id].z, 0.0F) << id;
  }
}

TEST_P(BoardGroundTruthReaderLayouts, TakeTheirFieldsOfTheEleventhLine) {
  expectPoints(readCsv(GetParam().reader, report(90)), GetParam().first_fields, 90);
}

TEST_P(BoardGroundTruthReaderLayouts, ReadWindowsLineEndsTheSame) {
  expectPoints(readCsv(GetParam().reader, report(90, "\r\n")), GetParam().first_fields, 90);
}

TEST_P(BoardGroundTruthReaderLayouts, MissingFieldsAreZero) {
  for (const int fields : {0, 4, 5, 41, 60}) {
    expectPoints(readCsv(GetParam().reader, report(static_cast<std::size_t>(fields))), GetParam().first_fields, fields);
  }
}

TEST_P(BoardGroundTruthReaderLayouts, FewerThanElevenLinesGiveZeros) {
  const std::string ten_lines = report(90).substr(0, 160);
  expectPoints(readCsv(GetParam().reader, ten_lines), {}, 0);
  expectPoints(readCsv(GetParam().reader, ""), {}, 0);
}

std::map<std::size_t, int> layoutA() {
  std::map<std::size_t, int> fields;
  for (int id = 0; id <= 16; ++id) fields[static_cast<std::size_t>(id)] = 4 + 2 * id;
  fields.insert({{19, 38}, {20, 40}, {21, 42}, {22, 44}, {24, 46}});
  for (int id = 26; id <= 41; ++id) fields[static_cast<std::size_t>(id)] = 48 + 2 * (id - 26);
  return fields;
}

std::map<std::size_t, int> layoutB() {
  std::map<std::size_t, int> fields = {{0, 4},   {1, 7},   {2, 9},   {3, 11},  {4, 13},  {5, 15},  {6, 17},
                                       {18, 40}, {19, 42}, {20, 44}, {21, 46}, {22, 48}, {23, 50}, {36, 75},
                                       {37, 77}, {38, 79}, {39, 81}, {40, 83}, {41, 85}};
  for (int id = 7; id <= 16; ++id) fields[static_cast<std::size_t>(id)] = 20 + 2 * (id - 7);
  for (int id = 25; id <= 35; ++id) fields[static_cast<std::size_t>(id)] = 52 + 2 * (id - 25);
  return fields;
}

INSTANTIATE_TEST_SUITE_P(Csv, BoardGroundTruthReaderLayouts,
                         testing::Values(LayoutCase{"A", &ReadBoardCsvLayoutA, layoutA()},
                                         LayoutCase{"B", &ReadBoardCsvLayoutB, layoutB()}),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(BoardGroundTruthReaderCsv, LayoutAReadsPoint24From46And47AndPoint26From48) {
  const BoardGroundTruth points = readCsv(&ReadBoardCsvLayoutA, report(80));
  EXPECT_EQ(points.at(24), cv::Point3f(46.5F, 47.5F, 0.0F));
  EXPECT_EQ(points.at(25), cv::Point3f(0.0F, 0.0F, 0.0F));
  EXPECT_EQ(points.at(26), cv::Point3f(48.5F, 49.5F, 0.0F));
}

TEST(BoardGroundTruthReaderCsv, LayoutAReadsAFileOfLayoutBWithoutComplaint) {
  EXPECT_EQ(readCsv(&ReadBoardCsvLayoutA, report(87)).at(1), cv::Point3f(6.5F, 7.5F, 0.0F));
  EXPECT_EQ(readCsv(&ReadBoardCsvLayoutB, report(87)).at(1), cv::Point3f(7.5F, 8.5F, 0.0F));
}

TEST(BoardGroundTruthReaderCsv, FieldsReadAsFarAsTheyAreNumbers) {
  const std::string lines(10, '\n');
  const BoardGroundTruth points = readCsv(&ReadBoardCsvLayoutA, lines + ",,,, 1.5mm,abc,,-2e1,1e999,0x10");
  EXPECT_EQ(points.at(0), cv::Point3f(1.5F, 0.0F, 0.0F));
  EXPECT_EQ(points.at(1), cv::Point3f(0.0F, -20.0F, 0.0F));
  EXPECT_EQ(points.at(2), cv::Point3f(std::numeric_limits<float>::infinity(), 16.0F, 0.0F));
}

TEST(BoardGroundTruthReaderCsv, DoesNotFollowTheProcessLocale) {
  const CommaLocale comma;
  const TempFolder folder;
  BoardGroundTruth points;
  ReadBoardCsvLayoutA(folder.write("r.csv", std::string(10, '\n') + "0,0,0,0,1.25,2.5"), points);
  EXPECT_EQ(points.at(0), cv::Point3f(1.25F, 2.5F, 0.0F));
}

TEST(BoardGroundTruthReaderTxt, AppendsAPointALine) {
  const TempFolder folder;
  BoardGroundTruth points = {{9, 9, 9}};
  ReadBoardTxt(folder.write("b.txt", "1 2 3\r\n\t4.5  5.5\t6.5 ignored\n7 8 9"), points);
  const BoardGroundTruth expected = {{9, 9, 9}, {1, 2, 3}, {4.5F, 5.5F, 6.5F}, {7, 8, 9}};
  EXPECT_EQ(points, expected);
}

TEST(BoardGroundTruthReaderTxt, WhatCannotBeReadIsZero) {
  const TempFolder folder;
  BoardGroundTruth points;
  ReadBoardTxt(folder.write("b.txt", "\n1 x 3\n1,2,3\nx y z\n1 2\n"), points);
  const BoardGroundTruth expected = {{0, 0, 0}, {1, 0, 0}, {1, 0, 0}, {0, 0, 0}, {1, 2, 0}};
  EXPECT_EQ(points, expected);
}

TEST(BoardGroundTruthReaderTxt, ABlankLineYieldsAPoint) {
  const TempFolder folder;
  BoardGroundTruth points;
  ReadBoardTxt(folder.write("b.txt", "1 2 3\n\n4 5 6\n"), points);
  ASSERT_EQ(points.size(), 3U);
  EXPECT_EQ(points[1], cv::Point3f(0.0F, 0.0F, 0.0F));
}

TEST(BoardGroundTruthReaderTxt, AFileThatDoesNotOpenLeavesTheList) {
  const TempFolder folder;
  BoardGroundTruth points = {{9, 9, 9}};
  ReadBoardTxt(folder.file("gone.txt"), points);
  ReadBoardTxt(folder.path().string(), points);
  EXPECT_EQ(points.size(), 1U);
}

TEST(BoardGroundTruthReaderTxt, ABoardOfTooManyPointsIsRefused) {
  const TempFolder folder;
  const std::string path = folder.write("b.txt", "1 2 3\n");
  BoardGroundTruth points((1U << 24U) - 1);
  ReadBoardTxt(path, points);
  EXPECT_EQ(points.back(), cv::Point3f(1, 2, 3));
  EXPECT_THAT([&] { ReadBoardTxt(path, points); },
              testing::ThrowsMessage<std::length_error>("a board of more than 16777216 points"));
}

TEST(BoardGroundTruthReaderTxt, DoesNotFollowTheProcessLocale) {
  const CommaLocale comma;
  const TempFolder folder;
  BoardGroundTruth points;
  ReadBoardTxt(folder.write("b.txt", "0.5 1.5 1000.25\n"), points);
  EXPECT_EQ(points.at(0), cv::Point3f(0.5F, 1.5F, 1000.25F));
}

}  // namespace
