#include "calibrations/formats/Chosen.h"

#include <algorithm>

#include "polarline/errors.h"

namespace calibrations {

Chosen chosen(const polarline::ImportOptions& options) {
  if (!options.pair) return {};
  const auto [left, right] = *options.pair;
  if (left < 0 || right < 0 || left == right) {
    throw polarline::InputError("--pair", "found " + std::to_string(left) + " " + std::to_string(right) +
                                              "; two different cameras were wanted, counted from 0");
  }
  return {static_cast<std::size_t>(left), static_cast<std::size_t>(right)};
}

CameraDocuments cameraDocuments(const std::vector<Document>& documents, const polarline::ImportOptions& options) {
  const Chosen cameras = chosen(options);
  const std::size_t last = std::max(cameras.left, cameras.right);
  if (last >= documents.size() || (!options.pair && documents.size() != 2)) {
    const std::string wanted =
        options.pair ? "one of each camera up to " + std::to_string(last) : "the left and the right one";
    throw polarline::InputError(documents.front().place,
                                "found " + std::to_string(documents.size()) + " camera(s); " + wanted + " were wanted");
  }
  return {documents[cameras.left], documents[cameras.right]};
}

CameraNodes cameraNodes(const std::vector<Document>& documents, const polarline::ImportOptions& options) {
  const auto [left, right] = cameraDocuments(documents, options);
  return {Node(left), Node(right)};
}

}  // namespace calibrations
