# Runs a command and checks its exit status and standard error (script mode).
#   COMMAND_LINE  the command, a ;-list
#   ENVIRONMENT   NAME=VALUE settings for the command, a ;-list (optional)
#   EXPECTED_EXIT the exit status it must end with
#   ERROR_REGEX   what its standard error must match (optional)
execute_process(COMMAND ${CMAKE_COMMAND} -E env ${ENVIRONMENT} ${COMMAND_LINE} OUTPUT_VARIABLE output
                ERROR_VARIABLE errors RESULT_VARIABLE status)
if(NOT status STREQUAL EXPECTED_EXIT)
  message(FATAL_ERROR "${COMMAND_LINE} exited ${status}, expected ${EXPECTED_EXIT}\n${errors}")
endif()
if(DEFINED ERROR_REGEX AND NOT errors MATCHES "${ERROR_REGEX}")
  message(FATAL_ERROR "standard error of ${COMMAND_LINE} does not match ${ERROR_REGEX}:\n${errors}")
endif()
