#include <cstdlib>

#include "fuzz/Harness.h"
#include "polarline/board.h"
#include "polarline/errors.h"

// A text that is accepted is a board whose own text is accepted and says the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {  // Any other exception is a finding.
    const polarline::BoardDescription board = polarline::parseBoard(std::string(data, data + size));
    const std::string text = polarline::boardText(board);
    try {
      if (polarline::boardText(polarline::parseBoard(text)) != text) std::abort();
    } catch (const polarline::InputError&) {
      std::abort();
    }
    polarline::detectablePoints(board);
  } catch (const polarline::InputError&) {
    return 0;
  }
  return 0;
}
