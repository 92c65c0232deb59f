# Installs `entry`, a file that starts the application, into `destination`. It names `program` in full where a session's
# search path may not lead to it; a bus takes nothing else.
file(READ "${entry}" text)
cmake_path(GET entry FILENAME name)
if(name MATCHES "\\.service$" OR NOT CMAKE_INSTALL_PREFIX MATCHES "^/usr(/local)?$")
    set(command "${program}")
    if(program MATCHES "[^A-Za-z0-9/._+-]")
        string(REPLACE "%" "%%" command "\"${program}\"")
    endif()
    string(REGEX REPLACE "\nExec=[^ \n]*" "\nExec=${command}" text "${text}")
    string(REGEX REPLACE "\nTryExec=[^\n]*" "\nTryExec=${program}" text "${text}")
endif()
file(WRITE "${scratch}/${name}" "${text}")
file(INSTALL "${scratch}/${name}" DESTINATION "${destination}")
