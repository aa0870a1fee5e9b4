# Warnings and sanitizers for everything written here. The presets make errors of warnings; a build by other means, with
# a compiler that knows more of them, does not end there.
add_library(tabrix_warnings INTERFACE)
target_compile_options(tabrix_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                       -Woverloaded-virtual -Wimplicit-fallthrough)
target_compile_definitions(tabrix_warnings INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                           QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH)

if(TABRIX_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# The fuzzers see which code an input reaches, in the core too.
if(TABRIX_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined)
    add_link_options(-fsanitize=address,undefined)
endif()
