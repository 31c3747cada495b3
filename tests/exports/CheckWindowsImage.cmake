# Checks what the headers of a Windows program or DLL promise the loader: the protections that it
# is built for, and that it needs no other DLL than the allowed ones.
#
#     cmake -D IMAGE=... -D ALLOWED_DLLS="KERNEL32.dll;..." -D OBJDUMP=... -P CheckWindowsImage.cmake

cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${OBJDUMP} -p ${IMAGE}
                OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)

foreach(protection IN ITEMS DYNAMIC_BASE HIGH_ENTROPY_VA NX_COMPAT)
    if(NOT headers MATCHES "\n[\t ]+${protection}\n")
        message(SEND_ERROR "${IMAGE} is built without ${protection}")
    endif()
endforeach()

string(REGEX MATCHALL "DLL Name: [^\n]+" dlls "${headers}")
list(TRANSFORM dlls REPLACE "DLL Name: " "")
message("needs ${dlls}")
if(NOT dlls)
    message(SEND_ERROR "no import table was found")
endif()
foreach(dll IN LISTS dlls)
    if(NOT dll IN_LIST ALLOWED_DLLS)
        message(SEND_ERROR "${IMAGE} needs ${dll}")
    endif()
endforeach()
