# For the checks of what is installed.
cmake_minimum_required(VERSION 3.25)

# Runs a command that must succeed.
function(run)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE said ERROR_VARIABLE said RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}\n${said}")
  endif()
endfunction()

# Runs a command that must succeed; `result` is what it puts on its standard output.
function(run_for result)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE said OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(${result} "${said}" PARENT_SCOPE)
endfunction()

# Installs the build `BUILD` into the empty folder `prefix`.
function(install_into prefix)
  file(REMOVE_RECURSE ${prefix})
  run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
endfunction()

# Builds the project `source` in `build` against what is installed in `prefix`.
function(build_consumer source build prefix)
  # Without a name CMake would take a generator whose program need not be installed.
  run(${CMAKE_COMMAND} -S ${source} -B ${build} -G ${GENERATOR} -DCMAKE_MAKE_PROGRAM=${MAKE_PROGRAM}
      -DCMAKE_BUILD_TYPE=Release -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${COMPILER})
  run(${CMAKE_COMMAND} --build ${build})
endfunction()

# Compiles one source with the flags that pkg-config tells; the other arguments are those of pkg-config.
function(compile_by_pkg_config source program prefix)
  set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
  run_for(flags pkg-config --cflags --libs ${ARGN})
  if(--static IN_LIST ARGN)  # Both libraries lie in one folder, where the linker would take the shared one.
    string(REPLACE "-lpolarline" "-l:libpolarline.a" flags "${flags}")
  endif()
  separate_arguments(flags UNIX_COMMAND "${flags}")
  run(${COMPILER} -std=c++17 ${source} -o ${program} ${flags} -Wl,-rpath,${prefix}/${LIBDIR})
endfunction()
