# Has clang-tidy read each source of the targets that follow before it is compiled; the build remembers
# what has passed.
set(CMAKE_CXX_CLANG_TIDY clang-tidy --quiet)
# What is read is not linked.
set(CMAKE_CXX_LINK_EXECUTABLE "${CMAKE_COMMAND} -E touch <TARGET>")
set(CMAKE_CXX_CREATE_SHARED_LIBRARY ${CMAKE_CXX_LINK_EXECUTABLE})
if(WIN32)
  # No sanitizer and no fuzzer runs what touches Windows, so the analyser reads it.
  set(checks
    clang-analyzer-*
    -misc-misplaced-const # a constant handle is what is meant
    -performance-no-int-to-ptr # messages carry pointers in integers
    -readability-implicit-bool-conversion # BOOL
    -readability-inconsistent-declaration-parameter-name # WinMain's are the platform's
    -readability-make-member-function-const # a handle may be constant, what it stands for changes
    -readability-non-const-parameter # WinMain's again
    -readability-named-parameter # the platform's callbacks have more than each needs
    -readability-use-anyofallof) # a loop that clicks what it finds asks for nothing
  list(JOIN checks "," checks)
  list(APPEND CMAKE_CXX_CLANG_TIDY --checks=${checks})
else()
  set_target_properties(decisions PROPERTIES CXX_CLANG_TIDY "${CMAKE_CXX_CLANG_TIDY}")
endif()
