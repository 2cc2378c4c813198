#include "polarline/explain.h"

#include <fmt/format.h>

#include <memory>

#include "polarline/errors.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

void show(const polarline::Explanation& each) {
  const std::string name = each.name == each.code ? "" : " (" + each.name + ")";
  fmt::print("{}{}\n  {}\n", each.code, name, each.meaning);
  if (!each.advice.empty()) fmt::print("  What to do: {}\n", each.advice);
}

int runExplain(const std::string& code) {
  if (code.empty()) {
    for (const polarline::Explanation& each : polarline::explanations()) show(each);
    return kDone;
  }
  const auto found = polarline::explainAll(code);
  if (found.empty())
    throw polarline::InputError("'" + code + "'",
                                "no status, warning or exit code is called so; 'polarline explain' lists them");
  for (const polarline::Explanation& each : found) show(each);
  return kDone;
}

}  // namespace

Subcommand addExplain(CLI::App& polarline) {
  CLI::App* const app =
      polarline.add_subcommand("explain", "Says what a status, warning or exit code means and what to do");
  const auto code = std::make_shared<std::string>();
  app->add_option("CODE", *code,
                  "A number or word that the command or the library has told; without it all are listed");
  app->allow_extras(false)->prefix_command(false);
  addExample(*app, "polarline explain too_few_shared");
  return {app, [code] { return runExplain(*code); }};
}

}  // namespace command
