# plp_layer(NAME DEPENDS layer...)  One folder, one target: the sources of the current folder as a static library that sees the layers it names.
# An include of any other layer stops the build.
set(PLP_LAYERS platform input camera MorvenKit Tallowfen polar exports)

function(plp_layer name)
  cmake_parse_arguments(arg "" "" "DEPENDS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(${name} STATIC ${sources} ${headers})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
  target_include_directories(${name} SYSTEM PUBLIC ${OpenCV_INCLUDE_DIRS} ${Boost_INCLUDE_DIRS})
  target_link_libraries(${name} PRIVATE plp_options PUBLIC ${OpenCV_LIBS} Eigen3::Eigen ${arg_DEPENDS})
  if(PLP_FUZZ)
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  if(PLP_COVERAGE)  # The tests and the renderer stay as they are: only what is counted need be slow.
    target_compile_options(${name} PRIVATE --coverage -O1)
    target_link_options(${name} INTERFACE --coverage)
  endif()

  set(allowed ${name})
  foreach(layer IN LISTS arg_DEPENDS)
    get_target_property(below ${layer} PLP_ALLOWED)
    list(APPEND allowed ${below})
  endforeach()
  list(REMOVE_DUPLICATES allowed)
  set_target_properties(${name} PROPERTIES PLP_ALLOWED "${allowed}")

  set(forbidden ${PLP_LAYERS})
  list(REMOVE_ITEM forbidden ${allowed})
  list(JOIN forbidden "|" forbidden)
  set(stamp ${CMAKE_CURRENT_BINARY_DIR}/includes.checked)
  add_custom_command(
    OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -D "FORBIDDEN=${forbidden}" -D "FOLDER=${CMAKE_CURRENT_SOURCE_DIR}" -D "STAMP=${stamp}"
            -P ${PROJECT_SOURCE_DIR}/cmake/CheckIncludes.cmake
    DEPENDS ${sources} ${headers} ${PROJECT_SOURCE_DIR}/cmake/CheckIncludes.cmake
    COMMENT "Checking the include direction of ${name}" VERBATIM)
  add_custom_target(${name}_includes DEPENDS ${stamp})
  add_dependencies(${name} ${name}_includes)
endfunction()
