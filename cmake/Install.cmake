# What goes to a user's machine, in components:
#   runtime         the engine's library and zorbi2
#   development     headers, static and import libraries, CMake package, pkg-config files
#   documents       manuals, man pages, completions, the JSON schema of recipes
#   reader-standin  only when asked for by name: it must never overwrite the suite's own reader

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ZorbI2Engine)

# ---- Runtime and development ------------------------------------------------------------------

install(
    TARGETS ZorbI2Engine
    EXPORT ZorbI2Engine
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
    FILE_SET HEADERS COMPONENT development)
install(TARGETS zorbi2_core EXPORT ZorbI2Engine ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
                                                        COMPONENT development)
install(
    TARGETS QuentaResultEngine
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT reader-standin EXCLUDE_FROM_ALL
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT reader-standin EXCLUDE_FROM_ALL
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT reader-standin EXCLUDE_FROM_ALL)
zorbi2_install_debug_information(ZorbI2Engine)
if(ZORBI2_HOST)
    install(TARGETS zorbi2 RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
    zorbi2_install_debug_information(zorbi2)
endif()

# The two halves of the runtime, which Debian's packages ship apart.
if(NOT WIN32)
    install(TARGETS ZorbI2Engine LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT library
                                         NAMELINK_SKIP EXCLUDE_FROM_ALL)
    if(ZORBI2_HOST)
        install(TARGETS zorbi2 RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool
                                       EXCLUDE_FROM_ALL)
    endif()
endif()

# ---- CMake package and pkg-config -------------------------------------------------------------

install(
    EXPORT ZorbI2Engine
    NAMESPACE ZorbI2Engine::
    FILE ZorbI2EngineTargets.cmake
    DESTINATION ${package_dir}
    COMPONENT development)
configure_package_config_file(
    cmake/ZorbI2EngineConfig.cmake.in ${PROJECT_BINARY_DIR}/ZorbI2EngineConfig.cmake
    INSTALL_DESTINATION ${package_dir}
    PATH_VARS CMAKE_INSTALL_LIBDIR
    NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZorbI2EngineConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(
    FILES ${PROJECT_BINARY_DIR}/ZorbI2EngineConfig.cmake
          ${PROJECT_BINARY_DIR}/ZorbI2EngineConfigVersion.cmake
    DESTINATION ${package_dir}
    COMPONENT development)

file(RELATIVE_PATH pkgconfig_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
if(NOT WIN32)
    set(pkgconfig_link_options -Wl,--allow-shlib-undefined)  # as for the CMake target
endif()
if(MINGW)
    set(pkgconfig_static_libraries -l:libssp.a)
endif()
foreach(name IN ITEMS zorbi2engine zorbi2engine-static)
    configure_file(cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
                                                   COMPONENT development)
endforeach()

# ---- Documents --------------------------------------------------------------------------------

install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documents)
install(
    DIRECTORY docs
    DESTINATION ${CMAKE_INSTALL_DOCDIR}
    COMPONENT documents
    FILES_MATCHING
    PATTERN *.md
    PATTERN *.svg
    PATTERN *.png
    PATTERN man EXCLUDE
    PATTERN site EXCLUDE)
# One page for the program, and one for each command.
install(
    DIRECTORY docs/man/
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
    COMPONENT documents
    FILES_MATCHING
    PATTERN *.1)
install(FILES docs/recipe.schema.json DESTINATION ${CMAKE_INSTALL_DATADIR}/zorbi2
                                      COMPONENT documents)
install(
    FILES host/completion/zorbi2.bash
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
    RENAME zorbi2
    COMPONENT documents)
install(FILES host/completion/_zorbi2 DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions
                                      COMPONENT documents)
install(FILES host/completion/zorbi2.fish
        DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT documents)
