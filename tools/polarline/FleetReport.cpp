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

/// Makes the pages; those whose documents can't be read are left out and returned.
std::vector<std::string> makePagesOfWorst(const FleetReport& report) {
  std::error_code failure;
  fs::create_directories(report.pages, failure);
  if (!fs::is_directory(report.pages))
    throw polarline::OutputError(report.pages, failure ? failure.message() : "is no folder");
  polarline::ReportOptions options = report.options;
  options.title.clear();  // It is the fleet's.
  const std::vector<polarline::WorstDocument> documents = polarline::worstDocuments(report.results);
  PairProgress progress(report.quiet, "page");
  std::vector<std::string> without_page;
  std::size_t done = 0;
  for (const polarline::WorstDocument& each : documents) {
    try {
      const std::string page = polarline::reportPage({polarline::readReportDocument(each.path)}, options);
      deliver((fs::path(report.pages) / (each.name + ".html")).string(), page);
    } catch (const polarline::InputError& error) {
      progress.clear();
      tell("{}\n", terminal::onOneLine(error.what()));
      without_page.push_back(each.name);
    }
    progress.show(++done, documents.size());
  }
  progress.clear();
  return without_page;
}

}  // namespace

void reportFleet(const FleetReport& report) {
  polarline::FleetOptions options{report.options.title, report.options.made, ""};
  std::vector<std::string> without_page;
  if (!report.pages.empty()) {
    without_page = makePagesOfWorst(report);
    options.pages = polarline::urlFromPage(report.output, report.pages);
  }
  const polarline::ReportDocument data{polarline::fleetData(report.results, options), report.results};
  deliver(report.output, polarline::fleetPage(data, report.options.title, without_page));
}

}  // namespace command
