#pragma once

#include <string>
#include <vector>

#include "check/init/PictureCheck.h"

namespace init {

/// How a picture comes to its name in the list.
enum class Placement { kWhereItIs, kLink, kCopy };

/// A picture's name in the list.
struct ListedPicture {
  std::string name;    ///< Relative to the set's folder.
  std::string source;  ///< Absolute path.
  Placement placement = Placement::kWhereItIs;
};

/// A line of the list.
struct ListedLine {
  ListedPicture left;
  ListedPicture right;
};

/// Names the pictures for a list in `folder`, which need not be there. A picture keeps its place and is named by its
/// way from there, if a list can hold that: printable ASCII without blank and backslash, a line of up to 511
/// characters. Otherwise it gets a link `left_0007.png` (the pair's index, from 0) in the folder, or with `copy` always
/// a copy.
std::vector<ListedLine> listNames(const std::string& folder, const std::vector<PicturePair>& pairs, bool copy);

/// The text of the image list.
std::string listText(const std::vector<ListedLine>& lines);

}  // namespace init
