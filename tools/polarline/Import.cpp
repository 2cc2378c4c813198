#include <memory>

#include "polarline/calibration.h"
#include "polarline/errors.h"
#include "tools/polarline/Outputs.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

struct ImportCommand {
  std::vector<std::string> files;
  std::string output;
  std::string to = "polarline";
  std::string size;
  std::vector<int> pair;
  double baseline = 0.0;
  CLI::Option* has_baseline = nullptr;
  polarline::ImportOptions options;
  ResultOptions result;
};

int runImport(const ImportCommand& command) {
  requireSeparate({{"--output", command.output}, {"--json", command.result.json}}, command.files);
  polarline::ImportOptions options = command.options;
  if (!command.size.empty()) options.size = polarline::sizeOf(command.size);
  if (!command.pair.empty()) options.pair = {command.pair.at(0), command.pair.at(1)};
  if (command.has_baseline->count() > 0) options.baseline = command.baseline;
  if (command.output == "-" && command.result.json == "-") {
    throw polarline::InputError("--json", "is - as well as --output; only one can be standard output");
  }
  if (command.to == "polarline" && !command.output.empty() && command.output != "-" &&
      !command.output.ends_with(".json")) {
    throw polarline::InputError("--output " + command.output, "a name that ends in .json was wanted");
  }
  const polarline::ImportedCalibration imported = polarline::importCalibration(command.files, options);
  const polarline::Calibration& calibration = imported.calibration;
  if (!command.output.empty()) {
    deliver(command.output,
            command.to == "opencv" ? polarline::openCvText(calibration) : polarline::calibrationJson(calibration));
  }
  if (!command.result.json.empty()) deliver(command.result.json, polarline::importedCalibrationJson(imported));
  std::string text = polarline::importedCalibrationText(imported);
  if (command.output.empty() && command.result.json.empty())
    text += "written   nothing; -o FILE writes the calibration\n";
  const bool isTaken = command.output == "-" || command.result.json == "-";
  if (command.result.quiet) return kDone;
  if (isTaken)
    tell("{}", text);
  else
    say(text);
  return kDone;
}

}  // namespace

Subcommand addImport(CLI::App& polarline) {
  CLI::App* const app = polarline.add_subcommand("import", "Makes a calibration of another tool ours");
  const auto command = std::make_shared<ImportCommand>();
  app->add_option("FILES", command->files, "The calibration: one file, or one for each camera, the left one first")
      ->required()
      ->type_name("");
  app->add_option("-o,--output", command->output,
                  "Where the calibration goes, a path that ends in .json; - is standard output")
      ->type_name("FILE");
  app->add_option("--to", command->to, "What is written: polarline (ours) or opencv")
      ->check(CLI::IsMember({"polarline", "opencv"}))
      ->capture_default_str();
  app->add_option("--format", command->options.format,
                  "opencv, ros, kalibr, basalt, mrcal, euroc or polarline, where the content does not tell")
      ->type_name("FORMAT");
  app->add_option("--scale", command->options.scale,
                  "Board units in a unit of the file: 1000 from metres to millimetres")
      ->capture_default_str();
  app->add_option("--model", command->options.model, "brown or fisheye, where the file does not tell")
      ->type_name("MODEL");
  app->add_option("--size", command->size, "Size of the pictures, where the file does not tell")->type_name("WxH");
  command->has_baseline = app->add_option("--baseline", command->baseline,
                                          "Length between the cameras in the board unit, where the file lost it");
  app->add_option("--pair", command->pair, "Which cameras of several are left and right, from 0")
      ->expected(2)
      ->type_name("N");
  app->add_flag("--swap", command->options.swap, "Exchange left and right");
  addResultOptions(*app, command->result);
  addExample(*app, "polarline import camchain.yaml --scale 1000 -o calib.json");
  return {app, [command] { return runImport(*command); }};
}

}  // namespace command
