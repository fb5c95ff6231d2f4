# One floor of the house, or one room of a floor: a static library whose headers are found as "<Floor>/<File>.h" or
# "<Floor>/<Room>/<File>.h" by those that link it and by nobody else. PRECOMPILED names its set of precompiled headers. Each has an include root of its own, holding one
# link to its folder, so that code which reaches for a library it does not link fails to compile.
function(corvane_library name)
    cmake_parse_arguments(library "" "PRECOMPILED" "SOURCES;LINKS" ${ARGN})
    string(REPLACE "/" "" target Corvane${name})
    set(root ${CMAKE_BINARY_DIR}/include/${target})
    cmake_path(GET name PARENT_PATH floor)
    file(MAKE_DIRECTORY ${root}/${floor})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)

    add_library(${target} STATIC ${library_SOURCES})
    target_include_directories(${target} PUBLIC ${root} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    target_link_libraries(${target} PUBLIC ${library_LINKS} PRIVATE CorvaneWarnings)
    target_precompile_headers(${target} REUSE_FROM CorvanePrecompiled${library_PRECOMPILED})
endfunction()

# What every target of ours is compiled with; linked privately, so that it binds nobody else.
add_library(CorvaneWarnings INTERFACE)
target_compile_options(CorvaneWarnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(CorvaneWarnings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)

# Headers that are read anew for each source are what most of a build's time goes into, so they are compiled once: one set
# for code without windows, one for screens, one for tests. A target takes the set that fits what it links.
function(corvane_precompiled name)
    cmake_parse_arguments(set "" "" "HEADERS;LINKS" ${ARGN})
    file(WRITE ${CMAKE_BINARY_DIR}/precompiled/${name}.cpp "")
    add_library(CorvanePrecompiled${name} OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/precompiled/${name}.cpp)
    set_target_properties(CorvanePrecompiled${name} PROPERTIES AUTOMOC OFF)
    target_link_libraries(CorvanePrecompiled${name} PRIVATE ${set_LINKS} CorvaneWarnings)
    target_precompile_headers(CorvanePrecompiled${name} PRIVATE ${set_HEADERS})
endfunction()

set(commonHeaders
    <QByteArray> <QHash> <QList> <QObject> <QPointer> <QSet> <QString> <QStringView> <QTimer> <QUuid> <QVariant> <qcorotask.h>
    <algorithm> <array> <chrono> <cmath> <functional> <map> <memory> <mutex> <optional> <string> <utility> <variant> <vector>)
corvane_precompiled(Core
    LINKS Qt6::Network QCoro6::Core
    HEADERS ${commonHeaders} <QTcpSocket> <nlohmann/json.hpp>)
corvane_precompiled(Quick
    LINKS Qt6::Quick Qt6::Network QCoro6::Core
    HEADERS ${commonHeaders} <QAbstractListModel> <QAccessible> <QPainter> <QQuickItem> <QQuickWindow> <QtQml/qqml.h>)

# The QML module of a floor or room, Corvane.<Floor> or Corvane.<Floor>.<Room>, in its own library. A program that shows it
# links <library>plugin and imports that plugin. QML is compiled ahead of time; what Qt generates for that is not held to
# our warnings.
function(corvane_qml_module name)
    cmake_parse_arguments(module "" "" "QML_FILES;DEPENDENCIES" ${ARGN})
    string(REPLACE "/" "" target Corvane${name})
    string(REPLACE "/" "." uri Corvane.${name})
    qt_add_qml_module(${target}
        URI ${uri}
        VERSION 1.0
        RESOURCE_PREFIX /qt/qml
        OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/qml/Corvane/${name}
        IMPORT_PATH ${CMAKE_BINARY_DIR}/qml
        DEPENDENCIES QtQuick ${module_DEPENDENCIES}
        QML_FILES ${module_QML_FILES})
    get_target_property(generated ${target} SOURCES)
    list(FILTER generated INCLUDE REGEX "qmlcache|qmltyperegistrations")
    set_source_files_properties(${generated} PROPERTIES COMPILE_OPTIONS -w)
endfunction()
