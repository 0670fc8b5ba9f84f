# 32-bit Windows from Linux with clang, on GCC's libraries, which it does not look for where Debian
# has them.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-i686.cmake)
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-libgcc-file-name
  OUTPUT_VARIABLE gcc_libraries OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET gcc_libraries PARENT_PATH gcc_libraries)
set(gcc_headers ${gcc_libraries}/include/c++)

set(CMAKE_C_COMPILER clang)
set(CMAKE_C_COMPILER_TARGET ${mingw_target})
set(CMAKE_CXX_COMPILER clang++)
set(CMAKE_CXX_COMPILER_TARGET ${mingw_target})
string(JOIN " " CMAKE_CXX_FLAGS_INIT
  --start-no-unused-arguments -nostdinc++ -nostdlibinc --end-no-unused-arguments
  -isystem ${gcc_headers} -isystem ${gcc_headers}/${mingw_target}
  -idirafter /usr/${mingw_target}/include)
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-B${gcc_libraries} -L${gcc_libraries}")
endforeach()
