# Sanitizers and line counting. They are set for this folder and those below it, since
# every program that loads an instrumented library has to be instrumented alike.
set(VELLOMARK_INSTRUMENTATION "")
if(VELLOMARK_SANITIZE)
  list(JOIN VELLOMARK_SANITIZE "," sanitizers)
  list(APPEND VELLOMARK_INSTRUMENTATION -fsanitize=${sanitizers} -fno-sanitize-recover=all)
endif()
if(VELLOMARK_COVERAGE)
  list(APPEND VELLOMARK_INSTRUMENTATION --coverage)
endif()
add_compile_options(${VELLOMARK_INSTRUMENTATION})
add_link_options(${VELLOMARK_INSTRUMENTATION})
