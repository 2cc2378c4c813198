#include <PolarLinePrecision.h>
#include <pybind11/stl.h>

#include <array>
#include <string>

#include "python/src/Arrays.h"
#include "python/src/CallBack.h"
#include "python/src/ExportTexts.h"
#include "python/src/PictureArgument.h"
#include "python/src/Points.h"
#include "python/src/Text.h"
#include "python/src/Turn.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using Records = std::vector<PolarResultRecord>;

/// The status beside what a call put into its list.
py::tuple answerOf(std::int32_t status, Records&& records) {
  py::list all;
  for (PolarResultRecord& record : records) all.append(py::cast(std::move(record)));
  return py::make_tuple(status, all);
}

py::tuple runFiles(const char* polar, const char* target, const char* calibration, const char* list) {
  Records records;
  const std::int32_t status = aside([&] { return CalPolarLinePrecision(polar, target, calibration, list, &records); });
  return answerOf(status, std::move(records));
}

py::tuple runImages(const char* polar, const char* target, const ExportedCalibParams& calibration,
                    const std::vector<py::sequence>& images, const py::object& progress, const char* folder) {
  std::vector<std::vector<PictureArgument>> kept;
  ImagePairList pairs;
  for (const py::sequence& side : images) {
    kept.push_back(pictureArguments(side, "images[" + std::to_string(kept.size()) + "]"));
    pairs.push_back(pixelsOf(kept.back()));
  }
  CallBack back(progress);
  const ProgressCallback ask = [&back](float percent) { return back.ask(percent); };
  Records records;
  const std::int32_t status =
      aside([&] { return CalPolarLinePrecisionOutMat(polar, target, calibration, pairs, &records, &ask, folder); });
  back.rethrow();
  return answerOf(status, std::move(records));
}

py::tuple runRectified(const char* polar, const char* target, const RectifiedParams& rectified, const char* list) {
  Records records;
  const std::int32_t status = aside([&] { return CalRecificationPrecision(polar, target, rectified, list, &records); });
  return answerOf(status, std::move(records));
}

py::tuple readImages(const std::string& path) {
  ImagePairList images;
  const std::int32_t status = aside([&] { return ReadCalibImagelist(path, &images); });
  py::list sides;
  for (const std::vector<cv::Mat>& side : images) {
    py::list all;
    for (const cv::Mat& image : side) all.append(image.empty() ? py::none() : py::object(viewOf(image)));
    sides.append(all);
  }
  return py::make_tuple(status, sides);
}

void addRuns(py::module_& module) {
  module.def("CalPolarLinePrecision", &runFiles, text_of::kRunFiles, py::arg("polarConfigPath").none(true),
             py::arg("targetConfigPath").none(true), py::arg("calibrationPath").none(true),
             py::arg("imageListPath").none(true));
  module.def("CalPolarLinePrecisionOutMat", &runImages, text_of::kRunImages, py::arg("polarConfigPath").none(true),
             py::arg("targetConfigPath").none(true), py::arg("calibration"), py::arg("images"),
             py::arg("progress").none(true) = py::none(), py::arg("resultFolder").none(true) = py::none());
  module.def("CalRecificationPrecision", &runRectified, text_of::kRunRectified, py::arg("polarConfigPath").none(true),
             py::arg("targetConfigPath").none(true), py::arg("rectified"), py::arg("imageListPath").none(true));
  module.def(
      "CalTempCompensateCoeff",
      [](const char* polar, const char* target, const char* calibration, const char* list) {
        return aside([&] { return CalTempCompensateCoeff(polar, target, calibration, list); });
      },
      text_of::kTemperature, py::arg("polarConfigPath").none(true), py::arg("targetConfigPath").none(true),
      py::arg("calibrationPath").none(true), py::arg("imageListPath").none(true));
}

void addReaders(py::module_& module) {
  module.def(
      "ReadCalibParams",
      [](const std::string& path, ExportedCalibParams& calibration) {
        return aside([&] { return ReadCalibParams(path, &calibration); });
      },
      text_of::kReadCalibration, py::arg("path"), py::arg("calibration"));
  module.def("ReadCalibImagelist", &readImages, text_of::kReadImages, py::arg("path"));
  module.def(
      "ReadTxtPolyParams",
      [](const std::string& folder, ExportedCalibParams& calibration) {
        return aside([&] { return ReadTxtPolyParams(folder, &calibration); });
      },
      text_of::kReadTables, py::arg("folder"), py::arg("calibration"));
  module.def(
      "ReadBoardGTFromCSV",
      [](const std::string& path, bool second_layout) {
        BoardGroundTruth points;
        const std::int32_t status = aside([&] { return ReadBoardGTFromCSV(path, &points, second_layout); });
        return py::make_tuple(status, arrayOf(points));
      },
      text_of::kReadBoardReport, py::arg("path"), py::arg("second_layout"));
  module.def(
      "ReadBoardGTFromTxt",
      [](const std::string& path) {
        BoardGroundTruth points;
        aside([&] { ReadBoardGTFromTxt(path, &points); });
        return arrayOf(points);
      },
      text_of::kReadBoardList, py::arg("path"));
  module.def(
      "LoadCalibrationParamsMulti",
      [](const char* path, std::int32_t options) {
        MultiCalibration record;
        const std::int32_t status = aside([&] { return LoadCalibrationParamsMulti(path, &record, options); });
        return py::make_tuple(status, std::move(record));
      },
      text_of::kReadBinary, py::arg("path").none(true), py::arg("options") = 0);
}

}  // namespace

void addExports(py::module_& module) {
  addRuns(module);
  addReaders(module);
  module.def(
      "GetPolarErrorInfo",
      [] {
        constexpr std::size_t kLongest = std::size_t{1} << 20U;
        std::string buffer(kLongest, '\0');
        const Turn turn;
        return textOf(GetPolarErrorInfo(buffer.data()));
      },
      text_of::kLastError);
  module.def(
      "GetVersionPolarLinePrecision",
      [] {
        std::array<char, 64> buffer{};
        GetVersionPolarLinePrecision(buffer.data());
        return std::string(buffer.data());
      },
      text_of::kVersion);
}

}  // namespace binding
