#pragma once

#include <optional>
#include <string>

#include "check/document/JsonText.h"
#include "report/measure/Board.h"
#include "report/measure/CausePattern.h"
#include "report/picture/PagePicture.h"
#include "report/read/ReadCheck.h"

namespace polarline {

/// The pictures of a pair, and what the step that failed saw, as members of an object that is open.
void writePictures(JsonText& json, const PairPictures& pictures);

/// What the page is given of one pair beside the document, as JSON.
std::string detailsText(const ReadPair& pair, bool is_finished, const PairPictures& pictures, const Board& board,
                        const CausePattern& pattern);

}  // namespace polarline
