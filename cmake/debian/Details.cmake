# What Debian wants otherwise than a tree that can be moved, done to each package's files before
# they are packed.

set(root ${CMAKE_CURRENT_LIST_DIR}/../..)
file(READ ${root}/LICENSE license)
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)  # SOURCE_DATE_EPOCH, if that is set
set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})

function(run)
    execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(add_copyright_and_changelog usr package)
    set(folder ${usr}/share/doc/${package})
    file(WRITE ${folder}/copyright "${license}")
    file(WRITE ${folder}/changelog.Debian
         "${package} (${version}) unstable; urgency=medium\n\n"
         "  * Release ${CPACK_PACKAGE_VERSION}; CHANGELOG.md in zorbi2-doc says what is new.\n\n"
         " -- ${CPACK_PACKAGE_CONTACT}  ${date}\n")
    run(gzip -9n ${folder}/changelog.Debian)
endfunction()

# The loader's own order holds: a reader in /usr/local/lib is found before the stand-in.
function(forget_search_paths usr)
    file(GLOB files ${usr}/bin/* ${usr}/lib/*.so*)
    foreach(file IN LISTS files)
        if(NOT IS_SYMLINK ${file})
            file(RPATH_REMOVE FILE ${file})
        endif()
    endforeach()
endfunction()

function(strip_static_libraries usr)
    file(GLOB libraries ${usr}/lib/*.a)
    foreach(library IN LISTS libraries)
        run(strip --strip-debug --enable-deterministic-archives ${library})
    endforeach()
endfunction()

function(compress_man_pages usr)
    file(GLOB pages ${usr}/share/man/man*/*)
    foreach(page IN LISTS pages)
        run(gzip -9n ${page})
    endforeach()
endfunction()

foreach(component IN LISTS CPACK_COMPONENTS_ALL)
    string(TOUPPER ${component} name)
    set(package ${CPACK_DEBIAN_${name}_PACKAGE_NAME})
    set(usr ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)
    add_copyright_and_changelog(${usr} ${package})
    forget_search_paths(${usr})
    strip_static_libraries(${usr})
    compress_man_pages(${usr})
endforeach()
