# Optimized programs for Linux are built as Debian builds its own: overruns of buffers, heap and stack end the program instead
# of being usable, and what the loader fills in is read-only before main().
if(UNIX AND CMAKE_BUILD_TYPE STREQUAL Release)
    add_compile_options(-fstack-protector-strong -fstack-clash-protection -D_FORTIFY_SOURCE=2)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
        add_compile_options(-fcf-protection)
    endif()
    add_link_options(-Wl,-z,relro,-z,now)
endif()
