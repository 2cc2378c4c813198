# Nearly all of a compilation is the parsing of headers, so a build that is read by the clock compiles the files of a folder together, a few
# at a time (PLP_UNITY). Names in unnamed namespaces must therefore differ within a folder: two that are alike stop the build. The debug and
# the tidy build compile each file alone: there a change of one file is built fastest, and what a file forgets to include shows.
option(PLP_UNITY "Compile the files of a folder together" OFF)
set(PLP_UNITY_FILES 12 CACHE STRING "How many files are compiled together at most")

# plp_unite(TARGET)  Lets the files of TARGET be compiled together, but for those that have options of their own.
function(plp_unite target)
  if(NOT PLP_UNITY)
    return()
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "[.]cpp$")
  list(SORT sources)
  set(folder "")
  foreach(source IN LISTS sources)
    cmake_path(GET source PARENT_PATH next_folder)
    if(NOT next_folder STREQUAL folder)
      set(folder ${next_folder})
      set(count 0)
    endif()
    math(EXPR part "${count} / ${PLP_UNITY_FILES}")
    math(EXPR count "${count} + 1")
    string(MD5 group ${folder}/${part})
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${group})
  endforeach()
endfunction()
