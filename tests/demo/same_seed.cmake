# Two drives with one seed print the same, one with another seed does not.
foreach(drive first again other)
  set(seed 5)
  if(drive STREQUAL other)
    set(seed 6)
  endif()
  execute_process(
    COMMAND ${DEMO} --headless --laps 1 --seed ${seed}
    OUTPUT_VARIABLE ${drive} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
if(NOT first STREQUAL again)
  message(FATAL_ERROR "seed 5 drove differently:\n${first}${again}")
endif()
if(first STREQUAL other)
  message(FATAL_ERROR "seeds 5 and 6 drove alike:\n${first}")
endif()
