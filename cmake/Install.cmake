# Where the program stands once installed; scripts/ makes packages of that. The program looks for its help files and for the
# set-up software's INI folders beside its executable: all of them share one folder, and bin/ holds a link.
include(GNUInstallDirs)
include(cmake/Release.cmake)
set(TABRIX_DOC_DIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/tabrix) # of the package's name, not of the project's

if(WIN32)
    set(TABRIX_PROGRAM_DIR .)
else()
    set(TABRIX_PROGRAM_DIR ${CMAKE_INSTALL_LIBDIR}/tabrix)
endif()

install(TARGETS tabrix tabrix-tool tabrix-print RUNTIME DESTINATION ${TABRIX_PROGRAM_DIR})
if(TARGET tabrix_xlsx)
    install(TARGETS tabrix_xlsx LIBRARY DESTINATION ${TABRIX_PROGRAM_DIR})
endif()
install(FILES ${CMAKE_BINARY_DIR}/TABRIX.HLP ${CMAKE_BINARY_DIR}/TABRIXE.HLP DESTINATION ${TABRIX_PROGRAM_DIR})
install(DIRECTORY examples/ DESTINATION ${TABRIX_DOC_DIR}/examples)

if(UNIX)
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/install)
    foreach(program tabrix tabrix-tool)
        file(RELATIVE_PATH link_target /${CMAKE_INSTALL_BINDIR} /${TABRIX_PROGRAM_DIR}/${program})
        file(CREATE_LINK ${link_target} ${CMAKE_BINARY_DIR}/install/${program} SYMBOLIC)
        install(FILES ${CMAKE_BINARY_DIR}/install/${program} DESTINATION ${CMAKE_INSTALL_BINDIR})
    endforeach()
    install(FILES docs/tool.md docs/checks.md docs/parameters.schema.json DESTINATION ${TABRIX_DOC_DIR})
    install(FILES packaging/tabrix.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
    configure_file(packaging/org.tabrix.Tabrix.metainfo.xml.in ${CMAKE_BINARY_DIR}/install/org.tabrix.Tabrix.metainfo.xml @ONLY)
    install(FILES ${CMAKE_BINARY_DIR}/install/org.tabrix.Tabrix.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
    install(FILES packaging/tabrix-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME tabrix.xml)
    install(FILES resources/pictures/tabrix.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

    # The tool's pages and completion come from the tables that its --help comes from.
    set(pages)
    foreach(output "man1/tabrix-tool.1|en|man" "ja/man1/tabrix-tool.1|ja|man" "completions/tabrix-tool|en|bash")
        string(REPLACE "|" ";" output "${output}")
        list(GET output 0 name)
        list(GET output 1 language)
        list(GET output 2 format)
        set(page ${CMAKE_BINARY_DIR}/install/${name})
        get_filename_component(folder ${page} DIRECTORY)
        file(MAKE_DIRECTORY ${folder})
        add_custom_command(OUTPUT ${page}
            COMMAND tabrix-tool help --language ${language} --format ${format} --output ${page}
            DEPENDS tabrix-tool
            VERBATIM)
        list(APPEND pages ${page})
    endforeach()
    add_custom_target(tabrix_pages ALL DEPENDS ${pages})
    foreach(page man1/tabrix.1 man1/tabrix-print.1 ja/man1/tabrix.1)
        configure_file(packaging/${page}.in ${CMAKE_BINARY_DIR}/install/${page} @ONLY)
    endforeach()
    install(DIRECTORY ${CMAKE_BINARY_DIR}/install/man1 ${CMAKE_BINARY_DIR}/install/ja DESTINATION ${CMAKE_INSTALL_MANDIR})
    install(FILES ${CMAKE_BINARY_DIR}/install/completions/tabrix-tool
            DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)

    # Desktops that do not draw SVG take the nearest of these.
    find_program(TABRIX_RSVG_CONVERT rsvg-convert DOC "Draws the icon sizes (Debian package librsvg2-bin)")
    set(icons)
    if(TABRIX_RSVG_CONVERT)
        foreach(size 16 22 24 32 48 64 128 256)
            set(icon ${CMAKE_BINARY_DIR}/install/tabrix-${size}.png)
            add_custom_command(OUTPUT ${icon}
                COMMAND ${TABRIX_RSVG_CONVERT} -w ${size} -h ${size} -o ${icon}
                        ${CMAKE_SOURCE_DIR}/resources/pictures/tabrix.svg
                DEPENDS resources/pictures/tabrix.svg
                VERBATIM)
            install(FILES ${icon} RENAME tabrix.png
                    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
            list(APPEND icons ${icon})
        endforeach()
    endif()
    add_custom_target(tabrix_icons ALL DEPENDS ${icons})
endif()
