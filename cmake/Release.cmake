# The version is that of project(). CHANGELOG.md says what is new in it and when it was released; a folder in which the two
# disagree is not built.
file(STRINGS CHANGELOG.md TABRIX_NEWEST_CHANGES REGEX "^## " LIMIT_COUNT 1)
if(NOT TABRIX_NEWEST_CHANGES MATCHES "^## ([0-9.]+), ([0-9]+-[0-9]+-[0-9]+|not released yet)$")
    message(FATAL_ERROR "CHANGELOG.md: \"${TABRIX_NEWEST_CHANGES}\" is neither \"## VERSION, YEAR-MONTH-DAY\" "
                        "nor \"## VERSION, not released yet\"")
elseif(NOT CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
    message(FATAL_ERROR "CHANGELOG.md begins with version ${CMAKE_MATCH_1}, CMakeLists.txt has ${PROJECT_VERSION}")
endif()

if(CMAKE_MATCH_2 STREQUAL "not released yet")
    set(TABRIX_RELEASE_TYPE development)
    string(TIMESTAMP TABRIX_RELEASE_DAY "%Y-%m-%d" UTC) # of SOURCE_DATE_EPOCH, if that is set
else()
    set(TABRIX_RELEASE_TYPE stable)
    set(TABRIX_RELEASE_DAY ${CMAKE_MATCH_2})
endif()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md)
