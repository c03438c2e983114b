# `cpack -G DEB` in the build folder makes the Debian package from the install
# rules. Its library dependencies come from dpkg-shlibdeps; the time zone
# database is read at run time, so it is named by hand.
set(CPACK_PACKAGE_NAME trackloom)
set(CPACK_PACKAGE_VENDOR "Trackloom")
set(TRACKLOOM_MAINTAINER "Trackloom developers <trackloom@example.org>"
  CACHE STRING "Maintainer named in the Debian package")
set(CPACK_PACKAGE_CONTACT "${TRACKLOOM_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "GPX track editor, Google timeline workspace and place explorer")
set(CPACK_PACKAGE_DESCRIPTION "Trackloom works on your own location recordings, entirely on your
machine: a GPX track editor with speeds, time shifts and generated times,
splitting, trimming, joining and point edits with undo; a workspace for the
location history that Google Maps exports from a phone; and a place explorer
with the days near a place and a heat map. trackloom-cli offers the same
operations for scripts, with JSON output.")
set(CPACK_PACKAGE_INSTALL_DIRECTORY trackloom)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${CPACK_PACKAGE_CONTACT}")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "tzdata")
# Qt's own dialogs in German come from Qt's translations.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n")

include(CPack)
