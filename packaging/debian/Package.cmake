# The Debian package: cpack -G DEB in a build for /usr. scripts/package does it all.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ovrin)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "The Ovrin developers <developers@ovrin.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "recipe manager that imports, scales and helps to cook")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Ovrin keeps one person's recipes. It brings them in from web pages and
documents, scales their amounts, lets you cook from them with timers that
ring, and turns them into a grocery list.

Everything stays on this computer, in one file. With it come a command line
(ovrin-cli), a companion that leaves recipes in its inbox (ovrin-share) and
an extension for Chromium and Firefox that sends the page in front.")

set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${CMAKE_CURRENT_LIST_DIR}/conffiles)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# What the libraries do not say themselves: whatever running needs. The QML modules do not depend on each other.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(recommended fonts-inter libcanberra-pulse)
file(STRINGS ${PROJECT_SOURCE_DIR}/scripts/dependencies.txt lines REGEX " run$")
list(TRANSFORM lines REPLACE "^([^ ]+) .*" "\\1")
list(REMOVE_ITEM lines ${recommended})
list(JOIN lines ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
list(JOIN recommended ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS)
string(APPEND CPACK_DEBIAN_PACKAGE_RECOMMENDS ", evolution-data-server, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "chromium | firefox-esr")

set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_SET_DESTDIR ON) # the manifest of the browser's host has its place in /etc
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/Compress.cmake)
set(CPACK_OUTPUT_FILE_PREFIX ${PROJECT_BINARY_DIR})
include(CPack)
