# Most of a compilation is the parsing of other people's headers, the same ones for nearly every file. With PLP_PCH they are parsed once for
# each set of compile options. A file must still include what it uses: the tidy build has no precompiled headers and stops where one does not.
option(PLP_PCH "Precompile the headers of others that nearly all files include" ON)

# Only headers in angle brackets, so that a precompiled header is the same in every clone. Never <iostream>, which adds code to every file;
# and none that few files need, as the larger the precompiled header, the longer each file takes to load it.
set(PLP_COMMON_HEADERS
    <algorithm> <array> <cmath> <cstddef> <cstdint> <filesystem> <functional> <limits> <map> <memory> <optional> <ostream> <span> <sstream>
    <stdexcept> <string> <utility> <vector>
    <opencv2/core.hpp> <opencv2/imgproc.hpp>)

# plp_precompile(TARGET header...)  Precompiles the headers for TARGET and for those that take them over with plp_precompile_as().
function(plp_precompile target)
  if(PLP_PCH)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# plp_precompile_as(TARGET OTHER)  Takes over the headers of OTHER, which must have the same compile options.
function(plp_precompile_as target other)
  if(PLP_PCH)
    target_precompile_headers(${target} REUSE_FROM ${other})
  endif()
endfunction()

# What the compiler cache needs to see that a precompiled header is one that it knows.
if(PLP_PCH AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  add_compile_options(-fpch-preprocess)
elseif(PLP_PCH AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
endif()
