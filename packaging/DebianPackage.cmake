# The Debian package, made by `cpack` in the build folder of the package preset; scripts/package does it all.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarnquill)
set(CPACK_PACKAGE_CONTACT "The Tarnquill maintainers <maintainers@tarnquill.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "developer's window for JSON, CSV, Markdown, diagrams and tokens")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Paste, type, drop or open a text, and Tarnquill shows it in a form that can
be read, at once and on this machine: nothing is sent anywhere. One window
holds tools for Markdown, Mermaid diagrams, JSON, CSV tables, timestamps,
encodings and JSON Web Tokens.
.
tarnquill-cli runs the same engines in scripts and pipes.")

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The linked libraries are found by dpkg-shlibdeps; the web engine also runs a program of its own with data beside it. The
# typefaces are in the programs, but web pages take theirs from the system.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "libqt6webenginecore6-bin, libqt6webengine6-data, hicolor-icon-theme, fonts-inter, fonts-jetbrains-mono")
# Wayland sessions, file dialogs and appearance as the desktop has them, and the images of the web in Markdown.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, xdg-desktop-portal, ca-certificates")

include(CPack)
