# SPDX-License-Identifier: GPL-3.0-or-later

# Debian's, and not one that stands before it in the PATH: a stand-in may take longer than the script.
set(Python3_ROOT_DIR /usr)
find_package(Python3 3.10 REQUIRED COMPONENTS Interpreter)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/remembered)
set(remembered_py ${CMAKE_CURRENT_LIST_DIR}/remembered.py)
set(as_root ${CMAKE_CURRENT_LIST_DIR}/as_root)

# add_remembered_test(NAME COMMAND...) : ./test does not repeat it while nothing that it depends on changed.
function(add_remembered_test name)
    add_test(NAME ${name} COMMAND Python3::Interpreter ${remembered_py}
                                  ${PROJECT_BINARY_DIR}/remembered/${name} ${ARGN}
    )
endfunction()

# Builds the test programs of the layers; `ctest -L unit` runs them.
add_custom_target(unit_tests)

# A test program of one layer: add_layer_test(stats.distributions SOURCES ... LIBRARIES stats).
# With GUI its main() makes a QApplication, or is that of MAIN; without, only a plain one, of a layer that
# may be WITHOUT_QT. The sources are compiled as one, but for those APART, whose local names are those of
# another. GoogleTest's macros take the optimiser half the build, so it is left out but where a test
# computes much itself: OPTIMISED. What a test gives away or mounts it may only AS_ROOT.
function(add_layer_test name)
    cmake_parse_arguments(arg "GUI;WITHOUT_QT;OPTIMISED;AS_ROOT" "MAIN;TIMEOUT" "SOURCES;APART;LIBRARIES" ${ARGN})
    string(REPLACE "." "_" target test_${name})
    add_executable(${target} ${arg_SOURCES} ${arg_APART})
    # GoogleTest and Qt's headers are read once per program instead of once per source.
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
    # Joined, the sources are headers to gcc, where a fixture in an anonymous namespace is a mistake.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
    set_source_files_properties(${arg_APART} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_compile_definitions(
        ${target} PRIVATE CL_SOURCE_DIR="${PROJECT_SOURCE_DIR}" CL_BINARY_DIR="${PROJECT_BINARY_DIR}"
    )
    target_link_libraries(${target} PRIVATE project_options ${arg_LIBRARIES} GTest::gtest)
    if(NOT arg_OPTIMISED)
        target_compile_options(${target} PRIVATE -O0)
    endif()
    if(arg_GUI)
        if(NOT arg_MAIN)
            set(arg_MAIN ${PROJECT_SOURCE_DIR}/tests/support/gui_main.cpp)
        endif()
        target_sources(${target} PRIVATE ${arg_MAIN})
        target_link_libraries(${target} PRIVATE Qt6::Widgets Qt6::Test)
        if(TARGET window_test_headers)
            target_precompile_headers(${target} REUSE_FROM window_test_headers)
        endif()
    else()
        target_link_libraries(${target} PRIVATE GTest::gtest_main)
        if(TARGET core_test_headers AND NOT arg_WITHOUT_QT AND NOT arg_OPTIMISED)
            target_precompile_headers(${target} REUSE_FROM core_test_headers)
        endif()
    endif()
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    set(launcher)
    if(arg_AS_ROOT)
        set(launcher ${as_root})
    endif()
    add_remembered_test(${name} ${launcher} $<TARGET_FILE:${target}>)
    set_tests_properties(
        ${name} PROPERTIES LABELS unit TIMEOUT ${arg_TIMEOUT}
                           ENVIRONMENT "QT_QPA_PLATFORM=offscreen"
    )
    add_dependencies(unit_tests ${target})
endfunction()
