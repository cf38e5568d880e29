# SPDX-License-Identifier: GPL-3.0-or-later

# cmake -P compare.cmake PROGRAM PROGRAM... : runs every one, and fails unless all of them print the same
# bytes.
set(programs)
foreach(place RANGE 3 ${CMAKE_ARGC}) # after cmake, -P and this script
    if(place LESS CMAKE_ARGC)
        list(APPEND programs "${CMAKE_ARGV${place}}")
    endif()
endforeach()
list(LENGTH programs count)
if(count LESS 2)
    message(FATAL_ERROR "nothing to compare: ${programs}")
endif()

list(GET programs 0 reference)
foreach(program IN LISTS programs)
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
