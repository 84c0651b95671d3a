# Language level, warnings and sanitizers, for our own targets only.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)

add_library(zeph_compiler_settings INTERFACE)
target_compile_definitions(zeph_compiler_settings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
# What a precompiled header is made with, so that it fits programs as well as libraries: of itself
# CMake compiles programs with -fPIE.
target_compile_options(zeph_compiler_settings INTERFACE -Wpedantic -fPIC)

if(ZEPH_SANITIZE)
    # Objects of Qt WebEngine have no type information for the check of what a pointer points to.
    target_compile_options(zeph_compiler_settings INTERFACE
        -fsanitize=${ZEPH_SANITIZE} -fno-sanitize=vptr -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    target_link_options(zeph_compiler_settings INTERFACE -fsanitize=${ZEPH_SANITIZE})
    add_library(zeph_sanitizer_support OBJECT "${CMAKE_CURRENT_LIST_DIR}/KeepLibrariesLoaded.cpp")
    if(ZEPH_SANITIZE STREQUAL "thread")
        target_sources(zeph_sanitizer_support PRIVATE
            "${CMAKE_CURRENT_LIST_DIR}/QtForThreadSanitizer.cpp")
        target_link_libraries(zeph_sanitizer_support PRIVATE Qt6::Core)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            # Code that is optimised and instrumented misleads it into warnings of std::optional.
            target_compile_options(zeph_compiler_settings INTERFACE -Wno-maybe-uninitialized)
        endif()
    endif()
endif()

if(ZEPH_BUILD_FUZZERS)
    target_compile_options(zeph_compiler_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Warnings are errors in the files that we write; what Qt's tools generate is not ours to mend.
function(zeph_enable_warnings target)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    foreach(source IN LISTS sources)
        cmake_path(ABSOLUTE_PATH source NORMALIZE)
        cmake_path(IS_PREFIX CMAKE_BINARY_DIR "${source}" generated)
        if(NOT generated)
            set_property(SOURCE "${source}" APPEND PROPERTY COMPILE_OPTIONS
                -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
                -Wimplicit-fallthrough -Wconversion -Wno-sign-conversion -Werror)
        endif()
    endforeach()
endfunction()
