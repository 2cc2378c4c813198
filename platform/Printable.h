#pragma once

#include <string>

namespace plain {

/// The text with every control character but line ends, and every byte that is no UTF-8, as \xNN: a file's name must
/// not steer a terminal.
std::string printable(const std::string& text);

/// The same with line ends, too: in a name one could make a line of its own, such as a verdict.
std::string onOneLine(const std::string& text);

/// Whether the text stays what it is on one line.
bool isPlainLine(const std::string& text);

}  // namespace plain
