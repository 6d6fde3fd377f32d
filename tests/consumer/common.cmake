# What the scripts of this folder share.

# run(<command>...): runs a command. If it fails, ends the script with its output.
function(run)
  execute_process(
    COMMAND ${ARGN}
    RESULT_VARIABLE result
    OUTPUT_VARIABLE output
    ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "This command failed (${result}):\n${command}\n${output}")
  endif()
endfunction()

# require_file(<path>): ends the script unless the file is there.
function(require_file path)
  if(NOT EXISTS "${path}")
    message(FATAL_ERROR "${path} is missing")
  endif()
endfunction()

# run_host(<program> <folder>): runs a host, which saves its page into a fresh folder.
function(run_host program folder)
  file(REMOVE_RECURSE "${folder}")
  file(MAKE_DIRECTORY "${folder}")
  run("${program}" "${folder}")
endfunction()
