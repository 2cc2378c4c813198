#include "polarline/simulate.h"

#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

#include "platform/WholeFile.h"
#include "polarline/errors.h"
#include "tools/polarline/PairProgress.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

struct SimulateCommand {
  std::string scene, folder;
  bool list = false;
  bool print = false;
  polarline::SimulateOptions options;
  ResultOptions result;
};

int listed(const ResultOptions& result) {
  if (!result.quiet && result.json != "-") say(polarline::presetsText());
  if (!result.json.empty()) deliver(result.json, polarline::presetsJson());
  return kDone;
}

void tellSimulated(const SimulateCommand& request, const polarline::SimulatedSet& set) {
  if (!request.result.quiet && request.result.json != "-") {
    polarline::SimulatedSet shown = set;
    for (std::string* name : {&shown.name, &shown.folder}) *name = terminal::onOneLine(*name);
    say(polarline::simulatedText(shown));
  }
  if (!request.result.json.empty()) deliver(request.result.json, polarline::simulatedJson(set));
}

/// What cannot be made is told by whoever makes the folder itself.
void makeFolderAbove(const std::filesystem::path& folder) {
  std::error_code ignored;
  const std::filesystem::path place = folder.has_filename() ? folder : folder.parent_path();
  if (place.has_parent_path()) std::filesystem::create_directories(place.parent_path(), ignored);
}

int simulated(const SimulateCommand& request) {
  polarline::sceneFile(request.scene, request.options);  // A scene that can't be used shall leave no folder.
  makeFolderAbove(request.folder);
  const whole_file::PartialFolder scratch(request.folder);  // Known to whoever clears up at a signal.
  polarline::SimulateOptions options = request.options;
  options.scratch = scratch.path().string();
  PairProgress progress(request.result.quiet);
  options.progress = [&](std::size_t done, std::size_t all) { progress.show(done, all); };
  const polarline::SimulatedSet set = polarline::simulate(request.scene, request.folder, options);
  progress.clear();
  tellSimulated(request, set);
  return kDone;
}

int runSimulate(const SimulateCommand& request) {
  if (request.list) return listed(request.result);
  if (request.scene.empty()) throw polarline::InputError("SCENE", "found none, wanted a preset or a scene file");
  if (request.print) {
    if (!request.result.json.empty()) throw polarline::InputError("--json", "has no meaning with --print-scene");
    deliver("-", polarline::sceneFile(request.scene, request.options));
    return kDone;
  }
  if (request.folder.empty()) throw polarline::InputError("FOLDER", "found none, wanted the folder of the set");
  return simulated(request);
}

}  // namespace

Subcommand addSimulate(CLI::App& polarline) {
  CLI::App* app = polarline.add_subcommand("simulate", "Renders a set of pictures with exact truth");
  const auto request = std::make_shared<SimulateCommand>();
  app->add_option("SCENE", request->scene, "A preset (--list shows them) or a scene file")->type_name("");
  app->add_option("FOLDER", request->folder, "Where the set goes: a new or an empty folder")->type_name("");
  app->add_flag("--list", request->list, "Show the presets");
  app->add_flag("--print-scene", request->print, "Print SCENE as a scene file that tells everything, to change it");
  app->add_option("--pairs", request->options.pairs, "Pairs of pictures, 1 to 1000")->type_name("N");
  app->add_option("--seed", request->options.seed, "Seed of the noise")->type_name("N");
  app->add_option("--noise", request->options.noise, "Read noise in greys; 0 takes all noise away")->type_name("GREYS");
  app->add_flag("--force", request->options.force, "Write into a folder that is not empty");
  addResultOptions(*app, request->result);
  addExample(*app, "polarline simulate ring_320 simulated --pairs 1");
  return {app, [request] { return runSimulate(*request); }};
}

}  // namespace command
