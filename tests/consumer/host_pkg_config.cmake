# Builds the host with one plain compiler call, told by pkg-config, and runs it.
include("${CMAKE_CURRENT_LIST_DIR}/common.cmake")

find_program(pkg_config NAMES pkg-config pkgconf)
if(NOT pkg_config)
  message("consumer test skipped: there is no pkg-config on this machine")
  return()
endif()
execute_process(
  COMMAND "${CMAKE_COMMAND}" -E env "PKG_CONFIG_PATH=${prefix}/${libdir}/pkgconfig" "${pkg_config}"
          --cflags --libs vellomark
  OUTPUT_VARIABLE told
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(told UNIX_COMMAND "${told}")
separate_arguments(flags UNIX_COMMAND "${flags}")

set(host_dir "${work_dir}/pkg_config")
file(REMOVE_RECURSE "${host_dir}")
file(MAKE_DIRECTORY "${host_dir}")
run("${compiler}"
    -std=c++11
    -pedantic-errors
    ${flags}
    "${source_dir}/host/main.cpp"
    -o
    "${host_dir}/host"
    ${told}
    "-Wl,-rpath,${prefix}/${libdir}")
run_host("${host_dir}/host" "${host_dir}/pages")
