#include "polarline/init.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <iterator>
#include <map>
#include <optional>
#include <utility>

#include "camera/LensModel.h"
#include "check/init/BaselineCheck.h"
#include "check/init/CornerPoints.h"
#include "check/init/DotSize.h"
#include "check/init/FilePattern.h"
#include "check/init/FirstPair.h"
#include "check/init/FocalScale.h"
#include "check/init/Guesses.h"
#include "check/init/ListNames.h"
#include "check/init/NumberingCheck.h"
#include "check/init/Pairing.h"
#include "check/init/PictureCheck.h"
#include "check/init/PolarSettings.h"
#include "check/init/PolarText.h"
#include "check/init/SetCalibration.h"
#include "check/init/SetWriter.h"
#include "check/init/StepCheck.h"
#include "check/init/Warnings.h"
#include "check/picture/BoardExtent.h"
#include "check/set/ShellWord.h"
#include "polarline/board.h"
#include "polarline/check.h"
#include "polarline/detect.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

using init::PicturePair;
using init::SeenBoard;

/// Everything between the request and the files, in the order in which it is found out.
struct Work {
  explicit Work(const InitRequest& asked)
      : request(asked),
        board(parseBoard(asked.board)),
        calibration(init::setCalibration(asked.calibration, asked.import)) {}

  const InitRequest& request;
  BoardDescription board;
  init::SetCalibration calibration;
  std::vector<PicturePair> pictures;
  std::vector<init::ListedLine> lines;
  SeenBoard left;
  SeenBoard right;
  init::CornerPoints corners;
  init::SetFacts facts;
  MadeSet made;

  bool warns(const std::string& code) const { return std::ranges::count(made.warnings, code, &Warning::code) > 0; }
  void warn(std::vector<Warning> warnings) { std::ranges::move(warnings, std::back_inserter(made.warnings)); }
};

void pairPictures(Work& work) {
  const std::vector<std::string> left = init::picturesNamed(work.request.left, "left");
  const std::vector<std::string> right = init::picturesNamed(work.request.right, "right");
  init::Pairing pairing = init::paired(left, right, work.request.pairing);
  for (const auto& [l, r] : pairing.pairs) work.pictures.emplace_back(left[l], right[r]);
  for (const std::size_t k : pairing.alone_left) work.made.alone_left.push_back(left[k]);
  for (const std::size_t k : pairing.alone_right) work.made.alone_right.push_back(right[k]);
  work.made.guesses.push_back("Pictures were paired " + pairing.how);
  work.warn(std::move(pairing.warnings));
  const std::size_t alone = pairing.alone_left.size() + pairing.alone_right.size();
  if (alone > 0)
    work.warn({init::warning("pictures_alone",
                             fmt::format("{} without a partner: {} left, {} right",
                                         alone == 1 ? "1 picture stays" : fmt::format("{} pictures stay", alone),
                                         pairing.alone_left.size(), pairing.alone_right.size()))});
}

void namePictures(Work& work) {
  work.lines = init::listNames(work.request.folder, work.pictures, work.request.copy);
  std::size_t linked = 0;
  for (std::size_t k = 0; k < work.lines.size(); ++k) {
    const init::ListedLine& line = work.lines[k];
    work.made.pairs.push_back({work.pictures[k].first, work.pictures[k].second, line.left.name, line.right.name});
    for (const init::ListedPicture* picture : {&line.left, &line.right})
      linked += picture->placement == init::Placement::kLink ? 1 : 0;
  }
  if (linked > 0)
    work.warn({init::warning("pictures_linked",
                             fmt::format("The names of {} pictures can't stand in an image list (blanks, backslashes, "
                                         "other than ASCII, or too long)",
                                         linked))});
  if (!work.request.force) init::refuseOldPictures(work.request.folder, work.lines);
}

/// A calibration that does not tell its size is read again with that of the pictures, so that its lenses can be judged.
void checkCalibration(Work& work) {
  work.warn(init::checkSize(work.calibration, work.made.picture));
  if (!init::tellsSize(work.calibration)) {
    ImportOptions options = work.request.import;
    options.size = work.made.picture;
    work.calibration = init::setCalibration(work.request.calibration, options);
    work.made.guesses.push_back(fmt::format("The calibration is one for {}x{} pixels, which it does not say",
                                            work.made.picture.width, work.made.picture.height));
  }
  work.warn(work.calibration.warnings);
}

void lookAtPictures(Work& work, std::pair<cv::Mat, cv::Mat>& first) {
  init::CheckedPictures checked = init::checkPictures(work.pictures, work.request.progress);
  work.made.picture = {checked.size.width, checked.size.height};
  work.made.channels = CV_MAT_CN(checked.type);
  work.made.bits = CV_MAT_DEPTH(checked.type) == CV_16U ? 16 : 8;
  checkCalibration(work);
  work.facts.has_colour = work.made.channels > 1;
  if (work.facts.has_colour)
    work.warn({init::warning("residuals_off", fmt::format("The pictures have {} channels", work.made.channels))});
  first = std::move(checked.first);
}

InitDetection seenIn(const SeenBoard& seen, const std::optional<ShownBoard>& shown) {
  const BoardExtent extent = shown ? shown->extent : BoardExtent{};
  return {seen.dots.size(), seen.dot_radius, extent.columns, extent.rows};
}

/// A board of another size than described, or with other markers, is numbered, too, only wrongly.
void lookAtNumbers(Work& work, const std::pair<cv::Mat, cv::Mat>& first, const std::string& target) {
  const Detection left = detect(first.first, target);
  const Detection right = detect(first.second, target);
  work.made.left = seenIn(work.left, shownBoard(left));
  work.made.right = seenIn(work.right, shownBoard(right));
  const std::string problem = sizeProblem(left, right);
  const std::size_t found = std::min(work.left.dots.size(), work.right.dots.size());
  // Then dots bear the numbers of others, so that whatever else they tell is a consequence.
  if (!problem.empty()) return work.warn({init::warning("board_size", problem, 0)});
  if (found > work.made.expected)
    work.warn(
        {init::warning("board_kind",
                       fmt::format("{} dots were found in both pictures of the first pair, and of {} at most {} can be",
                                   found, boardText(work.board), work.made.expected),
                       0)});
  if (init::dotLimits(work.board, work.made.picture.width)) work.warn(init::judgeNumbering(left, right));
}

/// What the dots tell of the cameras and of the board's steps: one only, as a wrong baseline makes wrong steps.
void lookAtDistances(Work& work) {
  const Calibration& calibration = work.calibration.calibration;
  std::vector<Warning> found = init::judgeBaseline(calibration, work.board, work.left, work.right);
  if (found.empty()) found = init::judgeStep(calibration, work.board, work.left, work.right);
  work.warn(std::move(found));
}

void lookAtBoard(Work& work, const std::pair<cv::Mat, cv::Mat>& first) {
  const std::string target = targetIni(work.board);
  const int expected = detectablePoints(work.board);
  work.left = init::seenBoard(first.first, target, expected);
  work.right = init::seenBoard(first.second, target, expected);
  work.made.expected = static_cast<std::size_t>(expected);
  lookAtNumbers(work, first, target);
  const bool is_described = !work.warns("board_size") && !work.warns("board_kind");
  work.warn(init::judgeDots(work.board, work.made.picture.width, work.left, work.right));
  if (is_described) lookAtDistances(work);
}

void judgeRig(Work& work) {
  const Calibration& calibration = work.calibration.calibration;
  work.facts.type = calibration.type;
  work.facts.is_vertical = std::abs(calibration.ty) > std::abs(calibration.tx);
  work.facts.focal = init::chooseFocalScale(calibration, work.made.picture, work.left, work.right);
  if (lensModelOf(calibration.type) == LensModel::kFisheye)
    work.warn({init::warning("fisheye_raw_pair", "The cameras have fisheye lenses")});
  if (work.board.step_y != 0.0 && work.board.step_y != work.board.step)
    work.warn({init::warning("unequal_steps", fmt::format("The steps are {} along a row and {} from row to row",
                                                          work.board.step, work.board.step_y))});
}

void choosePoints(Work& work) {
  const bool detected = !work.left.dots.empty() && !work.right.dots.empty();
  work.corners = init::chooseCorners(
      work.board, [&](int id) { return !detected || (work.left.dots.contains(id) && work.right.dots.contains(id)); });
  work.made.corners.assign(work.corners.ids.begin(), work.corners.ids.end());
  if (!work.corners.seen)
    work.warn(
        {init::warning("corner_points", "No four dots on the corners of a rectangle are seen in the first pair", 0)});
}

std::string limitsText(const InitRequest& request) {
  std::string text;
  for (const std::string& limit : request.limits) {
    requireLimit(limit);
    text += limit + '\n';
  }
  return text;
}

init::KeyNotes notesOf(const Work& work) {
  if (work.facts.focal.why.empty()) return {};
  return {{"f_scale", work.facts.focal.why}};
}

init::SetFiles filesOf(const Work& work, const PolarConfig& config) {
  init::SetFiles files = {
      {"polar.txt", init::polarText(config, "Polar configuration, made by polarline init", notesOf(work))},
      {"target.ini", targetIni(work.board)},
      {work.calibration.file_name, work.calibration.bytes},
      {"list.txt", init::listText(work.lines)},
      {"board_gt.txt", boardGroundTruthText(work.board)}};
  std::string limits = limitsText(work.request);
  if (!limits.empty()) files.emplace("limits.txt", std::move(limits));
  return files;
}

void tellInputs(Work& work, const PolarConfig& config) {
  MadeSet& made = work.made;
  const Calibration& calibration = work.calibration.calibration;
  made.folder = work.request.folder;
  made.board = boardText(work.board);
  made.type = calibration.type;
  made.model = init::modelName(calibration.type);
  made.calibration_format = work.calibration.format;
  made.baseline = baselineOf(calibration);
  made.next = "polarline check " + shellWord(made.folder);
  init::addGuesses(made, work.corners, work.facts, config);
}

}  // namespace

PairBy pairByOf(const std::string& text) {
  static const std::map<std::string, PairBy> kNames = {
      {"auto", PairBy::kAuto}, {"names", PairBy::kNames}, {"stamps", PairBy::kStamps}, {"order", PairBy::kOrder}};
  const auto found = kNames.find(text);
  if (found == kNames.end()) throw InputError("pairing", "found " + text + "; wanted auto, names, stamps or order");
  return found->second;
}

MadeSet initSet(const InitRequest& request) {
  init::requirePlace(request.folder);
  Work work(request);
  const std::string limits = limitsText(request);
  if (!request.force)
    init::refuseOldSet(request.folder, {{work.calibration.file_name, work.calibration.bytes}}, !limits.empty());
  pairPictures(work);
  namePictures(work);
  std::pair<cv::Mat, cv::Mat> first;
  lookAtPictures(work, first);
  lookAtBoard(work, first);
  judgeRig(work);
  choosePoints(work);
  const PolarConfig config = init::polarSettings(work.board, work.corners.ids, work.facts);
  tellInputs(work, config);
  work.made.files = init::writeSet(request.folder, filesOf(work, config), work.lines);
  return std::move(work.made);
}

}  // namespace polarline
