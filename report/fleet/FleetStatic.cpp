#include "report/fleet/FleetStatic.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <map>
#include <utility>

#include "report/fill/Escape.h"
#include "report/fill/StaticPart.h"
#include "report/fleet/FleetYield.h"

namespace polarline {
namespace {

constexpr std::size_t kMostWorst = 20;

std::string shareWords(const FleetShare& share) {
  return fmt::format("{:.2f} % (95 % interval {:.2f} to {:.2f} %)", 100.0 * share.share, 100.0 * share.low,
                     100.0 * share.high);
}

std::string tableHead(const char* caption, std::initializer_list<const char*> heads) {
  std::string html = fmt::format("<table>\n<caption>{}</caption>\n<thead><tr>", caption);
  for (const char* head : heads) html += fmt::format("<th scope=\"col\">{}</th>", head);
  return html + "</tr></thead>\n<tbody>\n";
}

/// "Station 3, K2"; what is not said is left out.
std::string nameOf(const Fleet& fleet, std::size_t group) {
  const auto& place = fleet.keys[0].values[fleet.groups[group][0]];
  const auto& model = fleet.keys[1].values[fleet.groups[group][1]];
  std::string name = place ? "Station " + *place : "";
  if (model) name += (name.empty() ? "" : ", ") + *model;
  return name.empty() ? "All sets" : name;
}

/// Cells by station and model, in the order of the groups.
std::map<std::pair<std::size_t, std::size_t>, std::vector<std::size_t>> cellsByPlace(const Fleet& fleet) {
  std::map<std::pair<std::size_t, std::size_t>, std::vector<std::size_t>> places;
  for (std::size_t row = 0; row < fleet.cells.group.size(); ++row) {
    const std::vector<std::size_t>& group = fleet.groups[fleet.cells.group[row]];
    places[{group[0], group[1]}].push_back(row);
  }
  return places;
}

std::string yieldTable(const Fleet& fleet) {
  std::string html = tableHead("Yield of stations and models",
                               {"Station and model", "Sets", "Passed", "Failed", "Not judged", "Errors", "Yield"});
  for (const auto& [place, rows] : cellsByPlace(fleet)) {
    const FleetCounts counts = countsOf(fleet.cells, rows);
    const auto share = yieldOf(counts);
    html += fmt::format(
        "<tr><th scope=\"row\">{}</th><td>{}</td><td>{}</td><td>{}</td><td>{}</td><td>{}</td><td>{}</td></tr>\n",
        htmlOf(nameOf(fleet, fleet.cells.group[rows[0]])), counts.sets(), counts.passed, counts.failed, counts.unjudged,
        counts.errors, share ? shareWords(*share) : "–");
  }
  return html + "</tbody>\n</table>\n";
}

/// Mean and standard deviation of all sets out of those of the cells.
struct AllCells {
  double n = 0.0;
  double mean = 0.0;
  double squares = 0.0;

  void add(double count, double value, double sd) {
    if (!(count > 0.0) || !std::isfinite(value)) return;
    const double off = value - mean;
    squares += (count - 1.0) * sd * sd + off * off * n * count / (n + count);
    n += count;
    mean += off * count / n;
  }
};

/// The one bound that all groups have, else a word.
std::string boundOf(const std::vector<double>& bounds, const char* sign) {
  if (bounds.empty() || std::ranges::all_of(bounds, [](double bound) { return std::isnan(bound); })) return "";
  const bool is_one = std::ranges::all_of(bounds, [&](double bound) { return bound == bounds[0]; });
  return is_one ? fmt::format("{} {}", sign, shownNumber(bounds[0])) : fmt::format("{} differs", sign);
}

std::string measureRow(const FleetMeasure& measure) {
  AllCells all;
  for (std::size_t row = 0; row < measure.n.size(); ++row) all.add(measure.n[row], measure.mean[row], measure.sd[row]);
  const double sd = all.n > 1.0 ? std::sqrt(all.squares / (all.n - 1.0)) : NAN;
  const std::string lower = boundOf(measure.lower, "≥");
  const std::string upper = boundOf(measure.upper, "≤");
  return fmt::format(
      "<tr><th scope=\"row\">{} ({})</th><td>{}</td><td>{}{}{}</td><td>{}</td><td>{}</td><td>{}</td></tr>\n",
      htmlOf(measure.name), htmlOf(measure.value), htmlOf(measure.unit), lower,
      lower.empty() || upper.empty() ? "" : ", ", upper, shownNumber(all.n), all.n > 0.0 ? shownNumber(all.mean) : "–",
      shownNumber(sd));
}

std::string measuresTable(const Fleet& fleet) {
  if (fleet.measures.empty()) return "";
  std::string html = tableHead("Figures", {"Figure", "Unit", "Limit", "Sets", "Mean", "Standard deviation"});
  for (const FleetMeasure& measure : fleet.measures) html += measureRow(measure);
  return html + "</tbody>\n</table>\n";
}

std::string worstTable(const Fleet& fleet) {
  if (fleet.worst.empty()) return "";
  std::string html = tableHead("Worst sets", {"Set", "Station and model", "Time", "Verdict", "Limit", "Measured"});
  for (std::size_t k = 0; k < std::min(kMostWorst, fleet.worst.size()); ++k) {
    const FleetWorst& worst = fleet.worst[k];
    html += fmt::format("<tr><th scope=\"row\">{}</th><td>{}</td><td>{}</td><td>{}</td><td>{}</td><td>{}</td></tr>\n",
                        htmlOf(worst.set), htmlOf(nameOf(fleet, worst.group)), htmlOf(worst.time),
                        htmlOf(worst.verdict), htmlOf(worst.limit), shownNumber(worst.measured));
  }
  return html + "</tbody>\n</table>\n";
}

std::string wordsBefore(const std::string& period) {
  if (period == "week") return "12 weeks";
  if (period == "month") return "12 months";
  return period == "year" ? "5 years" : "28 days";
}

}  // namespace

std::string fleetHeadline(const Fleet& fleet) {
  if (fleet.cells.group.empty()) return "The store is empty.";
  const FleetLately lately = latelyOf(fleet);
  const FleetCounts last = countsOf(fleet.cells, lately.last);
  const auto share = yieldOf(last);
  const std::string when =
      (fleet.period == "day" ? "on " : "in the " + fleet.period + " of ") + dateOf(fleet, lately.day);
  std::string text = share ? fmt::format("Yield {} of {} judged sets {}", shareWords(*share), last.judged(), when)
                           : fmt::format("Of {} sets {} none was judged", last.sets(), when);
  const FleetCounts before = countsOf(fleet.cells, lately.before);
  const auto share_before = yieldOf(before);
  if (share_before) {
    text += fmt::format("; in the {} before {} of {}", wordsBefore(fleet.period), shareWords(*share_before),
                        before.judged());
  }
  return text + ".";
}

std::string fleetStatic(const Fleet& fleet) {
  std::string html = "<section>\n<h1>Fleet: " + htmlOf(fleet.title) + "</h1>\n";
  html += "<p><strong>" + htmlOf(fleetHeadline(fleet)) + "</strong></p>\n";
  html += fmt::format("<p>{} sets. This page draws its charts with JavaScript.</p>\n", fleet.sets);
  if (!fleet.cells.group.empty()) html += yieldTable(fleet);
  html += measuresTable(fleet) + worstTable(fleet);
  for (const std::string& note : fleet.notes) html += "<p>" + htmlOf(note) + "</p>\n";
  return html + "</section>\n";
}

}  // namespace polarline
