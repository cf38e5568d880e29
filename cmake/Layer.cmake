# SPDX-License-Identifier: GPL-3.0-or-later

# A sum of texts is put together at once, in one piece of memory.
set(CL_LAYER_DEFINITIONS QT_USE_QSTRINGBUILDER)

# A layer, or a part of one, without Q_OBJECT classes: a static library with the project's options. Its
# sources are named by the caller; its link line says which layers it may know.
function(add_layer name)
    add_library(${name} STATIC ${ARGN})
    target_link_libraries(${name} PUBLIC project_options)
    set_property(GLOBAL APPEND PROPERTY CL_LAYERS ${name})
    target_compile_definitions(${name} PRIVATE ${CL_LAYER_DEFINITIONS})
endfunction()

# The same with Q_OBJECT classes.
function(add_qt_layer name)
    add_layer(${name} ${ARGN})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
endfunction()
