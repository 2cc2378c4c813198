#include "support/Places.h"

namespace places {

std::string inProject(const std::string& name) { return PROJECT_FOLDER "/" + name; }
std::string buildFolder() { return BUILD_FOLDER; }
std::string installedCommand() { return INSTALLED_PLACE "/polarline"; }
std::string python() { return PYTHON3; }
std::string cmake() { return CMAKE_PROGRAM; }

}  // namespace places
