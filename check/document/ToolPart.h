#pragma once

#include "check/document/JsonText.h"

/// What the JSON documents tell of that which wrote them: the member `tool`.
namespace polarline {

/// The command and its version.
void writeTool(JsonText& json);

/// The same with the library, for a document whose figures come from it.
void writeToolAndLibrary(JsonText& json);

}  // namespace polarline
