# Compares the export table of a library with a committed list and shows the difference.
#
#     cmake -D LIBRARY=... -D LIST=... -D NM=... -P CheckExports.cmake         ELF
#     cmake -D LIBRARY=... -D LIST=... -D OBJDUMP=... -P CheckExports.cmake    Windows DLL

cmake_minimum_required(VERSION 3.25)

if(DEFINED NM)
    execute_process(COMMAND ${NM} -D --defined-only --format=posix ${LIBRARY}
                    OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCHALL "[^\n]+" rows "${table}")
    list(TRANSFORM rows REPLACE " .*" "")
else()
    execute_process(COMMAND ${OBJDUMP} -p ${LIBRARY}
                    OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCH "\n\\[Ordinal/Name Pointer\\] Table[^\n]*\n(\t[^\n]*\n)*" table "${headers}")
    string(REPLACE "[" "(" table "${table}")  # brackets would join the elements of a CMake list
    string(REPLACE "]" ")" table "${table}")
    string(REGEX MATCHALL "\n\t[^\n]+" rows "${table}")
    list(TRANSFORM rows REPLACE ".* " "")
endif()

file(STRINGS ${LIST} expected)
set(missing ${expected})
set(unexpected ${rows})
list(REMOVE_ITEM missing ${rows})
list(REMOVE_ITEM unexpected ${expected})

foreach(name IN LISTS missing)
    message("missing:    ${name}")
endforeach()
foreach(name IN LISTS unexpected)
    message("unexpected: ${name}")
endforeach()
if(missing OR unexpected)
    message(FATAL_ERROR "${LIBRARY} exports something else than ${LIST} says")
endif()

list(LENGTH rows count)
message("${count} exported names, as listed")
if(count EQUAL 0)
    message(FATAL_ERROR "no export table was found")
endif()
