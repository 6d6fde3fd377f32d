# Runs the README's first program in an empty folder and checks the start of its page.
include("${CMAKE_CURRENT_LIST_DIR}/common.cmake")

set(folder "${work_dir}/first_report_pages")
file(REMOVE_RECURSE "${folder}")
file(MAKE_DIRECTORY "${folder}")
execute_process(COMMAND "${program}" WORKING_DIRECTORY "${folder}" COMMAND_ERROR_IS_FATAL ANY)
require_file("${folder}/Vellomark/harvest.htm")
file(READ "${folder}/Vellomark/harvest.htm" start LIMIT 4 HEX)
if(NOT start STREQUAL "fffe3c00")
  message(FATAL_ERROR "The page starts with ${start}")
endif()
