# SPDX-License-Identifier: GPL-3.0-or-later

# cmake -P compare.cmake PROGRAM PROGRAM... : runs every one, and fails unless all of them print the same
# bytes.
set(first 3) # after cmake, -P and this script
math(EXPR last "${CMAKE_ARGC} - 1")
if(NOT last GREATER first)
    message(FATAL_ERROR "nothing to compare with ${CMAKE_ARGV${first}}")
endif()

set(reference ${CMAKE_ARGV${first}})
foreach(place RANGE ${first} ${last})
    set(program ${CMAKE_ARGV${place}})
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
