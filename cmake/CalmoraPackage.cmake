# SPDX-License-Identifier: MIT
# The Debian package (`cmake --build BUILD --target package`), an RPM (`cpack -G RPM` in BUILD, where
# there is rpmbuild), and the documents that are installed with the program.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME calmora)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "The Calmora developers <developers@calmora.example>")
set(CPACK_PACKAGE_VENDOR "The Calmora developers")
string(TOLOWER "${PROJECT_DESCRIPTION}" CPACK_PACKAGE_DESCRIPTION_SUMMARY)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Calmora is a small icon in the status bar. A click opens the list of the
running applications with their CPU and memory use. It quits one of them or
all ticked ones: politely, so that unsaved work can be saved, or by force.
Applications can be protected, and idle ones can be quit automatically.")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/packaging/prerm")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# Libraries are found in the binaries; what Qt loads by name is not: its part for Wayland, and its
# reader of our symbols, which was part of the library before 6.7.2. What is opened only at run time, and can be missing, is
# recommended: the sound server (which brings libpulse), the symbols of applications, Qt's own texts, a bus to be found on.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "hicolor-icon-theme, qt6-svg-plugins | libqt6svg6 (<< 6.7.2-5~), qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "adwaita-icon-theme, adwaita-icon-theme-legacy | adwaita-icon-theme (<< 45), default-dbus-session-bus | dbus-session-bus, libcanberra-pulse, qt6-translations-l10n")
# rpmbuild finds libraries, too; packages that have other names in other distributions are left out.
set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_PACKAGE_LICENSE MIT)
set(CPACK_RPM_PACKAGE_DESCRIPTION "${CPACK_DEBIAN_PACKAGE_DESCRIPTION}")
set(CPACK_RPM_PACKAGE_REQUIRES hicolor-icon-theme)
set(CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION
    /usr/share/bash-completion /usr/share/bash-completion/completions /usr/share/fish
    /usr/share/fish/vendor_completions.d /usr/share/icons /usr/share/icons/hicolor
    /usr/share/man /usr/share/man/man1 /usr/share/metainfo /usr/share/zsh
    /usr/share/zsh/vendor-completions)
include(CPack)

set(documents "${PROJECT_BINARY_DIR}/documents")
configure_file(packaging/changelog.in "${documents}/changelog.Debian" @ONLY)
configure_file(packaging/calmora.1.in "${documents}/calmora.1" @ONLY)
configure_file(CHANGELOG.md "${documents}/changelog" COPYONLY)
set(compressed "")
foreach(document IN ITEMS calmora.1 changelog changelog.Debian)
    add_custom_command(OUTPUT "${documents}/${document}.gz"
                       COMMAND gzip -9nkf "${documents}/${document}"
                       DEPENDS "${documents}/${document}")
    list(APPEND compressed "${documents}/${document}.gz")
endforeach()
add_custom_target(calmora_documents ALL DEPENDS ${compressed})
install(FILES "${documents}/calmora.1.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES "${documents}/changelog.gz" "${documents}/changelog.Debian.gz" packaging/copyright
        DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(FILES packaging/completions/calmora.bash
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME calmora)
install(FILES packaging/completions/calmora.fish
        DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d")
install(FILES packaging/completions/_calmora
        DESTINATION "${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions")
