# Installs the library, builds the host project against nothing but the installed files, lets it
# make the whole pass on a run folder, and compares the file that it writes byte by byte.
#
# Set by the caller: BUILD_FOLDER (of the library), CONFIGURATION, SOURCE_FOLDER (this folder),
# WORK_FOLDER, HOST_OPTIONS (for the host's configuration), EMULATOR (or empty), WINDOWS (on or off).

cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGV} OUTPUT_VARIABLE output ERROR_VARIABLE output
                    RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGV}\n${output}\n${result}")
    endif()
endfunction()

set(installed ${WORK_FOLDER}/installed)
set(host ${WORK_FOLDER}/host)
set(desk ${WORK_FOLDER}/desk)  # where the host works
file(REMOVE_RECURSE ${WORK_FOLDER})

run(${CMAKE_COMMAND} --install ${BUILD_FOLDER} --config ${CONFIGURATION} --prefix ${installed})
run(${CMAKE_COMMAND} -S ${SOURCE_FOLDER}/installed_host -B ${host}
    -D CMAKE_PREFIX_PATH=${installed} -D CMAKE_BUILD_TYPE=${CONFIGURATION}
    -D CMAKE_RUNTIME_OUTPUT_DIRECTORY=$<1:${desk}> ${HOST_OPTIONS})
run(${CMAKE_COMMAND} --build ${host} --config ${CONFIGURATION})

# The run folder: every result that the choices need, and an earlier shot's for the part insert.
foreach(name IN ITEMS Cover03.o2w Cover03.rsf Cover03.k5w Cover03.k5f Cover03.k5p Cover03.k5c
                      Cover03_medi.crp)
    file(WRITE ${desk}/Projects/Cover/Run03/${name} "")
endforeach()
file(WRITE ${desk}/Projects/Cover/Run03/Cover03.cmx
     "<SOLID_MCM>\nFlagPrevShot = 1\nValueShotRunID = 2\n</SOLID_MCM>\n")
file(WRITE ${desk}/Projects/Cover/Run02/Cover02.k5o "")

# A host on Windows has the libraries beside it.
set(program ${desk}/installed_host)
if(WINDOWS)
    string(APPEND program .exe)
    file(GLOB libraries ${installed}/bin/*.dll)
    file(COPY ${libraries} DESTINATION ${desk})
endif()
run(${CMAKE_COMMAND} -E chdir ${desk} ${EMULATOR} ${program})

# As bytes, two digits each; on Windows a line ends in CR LF.
file(READ ${SOURCE_FOLDER}/ControlFile.golden expected HEX)
if(WINDOWS)
    string(REGEX REPLACE "(..)" "\\1 " expected ${expected})
    string(REPLACE "0a " "0d0a" expected ${expected})
    string(REPLACE " " "" expected ${expected})
endif()
file(READ ${desk}/Cover03.cmi written HEX)
if(NOT written STREQUAL expected)
    file(READ ${desk}/Cover03.cmi text)
    message(FATAL_ERROR "the control file differs from ControlFile.golden:\n${text}")
endif()
string(LENGTH ${written} digits)
math(EXPR bytes "${digits} / 2")
message("${bytes} bytes, as expected")
