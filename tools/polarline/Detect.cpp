#include "polarline/detect.h"

#include <fmt/format.h>

#include <cstdio>
#include <filesystem>
#include <memory>

#include "platform/WholeFile.h"
#include "polarline/board.h"
#include "polarline/errors.h"
#include "tools/polarline/Outputs.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

struct DetectCommand {
  std::string image;
  std::string target;
  std::string board;
  std::string out;
  std::string csv;
  bool all_pictures = false;
  ResultOptions result;

  bool usesStandardOutput() const { return csv == "-" || result.json == "-"; }
};

void deliverDocuments(const DetectCommand& options, const polarline::Detection& detection) {
  if (!options.csv.empty()) deliver(options.csv, pointsCsv(detection));
  if (!options.result.json.empty())
    deliver(options.result.json, detectionJson(detection, options.image, options.target + options.board));
}

std::vector<std::string> deliverPictures(const DetectCommand& options, const cv::Mat& image,
                                         const polarline::Detection& detection) {
  if (options.out.empty()) return {};
  const std::string name = std::filesystem::path(options.image).stem().string();
  return writePictures(image, detection, options.out, name, options.all_pictures);
}

void tellDetection(const DetectCommand& options, const polarline::Detection& detection,
                   const std::vector<std::string>& pictures) {
  if (options.result.quiet || options.usesStandardOutput()) {
    if (!detection.found)
      command::tell("polarline: {}: {}\nadvice: {}\n", terminal::onOneLine(options.image),
                    terminal::onOneLine(detection.text), terminal::onOneLine(detection.advice));
    return;
  }
  std::string text = detectionTable(detection);
  for (const std::string& picture : pictures)
    text += fmt::format("{:<12} {:<12} {}\n", "written", "", terminal::onOneLine(picture));
  if (!detection.found && !options.all_pictures && !pictures.empty())
    text += fmt::format("{:<12} {:<12} the first of them shows all ellipses by class\n", "pictures", "");
  if (!detection.found && options.out.empty())
    text +=
        fmt::format("{:<12} {:<12} --out FOLDER writes the ellipses by class and the binary picture\n", "pictures", "");
  say(text);
}

int runDetect(const DetectCommand& options) {
  if (options.csv == "-" && options.result.json == "-")
    throw polarline::InputError("--csv and --json can't both be standard output");
  requireSeparate({{"--csv", options.csv}, {"--json", options.result.json}}, {options.image, options.target});
  const cv::Mat image = polarline::readPicture(options.image);
  const std::string target =
      options.board.empty() ? options.target : polarline::targetIni(polarline::parseBoard(options.board));
  const polarline::Detection detection = polarline::detect(image, target);
  const whole_file::Together together;
  const std::vector<std::string> pictures = deliverPictures(options, image, detection);
  deliverDocuments(options, detection);
  tellDetection(options, detection, pictures);
  return detection.found ? kDone : kNoFigure;
}

}  // namespace

Subcommand addDetect(CLI::App& polarline) {
  CLI::App* const app = polarline.add_subcommand(
      "detect", "What the detector sees in one picture: the dots with their numbers, or the step where it stopped");
  const auto options = std::make_shared<DetectCommand>();
  app->add_option("IMAGE", options->image, "Picture: 8-bit grey or colour, or 16-bit grey")->required()->type_name("");
  auto* const board = app->add_option_group("Board", "Which board");
  board->add_option("--target", options->target, "Description of the board: target.ini, .json, .yml, .yaml or .xml")
      ->type_name("FILE");
  board
      ->add_option("--board", options->board,
                   "The board in words in place of such a file, such as rings-small:17x15:14 (see polarline board)")
      ->type_name("BOARD");
  board->require_option(1);
  app->add_option("--out", options->out,
                  "Write NAME_overlay.png there; if nothing was found, NAME_ellipses.png and NAME_binary.png")
      ->type_name("FOLDER");
  app->add_flag("--all-pictures", options->all_pictures, "With --out: write all three pictures in any case");
  app->add_option("--csv", options->csv, "Write the dots as CSV: id, row, column, x, y; - is standard output")
      ->type_name("FILE");
  addResultOptions(*app, options->result);
  addExample(*app, "polarline detect my_set/left_0.png --target my_set/target.ini --out seen");
  return {app, [options] { return runDetect(*options); }};
}

}  // namespace command
