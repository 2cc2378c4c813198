# Every public header compiles by itself as C++17, without a warning.
file(GLOB_RECURSE headers RELATIVE ${INCLUDE} ${INCLUDE}/*.h)
list(LENGTH headers count)
if(count LESS 10)
  message(FATAL_ERROR "only ${headers}")
endif()
list(TRANSFORM SYSTEM_INCLUDES PREPEND -isystem)
foreach(header IN LISTS headers)
  execute_process(
    COMMAND ${COMPILER} -std=c++17 -fsyntax-only -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -I${INCLUDE} ${SYSTEM_INCLUDES}
            -x c++ -include ${header} /dev/null
    ERROR_VARIABLE said RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${header} by itself:\n${said}")
  endif()
endforeach()
