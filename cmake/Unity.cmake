# Nearly all of a compilation is the parsing of headers, so a build that is read by the clock compiles the files of a folder together, a few
# at a time (PLP_UNITY). Names in unnamed namespaces must therefore differ within a folder: two that are alike stop the build. The debug and
# the tidy build compile each file alone: there a change of one file is built fastest, and what a file forgets to include shows.
option(PLP_UNITY "Compile the files of a folder together" OFF)
set(PLP_UNITY_FILES 12 CACHE STRING "How many files are compiled together at most")

# plp_unite(TARGET)  Lets the files of TARGET be compiled together, but for those that have options of their own and those that are made
# by the build. What is compiled names its files from the project's top, so that the compiler cache knows it in every clone; the files that
# CMake's own UNITY_BUILD makes hold the clone's path.
function(plp_unite target)
  if(PLP_UNITY)
    # Later, as options of single files are set behind the target; EVAL, as what is deferred would look up the name then.
    cmake_language(EVAL CODE "cmake_language(DEFER CALL plp_unite_now ${target})")
  endif()
endfunction()

function(plp_unite_now target)
  get_target_property(wanted ${target} UNITY_BUILD)
  if("${wanted}" STREQUAL "OFF")  # A target that has its reasons.
    return()
  endif()
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "[.]cpp$")
  list(SORT sources)
  set(folder "")
  foreach(source IN LISTS sources)
    get_source_file_property(options ${source} COMPILE_OPTIONS)
    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE OUTPUT_VARIABLE path)
    cmake_path(IS_PREFIX CMAKE_CURRENT_BINARY_DIR "${path}" made_here)
    if(options OR made_here)
      continue()
    endif()
    cmake_path(GET path PARENT_PATH next_folder)
    if(NOT next_folder STREQUAL folder)
      set(folder ${next_folder})
      set(count 0)
    endif()
    math(EXPR part "${count} / ${PLP_UNITY_FILES}")
    math(EXPR count "${count} + 1")
    cmake_path(RELATIVE_PATH path BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE name)
    cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} OUTPUT_VARIABLE room)
    string(MAKE_C_IDENTIFIER "${target}_${room}_${part}" together)
    set(together ${CMAKE_CURRENT_BINARY_DIR}/together/${together}.cpp)
    list(APPEND all_together ${together})
    set(text_${together} "${text_${together}}#include \"${name}\"\n")
    set_source_files_properties(${source} PROPERTIES HEADER_FILE_ONLY ON)
  endforeach()
  list(REMOVE_DUPLICATES all_together)
  foreach(together IN LISTS all_together)
    file(CONFIGURE OUTPUT ${together} CONTENT "${text_${together}}" @ONLY)
  endforeach()
  target_sources(${target} PRIVATE ${all_together})
endfunction()
