# 64-bit Windows from Linux: not what ships, but what runs under Wine where the kernel starts no 32-bit
# programs.
set(mingw_target x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-i686.cmake)
