#include "store/work/ClaimText.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <chrono>
#include <cstdint>
#include <nlohmann/json.hpp>

#include "check/document/JsonText.h"

namespace polarline {

std::string claimText(const process_identity::Identity& worker) {
  JsonText json(JsonText::Form::kShort);
  json.object().member("host", worker.host).member("machine", worker.machine);
  json.member("process", std::int64_t{worker.process}).member("began", worker.began);
  const auto now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  json.member("time", fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", fmt::gmtime(now))).end();
  return json.take() + "\n";
}

std::optional<process_identity::Identity> claimant(const std::string& text) {
  const nlohmann::json json = nlohmann::json::parse(text, nullptr, false);
  try {
    if (!json.at("process").is_number_integer()) return std::nullopt;
    return process_identity::Identity{json.at("host"), json.at("machine"), json.at("process"), json.at("began")};
  } catch (const nlohmann::json::exception&) {
    return std::nullopt;
  }
}

}  // namespace polarline
