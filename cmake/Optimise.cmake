# What a release may be optimised with beyond -O3. Neither is on by default: docs/performance.md says what they gain.
option(TABRIX_LTO "Optimise across source files when linking (GCC, Clang)" OFF)
set(TABRIX_PROFILE "" CACHE STRING "Optimise by what a run of the program shows: \"write\" the profile, or \"use\" it (GCC, \
scripts/pgo.sh)")
set_property(CACHE TABRIX_PROFILE PROPERTY STRINGS "" write use)

if(TABRIX_LTO)
    include(CheckIPOSupported)
    check_ipo_supported()
    set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ON)
endif()
if(TABRIX_PROFILE STREQUAL write)
    add_compile_options(-fprofile-generate -fprofile-update=atomic)
    add_link_options(-fprofile-generate)
elseif(TABRIX_PROFILE STREQUAL use)
    # Code that the run did not reach has no profile, and is optimised as without one.
    add_compile_options(-fprofile-use -fprofile-partial-training -Wno-missing-profile)
elseif(TABRIX_PROFILE)
    message(FATAL_ERROR "TABRIX_PROFILE is \"${TABRIX_PROFILE}\", which is neither \"write\" nor \"use\"")
endif()
