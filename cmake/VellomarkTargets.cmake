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
