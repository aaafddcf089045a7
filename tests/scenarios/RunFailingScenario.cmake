# Runs a scenario that must fail and checks how: the script's "#> exit N" line gives the exit code
# and each "#> output TEXT" line a text the output must contain.
# cmake -DCLI=<corvane-cli> -DSCRIPT=<file.scn> -P RunFailingScenario.cmake
execute_process(COMMAND ${CLI} script ${SCRIPT}
    RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE err)
file(STRINGS ${SCRIPT} expectations REGEX "^#> ")
set(wanted_code "")
foreach(line IN LISTS expectations)
    if(line MATCHES "^#> exit ([0-9]+)$")
        set(wanted_code ${CMAKE_MATCH_1})
    elseif(line MATCHES "^#> output (.*)$")
        string(FIND "${out}" "${CMAKE_MATCH_1}" at)
        if(at EQUAL -1)
            message(FATAL_ERROR "Output lacks: ${CMAKE_MATCH_1}\n--- output:\n${out}${err}")
        endif()
    endif()
endforeach()
if(wanted_code STREQUAL "")
    message(FATAL_ERROR "${SCRIPT} has no '#> exit N' line")
endif()
if(NOT code STREQUAL wanted_code)
    message(FATAL_ERROR "Exit code ${code}, wanted ${wanted_code}\n--- output:\n${out}${err}")
endif()
message(STATUS "${out}")
