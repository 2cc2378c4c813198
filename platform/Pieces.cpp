#include "platform/Pieces.h"

#include <algorithm>
#include <cstddef>

std::vector<std::string> piecesOf(const std::string& text, char separator) {
  std::vector<std::string> pieces;
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = std::min(text.find(separator, start), text.size());
    pieces.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return pieces;
}

std::vector<std::string> wordsOf(const std::string& text, const char* blanks) {
  std::vector<std::string> words;
  std::size_t start = text.find_first_not_of(blanks);
  while (start != std::string::npos) {
    const std::size_t end = text.find_first_of(blanks, start);
    words.push_back(text.substr(start, end - start));
    start = text.find_first_not_of(blanks, end);
  }
  return words;
}
