# plp_include_wall(TARGET [MAY_INCLUDE place...] [ROOMS room...])  Before TARGET is built, the files of the current folder are checked: of
# the project they may include the folder itself and the places, which are folders or headers told from the project's top, and within the
# folder only rooms at or below their own (see CheckIncludes.cmake).
set(PLP_CHECK_INCLUDES ${CMAKE_CURRENT_LIST_DIR}/CheckIncludes.cmake)

function(plp_include_wall target)
  cmake_parse_arguments(arg "" "" "MAY_INCLUDE;ROOMS" ${ARGN})
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  file(RELATIVE_PATH folder ${PROJECT_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  set(stamp ${CMAKE_CURRENT_BINARY_DIR}/includes.checked)
  add_custom_command(
    OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -D ROOT=${PROJECT_SOURCE_DIR} -D FOLDER=${folder} -D "MAY_INCLUDE=${arg_MAY_INCLUDE}"
            -D "ROOMS=${arg_ROOMS}" -D STAMP=${stamp} -P ${PLP_CHECK_INCLUDES}
    DEPENDS ${files} ${PLP_CHECK_INCLUDES}
    COMMENT "Checking the includes of ${folder}" VERBATIM)
  add_custom_target(${target}_includes DEPENDS ${stamp})
  add_dependencies(${target} ${target}_includes)
endfunction()
