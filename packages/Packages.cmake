# The Debian packages (`cpack` in a build of the preset `packages`; `scripts/packages` does all of it). Each package is a component of
# `cmake --install`; packages/Finish.cmake brings what is installed into the form that Debian wants.
set(PLP_PACKAGE_REVISION 1 CACHE STRING "Counts the packages that are made of one version")
set(PLP_PACKAGE_MAINTAINER "PolarLinePrecision maintainers <maintainers@polarlineprecision.example>" CACHE STRING "Whom users of the packages write to")
set(PLP_SITE "" CACHE PATH "Folder with the documentation as a site, for polarline-doc; without it the package has the pages alone")

set(version ${PROJECT_VERSION}-${PLP_PACKAGE_REVISION})
set(library_package libpolarlineprecision${PROJECT_VERSION_MAJOR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME polarlineprecision)
set(CPACK_PACKAGE_VENDOR PolarLinePrecision)
set(CPACK_PACKAGE_CONTACT ${PLP_PACKAGE_MAINTAINER})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)  # Whatever the umask.
set(CPACK_COMPONENTS_ALL library development command manual python documentation)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/Finish.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE polarlineprecision)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${PLP_PACKAGE_REVISION})
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
foreach(target IN ITEMS polarline PolarLinePrecision)  # Where dpkg-shlibdeps finds what the Python module links.
  get_target_property(folder ${target} BINARY_DIR)
  list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${folder})
endforeach()

# plp_package(GROUP NAME SECTION SYNOPSIS TEXT [COMPILED_IN package...]
#             [DEPENDS text] [SUGGESTS text] [ARCHITECTURE text] [SHLIBDEPS bool] [CONTROL_EXTRA file...])
#   COMPILED_IN  packages of Debian of which a part is in ours, code of headers or what the site is shown with: their licences come along
# The ones of the last line are CPACK_DEBIAN_<GROUP>_PACKAGE_...
function(plp_package group name section synopsis text)
  set(fields DEPENDS SUGGESTS ARCHITECTURE SHLIBDEPS CONTROL_EXTRA)
  cmake_parse_arguments(PARSE_ARGV 5 arg "" "DEPENDS;SUGGESTS;ARCHITECTURE;SHLIBDEPS" "CONTROL_EXTRA;COMPILED_IN")
  string(TOUPPER ${group} group_name)
  set(prefix CPACK_DEBIAN_${group_name})
  set(${prefix}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(${prefix}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(${prefix}_DESCRIPTION "${synopsis}\n${text}" PARENT_SCOPE)
  foreach(field IN LISTS fields)
    if(DEFINED arg_${field})
      set(${prefix}_PACKAGE_${field} "${arg_${field}}" PARENT_SCOPE)
    endif()
  endforeach()
  set(CPACK_PLP_COMPILED_INTO_${group} ${arg_COMPILED_IN} PARENT_SCOPE)
  set(PLP_PACKAGES_OF_GROUPS ${PLP_PACKAGES_OF_GROUPS} ${group} ${name} PARENT_SCOPE)
endfunction()

# The packages of Debian that hold what our files of pkg-config name: callers need them all, as pkg-config reads all of them.
function(plp_development_packages result)
  set(found "")
  foreach(name IN ITEMS polarline PolarLinePrecision)
    file(STRINGS ${PROJECT_BINARY_DIR}/${name}.pc lines REGEX "^Requires")
    foreach(line IN LISTS lines)
      string(REGEX REPLACE "^[^:]*: *" "" required "${line}")
      string(REPLACE ", " ";" required "${required}")
      list(APPEND found ${required})
    endforeach()
  endforeach()
  list(REMOVE_DUPLICATES found)
  set(packages "")
  foreach(name IN LISTS found)
    execute_process(COMMAND pkg-config --variable=pcfiledir ${name} OUTPUT_VARIABLE folder OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND dpkg-query -S ${folder}/${name}.pc OUTPUT_VARIABLE owner COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE ":.*" "" owner "${owner}")
    list(APPEND packages ${owner})
  endforeach()
  list(SORT packages)
  list(REMOVE_DUPLICATES packages)
  list(JOIN packages ", " packages)
  set(${result} "${packages}" PARENT_SCOPE)
endfunction()

plp_development_packages(development_packages)
# The module works with the version of Python alone that it was built for.
execute_process(COMMAND ${PLP_PYTHON} -c "import sys; a, b = sys.version_info[:2]; print(f'python3 (>= {a}.{b}~), python3 (<< {a}.{b + 1})')"
                OUTPUT_VARIABLE python OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(same "${library_package} (= ${version})")

set(headers libeigen3-dev libboost-dev nlohmann-json3-dev)
set(about "PolarLinePrecision judges how well the two cameras of a calibrated stereo
infra-red pair are aligned, from pictures of a board of dots.
")

# What programs get to depend on that are built into packages against the libraries, and that the loader learns of them.
file(WRITE ${PROJECT_BINARY_DIR}/packages/shlibs
     "libPolarLinePrecision ${PROJECT_VERSION_MAJOR} ${library_package} (>= ${version})\n"
     "libpolarline ${PROJECT_VERSION_MAJOR} ${library_package} (>= ${version})\n")
file(WRITE ${PROJECT_BINARY_DIR}/packages/triggers "activate-noawait ldconfig\n")

plp_package(library ${library_package} libs "alignment of stereo infra-red cameras: shared libraries"
  "${about}
This package has the shared libraries."
  COMPILED_IN ${headers}
  CONTROL_EXTRA ${PROJECT_BINARY_DIR}/packages/shlibs ${PROJECT_BINARY_DIR}/packages/triggers)
plp_package(development libpolarlineprecision-dev libdevel "alignment of stereo infra-red cameras: development files"
  "${about}
This package has the headers, the static library, and the files by which
CMake and pkg-config find them."
  COMPILED_IN ${headers}
  DEPENDS "${same}, ${development_packages}" SUGGESTS polarline-doc)
plp_package(polarline polarline science "alignment of stereo infra-red cameras: the command"
  "${about}
This package has the command polarline, which makes sets of pictures, judges
them by limits and writes reports, its manual pages, and completions for
bash, zsh and fish."
  COMPILED_IN ${headers} libcli11-dev
  SUGGESTS polarline-doc)
plp_package(python python3-polarline python "alignment of stereo infra-red cameras: Python package"
  "${about}
This package has the Python package polarline, with numpy arrays."
  COMPILED_IN pybind11-dev
  DEPENDS "${same}, ${python}, python3-numpy" SUGGESTS "python3-pandas, python3-matplotlib, polarline-doc"
  CONTROL_EXTRA ${CMAKE_CURRENT_LIST_DIR}/python/postinst ${CMAKE_CURRENT_LIST_DIR}/python/prerm)
set(of_site "")
if(PLP_SITE)
  set(of_site mkdocs sphinx-rtd-theme-common fonts-lato fonts-font-awesome libjs-jquery libjs-modernizr libjs-lunr doxygen)
endif()
plp_package(documentation polarline-doc doc "alignment of stereo infra-red cameras: documentation"
  "${about}
This package has the guide, the pages about every subcommand, file format and
warning, and the schemas of the documents."
  COMPILED_IN ${of_site}
  ARCHITECTURE all SHLIBDEPS OFF)

# What packages/Finish.cmake must know.
set(CPACK_PLP_PACKAGES ${PLP_PACKAGES_OF_GROUPS})
set(CPACK_PLP_SOURCE ${PROJECT_SOURCE_DIR})
set(CPACK_PLP_VERSION ${version})
set(CPACK_PLP_LIBDIR ${CMAKE_INSTALL_LIBDIR})
set(CPACK_PLP_STRIP ${CMAKE_STRIP})
set(CPACK_PLP_PYTHON ${PLP_PYTHON})
set(CPACK_PLP_SITE ${PLP_SITE})

set(CMAKE_PROJECT_DESCRIPTION "")  # Or cpack would put it in front of each package's own.
include(CPack)
cpack_add_component_group(polarline)
cpack_add_component(command GROUP polarline)
cpack_add_component(manual GROUP polarline)
