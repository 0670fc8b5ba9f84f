# 32-bit Windows from Linux with clang, on GCC's libraries, which it does not look for where Debian
# has them.
execute_process(COMMAND i686-w64-mingw32-g++-posix -print-libgcc-file-name
  OUTPUT_VARIABLE gcc_libraries OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET gcc_libraries PARENT_PATH gcc_libraries)
set(gcc_headers ${gcc_libraries}/include/c++)

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86)
set(CMAKE_C_COMPILER clang)
set(CMAKE_C_COMPILER_TARGET i686-w64-mingw32)
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET i686-w64-mingw32)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)
string(JOIN " " CMAKE_CXX_FLAGS_INIT
  --start-no-unused-arguments -nostdinc++ -nostdlibinc --end-no-unused-arguments
  -isystem ${gcc_headers} -isystem ${gcc_headers}/i686-w64-mingw32
  -idirafter /usr/i686-w64-mingw32/include)
set(link_flags "-B${gcc_libraries} -L${gcc_libraries}")
set(CMAKE_EXE_LINKER_FLAGS_INIT ${link_flags})
set(CMAKE_SHARED_LINKER_FLAGS_INIT ${link_flags})
set(CMAKE_MODULE_LINKER_FLAGS_INIT ${link_flags})
set(CMAKE_FIND_ROOT_PATH /usr/i686-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
