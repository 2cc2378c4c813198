#pragma once

#include <cstddef>
#include <vector>

#include "calibrations/document/Document.h"
#include "calibrations/document/Node.h"
#include "polarline/calibration.h"

namespace calibrations {

/// Which cameras are left and right.
struct Chosen {
  std::size_t left = 0;
  std::size_t right = 1;
};

/// The first two, or those of the option. Throws `polarline::InputError` for an option that names no two cameras.
Chosen chosen(const polarline::ImportOptions& options);

/// The documents of the two cameras, of formats with one for each. Without the option there must be two.
struct CameraDocuments {
  const Document& left;
  const Document& right;
};
CameraDocuments cameraDocuments(const std::vector<Document>& documents, const polarline::ImportOptions& options);

/// The same, to read from.
struct CameraNodes {
  Node left;
  Node right;
};
CameraNodes cameraNodes(const std::vector<Document>& documents, const polarline::ImportOptions& options);

}  // namespace calibrations
