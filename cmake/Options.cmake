# Compile options of everything that is ours. Figures must repeat on every machine, so no contraction of products and sums into fused
# operations and no option that lets the compiler reorder arithmetic.
add_library(plp_options INTERFACE)
target_compile_features(plp_options INTERFACE cxx_std_20)
if(MSVC)
  target_compile_options(plp_options INTERFACE /W4 /WX /fp:precise /utf-8)
else()
  target_compile_options(plp_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror -ffp-contract=off)
  if(NOT PLP_SANITIZE)  # The sanitizers watch the same accesses, and only where no checked form replaces them.
    target_compile_options(plp_options INTERFACE
      $<$<CONFIG:Release,RelWithDebInfo>:-fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
  endif()
  target_link_options(plp_options INTERFACE -Wl,-z,relro -Wl,-z,now)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 loses the rounding of a pair of doubles that is narrowed to float and widened again (both lanes of one vector): the figures need it.
  target_compile_options(plp_options INTERFACE -fno-tree-slp-vectorize)
endif()
if(PLP_SANITIZE)
  target_compile_options(plp_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(plp_options INTERFACE -fsanitize=address,undefined)
endif()

# For tests and for programs that only call others: their own code need not be fast, and optimising it is much of the build.
add_library(plp_unoptimised INTERFACE)
target_link_libraries(plp_unoptimised INTERFACE plp_options)
if(NOT MSVC)
  target_compile_options(plp_unoptimised INTERFACE $<$<OR:$<CONFIG:Release>,$<BOOL:${PLP_SANITIZE}>>:-O0>)
endif()
