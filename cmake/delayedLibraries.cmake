# Windows loads a library that a program names in its import table before the program runs, and looks beside the
# program first, except for those on its list of known ones. Libraries that are not on that list are loaded when
# they are first called instead, by which time app/librarySearch.cpp has confined the search.

# Makes build/<preset>/delayed/lib<name>.a, to be linked by its path: every function that mingw-w64's import library
# of NAME has, out of NAME.dll.
function (make_delayed_library name)
  set (folder ${CMAKE_BINARY_DIR}/delayed)
  set (definition ${folder}/${name}.def)
  set (library ${folder}/lib${name}.a)
  set (delayed_${name} ${library} PARENT_SCOPE)
  execute_process (COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=lib${name}.a
                   OUTPUT_VARIABLE import_library OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)

  if (${library} IS_NEWER_THAN ${CMAKE_CURRENT_FUNCTION_LIST_FILE} AND EXISTS ${library})
    return()
  endif()

  execute_process (COMMAND ${CMAKE_NM} --defined-only ${import_library}
                   OUTPUT_VARIABLE symbols ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
  string (REGEX MATCHALL " T [A-Za-z0-9_]+" functions "${symbols}")
  list (TRANSFORM functions REPLACE "^ T " "")
  list (REMOVE_DUPLICATES functions)
  list (SORT functions)
  list (JOIN functions "\n" functions)
  file (WRITE ${definition} "LIBRARY ${name}.dll\nEXPORTS\n${functions}\n")
  # The library's path becomes part of the names in it.
  execute_process (COMMAND ${CMAKE_DLLTOOL} --input-def ${definition} --output-delaylib lib${name}.a
                           --deterministic-libraries --temp-prefix delayed_${name}
                   WORKING_DIRECTORY ${folder} COMMAND_ERROR_IS_FATAL ANY)
endfunction()
