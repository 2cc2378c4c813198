#include "input/MultiCalibrationLoader.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "PolarLinePrecision/Status.h"
#include "input/BinaryLayout.h"
#include "input/Crc8.h"
#include "input/PackedReader.h"
#include "input/TableBlock.h"
#include "platform/Console.h"
#include "platform/Files.h"

namespace {

using Bytes = std::span<const std::uint8_t>;

enum class FileForm { kMain, kTabled, kRefused };

/// Where the tabled form, whose cells each have a CRC-8, holds the CRC-8 of all bytes before: in its last byte.
constexpr std::size_t kWholeCrcOffset = 21090;
/// A file of this size counts as the tabled form too. It always fails: its last CRC-8 would lie beyond its end.
constexpr std::size_t kShortTabledSize = 10688;
/// Bytes that are read of a file: more than 255 cameras take, the most that one byte can count.
constexpr std::size_t kMostBytes = std::size_t{1} << 20;

// Widths of the text fields.
constexpr std::size_t kShortText = 10;
constexpr std::size_t kLongText = 32;
constexpr std::size_t kCameraName = 10;
constexpr std::size_t kModelName = 32;

/// Behind the parameters, the table block and each entry stands a check byte, which is not tested.
constexpr std::size_t kCheckByte = 1;

FileForm formOf(Bytes bytes) {
  if (bytes.size() < 2 || bytes[1] == 0) return FileForm::kRefused;
  if (bytes[0] != 0) return FileForm::kMain;
  const bool tabled = bytes.size() == kShortTabledSize || bytes.size() == kWholeCrcOffset + 1;
  return tabled ? FileForm::kTabled : FileForm::kRefused;
}

bool readHeader(PackedReader& reader, MultiCalibration& record) {
  record.format_byte = reader.byte();
  record.short_text = reader.text(kShortText);
  record.long_text = reader.text(kLongText);
  record.value = reader.integer();
  record.fourth_byte = reader.byte();
  record.n = reader.byte();
  record.last_byte = reader.byte();
  return static_cast<bool>(reader);
}

/// Only a warning: the file is read all the same.
void warnOfUnknownSize(FileForm form, std::size_t cameras, std::size_t size) {
  const std::size_t missing_bytes = form == FileForm::kTabled ? cameras : 0;
  if (isKnownFileSize(cameras, size + missing_bytes)) return;
  console::line("Warning: There is no bin size check for this distortion model combination!");
}

/// A single camera and the first of two are stored without extrinsics.
bool hasExtrinsics(std::size_t cameras, std::size_t index) { return cameras >= 3 || (cameras == 2 && index != 0); }

/// An entry up to the end of its table block.
std::int32_t readCamera(PackedReader& reader, FileForm form, MultiCalibrationEntry& entry, std::string& model_name) {
  entry.camera_name = reader.text(kCameraName);
  entry.value = reader.integer();
  entry.height = reader.integer();
  entry.width = reader.integer();
  model_name = reader.text(kModelName);
  if (const ParameterField* const field = findParameterField(model_name)) {
    for (std::size_t k = 0; k < field->kept; ++k) entry.parameters.at(k) = reader.number();
    reader.skip((field->stored - field->kept) * sizeof(float) + kCheckByte);
  }
  return form == FileForm::kTabled ? readTabledBlock(reader, entry.table_block)
                                   : readPlainBlock(reader, entry.table_block);
}

std::int32_t readEntry(PackedReader& reader, FileForm form, MultiCalibration& record) {
  MultiCalibrationEntry entry;
  std::string model_name;
  const std::int32_t status = readCamera(reader, form, entry, model_name);
  if (status != polar_status::kSuccess) return status;
  reader.skip(kCheckByte);
  if (hasExtrinsics(record.n, record.entries.size())) {
    for (float& value : entry.extrinsics) value = reader.number();
  }
  reader.skip(kCheckByte);
  record.camera_names.push_back(entry.camera_name);
  record.model_names.push_back(std::move(model_name));
  record.entries.push_back(std::move(entry));
  return reader ? polar_status::kSuccess : polar_status::kNotSupported;
}

std::int32_t commonModelCode(const std::vector<std::string>& names) {
  if (names.empty() || std::ranges::any_of(names, [&](const std::string& name) { return name != names.front(); })) {
    return 0;
  }
  const ParameterField* const field = findParameterField(names.front());
  return field == nullptr ? 0 : field->model_code;
}

bool wholeCrcMatches(Bytes bytes) {
  return bytes.size() > kWholeCrcOffset && crc8(bytes.first(kWholeCrcOffset)) == bytes[kWholeCrcOffset];
}

std::int32_t parse(Bytes bytes, MultiCalibration& record) {
  const FileForm form = formOf(bytes);
  if (form == FileForm::kRefused) return polar_status::kNotSupported;
  PackedReader reader(bytes);
  if (!readHeader(reader, record)) return polar_status::kNotSupported;
  warnOfUnknownSize(form, record.n, bytes.size());
  if (form == FileForm::kTabled && !wholeCrcMatches(bytes)) return polar_status::kCrcMismatch;
  for (int k = 0; k < record.n; ++k) {
    const std::int32_t status = readEntry(reader, form, record);
    if (status != polar_status::kSuccess) return status;
  }
  record.model_code = commonModelCode(record.model_names);
  return polar_status::kSuccess;
}

}  // namespace

std::int32_t loadMultiCalibration(const char* path, MultiCalibration* record, std::int32_t options) {
  if (path == nullptr || record == nullptr) return polar_status::kNullArgument;
  if (options != 0) return polar_status::kNotSupported;
  std::vector<std::uint8_t> bytes;
  const std::int32_t open_error = files::readBytes(path, kMostBytes, bytes);
  if (open_error != 0) return open_error;
  MultiCalibration parsed;
  const std::int32_t status = parse(bytes, parsed);
  if (status == polar_status::kSuccess) *record = std::move(parsed);
  return status;
}
