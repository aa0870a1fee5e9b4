# tabrix_windows_resources(target description): gives a program its icon, version and manifest, which Windows shows and
# goes by. Nothing elsewhere.
if(WIN32)
    enable_language(RC)
    find_program(TABRIX_RSVG_CONVERT rsvg-convert DOC "Draws the icon sizes (Debian package librsvg2-bin)")
    find_program(TABRIX_CONVERT convert DOC "Joins them into one icon (Debian package imagemagick)")
    set(TABRIX_ICON_LINE "// built without rsvg-convert or convert: no icon")
    if(TABRIX_RSVG_CONVERT AND TABRIX_CONVERT)
        set(tabrix_icon ${CMAKE_BINARY_DIR}/install/tabrix.ico)
        set(pictures)
        file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/install)
        foreach(size 16 20 24 32 40 48 64 128 256)
            set(picture ${CMAKE_BINARY_DIR}/install/tabrix-${size}.png)
            add_custom_command(OUTPUT ${picture}
                COMMAND ${TABRIX_RSVG_CONVERT} -w ${size} -h ${size} -o ${picture}
                        ${CMAKE_SOURCE_DIR}/resources/pictures/tabrix.svg
                DEPENDS ${CMAKE_SOURCE_DIR}/resources/pictures/tabrix.svg
                VERBATIM)
            list(APPEND pictures ${picture})
        endforeach()
        add_custom_command(OUTPUT ${tabrix_icon} COMMAND ${TABRIX_CONVERT} ${pictures} ${tabrix_icon}
            DEPENDS ${pictures} VERBATIM)
        add_custom_target(tabrix_icon ALL DEPENDS ${tabrix_icon})
        set(TABRIX_ICON_LINE "1 ICON \"${tabrix_icon}\"")
    endif()
endif()

function(tabrix_windows_resources target description)
    if(NOT WIN32)
        return()
    endif()
    set(script ${CMAKE_BINARY_DIR}/install/${target}.rc)
    configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/program.rc.in ${script} @ONLY)
    target_sources(${target} PRIVATE ${script})
    set_source_files_properties(${script} PROPERTIES OBJECT_DEPENDS
        "${tabrix_icon};${CMAKE_SOURCE_DIR}/packaging/windows/tabrix.manifest")
    if(TARGET tabrix_icon)
        add_dependencies(${target} tabrix_icon)
    endif()
endfunction()
