#pragma once

#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

#include "check/HandMadeCheck.h"
#include "polarline/check.h"
#include "report/read/Json.h"
#include "report/read/ReadCheck.h"
#include "report/view/CheckView.h"

/// Documents of checks that nobody ran: a board of 3 rows and 4 columns, 10 board units apart, seen by a camera whose
/// pixels are the board units, 100 in front of it.
namespace made_document {

inline constexpr int kRows = 3, kColumns = 4;
inline constexpr double kStep = 10.0, kDepth = 100.0;

/// Every dot of the board where it is, with a row difference of a hundredth of its id.
inline polarline::PairPoints wholeBoard() {
  polarline::PairPoints points;
  for (std::int32_t id = 0; id < kRows * kColumns; ++id) {
    const auto x = static_cast<float>(kStep * (id % kColumns));
    const auto y = static_cast<float>(kStep * (id / kColumns));
    points.id.push_back(id);
    points.left_x.push_back(x);
    points.left_y.push_back(y);
    points.right_x.push_back(x - 5.0F);
    points.right_y.push_back(y);
    points.x.push_back(x);
    points.y.push_back(y);
    points.z.push_back(static_cast<float>(kDepth));
    points.residual.push_back(0.25F);
    points.rectified_left_x.push_back(x);
    points.rectified_left_y.push_back(y);
    points.rectified_right_x.push_back(x - 5.0F);
    points.rectified_right_y.push_back(y);
    points.dy.push_back(0.01F * static_cast<float>(id));
  }
  return points;
}

inline polarline::PairCheck pair(std::size_t index, double dy_means) {
  polarline::PairCheck pair = hand_made::pair(index, {dy_means}, {});
  pair.points = wholeBoard();
  return pair;
}

inline polarline::FigureSummary summary(const char* name, double mean, double sd_mean, std::size_t worst_pair = 0) {
  return {name, "pixels", 1, mean, NAN, mean, mean, worst_pair, sd_mean, mean - 2.0 * sd_mean, mean + 2.0 * sd_mean};
}

/// A check of one finished pair that passes.
inline polarline::Check check() {
  polarline::Check check;
  check.started = "2026-01-02T03:04:05Z";
  check.name = check.folder = "set";
  check.status.code = 0;
  check.board = {3, kRows, kColumns, kStep, kStep, 0};
  check.cameras.model = "brown5";
  check.cameras.width = 40;
  check.cameras.height = 30;
  check.cameras.left = check.cameras.right = {100.0, 100.0, 20.0, 15.0, {0, 0, 0, 0, 0, 0, 0, 0}};
  check.cameras.extrinsics = {0, 0, 0, -5, 0, 0};
  check.settings = {{"f_scale", "1"}, {"x_y", "0"}, {"crop", "0"}};
  check.pairs = {pair(0, 0.055)};
  check.summary = {summary("dy_means", 0.055, NAN)};
  check.limits = {{"dy_means<=0.1", 0.055, 0, true, "dy_means is 0.055 in pair 0"}};
  check.verdict = polarline::Verdict::kPass;
  return check;
}

inline polarline::Json json(const polarline::Check& check) { return polarline::Json::parse(toJson(check)); }

/// With everything that a document may have.
inline polarline::Json fullDocument() {
  polarline::Check check = made_document::check();
  check.inputs = {{"target", "set/target.ini", std::string(64, 'a')}};
  check.pairs.push_back(hand_made::givenUp(pair(1, 0.1)));
  check.pairs[0] = hand_made::refined(check.pairs[0], {0.05}, {});
  check.pairs[0].uncertainty = {{"dy_means", 0.1, 0.0, 0.2}};
  check.pairs[0].refined->uncertainty = {{"dy_means", 0.01, 0.03, 0.07}};
  check.pairs[0].quality.emplace();
  check.diagnosis.emplace();
  check.diagnosis->causes = {{"k1", 0.1, 0.01, "", 0.5, "text", 0}};
  check.correction = {"corrected.json", 0.1, 0.2};
  check.refined_summary = {summary("dy_means", 0.05, 0.001)};
  check.warnings = {{"unknown_key", "text", "advice", 1}};
  return json(check);
}

inline polarline::ReadCheck read(const polarline::Check& check) { return polarline::readCheck({toJson(check), ""}); }

using Pictures = polarline::PairPictures(std::size_t place);

inline polarline::PairPictures noPictures(std::size_t /*place*/) { return {}; }

/// As the page has the check.
inline polarline::CheckView view(const polarline::Check& check, const polarline::ViewOptions& options,
                                 Pictures* pictures = noPictures) {
  return polarline::viewCheck(read(check),
                              {pictures, polarline::Board(json(check)), polarline::knownCameras(json(check))}, options);
}

/// The dots of the first pair.
inline polarline::DotLists dots() { return read(check()).pairs.at(0).points; }

}  // namespace made_document
