# What `cmake --install` puts in place: the shared library, the public headers, the CMake package and the pkg-config file. The components are
# what the Debian packages are made of (packages/Packages.cmake).
install(TARGETS PolarLinePrecision EXPORT PolarLinePrecisionTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library NAMELINK_COMPONENT development
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT library
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development
        FILES_MATCHING PATTERN "*.h")

set(PLP_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/PolarLinePrecision)
install(EXPORT PolarLinePrecisionTargets NAMESPACE PolarLinePrecision:: DESTINATION ${PLP_CMAKE_DIR} COMPONENT development)
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/PolarLinePrecisionConfig.cmake.in
  ${PROJECT_BINARY_DIR}/PolarLinePrecisionConfig.cmake INSTALL_DESTINATION ${PLP_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/PolarLinePrecisionConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/PolarLinePrecisionConfig.cmake ${PROJECT_BINARY_DIR}/PolarLinePrecisionConfigVersion.cmake
        DESTINATION ${PLP_CMAKE_DIR} COMPONENT development)

# Relative, so that the package works wherever it is put.
file(RELATIVE_PATH PLP_PREFIX_FROM_PKGCONFIG /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/PolarLinePrecision.pc.in ${PROJECT_BINARY_DIR}/PolarLinePrecision.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/PolarLinePrecision.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# The pages that messages and manual pages name, and what they lead to, as it lies in the sources: so their links hold.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs ${PROJECT_SOURCE_DIR}/include DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation
        FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.svg" PATTERN "*.json" PATTERN "*.csv" PATTERN "*.h" PATTERN "docs/site" EXCLUDE)
foreach(file IN ITEMS README.md CONTRIBUTING.md SECURITY.md LICENSE examples/check.cpp examples/row_disparity.cpp
        python/examples/compare_calibrations.py python/examples/plot_residuals.py python/examples/sweep.py report/web/src/page_data.ts)
  cmake_path(GET file PARENT_PATH folder)
  install(FILES ${PROJECT_SOURCE_DIR}/${file} DESTINATION ${CMAKE_INSTALL_DOCDIR}/${folder} COMPONENT documentation)
endforeach()
