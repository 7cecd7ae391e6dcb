# Runs one golden case of rixsax and compares its standard output and exit
# status with the recorded ones (script mode).
#   RIXSAX     path of the rixsax executable
#   CASE_LINE  the case's line of tests/golden/cases.txt: NAME EXIT ARGUMENTS...
#              ("< FILE" among the arguments feeds FILE to the standard input)
#   GOLDEN_DIR directory of the recorded outputs
#   OUTPUT_DIR where a differing output is left for inspection
separate_arguments(words UNIX_COMMAND "${CASE_LINE}")
list(POP_FRONT words name expected_exit)

set(arguments)
set(input_file)
set(take_input FALSE)
foreach(word IN LISTS words)
  if(take_input)
    set(input_file "${word}")
    set(take_input FALSE)
  elseif(word STREQUAL "<")
    set(take_input TRUE)
  else()
    list(APPEND arguments "${word}")
  endif()
endforeach()

set(input_option)
if(input_file)
  set(input_option INPUT_FILE "${input_file}")
endif()
execute_process(COMMAND "${RIXSAX}" ${arguments} ${input_option}
                OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)

set(golden "${GOLDEN_DIR}/${name}")
if(NOT EXISTS "${golden}")
  message(FATAL_ERROR "no recorded output ${golden}: run scripts/update-golden.sh")
endif()
file(READ "${golden}" expected)
if(NOT status STREQUAL expected_exit)
  message(FATAL_ERROR "rixsax ${arguments} exited ${status}, expected ${expected_exit}\n${errors}")
endif()
if(NOT output STREQUAL expected)
  file(MAKE_DIRECTORY "${OUTPUT_DIR}")
  file(WRITE "${OUTPUT_DIR}/${name}" "${output}")
  execute_process(COMMAND diff -u "${golden}" "${OUTPUT_DIR}/${name}")
  message(FATAL_ERROR "output of rixsax ${arguments} differs from ${golden} (actual: ${OUTPUT_DIR}/${name})")
endif()
