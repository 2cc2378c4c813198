# Every link of the documents holds where they are installed, too: what they lead to comes along.
include(${CMAKE_CURRENT_LIST_DIR}/Installed.cmake)
file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --component documentation --prefix ${WORK})
run(${PYTHON3} -B ${PROJECT}/scripts/check_links ${WORK}/${DOCDIR})

file(GLOB_RECURSE pages RELATIVE ${WORK}/${DOCDIR} ${WORK}/${DOCDIR}/*.md)
file(GLOB_RECURSE written RELATIVE ${PROJECT} ${PROJECT}/docs/*.md)
list(FILTER written EXCLUDE REGEX "^docs/site/")  # Which is about making the site.
foreach(page IN LISTS written)
  if(NOT page IN_LIST pages)
    message(FATAL_ERROR "${page} is not installed")
  endif()
endforeach()
