# What every layer is compiled with, and the headers that are precompiled so.
add_library(plp_layer_options INTERFACE)
target_link_libraries(plp_layer_options INTERFACE plp_options)
if(PLP_FUZZ)
  target_compile_options(plp_layer_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(PLP_COVERAGE)  # The tests and the renderer stay as they are: only what is counted need be slow.
  target_compile_options(plp_layer_options INTERFACE --coverage -O1)
endif()

add_library(plp_layer_headers OBJECT EXCLUDE_FROM_ALL ${CMAKE_CURRENT_LIST_DIR}/Precompiled.cpp)
target_include_directories(plp_layer_headers SYSTEM PRIVATE ${OpenCV_INCLUDE_DIRS})
target_link_libraries(plp_layer_headers PRIVATE plp_layer_options)
plp_precompile(plp_layer_headers ${PLP_COMMON_HEADERS})

# Layers whose work is words, documents and files: to optimise them further takes a third of their compilation and gains nothing.
add_library(plp_light_options INTERFACE)
target_link_libraries(plp_light_options INTERFACE plp_layer_options)
if(NOT MSVC)
  target_compile_options(plp_light_options INTERFACE $<$<CONFIG:Release>:-O1>)
endif()

find_package(fmt REQUIRED)
find_package(nlohmann_json REQUIRED)
add_library(plp_light_headers OBJECT EXCLUDE_FROM_ALL ${CMAKE_CURRENT_LIST_DIR}/Precompiled.cpp)
target_include_directories(plp_light_headers SYSTEM PRIVATE ${OpenCV_INCLUDE_DIRS})
target_link_libraries(plp_light_headers PRIVATE plp_light_options fmt::fmt nlohmann_json::nlohmann_json)
plp_precompile(plp_light_headers ${PLP_COMMON_HEADERS} <fmt/format.h> <nlohmann/json.hpp>)

# plp_layer(NAME [LIGHT] [DEPENDS layer...] [OFFERS place...] [ROOMS room...])  One folder, one target: the sources of the current folder as a static
# library that sees the layers it names and those below them.
#   LIGHT   its work is words, documents and files (above); it uses fmt and nlohmann_json
#   OFFERS  what the layers above may include of this one, folders or headers; without it the whole folder
#   ROOMS   its inner folders from bottom to top; each sees only its own and those below. "a|b" are two that do not see each other.
# An include of anything else of ours stops the build.
function(plp_layer name)
  cmake_parse_arguments(arg "LIGHT" "" "DEPENDS;OFFERS;ROOMS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(${name} STATIC ${sources} ${headers})
  set(kind layer)
  if(arg_LIGHT)
    set(kind light)
    target_link_libraries(${name} PUBLIC fmt::fmt PRIVATE nlohmann_json::nlohmann_json)
  endif()
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
  target_include_directories(${name} SYSTEM PUBLIC ${OpenCV_INCLUDE_DIRS} ${Boost_INCLUDE_DIRS})
  target_link_libraries(${name} PRIVATE plp_${kind}_options PUBLIC ${OpenCV_LIBS} Eigen3::Eigen ${arg_DEPENDS})
  plp_precompile_as(${name} plp_${kind}_headers)
  plp_unite(${name})
  if(PLP_COVERAGE)
    target_link_options(${name} INTERFACE --coverage)
  endif()

  set(seen include)
  foreach(layer IN LISTS arg_DEPENDS)
    get_target_property(seen_through ${layer} PLP_SEEN_ABOVE)
    list(APPEND seen ${seen_through})
  endforeach()
  list(REMOVE_DUPLICATES seen)
  plp_include_wall(${name} MAY_INCLUDE ${seen} ROOMS ${arg_ROOMS})

  set(offered ${name})
  if(arg_OFFERS)
    list(TRANSFORM arg_OFFERS PREPEND ${name}/ OUTPUT_VARIABLE offered)
  endif()
  set_target_properties(${name} PROPERTIES PLP_SEEN_ABOVE "${seen};${offered}")
  set_property(GLOBAL APPEND PROPERTY PLP_LAYERS ${name})  # Bottom to top.
endfunction()
