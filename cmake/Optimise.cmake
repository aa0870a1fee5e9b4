# What a program may be optimised with beyond -O3; docs/performance.md says what it gains.
option(TABRIX_LTO "Optimise across source files when linking" OFF)
if(TABRIX_LTO)
    include(CheckIPOSupported)
    check_ipo_supported()
    set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ON)
endif()
