# What every target of the project has in common. Kept out of the global scope so
# that a parent project's own targets are left alone.
function(vellomark_common_options target)
  target_compile_features(${target} PRIVATE cxx_std_20)
  set_target_properties(
    ${target}
    PROPERTIES CXX_EXTENSIONS OFF
               CXX_VISIBILITY_PRESET hidden
               VISIBILITY_INLINES_HIDDEN ON
               POSITION_INDEPENDENT_CODE ON)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  if(VELLOMARK_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# vellomark_add_program(<name> <file>...)
#
# Makes the target vellomark_<name>, whose program is called <name>. All targets carry the prefix,
# so that a parent project is free to use any other name.
function(vellomark_add_program name)
  add_executable(vellomark_${name} ${ARGN})
  vellomark_common_options(vellomark_${name})
  set_target_properties(vellomark_${name} PROPERTIES OUTPUT_NAME ${name})
endfunction()

# vellomark_check_target_names(<folder>): stops unless all targets made in the folder and below it
# carry the prefix.
function(vellomark_check_target_names folder)
  get_property(targets DIRECTORY "${folder}" PROPERTY BUILDSYSTEM_TARGETS)
  list(FILTER targets EXCLUDE REGEX "^vellomark(_|$)")
  if(targets)
    message(FATAL_ERROR "Targets without the prefix vellomark_ in ${folder}: ${targets}")
  endif()
  get_property(subfolders DIRECTORY "${folder}" PROPERTY SUBDIRECTORIES)
  foreach(subfolder IN LISTS subfolders)
    vellomark_check_target_names("${subfolder}")
  endforeach()
endfunction()
