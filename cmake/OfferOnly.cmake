# plp_offer_only(TARGET MAP)  The shared library TARGET offers what the version script MAP names, and leaves nothing undefined.
function(plp_offer_only target map)
  if(MSVC)
    return()
  endif()
  target_link_options(${target} PRIVATE -Wl,--version-script=${map})
  if(NOT PLP_SANITIZE)  # The sanitizers' runtime comes with the program, not with the library.
    target_link_options(${target} PRIVATE -Wl,--no-undefined)
  endif()
  set_target_properties(${target} PROPERTIES LINK_DEPENDS ${map})
endfunction()
