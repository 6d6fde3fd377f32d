# Runs a host that saves its page at the end of the process. The host must succeed and the page must
# be complete.
include("${CMAKE_CURRENT_LIST_DIR}/common.cmake")

run_host("${program}" "${work_dir}/late_save_pages/${host}")
set(page "${work_dir}/late_save_pages/${host}/Vellomark/page.htm")
require_file("${page}")
file(READ "${page}" content HEX)
# The byte-order mark and "<" in UTF-16 little endian; "</html>", and a line feed or nothing.
if(NOT content MATCHES "^fffe3c00.*3c002f00680074006d006c003e00(0d00)?(0a00)?$")
  message(FATAL_ERROR "${page} isn't complete: ${content}")
endif()
