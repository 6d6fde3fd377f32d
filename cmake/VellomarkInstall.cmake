# Headers, library, CMake package and pkg-config file.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/vellomark")

install(
  TARGETS vellomark vellomark_zov_utils
  EXPORT vellomark_targets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(
  DIRECTORY "${PROJECT_SOURCE_DIR}/include/vellomark"
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
  FILES_MATCHING
  PATTERN "*.h")
install(FILES ${VELLOMARK_ZOV_UTILS_HEADERS} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/zov_utils")

install(
  EXPORT vellomark_targets
  NAMESPACE vellomark::
  DESTINATION "${package_dir}")
configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/vellomark-config.cmake.in"
  "${PROJECT_BINARY_DIR}/vellomark-config.cmake" INSTALL_DESTINATION "${package_dir}")
# Before 1.0 a new minor version may break hosts.
write_basic_package_version_file("${PROJECT_BINARY_DIR}/vellomark-config-version.cmake"
                                 COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/vellomark-config.cmake"
              "${PROJECT_BINARY_DIR}/vellomark-config-version.cmake" DESTINATION "${package_dir}")

# The prefix in the pkg-config file is relative to the file, so that an installed
# tree may be moved and `cmake --install --prefix` works.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY
           "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" OUTPUT_VARIABLE prefix_from_pc)
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_LIBDIR BASE_DIRECTORY "\${prefix}" OUTPUT_VARIABLE pc_libdir)
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_INCLUDEDIR BASE_DIRECTORY "\${prefix}" OUTPUT_VARIABLE
           pc_includedir)
set(pc_cflags "-I\${includedir}")
if(VELLOMARK_ZOV_UTILS_DIR)
  string(PREPEND pc_cflags "-I${VELLOMARK_ZOV_UTILS_DIR} ")
endif()
foreach(dir IN LISTS Boost_INCLUDE_DIRS)
  if(NOT dir IN_LIST CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES)
    string(APPEND pc_cflags " -I${dir}")
  endif()
endforeach()
set(pc_libs "-L\${libdir} -lvellomark")
if(VELLOMARK_ZOV_UTILS_LIBRARY)
  string(APPEND pc_libs " ${VELLOMARK_ZOV_UTILS_LIBRARY}")
endif()
configure_file("${CMAKE_CURRENT_LIST_DIR}/vellomark.pc.in" "${PROJECT_BINARY_DIR}/vellomark.pc"
               @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/vellomark.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
