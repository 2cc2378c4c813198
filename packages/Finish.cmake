# Run by cpack between installing and packing: brings what is installed into the form that Debian wants. The same files give the same bytes.
cmake_minimum_required(VERSION 3.25)
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})  # cpack, in whose process this runs, gives all files that time.
  execute_process(COMMAND git -C ${CPACK_PLP_SOURCE} log -1 --format=%ct OUTPUT_VARIABLE time OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  set(ENV{SOURCE_DATE_EPOCH} ${time})
endif()
set(here ${CMAKE_CURRENT_LIST_DIR})

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(compress)
  run(gzip -9n ${ARGN})
endfunction()

# What every package has: whose work it is, that of others in it, and what changed.
function(document root package compiled_in)
  set(folder ${root}/share/doc/${package})
  file(MAKE_DIRECTORY ${folder})
  run(${CPACK_PLP_PYTHON} -B ${here}/copyright.py ${CPACK_PLP_SOURCE}/report ${folder}/copyright)
  foreach(other IN LISTS compiled_in)
    file(MAKE_DIRECTORY ${folder}/compiled_in)
    file(COPY_FILE /usr/share/doc/${other}/copyright ${folder}/compiled_in/${other})
  endforeach()
  string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)  # Of SOURCE_DATE_EPOCH.
  file(WRITE ${folder}/changelog.Debian "${CPACK_PACKAGE_NAME} (${CPACK_PLP_VERSION}) bookworm; urgency=medium\n\n\
  * Packages of version ${CPACK_PACKAGE_VERSION}; changelog.gz tells what changed.\n\n\
 -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
  file(COPY_FILE ${CPACK_PLP_SOURCE}/CHANGELOG.md ${folder}/changelog)
  compress(${folder}/changelog.Debian ${folder}/changelog)
  if(EXISTS ${here}/overrides/${package})
    file(MAKE_DIRECTORY ${root}/share/lintian/overrides)
    file(COPY_FILE ${here}/overrides/${package} ${root}/share/lintian/overrides/${package})
  endif()
endfunction()

function(finish_development root)
  run(${CPACK_PLP_STRIP} --strip-debug --enable-deterministic-archives ${root}/${CPACK_PLP_LIBDIR}/libpolarline.a)
  file(COPY ${CPACK_PLP_SOURCE}/examples/ DESTINATION ${root}/share/doc/libpolarlineprecision-dev/examples NO_SOURCE_PERMISSIONS
       FILES_MATCHING PATTERN "check.cpp" PATTERN "row_disparity.cpp" PATTERN "fleet" EXCLUDE)
endfunction()

function(finish_polarline root)
  file(COPY ${CPACK_PLP_SOURCE}/examples/fleet DESTINATION ${root}/share/doc/polarline/examples NO_SOURCE_PERMISSIONS)
  file(GLOB pages ${root}/share/man/man1/*.1)
  compress(${pages})
  file(RENAME ${root}/share/zsh/site-functions ${root}/share/zsh/vendor-completions)  # site-functions is the administrator's.
endfunction()

function(finish_python root)
  file(COPY ${CPACK_PLP_SOURCE}/python/examples/ DESTINATION ${root}/share/doc/python3-polarline/examples
       NO_SOURCE_PERMISSIONS FILES_MATCHING PATTERN "*.py" PATTERN "__pycache__" EXCLUDE)
endfunction()

function(finish_documentation root)
  if(CPACK_PLP_SITE)  # Here the site joins.
    file(COPY ${CPACK_PLP_SITE}/ DESTINATION ${root}/share/doc/polarline-doc/html NO_SOURCE_PERMISSIONS)
  endif()
endfunction()

function(finish_library root)
endfunction()

while(CPACK_PLP_PACKAGES)
  list(POP_FRONT CPACK_PLP_PACKAGES group package)
  set(root ${CPACK_TEMPORARY_DIRECTORY}/${group}/usr)
  document(${root} ${package} "${CPACK_PLP_COMPILED_INTO_${group}}")
  cmake_language(CALL finish_${group} ${root})
endwhile()
