#include "polarline/explain.h"

#include <fmt/format.h>

#include <memory>
#include <nlohmann/json.hpp>

#include "polarline/errors.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

struct Request {
  std::string code;
  ResultOptions result;
};

std::string textOf(const std::vector<polarline::Explanation>& all) {
  std::string text;
  for (const polarline::Explanation& each : all) {
    const std::string name = each.name == each.code ? "" : " (" + each.name + ")";
    text += fmt::format("{}{}\n  {}\n", each.code, name, each.meaning);
    if (!each.advice.empty()) text += fmt::format("  What to do: {}\n", each.advice);
  }
  return text;
}

std::string jsonOf(const std::vector<polarline::Explanation>& all) {
  nlohmann::ordered_json json{{"schema", "polarline-explain/1"}, {"explanations", nlohmann::ordered_json::array()}};
  for (const polarline::Explanation& each : all)
    json["explanations"].push_back({{"code", each.code},
                                    {"name", each.name},
                                    {"meaning", each.meaning},
                                    {"advice", each.advice},
                                    {"unit", each.unit}});
  return json.dump(2) + "\n";
}

std::vector<polarline::Explanation> wanted(const std::string& code) {
  if (code.empty()) return polarline::explanations();
  std::vector<polarline::Explanation> found = polarline::explainAll(code);
  if (found.empty())
    throw polarline::InputError("'" + code + "'",
                                "no status, warning, exit code or figure is called so; 'polarline explain' lists them");
  return found;
}

int runExplain(const Request& request) {
  const std::vector<polarline::Explanation> all = wanted(request.code);
  if (!request.result.json.empty()) deliver(request.result.json, jsonOf(all));
  if (!request.result.quiet && request.result.json != "-") deliver("-", textOf(all));
  return kDone;
}

}  // namespace

Subcommand addExplain(CLI::App& polarline) {
  CLI::App* const app =
      polarline.add_subcommand("explain", "Says what a status, warning, exit code or figure means and what to do");
  const auto request = std::make_shared<Request>();
  app->add_option("CODE", request->code,
                  "A number or word that the command or the library has told; without it all are listed");
  app->allow_extras(false)->prefix_command(false);
  addResultOptions(*app, request->result);
  addExample(*app, "polarline explain too_few_shared");
  return {app, [request] { return runExplain(*request); }};
}

}  // namespace command
