# The Debian package, as CPack makes it. Libraries that Morvak is linked with are found by dpkg-shlibdeps; the lists
# below are what it opens or starts when it runs.

set(needed
  breeze-icon-theme          # symbols of the screens
  ca-certificates            # whom the check for a newer version trusts
  fonts-lato                 # the typeface of the cards
  libimage-exiftool-perl     # reads and writes all metadata
  qt6-image-formats-plugins  # TIFF photos
  qt6-translations-l10n)     # Dutch in Qt's own dialogs
set(recommended
  fonts-noto-color-emoji     # the symbols of the log
  fonts-noto-core            # names in any script
  libcanberra-pulse          # the sound on a change of set, where PulseAudio or PipeWire plays
  qt6-wayland                # windows without the detour over X11
  xdg-utils)                 # opens the download page
list(JOIN needed ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
list(JOIN recommended ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME morvak)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${MORVAK_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "tags every photo of a shoot with the set it shows")
set(CPACK_PACKAGE_DESCRIPTION
"Morvak stands beside the tethering software at a fashion or product shoot.
Every photo that lands in the folder of the shoot is tagged, within about a
second, with the set (the outfit) that is being photographed: headline,
description, keywords, model, city and shoot name go into its IPTC and XMP.

A set becomes active by photographing its printed QR card, with a scanner,
or by typing. The interface is Dutch.")

set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_MORVAK_RELEASE_EPOCH ${MORVAK_RELEASE_EPOCH})
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/same_times.cmake)
include(CPack)
