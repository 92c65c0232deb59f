# The Debian packages, made by `cpack -G DEB`. The library has packages of its own: programs that use it need no Qt, and
# two of its versions can stand side by side.
set(packages tintwell libtintwell${PROJECT_VERSION_MAJOR} libtintwell-dev)
set(CPACK_COMPONENTS_ALL application library development)
foreach(component package IN ZIP_LISTS CPACK_COMPONENTS_ALL packages)
    install_compressed("${CMAKE_CURRENT_SOURCE_DIR}/changelog" ${CMAKE_INSTALL_DATADIR}/doc/${package} ${component})
    install(FILES "${CMAKE_SOURCE_DIR}/LICENSE" DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
        RENAME copyright COMPONENT ${component})
    string(TOUPPER ${component} component)
    set(CPACK_DEBIAN_${component}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${component}_FILE_NAME DEB-DEFAULT)
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PROJECT_CONFIG_FILE "${CMAKE_CURRENT_SOURCE_DIR}/PackageTime.cmake")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_NAME tintwell)
# Nobody's mailbox, by the rules of the net's names: the project has none.
set(CPACK_PACKAGE_CONTACT "The Tintwell authors <authors@tintwell.invalid>")
set(CPACK_RESOURCE_FILE_LICENSE "${CMAKE_SOURCE_DIR}/LICENSE")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Each package has its own; a common one would be put before it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_COMPONENT_APPLICATION_DESCRIPTION "color system from one source color, in the system tray
Tintwell derives harmonies, a monochromatic ramp, a tonal scale, and a
light and a dark interface theme whose text and fills reach fixed
contrast ratios, from one color: any pixel of the screen.

Palettes are kept in a library and installed for drawing programs. The
program tintwell-cli does the same without a display.")
set(CPACK_DEBIAN_APPLICATION_PACKAGE_SECTION graphics)
# Loaded at run time, so nothing links them.
set(CPACK_DEBIAN_APPLICATION_PACKAGE_RECOMMENDS "xdg-desktop-portal, qt6-wayland")

set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "color system from one source color - shared library
The engine of Tintwell: conversions between sRGB and OKLCH, color names,
contrast, and the derivation of a palette with its interface themes.")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_BINARY_DIR}/triggers")

set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "color system from one source color - headers
What a C++20 program needs to be compiled against the engine of
Tintwell, and what CMake needs to find it.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libtintwell${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
include(CPack)
