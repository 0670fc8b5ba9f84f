# add_windows_test(NAME COMMAND target argument... [FIXTURES name...] [ENVIRONMENT name=value...])
#
# Elsewhere than on Windows the test runs under Wine, once in a 64-bit and once in a 32-bit prefix,
# each a fresh copy that no other test sees; 64-bit programs run in one that has nothing of 32 bits. On
# Windows one test at a time has the desktop and the registry.
set(WINDOWS_TEST_PROPERTIES LABELS wine)
if(CMAKE_HOST_WIN32)
  set(WINDOWS_TEST_PREFIXES native)
  set(WINDOWS_TEST_PROPERTIES RESOURCE_LOCK desktop)
elseif(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(WINDOWS_TEST_PREFIXES x64)
else()
  set(WINDOWS_TEST_PREFIXES win64 win32)
endif()

function(add_windows_test name)
  cmake_parse_arguments(PARSE_ARGV 1 test "" "" "COMMAND;FIXTURES;ENVIRONMENT")
  list(POP_FRONT test_COMMAND program)
  foreach(prefix IN LISTS WINDOWS_TEST_PREFIXES)
    if(NOT CMAKE_HOST_WIN32)
      set(launcher ${PROJECT_SOURCE_DIR}/scripts/prefix.sh run ${prefix})
    endif()
    add_test(NAME ${name}.${prefix} COMMAND ${launcher} $<TARGET_FILE:${program}> ${test_COMMAND})
    set_tests_properties(${name}.${prefix} PROPERTIES
      TIMEOUT 300 ${WINDOWS_TEST_PROPERTIES}
      FIXTURES_REQUIRED "${test_FIXTURES}" ENVIRONMENT "${test_ENVIRONMENT}")
  endforeach()
endfunction()
