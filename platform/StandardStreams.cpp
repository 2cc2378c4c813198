#include "platform/StandardStreams.h"

#ifdef _WIN32

namespace standard_streams {

void keepPlaces() {}  // A closed stream has no number there that a file could get.

}  // namespace standard_streams

#else

#include <fcntl.h>
#include <unistd.h>

namespace standard_streams {

void keepPlaces() {
  int place = open("/dev/null", O_RDONLY);  // The lowest free number: reading gives nothing, writing fails.
  while (place >= 0 && place <= STDERR_FILENO) place = open("/dev/null", O_RDONLY);
  if (place > STDERR_FILENO) close(place);
}

}  // namespace standard_streams

#endif
