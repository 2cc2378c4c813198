# Installs the build into a folder of its own, then builds and runs a small program against it: once by the CMake package, once by pkg-config.
file(REMOVE_RECURSE ${WORK})
function(run)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE said ERROR_VARIABLE said RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\n${said}")
  endif()
endfunction()
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
# Without a name CMake would take a generator whose program need not be installed.
run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/build -G ${GENERATOR} -DCMAKE_MAKE_PROGRAM=${MAKE_PROGRAM}
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_PREFIX_PATH=${WORK}/prefix -DCMAKE_CXX_COMPILER=${COMPILER})
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${WORK}/build/consumer)

set(ENV{PKG_CONFIG_PATH} ${WORK}/prefix/${LIBDIR}/pkgconfig)
execute_process(COMMAND pkg-config --cflags --libs PolarLinePrecision OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
run(${COMPILER} -std=c++17 ${SOURCE}/main.cpp -o ${WORK}/consumer ${flags} -Wl,-rpath,${WORK}/prefix/${LIBDIR})
run(${WORK}/consumer)
