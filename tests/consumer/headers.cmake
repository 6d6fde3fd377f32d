# Compiles every installed header alone, and twice in a row, as strict C++11.
include("${CMAKE_CURRENT_LIST_DIR}/common.cmake")

set(include_root "${prefix}/${includedir}")
set(include_options "-I${include_root}")
if(zov_utils_dir)
  list(PREPEND include_options "-I${zov_utils_dir}")
endif()
file(GLOB_RECURSE headers RELATIVE "${include_root}" "${include_root}/*.h")
if(NOT headers)
  message(FATAL_ERROR "No header is installed in ${include_root}")
endif()
set(source "${work_dir}/one_header.cpp")
foreach(header IN LISTS headers)
  file(WRITE "${source}" "#include <${header}>\n#include <${header}>\nint main() { return 0; }\n")
  run("${compiler}"
      -std=c++11
      -pedantic-errors
      -Wall
      -Wextra
      -Werror
      -fsyntax-only
      ${include_options}
      "${source}")
endforeach()
