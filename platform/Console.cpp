#include "platform/Console.h"

#include <iomanip>
#include <iostream>

namespace console {

std::ostream& out() { return std::cout; }

std::ostream& err() { return std::cerr; }

void useFixedNotation() { std::cout << std::fixed << std::setprecision(8); }

}  // namespace console
