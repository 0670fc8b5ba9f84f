# sources_of(PLAIN WINDOWS SUFFIX FOLDER...): the *SUFFIX.cpp of the folders. A file's name says where it
# belongs: what ends in "_win" touches Windows, everything else decides and is built natively too.
function(sources_of plain windows suffix)
  list(TRANSFORM ARGN APPEND "/*_win${suffix}.cpp" OUTPUT_VARIABLE windows_globs)
  list(TRANSFORM ARGN APPEND "/*${suffix}.cpp" OUTPUT_VARIABLE globs)
  file(GLOB windows_sources CONFIGURE_DEPENDS ${windows_globs})
  file(GLOB sources CONFIGURE_DEPENDS ${globs})
  list(REMOVE_ITEM sources ${windows_sources})
  set(${plain} ${sources} PARENT_SCOPE)
  set(${windows} ${windows_sources} PARENT_SCOPE)
endfunction()
