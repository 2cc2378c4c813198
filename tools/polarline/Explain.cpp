#include "polarline/explain.h"

#include <memory>

#include "polarline/errors.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

struct ExplainCommand {
  std::string code;
  ResultOptions result;
};

std::vector<polarline::Explanation> wanted(const std::string& code) {
  if (code.empty()) return polarline::explanations();
  std::vector<polarline::Explanation> found = polarline::explainAll(code);
  if (found.empty())
    throw polarline::InputError("'" + code + "'", "no status, warning, exit code or figure is called so" +
                                                      polarline::nearestCodes(code) +
                                                      "; 'polarline explain' lists them");
  return found;
}

int runExplain(const ExplainCommand& request) {
  const std::vector<polarline::Explanation> all = wanted(request.code);
  if (!request.result.json.empty()) deliver(request.result.json, polarline::explanationsJson(all));
  if (!request.result.quiet && request.result.json != "-") say(polarline::explanationsText(all));
  return kDone;
}

}  // namespace

Subcommand addExplain(CLI::App& polarline) {
  CLI::App* const app =
      polarline.add_subcommand("explain", "Says what a status, warning, exit code or figure means and what to do");
  const auto request = std::make_shared<ExplainCommand>();
  app->add_option("CODE", request->code,
                  "A number or word that the command or the library has told; without it all are listed")
      ->type_name("");
  app->allow_extras(false)->prefix_command(false);
  addResultOptions(*app, request->result);
  addExample(*app, "polarline explain too_few_shared");
  return {app, [request] { return runExplain(*request); }};
}

}  // namespace command
