#pragma once

#include <string>
#include <string_view>

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

/// A process as a part of a file's name: "PROCESS-MACHINE-BEGAN", the machine as hexadecimal digits.
std::string inName(const Identity& process);

/// The same of what begins with such a part.
bool isGoneByName(std::string_view part);

}  // namespace process_identity
