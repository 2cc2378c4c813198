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
