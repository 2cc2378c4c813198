#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "polarline/check.h"
#include "report/picture/PagePicture.h"
#include "report/read/ReadCheck.h"

namespace polarline {

/// One check as the page has it, in words and as JSON.
struct CheckView {
  std::string title;
  std::string headline;
  Check record;      ///< As far as sentences and tables need it.
  std::string data;  ///< JSON.
};

/// The pictures of the pair at a place of a document.
using PicturesOfPair = std::function<PairPictures(std::size_t place)>;

/// @param budget Bytes for `data`, about. What every table needs is in it all the same.
CheckView viewCheck(ReadCheck check, const std::string& title, const PicturesOfPair& pictures, bool paths,
                    std::size_t budget);

}  // namespace polarline
