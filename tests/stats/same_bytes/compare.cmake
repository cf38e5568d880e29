# SPDX-License-Identifier: GPL-3.0-or-later

# Runs every one of PROGRAMS and fails unless all of them print the same bytes.
list(GET PROGRAMS 0 reference)
foreach(program IN LISTS PROGRAMS)
    execute_process(COMMAND ${program} OUTPUT_FILE ${program}.txt RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${program} ended with ${result}")
    endif()
    file(SIZE ${program}.txt size)
    if(size EQUAL 0)
        message(FATAL_ERROR "${program} printed nothing")
    endif()
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E compare_files ${reference}.txt ${program}.txt
        RESULT_VARIABLE different
    )
    if(different)
        execute_process(COMMAND diff ${reference}.txt ${program}.txt OUTPUT_VARIABLE difference)
        string(SUBSTRING "${difference}" 0 2000 difference)
        message(FATAL_ERROR "${program} prints other bytes than ${reference}:\n${difference}")
    endif()
    message(STATUS "${program}: ${size} bytes")
endforeach()
