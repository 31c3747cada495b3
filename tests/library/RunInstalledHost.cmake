# Installs the library, builds a host project against nothing but the installed files, lets it make
# the whole pass on the example project, and compares the control file byte by byte.
#
# Set by the caller: BUILD_FOLDER (of the library), CONFIGURATION, HOST_FOLDER (the host project),
# HOST_OPTIONS (for its configuration), EXAMPLE (the example project), EXPECTED (its control file),
# WORK_FOLDER, EMULATOR (or empty), WINDOWS (on or off).

cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGV} OUTPUT_VARIABLE output ERROR_VARIABLE output
                    RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGV}\n${output}\n${result}")
    endif()
endfunction()

set(installed ${WORK_FOLDER}/installed)
set(build ${WORK_FOLDER}/build)
set(desk ${WORK_FOLDER}/desk)  # where the host works
file(REMOVE_RECURSE ${WORK_FOLDER})

set(install ${CMAKE_COMMAND} --install ${BUILD_FOLDER} --config ${CONFIGURATION}
            --prefix ${installed})
run(${install})
file(GLOB_RECURSE readers ${installed}/*QuentaResultEngine*)
if(readers)
    message(FATAL_ERROR "the stand-in of the result reader was not asked for: ${readers}")
endif()
foreach(completion IN ITEMS bash-completion/completions/zorbi2 zsh/site-functions/_zorbi2
                            fish/vendor_completions.d/zorbi2.fish)
    if(NOT EXISTS ${installed}/share/${completion})
        message(FATAL_ERROR "not installed: share/${completion}")
    endif()
endforeach()
run(${CMAKE_COMMAND} -S ${HOST_FOLDER} -B ${build}
    -D CMAKE_PREFIX_PATH=${installed} -D CMAKE_BUILD_TYPE=${CONFIGURATION}
    -D CMAKE_RUNTIME_OUTPUT_DIRECTORY=$<1:${desk}> ${HOST_OPTIONS})
run(${CMAKE_COMMAND} --build ${build} --config ${CONFIGURATION})
run(${install} --component reader-standin)

file(COPY ${EXAMPLE}/ DESTINATION ${desk}/project)
cmake_path(GET HOST_FOLDER FILENAME program)
if(WINDOWS)  # with the libraries beside it
    string(APPEND program .exe)
    file(GLOB libraries ${installed}/bin/*.dll)
    file(COPY ${libraries} DESTINATION ${desk})
endif()
run(${CMAKE_COMMAND} -E chdir ${desk} ${EMULATOR} ${desk}/${program} project\\Run02 .)

# As bytes, two digits each; on Windows a line ends in CR LF.
file(READ ${EXPECTED} expected HEX)
if(WINDOWS)
    string(REGEX REPLACE "(..)" "\\1 " expected ${expected})
    string(REPLACE "0a " "0d0a" expected ${expected})
    string(REPLACE " " "" expected ${expected})
endif()
file(READ ${desk}/Cover02.cmi written HEX)
if(NOT written STREQUAL expected)
    file(READ ${desk}/Cover02.cmi text)
    message(FATAL_ERROR "the control file is not ${EXPECTED}:\n${text}")
endif()
string(LENGTH ${written} digits)
math(EXPR bytes "${digits} / 2")
message("${bytes} bytes, as expected")
