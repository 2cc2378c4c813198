#include "polarline/report.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "polarline/errors.h"
#include "polarline/store.h"
#include "tools/polarline/FleetReport.h"
#include "tools/polarline/Outputs.h"
#include "tools/polarline/Run.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

struct Request {
  std::vector<std::string> documents;
  std::string output, pages;
  polarline::ReportOptions options;
  std::string budget;
  bool no_pictures = false;
  ResultOptions result;
};

void takeBudget(Request& request) {
  if (request.budget.empty()) return;
  std::size_t bytes = 0;
  const char* const end = request.budget.data() + request.budget.size();
  const auto [rest, error] = std::from_chars(request.budget.data(), end, bytes);
  if (error != std::errc() || rest != end)
    throw polarline::InputError("--budget " + request.budget, "a whole number of bytes was wanted, such as 10000000");
  request.options.budget = bytes;
}

/// Whether the page is that of a fleet's results, which come alone.
bool isOfResults(const Request& request) {
  const std::vector<std::string>& inputs = request.documents;
  const auto results = std::ranges::find_if(inputs, polarline::isResultsFile);
  if (results == inputs.end()) {
    if (!request.pages.empty())
      throw polarline::InputError("--pages",
                                  "goes with the results of 'polarline merge', not with documents of checks");
    return false;
  }
  if (inputs.size() != 1)
    throw polarline::InputError(*results, "the results of a fleet have a page of their own: nothing else goes with it");
  return true;
}

void reportDocuments(const Request& request, polarline::ReportResult& result) {
  std::vector<polarline::ReportDocument> documents;
  for (const std::string& path : request.documents) documents.push_back(polarline::readReportDocument(path));
  const bool is_fleet = documents.size() == 1 && polarline::isFleetDocument(documents[0]);
  const std::string page = is_fleet ? polarline::fleetPage(documents[0], request.options.title)
                                    : polarline::reportPage(std::move(documents), request.options);
  result.bytes = page.size();
  deliver(request.output, page);
}

int run(Request& request) {
  takeBudget(request);
  requireSeparate({{"-o", request.output}, {"--json", request.result.json}}, request.documents);
  if (request.output == "-" && request.result.json == "-")
    throw polarline::InputError("--json", "is - as well as --output; only one can be standard output");
  request.options.pictures = !request.no_pictures;
  request.options.command = givenWords();
  polarline::ReportResult result{request.output, 0, {}, {}, {}};
  request.options.tell = [&](const std::string& text) {
    result.warnings.push_back(text);
    if (!request.result.quiet) tell("warning: {}\n", terminal::onOneLine(text));
  };
  if (isOfResults(request)) {
    reportFleet({request.documents[0], request.output, request.pages, request.options, request.result.quiet}, result);
  } else {
    reportDocuments(request, result);
  }
  if (!request.result.json.empty()) deliver(request.result.json, polarline::reportJson(result));
  if (!request.result.quiet && request.output != "-" && request.result.json != "-")
    sayLine("Report: " + request.output);
  return result.without_page.empty() ? kDone : kNotWritten;  // A page of its own was asked for, and is not there.
}

}  // namespace

Subcommand addReport(CLI::App& polarline) {
  CLI::App* const app = polarline.add_subcommand(
      "report", "Makes the page of a check, of two to eight side by side, or of a fleet: one file of HTML");
  const auto request = std::make_shared<Request>();
  app->add_option("CHECK", request->documents,
                  "What 'polarline check --json' wrote; the first is compared with. Or what 'polarline merge' wrote")
      ->required()
      ->type_name("");
  app->add_option("-o,--output", request->output, "Where the page goes; - is standard output")
      ->required()
      ->type_name("FILE");
  app->add_option("--pages", request->pages, "Of a fleet: also a page of each of its worst sets, into this folder")
      ->type_name("FOLDER");
  app->add_option("--title", request->options.title, "Of the page, in place of the sets' names")->type_name("TEXT");
  app->add_option("--budget", request->budget,
                  "Bytes of data, about: the dots and pictures of as many pairs are taken as fit")
      ->type_name("BYTES")
      ->default_str(std::to_string(request->options.budget));
  app->add_flag("--paths", request->options.paths, "Tell files by their paths, not only by their names");
  app->add_flag("--no-pictures", request->no_pictures, "Leave the pictures of the cameras out");
  addResultOptions(*app, request->result);
  addExample(*app, "polarline report before.json after.json -o report.html");
  return {app, [request] { return run(*request); }};
}

}  // namespace command
