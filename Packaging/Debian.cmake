# The Debian packages, one for each part of what is installed; `Scripts/package` makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL terminal)
if(TOLVANE_WINDOW)
    list(APPEND CPACK_COMPONENTS_ALL window)
endif()
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/DebianFiles.cmake)
set(CPACK_TOLVANE_RELEASED ${TOLVANE_RELEASED})
# Otherwise it would become the first line of every description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# Goes before the first that Debian itself might make of a version.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0tolvane${TOLVANE_BUILD})
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SOURCE tolvane)
# Finds the libraries, but neither programs nor what Qt loads while it runs.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(tools "desktop-file-utils, pkexec, snapper, systemd-resolved"
    "localsearch | tracker-miner-fs | baloo6 | baloo-kf5")
list(JOIN tools ", " tools)

set(CPACK_DEBIAN_TERMINAL_PACKAGE_NAME tolvanectl)
set(CPACK_DEBIAN_TERMINAL_PACKAGE_DEPENDS "lsof, procps")
set(CPACK_DEBIAN_TERMINAL_PACKAGE_SUGGESTS "tolvane, ${tools}")
set(CPACK_DEBIAN_TERMINAL_DESCRIPTION "shows what fills a disk and reclaims it safely, in a terminal
Measures folders, finds files of equal content, applications and what they
leave behind, caches, the processes that listen on the network, and what takes
memory and disk. What it removes goes to the Trash, from where it can be put
back.

This is the program for the terminal, which needs no desktop.")

file(STRINGS ${PROJECT_SOURCE_DIR}/Scripts/packages modules REGEX "^window +qml6-")
list(TRANSFORM modules REPLACE "^window +([^ ]+) .*" "\\1")
list(JOIN modules ", " modules)
set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME tolvane)
# Until it got a package of its own, the library held what draws icons.
set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS
    "lsof, procps, ${modules}, qt6-svg-plugins | libqt6svg6 (<< 6.7.2-5~)")
set(CPACK_DEBIAN_WINDOW_PACKAGE_RECOMMENDS "fonts-inter, qt6-wayland")
set(CPACK_DEBIAN_WINDOW_PACKAGE_SUGGESTS "tolvanectl, ${tools}")
set(CPACK_DEBIAN_WINDOW_DESCRIPTION "shows what fills a disk and reclaims it safely
Maps what fills a folder or a disk, finds files of equal content, applications
and what they leave behind, caches, the processes that listen on the network,
and what takes memory and disk. What it removes goes to the Trash, from where
it can be put back.")

include(CPack)
