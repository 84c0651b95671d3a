# How the targets of this project are made.

# Half of the build time of a small file is Qt's own headers. One precompiled header serves all
# targets: each takes 150 MB, and targets are many. Those with other compiler options cannot use it.
add_library(zeph_precompiled_headers OBJECT "${CMAKE_CURRENT_LIST_DIR}/PrecompiledHeaders.cpp")
target_link_libraries(zeph_precompiled_headers PRIVATE zeph_compiler_settings Qt6::Core)
target_precompile_headers(zeph_precompiled_headers PRIVATE
    <QtCore/QObject> <QtCore/QString> <QtCore/QUrl> <QtCore/QVariant>
    <functional> <memory> <optional>)

# One static library per folder under src/. Headers are included by folder ("platform/Delay.h"), so
# that an include line tells which layer it reaches into.

function(zeph_configure_target target)
    target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${target} PRIVATE zeph_compiler_settings)
    zeph_enable_warnings(${target})
    # Our own QML modules are linked by name and Qt's are loaded at run time. Looking for more costs
    # each configuration its time, and newer versions of Qt warn about every one of Qt's.
    set_target_properties(${target} PROPERTIES QT_QML_MODULE_NO_IMPORT_SCAN ON)
    get_target_property(type ${target} TYPE)
    if(ZEPH_SANITIZE AND type STREQUAL "EXECUTABLE")
        target_sources(${target} PRIVATE $<TARGET_OBJECTS:zeph_sanitizer_support>)
    endif()
    target_precompile_headers(${target} REUSE_FROM zeph_precompiled_headers)
endfunction()

function(zeph_add_library target)
    qt_add_library(${target} STATIC ${ARGN})
    zeph_configure_target(${target})
endfunction()

# A library whose types, and QML files if it has any, make up the QML module `uri`. Its DEPENDENCIES
# are the modules whose types it uses; QML files import them themselves.
function(zeph_add_qml_library target uri)
    cmake_parse_arguments(arg "" "" "SOURCES;QML_FILES;DEPENDENCIES" ${ARGN})
    qt_add_library(${target} STATIC)
    string(REPLACE "." "/" module_path ${uri})
    qt_add_qml_module(${target}
        URI ${uri}
        VERSION 1.0
        RESOURCE_PREFIX /qt/qml
        OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/qml/${module_path}"
        SOURCES ${arg_SOURCES}
        QML_FILES ${arg_QML_FILES}
        DEPENDENCIES ${arg_DEPENDENCIES})
    zeph_configure_target(${target})
    # The generated type registration includes each header by its bare file name.
    target_include_directories(${target} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
endfunction()

# Where the modules are that the program loads when it needs them, those of QML in a folder "qml"
# there: once installed, from the folder that the program lies in, and in the build folder, where
# they lie in the same place beside the program.
set(ZEPH_INSTALLED_MODULES "${CMAKE_INSTALL_LIBDIR}/zeph-player")
file(RELATIVE_PATH ZEPH_MODULES_FOLDER
    "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}/zeph-player")
cmake_path(SET ZEPH_BUILT_MODULES NORMALIZE
    "${PROJECT_BINARY_DIR}/src/app/${ZEPH_MODULES_FOLDER}")
