#pragma once

#include <string>

#include "polarline/report.h"

namespace command {

/// What the page of a fleet is made of.
struct FleetReport {
  std::string results;  ///< As 'polarline merge' wrote them.
  std::string output;   ///< Where the page goes; "-" is standard output.
  std::string pages;    ///< Folder for a page of each of the worst sets; empty: they get none.
  polarline::ReportOptions options;
  bool quiet = false;
};

/// Makes the pages of the worst sets, and then the one that leads to them. A set whose document is gone is told, and
/// has no page. What came of it is added to the result.
void reportFleet(const FleetReport& report, polarline::ReportResult& result);

}  // namespace command
