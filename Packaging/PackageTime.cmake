# Read by cpack before it packs: every file bears the time of the commit, so that the same commit gives the same bytes.
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(COMMAND git -C "${CMAKE_CURRENT_LIST_DIR}" log -1 --format=%ct
        OUTPUT_VARIABLE time OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    if(time)
        set(ENV{SOURCE_DATE_EPOCH} ${time})
    endif()
endif()
