# What a host project gets: libraries, headers in include/zorbi2, and a CMake package.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(
    TARGETS ZorbI2Engine QuentaResultEngine
    EXPORT ZorbI2Engine
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    FILE_SET host_headers DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zorbi2
    FILE_SET getter_headers DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zorbi2)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ZorbI2Engine)
install(EXPORT ZorbI2Engine FILE ZorbI2EngineConfig.cmake DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZorbI2EngineConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ZorbI2EngineConfigVersion.cmake DESTINATION ${package_dir})

set(CPACK_PACKAGE_VENDOR "ZorbI2Engine maintainers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Hand-over of moulding results to structural solvers")
include(CPack)
