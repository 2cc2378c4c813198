# Installs the build into a folder of its own and checks a rendered set by programs that are built against it, with the shared and with the
# static library, as CMake and as pkg-config find them. All must tell the figures that the exported functions return.
include(${CMAKE_CURRENT_LIST_DIR}/Installed.cmake)
file(REMOVE_RECURSE ${WORK})
set(prefix ${WORK}/prefix)
install_into(${prefix})
run(${SCENE} render ring_320 ${WORK}/set --pairs 2)

build_consumer(${SOURCE} ${WORK}/build ${prefix})
compile_by_pkg_config(${SOURCE}/check.cpp ${WORK}/by_pkg_config ${prefix} polarline)
compile_by_pkg_config(${SOURCE}/check.cpp ${WORK}/by_pkg_config_static ${prefix} --static polarline)

run_for(expected ${WORK}/build/exported ${WORK}/set)
if(NOT expected MATCHES "dy_means 0x1\\.[0-9a-f]+p.*dy_means 0x1\\.[0-9a-f]+p")
  message(FATAL_ERROR "no figures of two pairs: ${expected}")
endif()
foreach(program IN ITEMS build/shared build/static by_pkg_config by_pkg_config_static)
  run_for(told ${WORK}/${program} ${WORK}/set)
  if(NOT told STREQUAL expected)
    message(FATAL_ERROR "${program}: ${told}\nthe exported functions: ${expected}")
  endif()

  # Does it bear the library within itself?
  run_for(needed ${READELF} -d ${WORK}/${program})
  string(REGEX MATCH "libpolarline\\.so\\.[0-9]+\\]" shared "${needed}")
  if((program MATCHES "static") EQUAL (NOT shared STREQUAL ""))
    message(FATAL_ERROR "${program} needs: ${needed}")
  endif()
endforeach()

# The example says the verdict.
compile_by_pkg_config(${EXAMPLE} ${WORK}/example ${prefix} polarline)
run_for(told ${WORK}/example ${WORK}/set)
if(NOT told MATCHES "mean [|]dy[|] 0\\.[0-9]+ px.*every limit holds")
  message(FATAL_ERROR "the example: ${told}")
endif()

# So do the programs of the README, as they stand there.
file(READ ${README} page)
string(REPLACE ";" "<semicolon>" page "${page}")  # Which would end an item of a list.
string(REPLACE "[" "<bracket>" page "${page}")
string(REPLACE "]" "<closing>" page "${page}")
string(REGEX MATCHALL "```cpp\n[^`]*```" snippets "${page}")
list(LENGTH snippets count)
if(NOT count EQUAL 2)
  message(FATAL_ERROR "${count} programs in ${README}; this check knows how to run two")
endif()
set(number 0)
foreach(snippet IN LISTS snippets)
  string(REGEX REPLACE "^```cpp\n(.*)```$" "\\1" source "${snippet}")
  string(REPLACE "<semicolon>" ";" source "${source}")
  string(REPLACE "<bracket>" "[" source "${source}")
  string(REPLACE "<closing>" "]" source "${source}")
  file(WRITE ${WORK}/readme_${number}.cpp "${source}")
  math(EXPR number "${number} + 1")
endforeach()
compile_by_pkg_config(${WORK}/readme_0.cpp ${WORK}/readme_0 ${prefix} polarline)
run_for(told ${WORK}/readme_0 ${WORK}/set)
if(NOT told MATCHES "dy_means 0\\.[0-9]+ pixels")
  message(FATAL_ERROR "the README's first program: ${told}")
endif()
compile_by_pkg_config(${WORK}/readme_1.cpp ${WORK}/readme_1 ${prefix} PolarLinePrecision)
# The same by the lines for CMake beside it.
string(REGEX MATCH "```cmake\n([^`]*)```" found "${page}")
file(WRITE ${WORK}/your_tool/CMakeLists.txt
     "cmake_minimum_required(VERSION 3.16)\nproject(your_tool CXX)\nset(CMAKE_CXX_STANDARD 17)\nadd_executable(your_tool ../readme_1.cpp)\n${CMAKE_MATCH_1}")
build_consumer(${WORK}/your_tool ${WORK}/your_tool/build ${prefix})
run_for(told_by_cmake ${WORK}/your_tool/build/your_tool ${WORK}/set/polar.txt ${WORK}/set/target.ini ${WORK}/set/calib.json ${WORK}/set/list.txt)
run_for(told ${WORK}/readme_1 ${WORK}/set/polar.txt ${WORK}/set/target.ini ${WORK}/set/calib.json ${WORK}/set/list.txt)
string(REGEX MATCHALL "mean [|]dy[|] [^\n]*" figures "${told}")
string(REGEX MATCHALL "mean [|]dy[|] [^\n]*" figures_by_cmake "${told_by_cmake}")  # The rest has times.
if(NOT told MATCHES "mean [|]dy[|] 0\\.[0-9]+ px, largest 0\\.[0-9]+ px.*mean [|]dy[|]" OR NOT figures_by_cmake STREQUAL figures)
  message(FATAL_ERROR "the README's second program: ${told}\nby its lines for CMake: ${told_by_cmake}")
endif()
