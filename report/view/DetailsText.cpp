#include "report/view/DetailsText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "report/measure/PairMeasures.h"
#include "report/words/PairSentences.h"

namespace polarline {
namespace {

void writePicture(JsonText& json, const PagePicture& picture) {
  json.member("source", picture.source).member("width", picture.size.width).member("height", picture.size.height);
}

void writePictureOrNull(JsonText& json, const char* name, const std::optional<PagePicture>& picture) {
  json.key(name);
  if (!picture) {
    json.null();
    return;
  }
  json.object();
  writePicture(json, *picture);
  json.end();
}

/// What the document has, digit by digit; as many as there are dots.
void writeSeen(JsonText& json, const char* name, std::vector<double> values, std::size_t dots) {
  values.resize(dots, std::numeric_limits<double>::quiet_NaN());
  json.list(name, values);
}

/// A list that is not there where nobody measured it.
void writeIfAny(JsonText& json, const char* name, const std::vector<double>& values) {
  const bool is_any = std::ranges::any_of(values, [](double value) { return std::isfinite(value); });
  json.list(name, is_any ? values : std::vector<double>());
}

/// What is worked out here; a plot shows no more than single precision.
void writeDerived(JsonText& json, const char* name, const std::vector<double>& values) {
  std::vector<float> narrow;
  narrow.reserve(values.size());
  for (const double value : values) narrow.push_back(static_cast<float>(value));
  json.list(name, narrow);
}

void writePlaces(JsonText& json, const DotLists& dots, const Board& board) {
  std::vector<std::int32_t> columns;
  std::vector<std::int32_t> rows;
  std::vector<double> x;
  std::vector<double> y;
  for (const std::int32_t id : dots.id) {
    const auto place = board.placeOf(id);
    if (board.hasGrid()) {
      columns.push_back(board.columnOf(id));
      rows.push_back(board.rowOf(id));
    }
    x.push_back(place ? place->x : std::nan(""));
    y.push_back(place ? place->y : std::nan(""));
  }
  json.list("id", dots.id).list("column", columns).list("row", rows);
  writeDerived(json, "board_x", x);
  writeDerived(json, "board_y", y);
}

/// Only refined dots have these.
void writeCentres(JsonText& json, const DotLists& dots) {
  if (dots.left_state.empty() && dots.right_state.empty()) return;
  const std::size_t count = dots.id.size();
  writeSeen(json, "left_sd_x", dots.left_sd_x, count);
  writeSeen(json, "left_sd_y", dots.left_sd_y, count);
  writeSeen(json, "right_sd_x", dots.right_sd_x, count);
  writeSeen(json, "right_sd_y", dots.right_sd_y, count);
  json.list("left_state", dots.left_state).list("right_state", dots.right_state);
}

void writeDots(JsonText& json, const char* name, const DotLists& dots, const PairMeasures& measures,
               const Board& board) {
  const std::size_t count = dots.id.size();
  json.key(name).object();
  writePlaces(json, dots, board);
  writeSeen(json, "left_x", dots.left_x, count);
  writeSeen(json, "left_y", dots.left_y, count);
  writeSeen(json, "right_x", dots.right_x, count);
  writeSeen(json, "right_y", dots.right_y, count);
  writeIfAny(json, "rectified_left_x", dots.rectified_left_x);
  writeIfAny(json, "rectified_left_y", dots.rectified_left_y);
  writeIfAny(json, "rectified_right_x", dots.rectified_right_x);
  writeIfAny(json, "rectified_right_y", dots.rectified_right_y);
  writeSeen(json, "dy", dots.dy, count);
  writeDerived(json, "dy_pattern", measures.dy_pattern);
  writeSeen(json, "residual", dots.residual, count);
  writeSeen(json, "x", dots.x, count);
  writeSeen(json, "y", dots.y, count);
  writeSeen(json, "z", dots.z, count);
  std::vector<double> disparity = measures.disparity;
  disparity.resize(count, std::nan(""));
  writeDerived(json, "disparity", disparity);
  writeDerived(json, "off_x", measures.board.off_x);
  writeDerived(json, "off_y", measures.board.off_y);
  writeDerived(json, "off_z", measures.board.off_z);
  writeDerived(json, "depth_error", measures.board.depth_error);
  writeCentres(json, dots);
  json.end();
}

void writeSpread(JsonText& json, const char* name, const Spread& spread) {
  json.key(name);
  if (spread.count == 0) {
    json.null();
    return;
  }
  json.object().member("count", spread.count).member("mean", spread.mean).member("mean_abs", spread.mean_abs);
  json.member("sd", spread.sd).member("min", spread.min).member("median", spread.median);
  json.member("p95_abs", spread.p95_abs).member("max", spread.max).end();
}

void writeCourse(JsonText& json, const char* name, const std::optional<Course>& course) {
  json.key(name);
  if (!course) {
    json.null();
    return;
  }
  json.object().list("at", course->at).list("mean", course->mean).list("sd", course->sd);
  json.list("count", course->count).member("slope", course->slope).member("intercept", course->intercept).end();
}

void writeDistances(JsonText& json, const std::vector<DistanceBin>& bins) {
  json.key("distances").array();
  for (const DistanceBin& bin : bins) {
    json.object().member("from", bin.from).member("to", bin.to).member("count", bin.count);
    json.member("mean", bin.mean).member("sd", bin.sd).member("min", bin.min).member("max", bin.max).end();
  }
  json.end();
}

void writeRowSentences(JsonText& json, const RowSentences& sentences) {
  json.key("sentences").object().member("map", sentences.map).member("histogram", sentences.histogram);
  json.member("along", sentences.along).member("across", sentences.across);
}

void writeRows(JsonText& json, const RowMeasures& rows) {
  writeSpread(json, "dy", rows.dy);
  writeCourse(json, "dy_along", rows.along);
  writeCourse(json, "dy_across", rows.across);
}

void writeRemains(JsonText& json, const std::optional<RowMeasures>& remains) {
  json.key("remains");
  if (!remains) {
    json.null();
    return;
  }
  json.object();
  writeRows(json, *remains);
  writeRowSentences(json, remainsSentences(*remains));
  json.end().end();
}

void writeSentences(JsonText& json, const PairSentences& sentences) {
  writeRowSentences(json, sentences);
  json.member("residual", sentences.residual);
  json.member("distances", sentences.distances).member("depth", sentences.depth);
  json.member("disparity", sentences.disparity).member("board3d", sentences.board3d);
  json.member("worst_dots", sentences.worst_dots).end();
}

void writeStatistics(JsonText& json, const char* name, const DotLists& dots, const PairMeasures& measures) {
  json.key(name).object();
  writeRows(json, measures.rows);
  writeRemains(json, measures.remains);
  writeSpread(json, "residual", measures.residual);
  writeSpread(json, "depth_error", measures.depth_error);
  writeSpread(json, "disparity", measures.disparity_spread);
  writeDistances(json, measures.distances);
  writeSentences(json, pairSentences(dots, measures));
  json.list("worst", measures.worst).end();
}

}  // namespace

void writePictures(JsonText& json, const PairPictures& pictures) {
  json.key("pictures").object();
  writePictureOrNull(json, "left", pictures.left);
  writePictureOrNull(json, "right", pictures.right);
  json.end().key("failed_step");
  if (!pictures.failed) {
    json.null();
    return;
  }
  json.object();
  writePicture(json, pictures.failed->picture);
  json.member("seen", pictures.failed->seen).member("text", pictures.failed->text).end();
}

std::string detailsText(const ReadPair& pair, bool is_finished, const PairPictures& pictures, const Board& board,
                        const CausePattern& pattern) {
  JsonText json(JsonText::Form::kShort);
  json.object();
  writePictures(json, pictures);
  const auto write = [&](const char* points, const char* statistics, const DotLists* dots) {
    if (!is_finished || dots == nullptr || dots->id.empty()) {
      json.key(points).null().key(statistics).null();
      return;
    }
    const PairMeasures measures = measure(*dots, board, pattern);
    writeDots(json, points, *dots, measures, board);
    writeStatistics(json, statistics, *dots, measures);
  };
  write("points", "statistics", &pair.points);
  write("refined_points", "refined_statistics", pair.refined ? &*pair.refined : nullptr);
  return json.end().take();
}

}  // namespace polarline
