# Writes the defaults to OUT with calvix-cli (CLI) unless OUT exists.
if(NOT EXISTS "${OUT}")
  execute_process(COMMAND "${CLI}" settings --restore --write "${OUT}" RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "calvix-cli could not write ${OUT}")
  endif()
endif()
