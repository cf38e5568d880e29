# SPDX-License-Identifier: GPL-3.0-or-later
# Qt's and GoogleTest's headers take the compiler longer than most sources: they are read once for the
# layers without windows, once for those with, and once for the tests of each. The release build does
# without, so that a source that lacks an include does not compile there.
option(CL_PRECOMPILED_HEADERS "Read the libraries' headers once" ON)

set(core_headers <QLocale> <QStringList> <algorithm> <cmath> <functional> <optional> <vector>)
set(window_headers ${core_headers} <QAction> <QApplication> <QBoxLayout> <QLabel> <QMenu> <QPainter>
                   <QTableView> <QTimer>
)

# add_precompiled_headers(NAME LIBRARIES ... HEADERS ... [OPTIONS ...])
function(add_precompiled_headers name)
    cmake_parse_arguments(arg "" "" "LIBRARIES;HEADERS;DEFINITIONS;OPTIONS" ${ARGN})
    file(CONFIGURE OUTPUT ${name}.cpp CONTENT "// Compiled for the headers before it.\n")
    add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    target_link_libraries(${name} PRIVATE project_options ${arg_LIBRARIES})
    target_compile_definitions(${name} PRIVATE ${arg_DEFINITIONS})
    target_compile_options(${name} PRIVATE ${arg_OPTIONS})
    target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()

# Of the tests: as tests/cmake/Tests.cmake compiles them.
function(add_test_headers)
    if(CL_PRECOMPILED_HEADERS)
        add_precompiled_headers(
            core_test_headers
            LIBRARIES Qt6::Core GTest::gtest
            HEADERS ${core_headers} <QFile> <gtest/gtest.h>
            OPTIONS -O0
        )
        add_precompiled_headers(
            window_test_headers
            LIBRARIES Qt6::Widgets GTest::gtest
            HEADERS ${window_headers} <gtest/gtest.h>
            OPTIONS -O0
        )
    endif()
endfunction()

# Lets every layer below the current folder read the headers that suit what it links.
function(use_precompiled_headers)
    if(NOT CL_PRECOMPILED_HEADERS)
        return()
    endif()
    add_precompiled_headers(core_headers LIBRARIES Qt6::Core HEADERS ${core_headers}
                            DEFINITIONS ${CL_LAYER_DEFINITIONS}
    )
    add_precompiled_headers(window_headers LIBRARIES Qt6::Widgets HEADERS ${window_headers}
                            DEFINITIONS ${CL_LAYER_DEFINITIONS}
    )
    get_property(layers GLOBAL PROPERTY CL_LAYERS)
    foreach(layer IN LISTS layers)
        get_target_property(libraries ${layer} LINK_LIBRARIES)
        if(Qt6::Widgets IN_LIST libraries)
            target_precompile_headers(${layer} REUSE_FROM window_headers)
        elseif(Qt6::Core IN_LIST libraries)
            target_precompile_headers(${layer} REUSE_FROM core_headers)
        endif()
    endforeach()
endfunction()
