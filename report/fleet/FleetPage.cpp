#include "polarline/report.h"
#include "report/fill/Escape.h"
#include "report/fill/FillMarks.h"
#include "report/fill/PageTemplate.h"
#include "report/fleet/FleetStatic.h"
#include "report/fleet/ReadFleet.h"
#include "report/view/NameTexts.h"

namespace polarline {
namespace {

std::string titleOf(const Fleet& fleet) {
  const std::string headline = fleetHeadline(fleet);
  return "Fleet: " + fleet.title + ": " + headline.substr(0, headline.find(" ("));
}

}  // namespace

std::string fleetPage(const ReportDocument& data, const std::string& title) {
  const Fleet fleet = readFleet(data);
  const std::string json =
      R"({"schema":"polarline-fleet-page/1","explanations":)" + nameTexts() + R"(,"fleet":)" + data.text + "}";
  return filledMarks(fleetTemplate(), {{{"@POLARLINE_TITLE@", htmlOf(title.empty() ? titleOf(fleet) : title)},
                                        {"@POLARLINE_STATIC@", fleetStatic(fleet)},
                                        {"@POLARLINE_DATA@", scriptJson(json)}}});
}

}  // namespace polarline
