#include "tools/scene/SceneFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <vector>

#include "polarline/errors.h"
#include "tools/scene/JsonDocument.h"
#include "tools/scene/KeyReader.h"
#include "tools/scene/KeyWriter.h"
#include "tools/scene/SceneFields.h"

namespace scene {
namespace {

using Json = KeyReader::Json;

constexpr const char* kSchema = "polarline-scene/1";
constexpr const char* kDefaultPreset = "ring_640";
constexpr std::size_t kMostBytes = std::size_t{1} << 24U;

[[noreturn]] void refuse(const std::string& place, const std::string& problem) {
  throw polarline::InputError(place, problem);
}

void readSchema(Fields& fields) {
  std::size_t only = 0;
  fields.choice("schema", only, {kSchema});
}

/// The preset that the document is based on, with as many pairs as are asked for.
SceneRecipe baseOf(Fields& fields, const PresetOptions& options) {
  const std::vector<std::string> names = presetNames();
  auto preset = static_cast<std::size_t>(std::ranges::find(names, kDefaultPreset) - names.begin());
  fields.choice("preset", preset, names);
  int pairs = 0;
  fields.integer("pairs", pairs, {1.0, kMostPairs});
  if (options.pairs) pairs = *options.pairs;
  PresetOptions counted;
  if (pairs > 0) counted.pairs = pairs;
  return *presetRecipe(names[preset], counted);
}

/// As many poses as are asked for: with more pairs than poses the list begins anew.
void takeTurns(std::vector<PoseRecipe>& poses, std::size_t pairs) {
  const std::size_t told = poses.size();
  poses.resize(pairs);
  for (std::size_t index = told; index < pairs; ++index) poses[index] = poses[index % told];
}

void applyNoise(Fields& fields, Optics& optics) {
  double noise = -1.0;
  fields.shorthand("noise", noise, {0.0, 255.0});
  if (noise >= 0.0) setNoise(optics, noise);
}

}  // namespace

SceneRecipe parsedScene(const std::string& text, const std::string& place, const PresetOptions& options) {
  const Json document = jsonDocument(text, place);
  if (!document.is_object()) refuse(place, "found no JSON object, wanted a scene file");
  KeyReader fields(document, place);
  readSchema(fields);
  SceneRecipe recipe = baseOf(fields, options);
  const std::size_t pairs = recipe.poses.size();
  const bool counted = fields.has("pairs") || options.pairs.has_value();
  sceneFields(fields, recipe);
  if (counted) takeTurns(recipe.poses, pairs);
  applyNoise(fields, recipe.optics);
  fields.finish();
  recipe.seed = options.seed.value_or(recipe.seed);
  if (options.read_noise) setNoise(recipe.optics, *options.read_noise);
  return recipe;
}

SceneRecipe readScene(const std::string& path, const PresetOptions& options) {
  if (std::error_code ignored; std::filesystem::is_directory(path, ignored))
    refuse(path, "found a folder, wanted a scene file");
  std::ifstream stream(path, std::ios::binary);
  if (!stream) refuse(path, fmt::format("can't be read ({}), wanted a scene file", std::strerror(errno)));
  std::string text(kMostBytes + 1, '\0');
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(stream.gcount()));
  if (stream.bad()) refuse(path, "can't be read, wanted a scene file");
  if (text.size() > kMostBytes) refuse(path, "found more than 16 MiB, wanted a scene file");
  return parsedScene(text, path, options);
}

std::string sceneText(SceneRecipe recipe) {
  KeyWriter fields;
  readSchema(fields);
  sceneFields(fields, recipe);
  return fields.json().dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace scene
