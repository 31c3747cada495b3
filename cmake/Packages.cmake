# What cpack makes of the components: Debian packages, and archives of the whole tree. The result
# reader is a package and an archive of its own, because the suite brings another.

set(CPACK_PACKAGE_VENDOR "ZorbI2Engine maintainers")
set(CPACK_PACKAGE_CONTACT "ZorbI2Engine maintainers <maintainers@zorbi2engine.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/PackagesOfGenerator.cmake)

# ---- Archives: everything in one, but for the reader ------------------------------------------

string(TOLOWER "${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}" system)
set(CPACK_PACKAGE_FILE_NAME zorbi2engine-${PROJECT_VERSION}-${system})
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_ARCHIVE_ENGINE_FILE_NAME ${CPACK_PACKAGE_FILE_NAME})
set(CPACK_ARCHIVE_READER-STANDIN_FILE_NAME ${CPACK_PACKAGE_FILE_NAME}-reader-standin)
foreach(component IN ITEMS RUNTIME DEVELOPMENT DOCUMENTS)
    set(CPACK_COMPONENT_${component}_GROUP engine)
endforeach()

# ---- Debian packages: one for each component --------------------------------------------------

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Packages with libraries ask for the loader's cache to be made anew.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_DEBIAN_READER-STANDIN_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)

set(library libzorbi2engine${PROJECT_VERSION_MAJOR})
set(same_library "${library} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
# The suite's own package, if it has one, may provide this name. Nothing depends on it: the suite's
# reader may be a file that no package brought.
set(reader quenta-result-engine)

function(zorbi2_debian_package component name section)
    set(fields DEPENDS RECOMMENDS PROVIDES ARCHITECTURE)
    cmake_parse_arguments(PARSE_ARGV 3 arg "" "TEXT;${fields}" "")
    string(TOUPPER ${component} component)
    set(prefix CPACK_DEBIAN_${component})
    set(${prefix}_PACKAGE_NAME ${name} PARENT_SCOPE)
    set(${prefix}_PACKAGE_SECTION ${section} PARENT_SCOPE)
    set(${prefix}_DESCRIPTION "${arg_TEXT}" PARENT_SCOPE)
    foreach(field IN LISTS fields)
        set(${prefix}_PACKAGE_${field} ${arg_${field}} PARENT_SCOPE)
    endforeach()
endfunction()

zorbi2_debian_package(
    library ${library} libs
    RECOMMENDS ${reader}
    TEXT "The library ZorbI2Engine finds out which results of an injection-molding
simulation can be handed over to a structural solver, and writes the control
parameter file of the hand-over. It does not load without the suite's result
reader or the stand-in for it.")
zorbi2_debian_package(
    development libzorbi2engine-dev libdevel
    DEPENDS ${same_library}
    RECOMMENDS ${reader}
    TEXT "C++11 headers, the library to link in, a CMake package and pkg-config files
of ZorbI2Engine. What is linked with the static library needs the result
reader at hand.")
zorbi2_debian_package(
    tool zorbi2 science
    RECOMMENDS "${reader}, zorbi2-doc"
    TEXT "zorbi2 writes the control parameter files of ZorbI2Engine from recipes,
without the desktop application: on the command line, in scripts and in
jobs. The engine comes with it; it does not start without the suite's result
reader or the stand-in for it.")
zorbi2_debian_package(
    documents zorbi2-doc doc
    ARCHITECTURE all
    TEXT "Manuals of ZorbI2Engine and zorbi2, man pages, completions for bash, zsh and
fish, and the JSON schema of recipes.")
zorbi2_debian_package(
    reader-standin zorbi2-reader-standin libs
    PROVIDES ${reader}
    TEXT "ZorbI2Engine reads the version of fiber results with the suite's own result
reader. This is a stand-in for work without the suite. Where the suite's
reader is installed in /usr/local/lib, that one is used.")

include(CPack)
