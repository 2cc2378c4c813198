#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "polarline/api.h"

namespace polarline {

/// The files of a set: everything that a check reads. Paths are narrow strings as the system has them.
struct Set {
  std::string folder;       ///< Where files that are not named are looked for; empty: all are named.
  std::string polar;        ///< Polar configuration.
  std::string target;       ///< Board and detector.
  std::string calibration;  ///< JSON or binary; empty for pairs that were rectified elsewhere.
  std::string list;         ///< Image list.
  std::string board;        ///< True positions of the dots; empty where there are none.
  std::string limits;       ///< One limit a line; empty where there are none.
  std::string rectified;    ///< Geometry of pairs that were rectified elsewhere; empty for all others.
};

/// Completes a set: each file that `named` leaves empty is the folder's own, `polar.txt`,
/// `target.ini|json|yml|yaml|xml`, `calib.json|bin`, `list.txt`, and, where they are there, `board_gt.txt`,
/// `limits.txt`, `rectified.txt`. Throws `InputError` that names the file which is missing, empty, not readable or no
/// file.
POLARLINE_API Set openSet(const Set& named);

/// The same for pictures that are elsewhere: a list is neither wanted nor looked for.
POLARLINE_API Set openSetWithoutList(const Set& named);

/// A line of the image list.
struct ListedPair {
  std::size_t line = 0;  ///< From 1.
  std::string left;      ///< As written.
  std::string right;
  std::string folder;  ///< What the names are relative to, with its separator.
};

/// The pairs of an image list. Throws `InputError` with the line for a list that is no list of pairs, and for a picture
/// that is not there.
POLARLINE_API std::vector<ListedPair> listedPairs(const std::string& list);

/// Every file that a check of the set would read, pictures too. Throws as the two above.
POLARLINE_API std::vector<std::string> filesOf(const Set& set);

}  // namespace polarline
