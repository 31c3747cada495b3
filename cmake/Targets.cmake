# Settings that all of the project's targets share.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported()
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

# A program finds its libraries in the library folder beside its own folder or there, and the engine
# the result reader beside itself; LD_LIBRARY_PATH comes first.
if(NOT WIN32)
    set(CMAKE_BUILD_WITH_INSTALL_RPATH ON)
    # Where they mostly are comes first: each other place costs failed opens.
    set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN/../lib;$ORIGIN")
    list(REMOVE_DUPLICATES CMAKE_INSTALL_RPATH)
endif()

# With mingw-w64, what is built needs nothing beside Windows: the compiler's runtime is linked in.
# With Visual Studio, texts cross the boundary between modules, and all must share one runtime.
if(MINGW)
    add_link_options(-static)
endif()
set(CMAKE_MSVC_RUNTIME_LIBRARY MultiThreaded$<$<CONFIG:Debug>:Debug>DLL)

# Visual Studio writes what debuggers need of a release into files of their own (PDB).
if(MSVC)
    if(NOT DEFINED CMAKE_MSVC_DEBUG_INFORMATION_FORMAT)
        set(CMAKE_MSVC_DEBUG_INFORMATION_FORMAT Embedded)
    endif()
    add_link_options(/DEBUG $<$<NOT:$<CONFIG:Debug>>:/OPT:REF,ICF>)
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

# Protects what is shipped. Some compilers have these on by default; they are named all the same.
# mingw-w64 has no guard of indirect calls or jumps, and its stack is probed on Windows anyway.
set(zorbi2_is_optimized $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
function(zorbi2_harden target)
    if(MSVC)
        target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:/GS /guard:cf>)
        target_link_options(${target} PRIVATE /DYNAMICBASE /HIGHENTROPYVA /NXCOMPAT /GUARD:CF
                            $<${zorbi2_is_optimized}:/CETCOMPAT>)
        return()
    endif()
    set(protections -fstack-protector-strong
                    $<${zorbi2_is_optimized}:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
    if(MINGW)
        target_link_options(${target} PRIVATE -fstack-protector-strong
                            LINKER:--dynamicbase,--high-entropy-va,--nxcompat)
    else()
        list(APPEND protections -fstack-clash-protection
             $<$<STREQUAL:${CMAKE_SYSTEM_PROCESSOR},x86_64>:-fcf-protection>)
        list(APPEND protections -fno-plt)
        target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now,-z,noexecstack)
    endif()
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:${protections}>)
endfunction()

# Hosts on Windows: records differ between debug and release builds of Visual Studio, so what is
# built of them has names of its own, and both can be installed.
function(zorbi2_name_by_configuration target)
    if(MSVC)
        set_target_properties(${target} PROPERTIES DEBUG_POSTFIX d)
    endif()
endfunction()

function(zorbi2_install_debug_information target)
    if(MSVC)
        install(FILES $<TARGET_PDB_FILE:${target}> DESTINATION ${CMAKE_INSTALL_BINDIR}
                COMPONENT debug-information)
    endif()
endfunction()

function(zorbi2_count_lines target)
    if(ZORBI2_COVERAGE)
        # Not those of other libraries' headers, whose counts make each run of a program longer.
        target_compile_options(${target} PRIVATE --coverage -fprofile-abs-path -fprofile-update=atomic
                               -fprofile-exclude-files=/usr/.*|.*/host-libraries/.*)
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
        set(ZORBI2_FILE_NAME $<TARGET_FILE_NAME:${target}>)
        set(ZORBI2_FILE_DESCRIPTION ${description})
        set(description_file ${PROJECT_BINARY_DIR}/${target}.rc.in)
        set(resource ${PROJECT_BINARY_DIR}/$<CONFIG>/${target}.rc)
        configure_file(${PROJECT_SOURCE_DIR}/cmake/version.rc.in ${description_file} @ONLY)
        file(GENERATE OUTPUT ${resource} INPUT ${description_file} TARGET ${target})
        target_sources(${target} PRIVATE ${resource})
        set_target_properties(${target} PROPERTIES PREFIX "")
    endif()
endfunction()
