#include "tools/polarline/FleetReport.h"

#include <cstddef>
#include <filesystem>
#include <system_error>
#include <vector>

#include "polarline/errors.h"
#include "polarline/store.h"
#include "tools/polarline/PairProgress.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

namespace fs = std::filesystem;

/// Makes the pages; those whose documents can't be read are left out.
void makePagesOfWorst(const FleetReport& report, polarline::ReportResult& result) {
  std::error_code failure;
  fs::create_directories(report.pages, failure);
  if (!fs::is_directory(report.pages))
    throw polarline::OutputError(report.pages, failure ? failure.message() : "is no folder");
  polarline::ReportOptions options = report.options;
  options.title.clear();  // It is the fleet's.
  const std::vector<polarline::WorstDocument> documents = polarline::worstDocuments(report.results);
  PairProgress progress(report.quiet, "page");
  std::size_t done = 0;
  for (const polarline::WorstDocument& each : documents) {
    try {
      const std::string page = polarline::reportPage({polarline::readReportDocument(each.path)}, options);
      const std::string place = (fs::path(report.pages) / (each.name + ".html")).string();
      deliver(place, page);
      result.worst.push_back(place);
    } catch (const polarline::InputError& error) {
      progress.clear();
      tell("{}\n", terminal::onOneLine(error.what()));
      result.without_page.push_back(each.name);
    }
    progress.show(++done, documents.size());
  }
  progress.clear();
}

}  // namespace

void reportFleet(const FleetReport& report, polarline::ReportResult& result) {
  polarline::FleetOptions options{report.options.title, report.options.made, ""};
  if (!report.pages.empty()) {
    makePagesOfWorst(report, result);
    options.pages = polarline::urlFromPage(report.output, report.pages);
  }
  const polarline::ReportDocument data{polarline::fleetData(report.results, options), report.results};
  const std::string page = polarline::fleetPage(data, report.options.title, result.without_page);
  result.bytes = page.size();
  deliver(report.output, page);
}

}  // namespace command
