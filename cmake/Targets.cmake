# Settings that all of the project's targets share.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

# The system that is built for: sources that differ by system end in this word.
if(WIN32)
    set(ZORBI2_SYSTEM Windows)
else()
    set(ZORBI2_SYSTEM Posix)
endif()

# The engine is found beside the program or in the library folder beside the program's, and the
# result reader beside the engine; LD_LIBRARY_PATH comes first.
if(NOT WIN32)
    set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
    set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/../lib")
endif()

# What is built for Windows needs nothing beside Windows: the compiler's runtime is linked in.
# Visual Studio's linker has the protections on by default; they are named for it all the same.
if(MINGW)
    add_link_options(-static LINKER:--dynamicbase,--high-entropy-va,--nxcompat)
elseif(MSVC)
    add_link_options(LINKER:/DYNAMICBASE LINKER:/HIGHENTROPYVA LINKER:/NXCOMPAT)
endif()

function(zorbi2_settings target)
    if(MSVC)
        target_compile_options(${target}
                               PRIVATE $<$<COMPILE_LANGUAGE:CXX>:/W4 /permissive- /utf-8>)
        target_compile_definitions(${target} PRIVATE _CRT_SECURE_NO_WARNINGS NOMINMAX)
    else()
        target_compile_options(
            ${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow
                              -Wconversion -Wno-sign-conversion>)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
            # Finds overlaps in optimized string concatenations where there are none.
            target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
        endif()
    endif()
    set_target_properties(${target} PROPERTIES COMPILE_WARNING_AS_ERROR
                                               ${ZORBI2_WARNINGS_AS_ERRORS})
endfunction()

function(zorbi2_count_lines target)
    if(ZORBI2_COVERAGE)
        target_compile_options(${target} PRIVATE --coverage -fprofile-abs-path)
        target_link_options(${target} PUBLIC --coverage)
    endif()
endfunction()

# On Windows the export declaration decides alone; ELF would also show the standard library's
# templates.
function(zorbi2_export_only_the_face target)
    if(NOT WIN32)
        set(script ${PROJECT_SOURCE_DIR}/cmake/exports.map)
        target_link_options(${target} PRIVATE LINKER:--version-script=${script})
        set_target_properties(${target} PROPERTIES LINK_DEPENDS ${script})
    endif()
endfunction()

# Gives a library the name and the version resource that hosts on Windows find it by.
function(zorbi2_windows_identity target description)
    if(WIN32)
        set(ZORBI2_FILE_NAME ${target}.dll)
        set(ZORBI2_FILE_DESCRIPTION ${description})
        set(resource ${PROJECT_BINARY_DIR}/${target}.rc)
        configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${resource} @ONLY)
        target_sources(${target} PRIVATE ${resource})
        set_target_properties(${target} PROPERTIES PREFIX "")
    endif()
endfunction()
