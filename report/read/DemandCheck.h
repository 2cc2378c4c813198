#pragma once

#include "report/read/Place.h"

namespace polarline {

/// Demands of a document all that the page reads of it, but for the lists of points. Throws `InputError`.
void demandCheck(const Place& document);

}  // namespace polarline
