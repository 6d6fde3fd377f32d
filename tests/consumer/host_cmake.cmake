# Builds and runs the host as a CMake project, by find_package or by add_subdirectory.
include("${CMAKE_CURRENT_LIST_DIR}/common.cmake")

if(way STREQUAL "add_subdirectory")
  if(flags)
    message("consumer test skipped: it builds the library anew, which the plain builds do")
    return()
  endif()
  set(place "-DVELLOMARK_SOURCE=${project_dir}" "-DVELLOMARK_ZOV_UTILS_DIR=${zov_utils_dir}"
            "-DVELLOMARK_ZOV_UTILS_LIBRARY=${zov_utils_library}")
else()
  set(place "-DCMAKE_PREFIX_PATH=${prefix}")
endif()

set(host_dir "${work_dir}/${way}")
run("${CMAKE_COMMAND}"
    -S "${source_dir}/host"
    -B "${host_dir}"
    -G "${generator}"
    "-DCMAKE_MAKE_PROGRAM=${make_program}"
    "-DCMAKE_CXX_COMPILER=${compiler}"
    "-DCMAKE_CXX_FLAGS=${flags}"
    ${place})
run("${CMAKE_COMMAND}" --build "${host_dir}")
run_host("${host_dir}/host" "${host_dir}/pages")
