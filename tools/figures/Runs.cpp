#include "tools/figures/Runs.h"

#include <PolarLinePrecision.h>

#include <array>
#include <exception>
#include <fstream>
#include <iterator>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

#include "tools/figures/RecordText.h"

namespace figures {
namespace {

namespace fs = std::filesystem;

/// Pictures are drawn from the same figures, and forming their files takes longer than the figures.
constexpr const char* kNoPictures = "\nsavepolarline: 0\ntri_bias_savepng_swithch: 0\ndy_bias_savepng_swithch: 0";

std::string textOf(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

struct Set {
  Set(const fs::path& path, bool with_pictures)
      : folder(path),
        polar(textOf(path / "polar.txt") + (with_pictures ? "" : kNoPictures)),
        target((path / "target.ini").string()),
        calibration_file((path / (fs::exists(path / "calib.json") ? "calib.json" : "calib.bin")).string()) {
    ReadCalibParams(calibration_file, &calibration);
    ReadBoardGTFromTxt((path / "board_gt.txt").string(), &calibration.boardPoints);
    ReadCalibImagelist((path / "list.txt").string(), &images);
  }

  fs::path folder;
  std::string polar, target, calibration_file;
  ExportedCalibParams calibration;
  ImagePairList images;
};

/// A folder for one run, and the record of how it went.
class RunFolder {
 public:
  explicit RunFolder(const fs::path& folder) : folder_(folder) { fs::create_directories(folder); }

  std::string folder() const { return folder_.string(); }

  /// The list of the set, written where the results shall be: a run from disk takes the folder of its list.
  std::string list(const Set& set) const {
    const std::string from = fs::relative(set.folder, folder_).string();
    std::ofstream out(folder_ / "list.txt");
    out.imbue(std::locale::classic());
    out << "#L R\n";
    for (std::size_t i = 0; i < set.images.at(0).size(); ++i)
      out << from << "/left_" << i << ".png " << from << "/right_" << i << ".png\n";
    return (folder_ / "list.txt").string();
  }

  bool end(std::int32_t status, const std::vector<PolarResultRecord>& records) const {
    std::ofstream out = recordText();
    std::array<char, 4096> error{};
    out << "status " << status << ' ' << GetPolarErrorInfo(error.data()) << '\n';
    writeRecords(out, records);
    return status == 0 && !records.empty();
  }

  /// The run left by an exception: its text is what it ended with.
  bool endBy(const std::exception& failure) const {
    recordText() << "exception " << failure.what() << '\n';
    return false;
  }

 private:
  std::ofstream recordText() const {
    std::ofstream out(folder_ / "records.txt");
    out.imbue(std::locale::classic());
    return out;
  }

  fs::path folder_;
};

bool inMemory(const Set& set, const RunFolder& run, const std::string& further_lines) {
  std::vector<PolarResultRecord> records;
  const std::int32_t status =
      CalPolarLinePrecisionOutMat((set.polar + further_lines).c_str(), set.target.c_str(), set.calibration, set.images,
                                  &records, nullptr, run.folder().c_str());
  return run.end(status, records);
}

bool everySwitch(const Set& set, const RunFolder& run) { return inMemory(set, run, "\noqc_switch: 1\nframe_work: 0"); }

/// A rectified pair ends the compensation, so this run has none.
bool compensated(const Set& set, const RunFolder& run) {
  return inMemory(set, run, "\neccentricity: 1\ndy_bias_switch: 0\nfoursixmethod_swithch: 0\nframe_work: 0");
}

bool frame(const Set& set, const RunFolder& run) { return inMemory(set, run, "\neccentricity: 1\nframe_work: 1"); }

bool turned(const Set& set, const RunFolder& run) {
  const cv::Mat& image = set.images.at(0).at(0);
  std::ostringstream polar;
  polar.imbue(std::locale::classic());
  polar << set.polar
        << "\nx_y: 1\nf_scale: 0.9\nevalu_model: 1\nframe_work: 0\ncrop: 1\ncropped_cols: " << image.cols - 8
        << "\ncropped_rows: " << image.rows - 6;
  std::vector<PolarResultRecord> records;
  const std::int32_t status = CalPolarLinePrecision(polar.str().c_str(), set.target.c_str(),
                                                    set.calibration_file.c_str(), run.list(set).c_str(), &records);
  return run.end(status, records);
}

/// The five numbers of `rectified.txt`, behind a comment line.
RectifiedParams geometry(const fs::path& file) {
  std::istringstream text(textOf(file));
  text.imbue(std::locale::classic());
  text.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
  RectifiedParams rectified;
  for (double* value :
       {&rectified.focal, &rectified.baseline, &rectified.cx, &rectified.cy, &rectified.disparity_offset}) {
    text >> *value;
    text.ignore();
  }
  return rectified;
}

bool rectifiedElsewhere(const Set& set, const RunFolder& run) {
  RectifiedParams rectified = geometry(set.folder / "rectified.txt");
  rectified.boardPoints.assign(set.calibration.boardPoints.begin(), set.calibration.boardPoints.end());
  std::vector<PolarResultRecord> records;
  const std::int32_t status =
      CalRecificationPrecision(set.polar.c_str(), set.target.c_str(), rectified, run.list(set).c_str(), &records);
  return run.end(status, records);
}

using Run = bool (*)(const Set&, const RunFolder&);

bool runInto(const fs::path& results, const Set& set, Run run) {
  const RunFolder folder(results);
  try {
    return run(set, folder);
  } catch (const std::exception& failure) {
    return folder.endBy(failure);
  }
}

}  // namespace

bool walkRuns(const fs::path& folder, const fs::path& results, bool with_pictures) {
  const Set set(folder, with_pictures);
  bool good = runInto(results / "every", set, everySwitch);
  good = runInto(results / "compensated", set, compensated) && good;
  good = runInto(results / "turned", set, turned) && good;
  if (set.polar.find("\nFrame_ID:") != std::string::npos) good = runInto(results / "frame", set, frame) && good;
  if (fs::exists(folder / "rectified.txt")) good = runInto(results / "rectified", set, rectifiedElsewhere) && good;
  return good;
}

}  // namespace figures
