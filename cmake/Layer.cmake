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

# plp_layer(NAME [DEPENDS layer...] [OFFERS place...] [ROOMS room...])  One folder, one target: the sources of the current folder as a static
# library that sees the layers it names and those below them.
#   OFFERS  what the layers above may include of this one, folders or headers; without it the whole folder
#   ROOMS   its inner folders from bottom to top; each sees only its own and those below. "a|b" are two that do not see each other.
# An include of anything else of ours stops the build.
function(plp_layer name)
  cmake_parse_arguments(arg "" "" "DEPENDS;OFFERS;ROOMS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(${name} STATIC ${sources} ${headers})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
  target_include_directories(${name} SYSTEM PUBLIC ${OpenCV_INCLUDE_DIRS} ${Boost_INCLUDE_DIRS})
  target_link_libraries(${name} PRIVATE plp_layer_options PUBLIC ${OpenCV_LIBS} Eigen3::Eigen ${arg_DEPENDS})
  plp_precompile_as(${name} plp_layer_headers)
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
