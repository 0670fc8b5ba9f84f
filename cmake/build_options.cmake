# The compiler and linker options of every target, as one interface library.
add_library(build_options INTERFACE)
target_include_directories(build_options INTERFACE ${PROJECT_SOURCE_DIR})

# Errors only where no warning is expected: a compiler that we have not tried may have new ones. While
# clang-tidy reads, its findings alone count.
set(compiler "${CMAKE_CXX_COMPILER_ID} ${CMAKE_CXX_COMPILER_VERSION}")
if(compiler MATCHES "^(GNU 1[2-4]|Clang 1[4-9]|MSVC 19)\\." AND NOT INSTALLER_LINT)
  set(no_warning_expected ON)
endif()
option(INSTALLER_WARNINGS_AS_ERRORS "Let no warning pass" ${no_warning_expected})

if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(build_options INTERFACE
    -Wall -Wextra -Wpedantic $<$<BOOL:${INSTALLER_WARNINGS_AS_ERRORS}>:-Werror>)
elseif(MSVC)
  # 4996: GetVersionExA, deprecated there, is what the program identifies Windows by.
  target_compile_options(build_options INTERFACE
    /W4 /wd4996 /utf-8 /permissive- $<$<BOOL:${INSTALLER_WARNINGS_AS_ERRORS}>:/WX>)
endif()

if(WIN32)
  # The oldest release that the program runs on is Windows XP.
  target_compile_definitions(build_options INTERFACE
    _WIN32_WINNT=0x0501 WINVER=0x0501 WIN32_LEAN_AND_MEAN NOMINMAX STRICT)
endif()

if(INSTALLER_CHECKED)
  target_compile_definitions(build_options INTERFACE _GLIBCXX_ASSERTIONS)
  target_compile_options(build_options INTERFACE
    -fsanitize=undefined -fsanitize-undefined-trap-on-error)
endif()
if(INSTALLER_SANITIZE)
  target_compile_options(build_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
    # The check of virtual calls asks for types at run time, which the program's code goes without.
    -fno-sanitize=vptr)
  target_link_options(build_options INTERFACE -fsanitize=address,undefined)
endif()
if(INSTALLER_FUZZERS)
  target_compile_options(build_options INTERFACE -fsanitize=fuzzer-no-link)
  target_compile_definitions(build_options INTERFACE _GLIBCXX_ASSERTIONS)
endif()

if(MINGW)
  target_compile_options(build_options INTERFACE
    -ffunction-sections -fstack-protector-strong)
  # -fstack-protector at the link names the library that checked code needs.
  target_link_options(build_options INTERFACE -static -fstack-protector-strong -Wl,--gc-sections)
endif()

# The program's own code neither throws nor asks for types at run time, and has one thread; tests
# may do all of it.
add_library(product_code_options INTERFACE)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(product_code_options INTERFACE
    -fno-exceptions -fno-rtti -fno-threadsafe-statics
    # Nothing unwinds; the tables for it would be a seventh of the program.
    $<$<PLATFORM_ID:Windows>:-fno-asynchronous-unwind-tables>)
  if(MINGW AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_SIZEOF_VOID_P EQUAL 4)
    # Windows keeps the stack at four bytes; nothing here needs more.
    target_compile_options(product_code_options INTERFACE -mpreferred-stack-boundary=2)
  endif()
elseif(MSVC)
  target_compile_options(product_code_options INTERFACE /Zc:threadSafeInit-)
endif()
