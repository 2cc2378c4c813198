#pragma once

#include <string>

/// Where things stand on this machine. The paths are compiled into one file: given to whole programs they would keep
/// the compiler cache from knowing a test in another clone.
namespace places {

/// A file or folder of the sources by its name from the project's top, such as "docs/store.md".
std::string inProject(const std::string& name);
/// The folder that the project is built in.
std::string buildFolder();
/// Where the command stands below the folder into which it is installed.
std::string installedCommand();
/// The Python that judges documents, and the CMake that built the project.
std::string python();
std::string cmake();

}  // namespace places
