# Installs the build into a folder of its own, then builds and runs a small program against it: once by the CMake package, once by pkg-config.
include(${CMAKE_CURRENT_LIST_DIR}/Installed.cmake)
file(REMOVE_RECURSE ${WORK})
install_into(${WORK}/prefix)
build_consumer(${SOURCE} ${WORK}/build ${WORK}/prefix)
run(${WORK}/build/consumer)
compile_by_pkg_config(${SOURCE}/main.cpp ${WORK}/consumer ${WORK}/prefix PolarLinePrecision)
run(${WORK}/consumer)
