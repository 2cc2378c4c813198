#include <PolarLinePrecision.h>
#include <pybind11/stl.h>

#include <array>
#include <string>

#include "python/src/Arrays.h"
#include "python/src/CallBack.h"
#include "python/src/ExportTexts.h"
#include "python/src/PathArgument.h"
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

py::tuple runFiles(const PathArgument& polar, const PathArgument& target, const PathArgument& calibration,
                   const PathArgument& list) {
  Records records;
  const std::int32_t status = aside([&] {
    return CalPolarLinePrecision(polar.orNull(), target.orNull(), calibration.orNull(), list.orNull(), &records);
  });
  return answerOf(status, std::move(records));
}

py::tuple runImages(const PathArgument& polar, const PathArgument& target, const ExportedCalibParams& calibration,
                    const std::vector<py::sequence>& images, const py::object& progress, const PathArgument& folder) {
  std::vector<std::vector<PictureArgument>> kept;
  ImagePairList pairs;
  for (const py::sequence& side : images) {
    kept.push_back(pictureArguments(side, "images[" + std::to_string(kept.size()) + "]"));
    pairs.push_back(pixelsOf(kept.back()));
  }
  CallBack back(progress);
  const ProgressCallback ask = [&back](float percent) { return back.ask(percent); };
  Records records;
  const std::int32_t status = aside([&] {
    return CalPolarLinePrecisionOutMat(polar.orNull(), target.orNull(), calibration, pairs, &records, &ask,
                                       folder.orNull());
  });
  back.rethrow();
  return answerOf(status, std::move(records));
}

py::tuple runRectified(const PathArgument& polar, const PathArgument& target, const RectifiedParams& rectified,
                       const PathArgument& list) {
  Records records;
  const std::int32_t status = aside(
      [&] { return CalRecificationPrecision(polar.orNull(), target.orNull(), rectified, list.orNull(), &records); });
  return answerOf(status, std::move(records));
}

py::tuple readImages(const PathArgument& path) {
  ImagePairList images;
  const std::int32_t status = aside([&] { return ReadCalibImagelist(path.text, &images); });
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
      [](const PathArgument& polar, const PathArgument& target, const PathArgument& calibration,
         const PathArgument& list) {
        return aside([&] {
          return CalTempCompensateCoeff(polar.orNull(), target.orNull(), calibration.orNull(), list.orNull());
        });
      },
      text_of::kTemperature, py::arg("polarConfigPath").none(true), py::arg("targetConfigPath").none(true),
      py::arg("calibrationPath").none(true), py::arg("imageListPath").none(true));
}

void addReaders(py::module_& module) {
  module.def(
      "ReadCalibParams",
      [](const PathArgument& path, ExportedCalibParams& calibration) {
        return aside([&] { return ReadCalibParams(path.text, &calibration); });
      },
      text_of::kReadCalibration, py::arg("path").none(false), py::arg("calibration"));
  module.def("ReadCalibImagelist", &readImages, text_of::kReadImages, py::arg("path").none(false));
  module.def(
      "ReadTxtPolyParams",
      [](const PathArgument& folder, ExportedCalibParams& calibration) {
        return aside([&] { return ReadTxtPolyParams(folder.text, &calibration); });
      },
      text_of::kReadTables, py::arg("folder").none(false), py::arg("calibration"));
  module.def(
      "ReadBoardGTFromCSV",
      [](const PathArgument& path, bool second_layout) {
        BoardGroundTruth points;
        const std::int32_t status = aside([&] { return ReadBoardGTFromCSV(path.text, &points, second_layout); });
        return py::make_tuple(status, arrayOf(points));
      },
      text_of::kReadBoardReport, py::arg("path").none(false), py::arg("second_layout"));
  module.def(
      "ReadBoardGTFromTxt",
      [](const PathArgument& path) {
        BoardGroundTruth points;
        aside([&] { ReadBoardGTFromTxt(path.text, &points); });
        return arrayOf(points);
      },
      text_of::kReadBoardList, py::arg("path").none(false));
  module.def(
      "LoadCalibrationParamsMulti",
      [](const PathArgument& path, std::int32_t options) {
        MultiCalibration record;
        const std::int32_t status = aside([&] { return LoadCalibrationParamsMulti(path.orNull(), &record, options); });
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
