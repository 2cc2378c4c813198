#include "tools/scene/WriteScene.h"

#include <fmt/format.h>

#include "tools/scene/BoardMarks.h"
#include "tools/scene/CalibrationBinary.h"
#include "tools/scene/CalibrationJson.h"
#include "tools/scene/CalibrationNumbers.h"
#include "tools/scene/PolarText.h"
#include "tools/scene/Render.h"
#include "tools/scene/SceneFiles.h"
#include "tools/scene/TargetText.h"
#include "tools/scene/TruthJson.h"

namespace scene {
namespace {

std::string boardText(const Board& board) {
  std::string text;
  for (const Point3& p : boardPoints(board)) text += fmt::format("{} {} {}\n", p.x, p.y, p.z);
  return text;
}

std::string rectifiedText(const StereoRig& rig) {
  const RectifiedNumbers n = rectifiedNumbers(rig);
  return fmt::format("# focal, baseline, cx, cy, disparity_offset\n{},{},{},{},{}\n", n.focal, n.baseline, n.cx, n.cy,
                     n.disparity_offset);
}

std::string listText(const Scene& scene) {
  std::string list = "#L R\n";
  for (std::size_t index = 0; index < scene.left_from_board.size(); ++index)
    list += fmt::format("left_{}.png right_{}.png\n", index, index);
  return list;
}

std::string binaryText(const StereoRig& rig) {
  const std::vector<std::uint8_t> bytes = calibrationBinary(binaryCameras(rig));
  return {bytes.begin(), bytes.end()};
}

}  // namespace

std::vector<SetFile> setFiles(const Scene& scene) {
  std::vector<SetFile> files{{"calib.bin", binaryText(scene.given)}, {"target.ini", targetIni(scene)},
                             {"target.json", targetJson(scene)},     {"target.yml", targetYaml(scene)},
                             {"polar.txt", polarText(scene)},        {"board_gt.txt", boardText(scene.board)},
                             {"list.txt", listText(scene)},          {"truth.json", truthJson(scene)}};
  if (scene.given.left.model != LensModel::kPoly) files.push_back({"calib.json", calibrationJson(scene.given)});
  if (scene.settings.rectified) files.push_back({"rectified.txt", rectifiedText(scene.given)});
  return files;
}

void writeScene(const Scene& scene, const std::string& folder, const PairsDone& done) {
  makeFolder(folder);
  for (const SetFile& file : setFiles(scene)) writeFile(folder + "/" + file.name, file.content);
  PairRenderer renderer(scene);
  for (std::size_t index = 0; index < scene.left_from_board.size(); ++index) {
    const ImagePair pair = renderer.render(index);
    writePng(fmt::format("{}/left_{}.png", folder, index), pair.left);
    writePng(fmt::format("{}/right_{}.png", folder, index), pair.right);
    if (done) done(index + 1);
  }
}

}  // namespace scene
