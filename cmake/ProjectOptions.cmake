# SPDX-License-Identifier: GPL-3.0-or-later
# What every target of the project is compiled with, carried by one INTERFACE target.

option(CL_WARNINGS_AS_ERRORS "Stop the build at the first warning" OFF)
option(CL_SANITIZE "Address and undefined-behaviour sanitizers, checked standard library" OFF)
option(CL_COVERAGE "Count which lines and branches run (clang only)" OFF)

add_library(project_options INTERFACE)
target_compile_options(
    project_options
    INTERFACE
        -Wall
        -Wextra
        -Wpedantic
        # Sources that are compiled as one see each other's local names.
        $<$<NOT:$<BOOL:${CMAKE_UNITY_BUILD}>>:-Wshadow>
        -Wold-style-cast
        -Wnon-virtual-dtor
        -Woverloaded-virtual
        # A fused multiply-add rounds once where the source rounds twice: the same digits on every
        # machine need it off.
        -ffp-contract=off
)
target_compile_definitions(project_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
target_include_directories(project_options INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(CL_WARNINGS_AS_ERRORS)
    target_compile_options(project_options INTERFACE -Werror)
endif()

if(CL_SANITIZE)
    target_compile_options(
        project_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                  -fno-omit-frame-pointer
    )
    target_compile_definitions(project_options INTERFACE _GLIBCXX_ASSERTIONS)
    target_link_options(project_options INTERFACE -fsanitize=address,undefined)
endif()

# The tests too: an inline function of a layer that the linker takes from them must count as well.
if(CL_COVERAGE)
    target_compile_options(
        project_options INTERFACE -fprofile-instr-generate -fcoverage-mapping
    )
    target_link_options(project_options INTERFACE -fprofile-instr-generate)
endif()
