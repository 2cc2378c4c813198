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

void writeImages(const Scene& scene, const std::string& folder) {
  std::string list = "#L R\n";
  for (std::size_t index = 0; index < scene.left_from_board.size(); ++index) {
    const ImagePair pair = renderPair(scene, index);
    writePng(fmt::format("{}/left_{}.png", folder, index), pair.left);
    writePng(fmt::format("{}/right_{}.png", folder, index), pair.right);
    list += fmt::format("left_{}.png right_{}.png\n", index, index);
  }
  writeFile(folder + "/list.txt", list);
}

void writeCalibration(const Scene& scene, const std::string& folder) {
  writeCalibrationBinary(folder + "/calib.bin", binaryCameras(scene.given));
  if (scene.given.left.model != LensModel::kPoly) writeFile(folder + "/calib.json", calibrationJson(scene.given));
  if (scene.settings.rectified) writeFile(folder + "/rectified.txt", rectifiedText(scene.given));
}

}  // namespace

void writeScene(const Scene& scene, const std::string& folder) {
  makeFolder(folder);
  writeImages(scene, folder);
  writeCalibration(scene, folder);
  writeFile(folder + "/target.ini", targetIni(scene));
  writeFile(folder + "/target.json", targetJson(scene));
  writeFile(folder + "/target.yml", targetYaml(scene));
  writeFile(folder + "/polar.txt", polarText(scene));
  writeFile(folder + "/board_gt.txt", boardText(scene.board));
  writeFile(folder + "/truth.json", truthJson(scene));
}

}  // namespace scene
