# What the tests need of the machine.
file(REMOVE "${PROJECT_BINARY_DIR}/left-out.txt")

# tarnwick_missing(<what> <what there is not without it>)
#   Where a tool is missing: ends the configuration if nothing may be missing. Otherwise says what is left out, and notes
#   it for the line at the end of a run.
function(tarnwick_missing what without)
    if(TARNWICK_REQUIRE_TOOLS)
        message(FATAL_ERROR "No ${what}: ${without}")
    endif()
    message(STATUS "No ${what}: ${without}")
    file(APPEND "${PROJECT_BINARY_DIR}/left-out.txt" "no ${what}: ${without}\n")
endfunction()
