# What the programs may be optimised with beyond -O3; docs/performance.md says what each gains.
option(TABRIX_LTO "Optimise across source files when linking" OFF)
set(TABRIX_PROFILE "" CACHE STRING "Optimise by a profile of a run: \"write\" it, or \"use\" it (GCC; scripts/optimised.sh)")
set_property(CACHE TABRIX_PROFILE PROPERTY STRINGS "" write use)

if(TABRIX_LTO)
    include(CheckIPOSupported)
    check_ipo_supported()
    set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ON)
    # Across files GCC believes that Qt's hash tables may become of any size.
    add_link_options($<$<CXX_COMPILER_ID:GNU>:-Wno-alloc-size-larger-than>)
endif()
if(TABRIX_PROFILE STREQUAL "write")
    add_compile_options(-fprofile-generate -fprofile-update=atomic)
    add_link_options(-fprofile-generate)
elseif(TABRIX_PROFILE STREQUAL "use")
    # What the run did not reach is optimised as without a profile.
    add_compile_options(-fprofile-use -fprofile-partial-training -Wno-missing-profile)
elseif(TABRIX_PROFILE)
    message(FATAL_ERROR "TABRIX_PROFILE is \"${TABRIX_PROFILE}\", which is neither \"write\" nor \"use\"")
endif()
