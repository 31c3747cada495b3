# What a host project gets: the library, headers in include/zorbi2, and a CMake package.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(
    TARGETS ZorbI2Engine
    EXPORT ZorbI2Engine
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    FILE_SET HEADERS)

# Only when asked for by this name: it must never overwrite the suite's own reader.
install(
    TARGETS QuentaResultEngine
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT reader-standin EXCLUDE_FROM_ALL
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT reader-standin EXCLUDE_FROM_ALL
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT reader-standin EXCLUDE_FROM_ALL)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ZorbI2Engine)
install(EXPORT ZorbI2Engine FILE ZorbI2EngineConfig.cmake DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZorbI2EngineConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ZorbI2EngineConfigVersion.cmake DESTINATION ${package_dir})

set(CPACK_PACKAGE_VENDOR "ZorbI2Engine maintainers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Hand-over of molding results to structural solvers")
include(CPack)
