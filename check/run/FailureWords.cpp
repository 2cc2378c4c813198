#include "check/run/FailureWords.h"

#include <fmt/format.h>

#include <string>

#include "check/run/PictureWarnings.h"
#include "check/run/RunStatus.h"
#include "check/set/PictureFault.h"
#include "platform/Files.h"

namespace polarline {

void nameLastPair(Check& check) {
  const PairCheck& last = check.pairs.back();
  if (check.status.code != last.reason.code) return;
  check.status.text = fmt::format("pair {}, which ended the run: {}", last.index, last.reason.text);
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
  if (!fault.may_return) return;
  check.status.retry = true;
  check.status.exit_code = kNoFigure;
  check.status.advice = "It was there when the run began: check that it can be reached, then try again.";
}

Status statusOf(const std::exception& error, const ListedPictures* pictures, std::size_t first_pair,
                std::size_t pairs_done) {
  if (pictures == nullptr || pairs_done == pictures->pairs()) return statusOf("exception", textOf(error), kNoFigure);
  const std::string pair = fmt::format("pair {}: ", first_pair + pairs_done);
  const auto& sizes = pictures->lastSizes();
  if (sizes[0] == sizes[1]) return statusOf("exception", pair + textOf(error), kNoFigure);
  const std::string found = pair + sizesOf(pictures->listed(pairs_done), sizes) + "; two of one size were wanted";
  return statusOf("input", found, kUnusable);
}

}  // namespace polarline
