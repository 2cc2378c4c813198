# Nearly all of a compilation is the parsing of headers, so a build that is read by the clock compiles the files of a layer together, some
# at a time (PLP_UNITY). Names in unnamed namespaces must therefore differ within a layer: two that are alike stop the build. The debug and
# the tidy build compile each file alone: there a change of one file is built fastest, and what a file forgets to include shows.
option(PLP_UNITY "Compile the files of a layer together" OFF)
set(PLP_UNITY_FILES 24)  # At most.
if(PLP_UNITY AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # A tenth of the compiler's time goes into sweeping its memory at each 128 MB; so much source needs a gigabyte anyway.
  add_compile_options(--param=ggc-min-heapsize=524288)
endif()

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
  set(united "")
  foreach(source IN LISTS sources)
    get_source_file_property(options ${source} COMPILE_OPTIONS)
    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE OUTPUT_VARIABLE path)
    cmake_path(IS_PREFIX CMAKE_CURRENT_BINARY_DIR "${path}" made_here)
    if(NOT options AND NOT made_here)
      cmake_path(RELATIVE_PATH path BASE_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_VARIABLE name)
      list(APPEND united ${name})
      set_source_files_properties(${source} PROPERTIES HEADER_FILE_ONLY ON)
    endif()
  endforeach()
  # As many parts as are needed, all of about one size: they are compiled side by side.
  list(LENGTH united count)
  math(EXPR parts "(${count} + ${PLP_UNITY_FILES} - 1) / ${PLP_UNITY_FILES}")
  set(place 0)
  foreach(name IN LISTS united)
    math(EXPR part "${place} * ${parts} / ${count}")
    math(EXPR place "${place} + 1")
    string(APPEND text_${part} "#include \"${name}\"\n")
  endforeach()
  math(EXPR last "${parts} - 1")
  foreach(part RANGE ${last})
    set(together ${CMAKE_CURRENT_BINARY_DIR}/together/${target}_${part}.cpp)
    file(CONFIGURE OUTPUT ${together} CONTENT "${text_${part}}" @ONLY)
    target_sources(${target} PRIVATE ${together})
  endforeach()
endfunction()
