#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "polarline/check.h"
#include "report/measure/Board.h"
#include "report/measure/KnownCameras.h"
#include "report/picture/PagePicture.h"
#include "report/read/ReadCheck.h"

namespace polarline {

/// Whether a comparison can show the row differences of the pair that a check begins with, and why not.
enum class RowMap { kThere, kNoPair, kNoRows, kLeftOut };

/// One check as the page has it, in words and as JSON.
struct CheckView {
  std::string title;
  std::string headline;
  Check record;      ///< As far as sentences and tables need it.
  std::string data;  ///< JSON.
  RowMap row_map = RowMap::kNoPair;
  std::set<std::string> names;  ///< Of the figures, causes and warnings in it.
};

/// What a page has of a check besides its document.
struct CheckSources {
  /// The pictures of the pair at a place of the document.
  /// Behind the last one: of the pair at which the run ended without an entry for it, if there is one.
  std::function<PairPictures(std::size_t place)> pictures;
  Board board;
  std::optional<KnownCameras> cameras;  ///< None where they are not known.
};

/// How a check is shown.
struct ViewOptions {
  std::string title;
  bool paths = false;  ///< Otherwise files are told by their names.
  /// Bytes for `CheckView::data`, about. What every table needs is in it all the same, and so are the dots of the pair
  /// to begin with if they alone fit.
  std::size_t budget = 0;
  std::vector<std::string> known_paths = {};  ///< That messages may hold, besides those that the document names.
};

CheckView viewCheck(ReadCheck check, const CheckSources& sources, const ViewOptions& options);

}  // namespace polarline
