# The Debian package, which ./package makes with CPack. Its files in /usr/share/doc are written by debian/Finish.cmake, as
# other ways to install have other customs for them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pixorra)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
# The project has no address yet; these lead nowhere by the rules of the net (README.md in this folder).
set(CPACK_PACKAGE_CONTACT "The Pixorra developers <pixorra@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "photo sorting tool for digital still cameras")
set(CPACK_PACKAGE_DESCRIPTION
"Pixorra shows the photos of a camera, or of any folder, as a film strip. A
photo is dragged from the strip and dropped on one of up to eight folders:
it is copied there, named by choice and checked for duplicates, and the
strip shows what is left to sort.
.
Photos can be viewed at full size, printed one by one or as proof sheets, and
played as a slide show, which is a screen saver as well.")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_SOURCE_DIR}/debian/Finish.cmake")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# By hand is only what no library dependency tells of, and nothing needs: other window systems, letters, translations.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "fonts-liberation, qt6-gtk-platformtheme, qt6-translations-l10n, qt6-wayland, shared-mime-info, xdg-utils")
include(CPack)
