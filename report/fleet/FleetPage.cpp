#include <algorithm>

#include "polarline/report.h"
#include "report/fill/Escape.h"
#include "report/fill/FillMarks.h"
#include "report/fill/PageTemplate.h"
#include "report/fleet/FleetStatic.h"
#include "report/fleet/ReadFleet.h"
#include "report/read/ParseJson.h"
#include "report/view/NameTexts.h"

namespace polarline {
namespace {

std::string titleOf(const Fleet& fleet) {
  const std::string headline = fleetHeadline(fleet);
  return "Fleet: " + fleet.title + ": " + headline.substr(0, headline.find(" ("));
}

/// The data as they are, or without the links to pages that are not there.
std::string linkedData(const ReportDocument& data, const std::vector<std::string>& without_page) {
  if (without_page.empty()) return data.text;
  Json json = parseJson(data.text, data.path);
  for (Json& set : json["worst"]) {
    if (std::ranges::count(without_page, set["document"].get_ref<const std::string&>()) > 0) set["page"] = nullptr;
  }
  return json.dump();
}

}  // namespace

std::string fleetPage(const ReportDocument& data, const std::string& title,
                      const std::vector<std::string>& without_page) {
  const Fleet fleet = readFleet(data);
  const std::string json = R"({"schema":"polarline-fleet-page/1","explanations":)" + nameTexts() + R"(,"fleet":)" +
                           linkedData(data, without_page) + "}";
  return filledMarks(fleetTemplate(), {{{"@POLARLINE_TITLE@", htmlOf(title.empty() ? titleOf(fleet) : title)},
                                        {"@POLARLINE_STATIC@", fleetStatic(fleet)},
                                        {"@POLARLINE_DATA@", scriptJson(json)}}});
}

}  // namespace polarline
