# Compares the exported symbols of the shared library with the kept list. A new symbol is a promise
# to every compiled host, and a removed one breaks them. Either is a decision: change
# exported_symbols.txt and tell packagers in CHANGELOG.md.
include("${CMAKE_CURRENT_LIST_DIR}/common.cmake")

execute_process(
  COMMAND "${nm}" -DC --defined-only "${library}"
  OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" lines "${output}")
list(TRANSFORM lines REPLACE "^[0-9a-fA-F]+ [A-Za-z] " "")
list(SORT lines)
list(REMOVE_DUPLICATES lines)

file(STRINGS "${source_dir}/exported_symbols.txt" kept)
list(SORT kept)
if(NOT lines STREQUAL kept)
  list(JOIN lines "\n" lines)
  list(JOIN kept "\n" kept)
  message(FATAL_ERROR "The library exports:\n${lines}\n\nThe kept list is:\n${kept}")
endif()
