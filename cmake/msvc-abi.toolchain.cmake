# Compiles for Microsoft's ABI with Debian's Clang and linker, to see that the sources compile there
# and what the libraries export. Headers are mingw-w64's, for there are no others at hand: what is
# linked has no runtime and does not run.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# Clang's Debian packages keep its face for Visual Studio in a folder of their own.
file(GLOB clang_folders /usr/lib/llvm-*/bin)
find_program(CMAKE_CXX_COMPILER clang-cl HINTS ${clang_folders} REQUIRED)
cmake_path(GET CMAKE_CXX_COMPILER PARENT_PATH clang_folder)
set(CMAKE_AR ${clang_folder}/llvm-lib)
set(CMAKE_LINKER ${clang_folder}/lld-link)
set(CMAKE_RC_COMPILER ${clang_folder}/llvm-rc)
set(CMAKE_MT ${clang_folder}/llvm-mt)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE NEVER)

file(GLOB libstdcxx /usr/lib/gcc/x86_64-w64-mingw32/*-posix/include/c++)
string(JOIN " " CMAKE_CXX_FLAGS_INIT
       # Clang must claim to be GCC for GCC's library and mingw's headers, and has their macros.
       --target=x86_64-pc-windows-msvc19.29 /clang:-fgnuc-version=12 /X
       "/imsvc ${libstdcxx}" "/imsvc ${libstdcxx}/x86_64-w64-mingw32"
       "/imsvc /usr/x86_64-w64-mingw32/include"
       -D__MINGW32__ -D__MINGW64__ -D__MSVCRT__ -D__STRICT_ANSI__ -D__declspec=__declspec
       # Local statics would need a thread-local variable of the runtime.
       /Zc:threadSafeInit-
       # Texts are then named as Microsoft's library names them.
       -D_GLIBCXX_USE_CXX11_ABI=0)

# Nothing is there to link with. The linker's tables for control-flow guard need every function, and
# the last option counts.
set(CMAKE_CXX_STANDARD_LIBRARIES "/GUARD:NO")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "/NODEFAULTLIB /FORCE:UNRESOLVED /NOENTRY")
set(CMAKE_EXE_LINKER_FLAGS_INIT "/NODEFAULTLIB /FORCE:UNRESOLVED /ENTRY:main")
