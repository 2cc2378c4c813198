#include <fmt/format.h>

#include <memory>
#include <string>
#include <vector>

#include "polarline/store.h"
#include "tools/polarline/Interruption.h"
#include "tools/polarline/Outputs.h"
#include "tools/polarline/PairProgress.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

struct MergeCommand {
  std::vector<std::string> stores;
  std::string output;
  ResultOptions result;
};

constexpr const char* kGoesOnWords =
    "polarline: interrupted; what was merged is whole and stays, the next merge goes on from there\n";

int runMerge(const MergeCommand& command) {
  requireSeparate({{"-o", command.output}, {"--json", command.result.json}}, command.stores);
  sayAtInterruption(kGoesOnWords);
  PairProgress progress(command.result.quiet, "document");
  const polarline::MergeResult result = polarline::merge(
      command.stores, command.output, {[&](std::size_t done, std::size_t all) { progress.show(done, all); }});
  progress.clear();
  for (const polarline::UnreadableDocument& each : result.unreadable)
    tell("{}: {}\n", terminal::onOneLine(each.path), terminal::onOneLine(each.reason));
  if (!command.result.json.empty()) deliver(command.result.json, polarline::mergeJson(result));
  if (!command.result.quiet && command.result.json != "-") say(polarline::mergeText(result));
  return kDone;
}

}  // namespace

Subcommand addMerge(CLI::App& polarline) {
  CLI::App* const app =
      polarline.add_subcommand("merge", "Merges what a fleet of workers judged into one file of SQLite");
  const auto command = std::make_shared<MergeCommand>();
  app->add_option("DIR", command->stores, "Store folders, as 'polarline batch --store' wrote them")
      ->required()
      ->type_name("");
  app->add_option("-o,--output", command->output,
                  "The results: made where it is not there, otherwise brought up to date")
      ->required()
      ->type_name("FILE");
  addResultOptions(*app, command->result);
  addExample(*app, "polarline merge store -o results.sqlite");
  return {app, [command] { return runMerge(*command); }};
}

}  // namespace command
