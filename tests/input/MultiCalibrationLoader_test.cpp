#include "input/MultiCalibrationLoader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <random>
#include <set>

#include "PolarLinePrecision/Status.h"
#include "input/CalibrationBytes.h"
#include "support/ConsoleCapture.h"
#include "support/TempFolder.h"

namespace {

using namespace calibration_bytes;
using testing::ElementsAre;
using testing::ElementsAreArray;

const std::string kWarning = "Warning: There is no bin size check for this distortion model combination!\n";
constexpr std::size_t kBlockOffset = 50 + 135;  // Of the first entry, a Brown camera.

class MultiCalibrationLoader : public testing::Test {
 protected:
  std::int32_t load(const std::string& content) {
    const ConsoleCapture capture;
    // A name of its own each time: some file systems flush a file that is written over, which takes milliseconds.
    const std::string path = folder_.write("calib" + std::to_string(++loads_) + ".bin", content);
    const std::int32_t status = loadMultiCalibration(path.c_str(), &record_, 0);
    printed_ = capture.out();
    std::filesystem::remove(path);
    return status;
  }

  TempFolder folder_;
  MultiCalibration record_;
  std::string printed_;

 private:
  int loads_ = 0;
};

std::string flipped(std::string text, std::size_t offset, unsigned mask = 1) {
  text.at(offset) = static_cast<char>(static_cast<unsigned>(text.at(offset)) ^ mask);
  return text;
}

/// Every size outside the table blocks, few inside.
std::size_t strideAt(std::size_t size) {
  const std::size_t in_entry = size % 2154;
  return in_entry > 300 && in_entry < 2000 ? 53 : 1;
}

std::vector<float> risingFrom(float first, std::size_t kept) {
  std::vector<float> values(12, 0.0F);
  for (std::size_t k = 0; k < kept; ++k) values[k] = first + static_cast<float>(k);
  return values;
}

TEST_F(MultiCalibrationLoader, TwoBrownCamerasOf4383BytesLoadWithoutTheWarning) {
  Camera right = brown();
  right.name = "second";
  right.first_parameter = 501.0F;
  right.first_coefficient = 7000.0F;
  right.height = 0x80000001U;
  const std::string content = mainForm({brown(), right});
  ASSERT_EQ(content.size(), 4383U);
  ASSERT_EQ(load(content), 0);
  EXPECT_EQ(printed_, "");
  EXPECT_EQ(record_.format_byte, 1);
  EXPECT_EQ(record_.short_text, "short");
  EXPECT_EQ(record_.long_text, "a longer text");
  EXPECT_EQ(record_.value, 0x01020304U);
  EXPECT_EQ(record_.fourth_byte, 0x47);
  EXPECT_EQ(record_.n, 2);
  EXPECT_EQ(record_.last_byte, 0x49);
  EXPECT_EQ(record_.model_code, 1);
  EXPECT_THAT(record_.camera_names, ElementsAre("cam", "second"));
  EXPECT_THAT(record_.model_names, ElementsAre("Brown", "Brown"));
  ASSERT_EQ(record_.entries.size(), 2U);
  const MultiCalibrationEntry& second = record_.entries[1];
  EXPECT_EQ(second.value, 77U);
  EXPECT_EQ(second.height, 0x80000001U);
  EXPECT_EQ(second.width, 1920U);
  EXPECT_EQ(second.camera_name, "second");
  EXPECT_THAT(record_.entries[0].parameters, ElementsAreArray(risingFrom(1.0F, 12)));
  EXPECT_THAT(second.parameters, ElementsAreArray(risingFrom(501.0F, 12)));
  EXPECT_EQ(std::string(second.table_block.begin(), second.table_block.end()), plainBlock(right));
  EXPECT_THAT(record_.entries[0].extrinsics, testing::Each(0.0F));
  EXPECT_THAT(second.extrinsics, ElementsAreArray(right.extrinsics));
}

TEST_F(MultiCalibrationLoader, TenExtraBytesPrintTheWarningAndParseTheSame) {
  ASSERT_EQ(load(mainForm({brown(), brown()}) + std::string(10, 'x')), 0);
  EXPECT_EQ(printed_, kWarning);
  EXPECT_EQ(record_.entries.size(), 2U);
  EXPECT_EQ(record_.model_code, 1);
}

struct MixCase {
  const char* name;
  std::vector<Camera> cameras;
  std::size_t size;
  bool warned;
  std::int32_t model_code;
};

class MultiCalibrationLoaderModelMixes : public MultiCalibrationLoader, public testing::WithParamInterface<MixCase> {};

std::size_t keptOf(const Camera& camera) { return camera.stored_parameters - 8; }

TEST_P(MultiCalibrationLoaderModelMixes, Load) {
  const MixCase& mix = GetParam();
  const std::string content = mainForm(mix.cameras);
  ASSERT_EQ(content.size(), mix.size);
  ASSERT_EQ(load(content), 0);
  EXPECT_EQ(printed_, mix.warned ? kWarning : "");
  EXPECT_EQ(record_.model_code, mix.model_code);
  EXPECT_EQ(record_.n, mix.cameras.size());
  ASSERT_EQ(record_.entries.size(), mix.cameras.size());
  for (std::size_t k = 0; k < mix.cameras.size(); ++k) {
    const Camera& camera = mix.cameras[k];
    const MultiCalibrationEntry& entry = record_.entries[k];
    EXPECT_EQ(record_.model_names[k], camera.model);
    EXPECT_THAT(entry.parameters, ElementsAreArray(risingFrom(1.0F, keptOf(camera)))) << k;
    EXPECT_EQ(std::string(entry.table_block.begin(), entry.table_block.end()), plainBlock(camera)) << k;
    const bool posed = hasExtrinsics(mix.cameras.size(), k);
    EXPECT_THAT(entry.extrinsics, ElementsAreArray(posed ? camera.extrinsics : std::array<float, 6>{})) << k;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Files, MultiCalibrationLoaderModelMixes,
    testing::Values(MixCase{"NoCamera", {}, 51, true, 0}, MixCase{"Brown", {brown()}, 2205, false, 1},
                    MixCase{"KB", {kb()}, 2189, false, 2}, MixCase{"DS", {ds()}, 2181, false, 3},
                    MixCase{"MEI", {mei()}, 2197, false, 4}, MixCase{"TwoKB", {kb(), kb()}, 4351, false, 2},
                    MixCase{"TwoDS", {ds(), ds()}, 4335, false, 3}, MixCase{"TwoMEI", {mei(), mei()}, 4367, false, 4},
                    MixCase{"BrownKB", {brown(), kb()}, 4367, false, 0},
                    MixCase{"DSBrown", {ds(), brown()}, 4359, false, 0},
                    MixCase{"MEIBrown", {mei(), brown()}, 4375, false, 0},
                    MixCase{"KBMEI", {kb(), mei()}, 4359, false, 0}, MixCase{"DSMEI", {ds(), mei()}, 4351, false, 0},
                    MixCase{"KBDS", {kb(), ds()}, 4343, false, 0},
                    MixCase{"ThreeBrown", {brown(), brown(), brown()}, 6585, false, 1},
                    MixCase{"BrownBrownKB", {brown(), brown(), kb()}, 6569, false, 0},
                    MixCase{"ThreeKB", {kb(), kb(), kb()}, 6537, true, 2},
                    MixCase{"BrownKBDS", {brown(), kb(), ds()}, 6545, true, 0},
                    MixCase{"FourBrown", {brown(), brown(), brown(), brown()}, 8763, true, 1}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(MultiCalibrationLoader, AOneCameraFileHasNoExtrinsicFloats) {
  ASSERT_EQ(load(mainForm({brown()})), 0);
  EXPECT_THAT(record_.entries.at(0).extrinsics, testing::Each(0.0F));
}

TEST_F(MultiCalibrationLoader, OneFlippedBitInATableBlockIsACrcMismatch) {
  const std::string content = mainForm({brown(), kb()});
  const std::size_t second_block = 50 + 2154 + 54 + 65;
  for (const std::size_t block : {kBlockOffset, second_block}) {
    for (const std::size_t offset : {0U, 1U, 2U, 999U, 2015U, 2016U}) {
      for (const unsigned mask : {0x01U, 0x80U}) {
        EXPECT_EQ(load(flipped(content, block + offset, mask)), polar_status::kCrcMismatch) << block + offset;
      }
    }
  }
}

TEST_F(MultiCalibrationLoader, TheOtherCheckBytesAreNotTested) {
  const std::string content = mainForm({brown(), brown()});
  const std::size_t behind_crc = kBlockOffset + 2017;
  for (const std::size_t offset : {kBlockOffset - 1, behind_crc, behind_crc + 1, content.size() - 2}) {
    EXPECT_EQ(load(flipped(content, offset, 0xFF)), 0) << offset;
  }
}

TEST_F(MultiCalibrationLoader, AFileThatEndsInsideItsEntriesIsNotSupported) {
  const std::string content = mainForm({brown(), ds()});
  const std::set<std::size_t> usual_sizes = {4335, 4343, 4351};
  for (std::size_t size = 0; size + 1 < content.size(); size += strideAt(size)) {
    ASSERT_EQ(load(content.substr(0, size)), polar_status::kNotSupported) << size;
    ASSERT_EQ(printed_, size < 50 || usual_sizes.contains(size) ? "" : kWarning) << size;
  }
  EXPECT_EQ(load(content.substr(0, content.size() - 1)), 0);
  EXPECT_EQ(load(content), 0);
}

TEST_F(MultiCalibrationLoader, AWrongCrcBeforeTheEndCountsFirst) {
  const std::string content = flipped(mainForm({brown(), ds()}), kBlockOffset + 5);
  for (std::size_t size = kBlockOffset; size <= content.size(); size += strideAt(size)) {
    const bool crc_is_there = size >= kBlockOffset + 2017;
    ASSERT_EQ(load(content.substr(0, size)), crc_is_there ? polar_status::kCrcMismatch : polar_status::kNotSupported)
        << size;
  }
}

TEST_F(MultiCalibrationLoader, MoreCamerasThanEntriesIsNotSupported) {
  std::string content = mainForm({brown()});
  content[48] = static_cast<char>(0xFF);
  EXPECT_EQ(load(content), polar_status::kNotSupported);
}

TEST_F(MultiCalibrationLoader, FewerCamerasThanEntriesReadsThese) {
  std::string content = mainForm({brown(), brown()});
  content[48] = 1;
  EXPECT_EQ(load(content), 0);
  EXPECT_EQ(printed_, kWarning);
  EXPECT_EQ(record_.entries.size(), 1U);
}

TEST_F(MultiCalibrationLoader, ALowerCaseModelNameTakesNoParameterField) {
  Camera camera = brown();
  camera.model = "brown";
  EXPECT_EQ(load(mainForm({camera})), polar_status::kCrcMismatch) << "the parse runs on at the wrong offset";
  camera.stored_parameters = 0;
  ASSERT_EQ(load(mainForm({camera})), 0);
  EXPECT_EQ(printed_, kWarning);
  EXPECT_THAT(record_.entries.at(0).parameters, testing::Each(0.0F));
  EXPECT_EQ(record_.model_code, 0);
  EXPECT_EQ(record_.model_names.at(0), "brown");
}

TEST_F(MultiCalibrationLoader, TextsThatFillTheirFieldsNeedNoNul) {
  Camera camera = brown();
  camera.name = "0123456789";
  std::string content = mainForm({camera});
  content.replace(1, 10, "abcdefghij");
  content.replace(11, 32, std::string(32, 'L'));
  ASSERT_EQ(load(content), 0);
  EXPECT_EQ(record_.camera_names.at(0), "0123456789");
  EXPECT_EQ(record_.entries.at(0).camera_name, "0123456789");
  EXPECT_EQ(record_.short_text, "abcdefghij");
  EXPECT_EQ(record_.long_text, std::string(32, 'L'));
}

TEST_F(MultiCalibrationLoader, AFailureLeavesTheRecordAsItWas) {
  ASSERT_EQ(load(mainForm({brown(), brown()})), 0);
  EXPECT_EQ(load(flipped(mainForm({kb()}), 50 + 54 + 65 + 7)), polar_status::kCrcMismatch);
  EXPECT_EQ(load("x"), polar_status::kNotSupported);
  EXPECT_EQ(record_.model_code, 1);
  EXPECT_EQ(record_.entries.size(), 2U);
}

TEST_F(MultiCalibrationLoader, ASecondLoadReplacesTheFirst) {
  ASSERT_EQ(load(mainForm({brown(), brown()})), 0);
  ASSERT_EQ(load(mainForm({kb()})), 0);
  EXPECT_THAT(record_.camera_names, ElementsAre("cam"));
  EXPECT_THAT(record_.model_names, ElementsAre("KB"));
  EXPECT_EQ(record_.entries.size(), 1U);
}

struct FormCase {
  const char* name;
  unsigned first;
  unsigned second;
  std::size_t size;
  std::int32_t status;
};

class MultiCalibrationLoaderForms : public MultiCalibrationLoader, public testing::WithParamInterface<FormCase> {};

TEST_P(MultiCalibrationLoaderForms, AreChosenByTwoBytesAndTheSize) {
  const FormCase& form = GetParam();
  const std::string start = byteText(form.first) + byteText(form.second);
  EXPECT_EQ(load(field(start.substr(0, form.size), form.size)), form.status);
}

INSTANTIATE_TEST_SUITE_P(Files, MultiCalibrationLoaderForms,
                         testing::Values(FormCase{"Empty", 0, 0, 0, polar_status::kNotSupported},
                                         FormCase{"OneByte", 1, 0, 1, polar_status::kNotSupported},
                                         FormCase{"TwoBytes", 1, 1, 2, polar_status::kNotSupported},
                                         FormCase{"MainWithoutCameras", 1, 1, 51, polar_status::kSuccess},
                                         FormCase{"ShortBlock", 1, 0, 10693, polar_status::kNotSupported},
                                         FormCase{"ShortBlockOfOtherSize", 1, 0, 10692, polar_status::kNotSupported},
                                         FormCase{"ShortTabled", 0, 0, 10688, polar_status::kNotSupported},
                                         FormCase{"ShortTabledLong", 0, 0, 21091, polar_status::kNotSupported},
                                         FormCase{"TabledWithoutRoom", 0, 1, 10688, polar_status::kCrcMismatch},
                                         FormCase{"TabledOfOtherSize", 0, 1, 21090, polar_status::kNotSupported},
                                         FormCase{"TabledTooLong", 0, 1, 21092, polar_status::kNotSupported},
                                         FormCase{"TabledWrongCrc", 0, 1, 21091, polar_status::kCrcMismatch}),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(MultiCalibrationLoader, TheTabledFormGivesTheMainFormsShape) {
  Camera right = kb();
  right.first_coefficient = -50.0F;
  ASSERT_EQ(load(sealTabled(tabledEntries({brown(), right}))), 0);
  EXPECT_EQ(record_.format_byte, 0);
  EXPECT_EQ(record_.model_code, 0);
  ASSERT_EQ(record_.entries.size(), 2U);
  EXPECT_THAT(record_.entries[1].parameters, ElementsAreArray(risingFrom(1.0F, 8)));
  EXPECT_THAT(record_.entries[1].extrinsics, ElementsAreArray(right.extrinsics));
  const std::string packed = plainBlock(right).substr(0, 2 + 24 * 80);
  const auto& block = record_.entries[1].table_block;
  EXPECT_EQ(std::string(block.begin(), block.end()), field(packed, 2016));
}

TEST_F(MultiCalibrationLoader, TheTabledFormHoldsUpToNineBrownCameras) {
  EXPECT_EQ(load(sealTabled(tabledEntries(std::vector<Camera>(9, brown())))), 0);
  EXPECT_EQ(record_.entries.size(), 9U);
  std::string entries = tabledEntries(std::vector<Camera>(9, brown()));
  entries[48] = 10;
  EXPECT_EQ(load(sealTabled(entries)), polar_status::kNotSupported) << "the tenth runs into the last byte";
}

TEST_F(MultiCalibrationLoader, EntriesBeyondTheTabledFormAreNotSupported) {
  const std::string entries = field(header(0, 255), 21090);
  EXPECT_EQ(load(sealTabled(entries)), polar_status::kNotSupported);
}

TEST_F(MultiCalibrationLoader, EachCellAndTheWholeOfTheTabledFormAreChecked) {
  const std::string entries = tabledEntries({brown(), brown()});
  for (const std::size_t offset : {kBlockOffset + 2, kBlockOffset + 82, kBlockOffset + 2 + 23 * 81}) {
    EXPECT_EQ(load(sealTabled(flipped(entries, offset))), polar_status::kCrcMismatch) << offset;
  }
  const std::string whole = sealTabled(entries);
  for (const std::size_t offset : {2U, 60U, 20000U, 21090U}) {
    EXPECT_EQ(load(flipped(whole, offset)), polar_status::kCrcMismatch) << offset;
  }
}

TEST(MultiCalibrationLoaderArguments, NullIs4096AndComesBeforeTheOptions) {
  MultiCalibration record;
  EXPECT_EQ(loadMultiCalibration(nullptr, &record, 0), 4096);
  EXPECT_EQ(loadMultiCalibration("x.bin", nullptr, 0), 4096);
  EXPECT_EQ(loadMultiCalibration(nullptr, &record, 1), 4096);
}

TEST(MultiCalibrationLoaderArguments, OptionsOtherThanZeroAre4098) {
  MultiCalibration record;
  EXPECT_EQ(loadMultiCalibration("/no/such/file.bin", &record, 1), 4098);
  EXPECT_EQ(loadMultiCalibration("/no/such/file.bin", &record, -1), 4098);
}

TEST(MultiCalibrationLoaderArguments, AFileThatDoesNotOpenIsItsErrno) {
  const TempFolder folder;
  MultiCalibration record;
  EXPECT_EQ(loadMultiCalibration(folder.file("gone.bin").c_str(), &record, 0), ENOENT);
  EXPECT_EQ(loadMultiCalibration((folder.write("f", "") + "/x.bin").c_str(), &record, 0), ENOTDIR);
  EXPECT_EQ(loadMultiCalibration(folder.path().c_str(), &record, 0), EISDIR);
}

TEST_F(MultiCalibrationLoader, WhatLiesBehindTheEntriesIsNotLookedAt) {
  const TempFolder folder;
  const std::vector<Camera> cameras(255, brown());
  const std::string path = folder.write("calib.bin", mainForm(cameras));
  std::filesystem::resize_file(path, std::uintmax_t{3} << 30);
  const ConsoleCapture console;
  EXPECT_EQ(loadMultiCalibration(path.c_str(), &record_, 0), 0);
  EXPECT_EQ(console.out(), kWarning);
  ASSERT_EQ(record_.entries.size(), 255U);
  EXPECT_THAT(record_.entries.back().extrinsics, ElementsAreArray(brown().extrinsics));
}

TEST_F(MultiCalibrationLoader, DamagedFilesNeverDoMoreThanFail) {
  std::mt19937 random(7);
  const std::vector<std::string> contents = {mainForm({brown(), mei()}), mainForm({kb(), ds(), brown()}),
                                             sealTabled(tabledEntries({ds(), kb()}))};
  for (int run = 0; run < 600; ++run) {
    std::string content = contents[random() % contents.size()];
    for (int k = 0; k < 3; ++k)
      content = flipped(content, random() % std::min<std::size_t>(content.size(), 200), 1U << random() % 8);
    if (run % 2 == 0) content.resize(random() % content.size());
    EXPECT_THAT(load(content), testing::AnyOf(0, 4097, 4098));
  }
}

}  // namespace
