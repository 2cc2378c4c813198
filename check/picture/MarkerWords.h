#pragma once

#include "check/picture/DetectionWords.h"
#include "check/picture/SeenPicture.h"

/// Of a detection that stopped at the markers.
DetectionWords markerWords(const SeenPicture& seen);

/// Of a detection that stopped at the markers' arrangement.
DetectionWords arrangementWords(const SeenPicture& seen);
