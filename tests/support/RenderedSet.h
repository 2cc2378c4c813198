#pragma once

#include <PolarLinePrecision.h>
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "support/ConsoleCapture.h"
#include "support/TempFolder.h"
#include "tools/scene/Presets.h"
#include "tools/scene/Truth.h"
#include "tools/scene/WriteScene.h"

/// What one run through an export left behind.
struct RunOutcome {
  std::int32_t status = 0;
  std::vector<PolarResultRecord> records;
  std::string out;
  std::string err;
  std::string error_text;
};

inline std::string errorText() {
  std::array<char, 4096> buffer{};
  return GetPolarErrorInfo(buffer.data());
}

/// A rendered data set on disk. Rendered once in a process and never written to; runs get their results into folders of
/// their own.
class RenderedSet {
 public:
  static const RenderedSet& of(const std::string& preset) {
    static std::map<std::string, std::unique_ptr<RenderedSet>> sets;
    auto& set = sets[preset];
    if (!set) {
      const auto made = scene::makePreset(preset);
      if (!made) throw std::runtime_error("no preset " + preset);
      set = std::make_unique<RenderedSet>(*made);
    }
    return *set;
  }

  explicit RenderedSet(const scene::Scene& scene) : scene_(scene) {
    scene::writeScene(scene_, folder_.path().string());
  }

  const scene::Scene& scene() const { return scene_; }
  std::string file(const std::string& name) const { return folder_.file(name); }
  std::string text(const std::string& name) const { return folder_.read(name); }
  std::string polarText() const { return text("polar.txt"); }
  std::string calibrationFile() const { return file(folder_.has("calib.json") ? "calib.json" : "calib.bin"); }

  /// The set's polar configuration with further lines, which win over the earlier ones of the same key.
  std::string polarWith(const std::vector<std::pair<std::string, std::string>>& lines) const {
    std::string text = polarText();
    for (const auto& [key, value] : lines) text += "\n" + key + ": " + value;
    return text;
  }

  ExportedCalibParams calibration() const {
    const ConsoleCapture quiet;
    ExportedCalibParams calib;
    ReadCalibParams(calibrationFile(), &calib);
    ReadBoardGTFromTxt(file("board_gt.txt"), &calib.boardPoints);
    return calib;
  }
  ImagePairList images() const {
    const ConsoleCapture quiet;
    ImagePairList images;
    ReadCalibImagelist(file("list.txt"), &images);
    return images;
  }

  /// Evaluates the set in memory with the board's true points. `polar` is the configuration text itself.
  RunOutcome evaluate(const std::string& polar, const std::string& result_folder,
                      const ExportedCalibParams& calibration) const {
    RunOutcome outcome;
    const ImagePairList pairs = images();
    const ConsoleCapture console;
    outcome.status = CalPolarLinePrecisionOutMat(polar.c_str(), file("target.ini").c_str(), calibration, pairs,
                                                 &outcome.records, nullptr, result_folder.c_str());
    outcome.out = console.out();
    outcome.err = console.err();
    outcome.error_text = errorText();
    return outcome;
  }
  RunOutcome evaluate(const std::string& polar, const std::string& result_folder = "") const {
    return evaluate(polar, result_folder, calibration());
  }

 private:
  TempFolder folder_;
  scene::Scene scene_;
};
