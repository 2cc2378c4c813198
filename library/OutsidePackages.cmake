# What others need in order to link the static library: the libraries of others that the layers link, under the names that CMake and
# pkg-config know them by.

# Target | arguments of find_package, or of pkg_check_modules behind "pkg-config" | package of pkg-config, or a flag. Libraries that are only
# headers have left nothing to link.
set(plp_outside
    "opencv_.*|OpenCV|opencv4"
    "fmt::fmt|fmt|fmt"
    "yaml-cpp|yaml-cpp|yaml-cpp"
    "OpenSSL::Crypto|OpenSSL COMPONENTS Crypto|libcrypto"
    "OpenSSL::SSL|OpenSSL COMPONENTS SSL|libssl"
    "SQLite::SQLite3|SQLite3|sqlite3"
    "ZLIB::ZLIB|ZLIB|zlib"
    "PNG::PNG|PNG|libpng"
    "PkgConfig::CAIRO|pkg-config CAIRO cairo|cairo"
    "Threads::Threads|Threads|-pthread")
set(plp_only_headers Eigen3::Eigen nlohmann_json::nlohmann_json Boost::headers Boost::boost)

# The libraries of others that the targets link, each once.
function(plp_outside_libraries result)
  set(found "")
  foreach(target IN LISTS ARGN)
    get_target_property(libraries ${target} LINK_LIBRARIES)
    foreach(library IN LISTS libraries)
      string(REGEX REPLACE "^\\$<LINK_ONLY:(.*)>$" "\\1" library "${library}")
      if(NOT library IN_LIST ARGN AND NOT library MATCHES "^plp_" AND NOT library IN_LIST plp_only_headers)
        list(APPEND found ${library})
      endif()
    endforeach()
  endforeach()
  list(REMOVE_DUPLICATES found)
  set(${result} ${found} PARENT_SCOPE)
endfunction()

# How a library of others is found: by CMake and by pkg-config.
function(plp_names_of library cmake_result pkgconfig_result)
  foreach(row IN LISTS plp_outside)
    string(REPLACE "|" ";" row "${row}")
    list(GET row 0 pattern)
    if(library MATCHES "^${pattern}$")
      list(GET row 1 found_by)
      list(GET row 2 package)
      set(${cmake_result} "${found_by}" PARENT_SCOPE)
      set(${pkgconfig_result} "${package}" PARENT_SCOPE)
      return()
    endif()
  endforeach()
  message(FATAL_ERROR "A layer links ${library}: say in library/OutsidePackages.cmake how others find it.")
endfunction()
