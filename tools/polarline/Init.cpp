#include "polarline/init.h"

#include <memory>
#include <string>

#include "tools/polarline/Outputs.h"
#include "tools/polarline/PairProgress.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

struct InitCommand {
  polarline::InitRequest request;
  std::string pairing = "auto";
  std::string size;
  ResultOptions result;
};

int runInit(const InitCommand& options) {
  requireSeparate({{"--json", options.result.json}}, options.request.calibration);
  polarline::InitRequest request = options.request;
  request.pairing = polarline::pairByOf(options.pairing);
  if (!options.size.empty()) request.import.size = polarline::sizeOf(options.size);
  PairProgress progress(options.result.quiet, "picture");
  request.progress = [&](std::size_t done, std::size_t all) { progress.show(done, all); };
  const polarline::MadeSet made = polarline::initSet(request);
  progress.clear();
  if (!options.result.json.empty()) deliver(options.result.json, polarline::initJson(made));
  if (options.result.json != "-" && !options.result.quiet) say(polarline::initText(made) + "\n");
  return kDone;
}

void addInputs(CLI::App& app, polarline::InitRequest& request) {
  app.add_option("FOLDER", request.folder, "Folder of the set, which is made")->required()->type_name("");
  app.add_option("--left", request.left, "Left pictures: a folder, names, or a pattern in quotes with * ? [..] **")
      ->required()
      ->type_name("GLOB");
  app.add_option("--right", request.right, "Right pictures")->required()->type_name("GLOB");
  app.add_option("--board", request.board,
                 "KIND:COLSxROWS:STEP[:NAME=VALUE...] with KIND rings-small, rings-big, rings-mixed or dots (see "
                 "polarline board)")
      ->required()
      ->type_name("BOARD");
  app.add_option("--calibration", request.calibration, "Calibration of any tool (see polarline import), or ours")
      ->required()
      ->type_name("FILE");
}

void addCalibrationOptions(CLI::App& app, InitCommand& options) {
  polarline::ImportOptions& import = options.request.import;
  app.add_option("--format", import.format, "Format of the calibration, where its content does not tell")
      ->type_name("FORMAT");
  app.add_option("--scale", import.scale, "Board units in a unit of the calibration: 1000 for metres and a board in mm")
      ->type_name("S");
  app.add_option("--model", import.model, "Lens model of the calibration: brown or fisheye")->type_name("MODEL");
  app.add_option("--size", options.size, "Picture size of the calibration, where it does not tell")->type_name("WxH");
  app.add_option("--baseline", import.baseline, "Length of the baseline in board units, where it was lost")
      ->type_name("B");
  app.add_option("--pair", import.pair, "Left and right camera of a calibration of several, from 0")->type_name("I J");
  app.add_flag("--swap", import.swap, "Exchange the calibration's left and right camera");
}

}  // namespace

Subcommand addInit(CLI::App& polarline) {
  CLI::App* const app = polarline.add_subcommand("init", "Makes a set from pictures, a calibration and a board");
  const auto options = std::make_shared<InitCommand>();
  addInputs(*app, options->request);
  addCalibrationOptions(*app, *options);
  app->add_option("--pairing", options->pairing,
                  "How pictures are paired: auto, names (the part that varies), stamps (nearer than half the "
                  "spacing) or order")
      ->type_name("HOW")
      ->capture_default_str();
  app->add_option("--limit", options->request.limits,
                  "FIGURE OP VALUE for limits.txt, such as 'dy_means<=0.1'; repeatable")
      ->type_name("LIMIT")
      ->allow_extra_args(false);
  app->add_flag("--copy", options->request.copy, "Copy the pictures into the set");
  app->add_flag("--force", options->request.force, "Replace the files of a set that is there");
  addResultOptions(*app, options->result);
  addExample(*app,
             "polarline init myset --left 'left_*.png' --right 'right_*.png' --board dots:21x13:20 --calibration "
             "calib.json");
  return {app, [options] { return runInit(*options); }};
}

}  // namespace command
