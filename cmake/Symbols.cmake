# zeph_add_symbols(target NAME…)
#   Builds the drawings of symbols into a library, for SystemImage to find by their names. A drawing
#   is ours, in symbols/NAME.svg beside the CMakeLists.txt, or else the icon set's, which writes the
#   same names in its own way.
set(ZEPH_ICON_SET "${PROJECT_SOURCE_DIR}/build/assets/framework7-icons/svg")

function(zeph_add_symbols target)
    foreach(name IN LISTS ARGN)
        set(drawing "${CMAKE_CURRENT_SOURCE_DIR}/symbols/${name}.svg")
        if(NOT EXISTS "${drawing}")
            string(REGEX REPLACE "\\.(and|wave)\\." "." file_name "${name}")
            string(REPLACE "." "_" file_name "${file_name}")
            set(drawing "${ZEPH_ICON_SET}/${file_name}.svg")
        endif()
        if(NOT EXISTS "${drawing}")
            message(FATAL_ERROR "There is no drawing of the symbol ${name}. "
                "Either its name is wrong, or tools/fetch-assets has to run first.")
        endif()
        set_source_files_properties("${drawing}" PROPERTIES QT_RESOURCE_ALIAS "${name}.svg")
        list(APPEND drawings "${drawing}")
    endforeach()
    qt_add_resources(${target} ${target}_symbols PREFIX /zeph/symbols FILES ${drawings})
endfunction()
