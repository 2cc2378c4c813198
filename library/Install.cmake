# What `cmake --install` puts in place of libpolarline, beside the headers: both libraries, and what CMake and pkg-config ask.
install(TARGETS polarline EXPORT PolarLinePrecisionTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(TARGETS polarline_static EXPORT PolarLinePrecisionStaticTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
# Apart from the others, as it refers to packages that users of the shared libraries need not have.
install(EXPORT PolarLinePrecisionStaticTargets NAMESPACE PolarLinePrecision::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/PolarLinePrecision COMPONENT development)

set(PLP_STATIC_FINDS "")        # Lines of the CMake package.
set(PLP_REQUIRES_PRIVATE "")    # Packages of pkg-config.
set(PLP_LIBS_PRIVATE "")        # Flags where there is no package.
foreach(library IN LISTS outside)
  plp_names_of(${library} found_by package)
  list(APPEND PLP_STATIC_FINDS "plp_find_outside(${found_by})")
  if(package MATCHES "^-")
    list(APPEND PLP_LIBS_PRIVATE ${package})
  else()
    list(APPEND PLP_REQUIRES_PRIVATE ${package})
  endif()
endforeach()
list(REMOVE_DUPLICATES PLP_STATIC_FINDS)
list(REMOVE_DUPLICATES PLP_REQUIRES_PRIVATE)
list(JOIN PLP_STATIC_FINDS "\n" PLP_STATIC_FINDS)
list(JOIN PLP_REQUIRES_PRIVATE ", " PLP_REQUIRES_PRIVATE)
list(JOIN PLP_LIBS_PRIVATE " " PLP_LIBS_PRIVATE)
set(PLP_STATIC_FINDS "${PLP_STATIC_FINDS}" PARENT_SCOPE)

file(RELATIVE_PATH PLP_PREFIX_FROM_PKGCONFIG /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(polarline.pc.in ${PROJECT_BINARY_DIR}/polarline.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/polarline.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
