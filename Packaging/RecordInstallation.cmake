# Notes in `installed` what an installation for this machine put where, for the target uninstall. What only goes into a
# package is not noted.
if("$ENV{DESTDIR}" STREQUAL "")
    list(JOIN CMAKE_INSTALL_MANIFEST_FILES "\n" files)
    file(APPEND "${installed}" "${files}\n")
    # A desktop that keeps a cache of these icons sees by the folder's time that it is old.
    if(IS_DIRECTORY "${icons}")
        file(TOUCH "${icons}")
    endif()
endif()
