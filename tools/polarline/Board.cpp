#include "polarline/board.h"

#include <fmt/format.h>

#include <map>
#include <memory>
#include <string>

#include "platform/WholeFile.h"
#include "polarline/errors.h"
#include "tools/polarline/Outputs.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

using polarline::BoardRings;
using polarline::Paper;

const std::map<std::string, BoardRings> kRings = {
    {"small", BoardRings::kSmall}, {"big", BoardRings::kBig}, {"mixed", BoardRings::kMixed}};
const std::map<std::string, Paper> kPapers = {
    {"A4", Paper::kA4}, {"A3", Paper::kA3}, {"A2", Paper::kA2}, {"A1", Paper::kA1}, {"fit", Paper::kFit}};

struct BoardCommand {
  std::string target;
  std::string board;
  std::string output;
  std::string rings = "small";
  std::string paper = "fit";
  polarline::BoardPrint print;
  ResultOptions result;
};

int runBoard(const BoardCommand& options) {
  requireSeparate({{"--output", options.output}, {"--json", options.result.json}}, {options.target});
  if (options.output == "-" && options.result.json == "-") {
    throw polarline::InputError("--json", "standard output is taken by --output; wanted one of them in a file");
  }
  const polarline::BoardDescription board = options.target.empty()
                                                ? polarline::parseBoard(options.board)
                                                : polarline::readBoard(options.target, kRings.at(options.rings));
  polarline::BoardPrint print = options.print;
  print.paper = kPapers.at(options.paper);
  print.format = polarline::boardFormat(options.output);
  const polarline::PrintedBoard printed = polarline::printBoard(board, print);
  const whole_file::Together together;
  deliver(options.output, printed.bytes);
  if (!options.result.json.empty()) deliver(options.result.json, polarline::boardJson(board, printed));
  const bool told = options.output == "-" || options.result.json == "-" || options.result.quiet;
  if (!told) sayLine(fmt::format("{}: {}", options.output, polarline::boardSummary(board, printed)));
  return kDone;
}

}  // namespace

Subcommand addBoard(CLI::App& polarline) {
  CLI::App* const app = polarline.add_subcommand("board", "Draws a board in true size, to print");
  const auto options = std::make_shared<BoardCommand>();
  auto* const source = app->add_option_group("Board", "Which board");
  source->add_option("--target", options->target, "Target configuration (.ini, .json, .yml, .yaml, .xml)")
      ->type_name("FILE");
  CLI::Option* const words = source->add_option(
      "--board", options->board,
      "KIND:COLSxROWS:STEP[:NAME=VALUE...] with KIND rings-small, rings-big, rings-mixed or dots, and NAME "
      "inner, outter, step_y, dot, numbering or marks; a board unit is a millimetre");
  words->type_name("BOARD");
  source->require_option(1);
  app->add_option("-o,--output", options->output, "File to write: .svg, .pdf or .png; - is an SVG on standard output")
      ->required()
      ->type_name("FILE");
  app->add_option("--rings", options->rings, "Rings to draw on a ring board of --target: small, big or mixed")
      ->check(CLI::IsMember(kRings))
      ->excludes(words)
      ->capture_default_str();
  app->add_option("--paper", options->paper, "A4, A3, A2, A1, or fit for the board's own size")
      ->check(CLI::IsMember(kPapers))
      ->capture_default_str();
  app->add_option("--title", options->print.title, "Title, printed below the ruler")->type_name("TEXT");
  app->add_option("--dpi", options->print.dpi, "Dots per inch of a PNG")->capture_default_str();
  addResultOptions(*app, options->result);
  addExample(*app, "polarline board --board rings-small:17x15:14 --paper A3 -o board.pdf");
  return {app, [options] { return runBoard(*options); }};
}

}  // namespace command
