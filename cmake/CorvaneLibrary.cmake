# One floor of the house: a static library whose headers are found as "<Floor>/<File>.h" by those that
# link it and by nobody else. Each floor has an include root of its own, holding one link to its folder,
# so that code which reaches for a floor it does not link fails to compile.
function(corvane_floor name)
    cmake_parse_arguments(floor "" "" "SOURCES;LINKS" ${ARGN})
    set(root ${CMAKE_BINARY_DIR}/floors/${name})
    file(MAKE_DIRECTORY ${root})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)

    add_library(Corvane${name} STATIC ${floor_SOURCES})
    target_include_directories(Corvane${name} PUBLIC ${root} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(Corvane${name} PUBLIC ${floor_LINKS} PRIVATE CorvaneWarnings)
endfunction()

# What every target of ours is compiled with; linked privately, so that it binds nobody else.
add_library(CorvaneWarnings INTERFACE)
target_compile_options(CorvaneWarnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(CorvaneWarnings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)

# The floor's QML module, Corvane.<Floor>, in the floor's own library. A program that shows it links
# Corvane<Floor>plugin and imports that plugin. QML is compiled ahead of time; what Qt generates for that is
# not held to our warnings.
function(corvane_qml_module name)
    cmake_parse_arguments(module "" "" "QML_FILES;DEPENDENCIES" ${ARGN})
    qt_add_qml_module(Corvane${name}
        URI Corvane.${name}
        VERSION 1.0
        RESOURCE_PREFIX /qt/qml
        OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/qml/Corvane/${name}
        IMPORT_PATH ${CMAKE_BINARY_DIR}/qml
        DEPENDENCIES QtQuick ${module_DEPENDENCIES}
        QML_FILES ${module_QML_FILES})
    get_target_property(generated Corvane${name} SOURCES)
    list(FILTER generated INCLUDE REGEX "qmlcache|qmltyperegistrations")
    set_source_files_properties(${generated} PROPERTIES COMPILE_OPTIONS -w)
endfunction()
