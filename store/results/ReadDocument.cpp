#include "store/results/ReadDocument.h"

#include <fmt/format.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <utility>

#include "store/results/KeyedReader.h"
#include "store/work/UtcTime.h"

namespace polarline::results {
namespace {

constexpr const char* kSchema = "polarline-check/1";
constexpr auto kMayMiss = KeyedReader::Need::kMayMiss;

/// Reads one document into its rows: a member function a part of it.
class DocumentReader {
 public:
  DocumentReader(std::string_view text, DocumentRows& rows) : json_(text), rows_(rows) {}

  void read() {
    json_.members("", {{"schema", [this] { readSchema(); }},
                       {"tool",
                        [this] {
                          json_.members("tool.", {{"library", json_.into(rows_.library)}});
                        }},
                       {"pairs", [this] { json_.array([this] { readPair(); }); }},
                       {"started", [this] { readStarted(); }},
                       {"seconds", json_.into(rows_.seconds)},
                       {"set", [this] { readSet(); }},
                       {"status", [this] { readStatus(); }},
                       {"board", [this] { readBoard(); }},
                       {"cameras", [this] { readCameras(); }},
                       {"summary", [this] { readSummary(); }},
                       {"limits", [this] { json_.array([this] { readLimit(); }); }},
                       {"judged", json_.into(rows_.judged), kMayMiss},
                       {"verdict",
                        [this] {
                          rows_.verdict = json_.oneOf({"pass", "fail", "error"});
                        }},
                       {"diagnosis", [this] { readDiagnosis(); }},
                       {"warnings", [this] { json_.array([this] { readWarning(); }); }}});
    json_.end();
    requireUnique();
  }

 private:
  /// The tables hold a pair, and a cause, once a set.
  void requireUnique() {
    std::set<std::int64_t> pairs;
    for (const PairRow& pair : rows_.pairs) {
      if (!pairs.insert(pair.pair).second) json_.fault(fmt::format("pair {} stands there twice", pair.pair));
    }
    std::set<std::string> causes;
    for (const CauseRow& cause : rows_.causes) {
      if (!causes.insert(cause.name).second) json_.fault(fmt::format("cause {} stands there twice", cause.name));
      if (std::isnan(cause.value)) json_.fault(fmt::format("cause {} has no value", cause.name));
    }
  }

  void readSchema() {
    if (const std::string found = json_.text(); found != kSchema)
      json_.fault(fmt::format("schema '{}' was found, '{}' wanted", found, kSchema));
  }
  void readStarted() {
    const std::string written = json_.text();
    const auto utc = utcTime(written);
    if (!utc) json_.fault(fmt::format("started: '{}' is no time", written));
    rows_.started = *utc;
  }
  void readSet() {
    json_.members(
        "set.", {{"name", json_.into(rows_.name)}, {"folder", json_.into(rows_.folder)}, {"id", json_.into(rows_.id)}});
  }
  void readStatus() {
    json_.members("status.", {{"code", json_.into(rows_.status_code)},
                              {"name", json_.into(rows_.status)},
                              {"text", json_.into(rows_.status_text)},
                              {"retry", json_.into(rows_.retry)}});
  }
  void readBoard() {
    json_.members("board.", {{"rows", json_.into(rows_.board_rows)}, {"cols", json_.into(rows_.board_cols)}});
  }
  void readCameras() {
    json_.members("cameras.", {{"model", json_.into(rows_.camera_model)},
                               {"width", json_.into(rows_.width)},
                               {"height", json_.into(rows_.height)}});
  }
  void readSummary() {
    json_.members("summary.", {{"pairs", json_.into(rows_.pairs_run)}, {"finished", json_.into(rows_.pairs_finished)}});
  }
  void readLimit() {
    LimitRow& limit = rows_.limits.emplace_back();
    json_.members("limits.", {{"text", json_.into(limit.text)},
                              {"value", json_.into(limit.value)},
                              {"holds", json_.into(limit.holds)},
                              {"pair", json_.into(limit.pair)}});
  }
  void readDiagnosis() {
    if (json_.null()) return;
    rows_.is_diagnosed = true;
    json_.members("diagnosis.", {{"causes", [this] { json_.array([this] { readCause(); }); }},
                                 {"rows_before", json_.into(rows_.rows_before)},
                                 {"rows_after", json_.into(rows_.rows_after)}});
  }
  void readCause() {
    CauseRow& cause = rows_.causes.emplace_back();
    json_.members("diagnosis.causes.", {{"name", json_.into(cause.name)},
                                        {"value", json_.into(cause.value)},
                                        {"sd", json_.into(cause.sd)},
                                        {"unit", json_.into(cause.unit)},
                                        {"share", json_.into(cause.share)},
                                        {"group", json_.into(cause.group), kMayMiss}});
  }
  void readWarning() {
    WarningRow& warning = rows_.warnings.emplace_back();
    json_.members("warnings.", {{"code", json_.into(warning.code)},
                                {"text", json_.into(warning.text)},
                                {"pair", json_.into(warning.pair), kMayMiss}});
  }

  void readPair() {
    PairRow& pair = rows_.pairs.emplace_back();
    const std::size_t first_figure = rows_.figures.size();
    Uncertainties certain;
    json_.members("pairs.", {{"index", json_.into(pair.pair)},
                             {"left", json_.into(pair.left)},
                             {"right", json_.into(pair.right)},
                             {"state",
                              [&] {
                                pair.state = json_.oneOf({"finished", "given up"});
                              }},
                             {"reason", [&] { readReason(pair); }},
                             {"figures", [&] { readFigures(false); }},
                             {"uncertainty", [&] { certain = readUncertainties(); }},
                             {"found", [&] { readFound(pair); }},
                             {"quality", [&] { readQuality(pair); }},
                             {"refined", [&] { readRefined(); }, kMayMiss}});
    for (std::size_t k = first_figure; k < rows_.figures.size(); ++k) rows_.figures[k].pair = pair.pair;
    addUncertainties(certain, first_figure, false);
  }
  void readReason(PairRow& pair) {
    if (json_.null()) return;
    json_.members("pairs.reason.", {{"code", json_.into(pair.reason_code)},
                                    {"text", json_.into(pair.reason_text)},
                                    {"side", json_.into(pair.reason_side)},
                                    {"step", json_.into(pair.reason_step)}});
  }
  void readFound(PairRow& pair) {
    json_.members("pairs.found.", {{"left", json_.into(pair.found_left)}, {"right", json_.into(pair.found_right)}});
  }
  void readQuality(PairRow& pair) {
    if (!json_.null()) json_.members("pairs.quality.", {{"coverage", json_.into(pair.coverage)}});
  }
  void readRefined() {
    const std::size_t first_figure = rows_.figures.size();
    Uncertainties certain;
    json_.members("pairs.refined.", {{"figures", [this] { readFigures(true); }},
                                     {"uncertainty", [&] { certain = readUncertainties(); }}});
    addUncertainties(certain, first_figure, true);
  }

  void readFigures(bool is_refined) {
    json_.object([&](std::string_view name) {
      if (!json_.isArray()) return addFigure(name, -1, is_refined);
      int entry = 0;
      json_.array([&] { addFigure(name, entry++, is_refined); });
    });
  }
  void addFigure(std::string_view name, int entry, bool is_refined) {
    const double value = json_.number();
    if (!std::isnan(value)) rows_.figures.push_back({0, std::string(name), entry, is_refined, value});
  }

  using Uncertainties = std::map<std::string, double, std::less<>>;
  Uncertainties readUncertainties() {
    Uncertainties found;
    json_.object([&](std::string_view name) {
      double sd = 0.0;
      json_.members("pairs.uncertainty.", {{"sd", json_.into(sd)}});
      found.emplace(name, sd);
    });
    return found;
  }
  /// To the figures of the last pair.
  void addUncertainties(const Uncertainties& certain, std::size_t first_figure, bool is_refined) {
    for (std::size_t k = first_figure; k < rows_.figures.size(); ++k) {
      FigureRow& figure = rows_.figures[k];
      if (figure.is_refined != is_refined || figure.entry >= 0) continue;
      if (const auto found = certain.find(figure.figure); found != certain.end()) figure.sd = found->second;
    }
  }

  KeyedReader json_;
  DocumentRows& rows_;
};

}  // namespace

DocumentRows readDocument(std::string_view text) {
  DocumentRows rows;
  DocumentReader(text, rows).read();
  return rows;
}

}  // namespace polarline::results
