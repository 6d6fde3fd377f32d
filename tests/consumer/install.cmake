# Installs the built tree and checks the installed files.
include("${CMAKE_CURRENT_LIST_DIR}/common.cmake")

file(REMOVE_RECURSE "${prefix}")
run("${CMAKE_COMMAND}" --install "${build_dir}" --prefix "${prefix}")

foreach(
  file IN
  ITEMS ${includedir}/vellomark/vellomark.h
        ${includedir}/vellomark/export.h
        ${includedir}/vellomark/samples.h
        ${libdir}/libvellomark.so
        ${libdir}/libvellomark.so.0
        ${libdir}/cmake/vellomark/vellomark-config.cmake
        ${libdir}/cmake/vellomark/vellomark-config-version.cmake
        ${libdir}/pkgconfig/vellomark.pc)
  require_file("${prefix}/${file}")
endforeach()

# The closed library installs its own headers.
foreach(header IN ITEMS zov_utils/czov_string.h zov_utils/zov_shared_array.h)
  if(NOT zov_utils_dir OR NOT EXISTS "${zov_utils_dir}/${header}")
    require_file("${prefix}/${includedir}/${header}")
  endif()
endforeach()

# Nothing internal is installed: no static library, no header of another folder.
file(GLOB_RECURSE archives "${prefix}/*.a")
file(GLOB_RECURSE headers RELATIVE "${prefix}/${includedir}" "${prefix}/${includedir}/*")
list(FILTER headers EXCLUDE REGEX "^(vellomark|zov_utils)/[a-z_]+\\.h$")
if(archives OR headers)
  message(FATAL_ERROR "Installed, but not part of the interface: ${archives} ${headers}")
endif()
