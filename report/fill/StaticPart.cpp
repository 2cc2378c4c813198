#include "report/fill/StaticPart.h"

#include <fmt/format.h>

#include <cmath>

#include "platform/PlainNumber.h"
#include "report/fill/Escape.h"

namespace polarline {
namespace {

std::string limitsTable(const std::vector<LimitResult>& limits) {
  if (limits.empty()) return "<p>No limits were given.</p>\n";
  std::string html =
      "<table>\n<caption>Limits</caption>\n<thead><tr><th scope=\"col\">Limit</th><th scope=\"col\">"
      "Value</th><th scope=\"col\">Holds</th><th scope=\"col\">Why</th></tr></thead>\n<tbody>\n";
  for (const LimitResult& limit : limits) {
    html += fmt::format("<tr><th scope=\"row\">{}</th><td>{}</td><td>{}</td><td>{}</td></tr>\n", htmlOf(limit.text),
                        limit.value ? shownNumber(*limit.value) : "–", limit.holds ? "yes" : "no", htmlOf(limit.why));
  }
  return html + "</tbody>\n</table>\n";
}

std::string figuresTable(const std::vector<FigureSummary>& figures, const char* caption) {
  std::string html = fmt::format(
      "<table>\n<caption>{}</caption>\n<thead><tr><th scope=\"col\">Figure</th><th "
      "scope=\"col\">Unit</th><th scope=\"col\">Pairs</th><th scope=\"col\">Mean</th><th "
      "scope=\"col\">±</th><th scope=\"col\">Least</th><th scope=\"col\">Most</th><th "
      "scope=\"col\">Worst pair</th></tr></thead>\n<tbody>\n",
      caption);
  for (const FigureSummary& figure : figures) {
    html += fmt::format(
        "<tr><th scope=\"row\">{}</th><td>{}</td><td>{}</td><td>{}</td><td>{}</td><td>{}</td><td>{}"
        "</td><td>{}</td></tr>\n",
        htmlOf(figure.name), htmlOf(figure.unit), figure.count, shownNumber(figure.mean), shownNumber(figure.sd_mean),
        shownNumber(figure.min), shownNumber(figure.max), figure.worst_pair);
  }
  return html + "</tbody>\n</table>\n";
}

std::string checkPart(const CheckView& view) {
  std::string html = "<section>\n<h1>" + htmlOf(view.title) + "</h1>\n";
  html += "<p><strong>" + htmlOf(view.headline) + "</strong></p>\n";
  html += "<p>" + htmlOf(finishedText(view.record)) + " " + htmlOf(worstPairText(view.record)) + "</p>\n";
  if (const std::string fisheye = fisheyeText(view.record); !fisheye.empty())
    html += "<p>" + htmlOf(fisheye) + "</p>\n";
  if (!view.record.status.advice.empty()) html += "<p>" + htmlOf(view.record.status.advice) + "</p>\n";
  if (view.record.diagnosis) html += "<p>" + htmlOf(view.record.diagnosis->text) + "</p>\n";
  html += limitsTable(view.record.limits);
  if (!view.record.summary.empty()) html += figuresTable(view.record.summary, "Figures over all pairs");
  if (view.record.refined_summary && !view.record.refined_summary->empty())
    html += figuresTable(*view.record.refined_summary, "Refined figures over all pairs");
  return html + "</section>\n";
}

}  // namespace

std::string shownNumber(double value) { return std::isfinite(value) ? plain::rounded(value, 4) : "–"; }

std::string staticPart(const std::vector<CheckView>& views) {
  std::string html;
  for (const CheckView& view : views) html += checkPart(view);
  return html;
}

}  // namespace polarline
