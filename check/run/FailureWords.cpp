#include "check/run/FailureWords.h"

#include <fmt/format.h>

#include <new>
#include <opencv2/core.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "PolarLinePrecision/Status.h"
#include "check/picture/BoardExtent.h"
#include "check/picture/NumberingProblem.h"
#include "check/run/EvaluationFault.h"
#include "check/run/MissingKeys.h"
#include "check/run/PictureWarnings.h"
#include "check/run/PlainPath.h"
#include "check/run/RunStatus.h"
#include "check/set/PictureFault.h"
#include "platform/Files.h"
#include "polarline/detect.h"
#include "polarline/explain.h"

namespace polarline {
namespace {

/// Ids ran beyond the board: what to do, as far as the pictures that were taken last show why. Empty where they don't.
std::string adviceOnIds(const RunInputs& inputs, const ListedPictures& pictures) {
  const auto& [left, right] = pictures.lastPictures();
  if (left.empty() || right.empty()) return {};
  const PlainPath target(inputs.target());
  const Detection in_left = detect(left, target.get());
  const Detection in_right = detect(right, target.get());
  if (const std::string size = sizeProblem(in_left, in_right); !size.empty())
    return size + ". Correct rows and cols of the target, and write board_gt.txt for this board.";
  for (const auto& [seen, side] : {std::pair(&in_left, "left"), std::pair(&in_right, "right")}) {
    if (const auto problem = numberingProblem(*seen))
      return fmt::format("In the {} picture {}: {}.", side, problem->text, problem->advice);
  }
  return {};
}

/// What ends a run although the pictures are whole: an input that lacks what an evaluation reads. Empty where none
/// does.
std::string lackingInput(const std::exception& error, const RunInputs& inputs, const BoardInfo& board) {
  const auto beyond = beyondTable(error);
  if (!beyond) return {};
  if (const std::string keys = missingKeys(inputs.config); !keys.empty() && !inputs.areRectified())
    return inputs.set.polar + ": " + keys;
  const std::size_t dots = static_cast<std::size_t>(board.rows) * static_cast<std::size_t>(board.cols);
  const bool is_short = beyond->size == board.points && board.points < dots && beyond->place < dots;
  if (inputs.config.frame_work != 0 || !is_short) return {};
  return fmt::format(
      "{}: has {} positions, and dot {} was seen, which the board has, too: it has {} dots; x y z of each was wanted, "
      "by id (the file may have been cut off)",
      inputs.set.board, board.points, beyond->place, dots);
}

/// The machine was at its end, not the set.
bool isShortOfMeans(const std::exception& error) {
  const auto* const opencv = dynamic_cast<const cv::Exception*>(&error);
  return dynamic_cast<const std::bad_alloc*>(&error) != nullptr ||
         dynamic_cast<const std::system_error*>(&error) != nullptr ||
         (opencv != nullptr && opencv->code == cv::Error::StsNoMem);
}

Status retried(Status status, const std::exception& error) {
  status.retry = status.retry || isShortOfMeans(error);
  return status;
}

}  // namespace

void nameLastPair(Check& check, std::size_t listed) {
  const PairCheck& last = check.pairs.back();
  if (last.finished || check.status.code != last.reason.code) return;
  check.status.text =
      fmt::format("pair {} ({}, {}), which ended the run: {}", last.index, last.left, last.right, last.reason.text);
  // The run's own advice is on both causes of its status.
  const bool has_two_causes = last.reason.code == polar_status::kTooFewShared;
  if (const auto own = has_two_causes ? explainPair(last.reason.code, last.reason.of_residuals) : std::nullopt)
    check.status.advice = own->advice;
  check.status.advice += " Or set discalsave to 0, which gives such a pair up and goes on with the next.";
  if (check.finished() == 0) return;
  // There are figures, and not of the whole set: it is the set that can't be used as it is.
  check.status.exit_code = kUnusable;
  const std::size_t left = listed - check.pairs.size();
  const std::string rest =
      left == 0 ? "it was the last" : fmt::format("behind it {} of {} were not looked at", left, listed);
  check.status.advice += " The pairs before it have figures; " + rest + ".";
}

void explainPictures(const ListedPictures& pictures, const std::string& list, Check& check) {
  const std::size_t failed = check.pairs.size();
  const ListedPair& listed = pictures.listed(failed);
  PictureFault fault = {"could not be read and has come back since", true};
  std::string name = listed.left + " or " + listed.right;
  for (const bool left : {false, true}) {
    const std::string path = pictures.pathOf(failed, left);
    if (!files::readImage(path).empty()) continue;
    fault = pictureFault(path);
    name = left ? listed.left : listed.right;
  }
  check.status.text = fmt::format("{}, line {}: the picture {} {}", list, listed.line, name, fault.text);
  if (fault.text.starts_with("can't be read")) check.status.advice = "See that the file is there and may be read.";
  if (!fault.may_return) return;
  check.status.retry = true;
  check.status.exit_code = kNoFigure;
  check.status.advice = "It was there when the run began: check that it can be reached, then try again.";
}

Status statusOf(const std::exception& error, const RunInputs& inputs, const ListedPictures* pictures,
                std::size_t first_pair, const Check& check) {
  const std::size_t done = check.pairs.size();
  if (pictures == nullptr || done == pictures->pairs())
    return retried(statusOf("exception", textOf(error), kNoFigure), error);
  const ListedPair& listed = pictures->listed(done);
  const auto& sizes = pictures->lastSizes();
  const std::string pair = fmt::format("pair {}", first_pair + done);
  if (sizes[0] != sizes[1])
    return statusOf("input", pair + ": " + sizesOf(listed, sizes) + "; two of one size were wanted", kUnusable);
  if (const std::string lacking = lackingInput(error, inputs, check.board); !lacking.empty())
    return statusOf("input", lacking, kUnusable);
  const bool is_ours = dynamic_cast<const cv::Exception*>(&error) == nullptr;
  const auto fault = is_ours ? std::nullopt : evaluationFault(inputs, *pictures, done);
  const std::string place = fmt::format("{} ({}, {}): ", pair, listed.left, listed.right);
  const std::string why = fault ? fault->text : "an evaluation of it failed";
  const std::string text = is_ours ? textOf(error) : fmt::format("{} (OpenCV says: {})", why, textOf(error));
  Status status = statusOf("exception", place + text, check.finished() == 0 ? kNoFigure : kUnusable);
  if (fault) status.advice = fault->advice;
  const bool is_of_ids = dynamic_cast<const std::out_of_range*>(&error) != nullptr && inputs.config.frame_work == 0;
  if (const std::string advice = is_of_ids ? adviceOnIds(inputs, *pictures) : ""; !advice.empty())
    status.advice = advice;
  return retried(std::move(status), error);
}

}  // namespace polarline
