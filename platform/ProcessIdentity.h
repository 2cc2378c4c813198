#pragma once

#include <string>

/// Which process this is, so that others can tell whether it still runs.
namespace process_identity {

struct Identity {
  std::string host;     ///< Name of the machine, for people.
  std::string machine;  ///< Since when the machine runs and which processes one sees there; empty where unknown.
  long process = 0;
  std::string began;  ///< When the process began, as the machine counts; another one of that number began later.
};

Identity own();

/// Whether a process of this machine is gone; false also for one of which that can't be known from here.
bool isGone(const Identity& process);

}  // namespace process_identity
