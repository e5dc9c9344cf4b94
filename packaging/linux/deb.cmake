# The package for Debian and Ubuntu; scripts/package makes it. One that was built on a newer system need not run on an
# older one, so its name says where it was built.
set(distribution "")
if(EXISTS /etc/os-release)
    foreach(key ID VERSION_ID)
        file(STRINGS /etc/os-release line REGEX "^${key}=" LIMIT_COUNT 1)
        string(REGEX REPLACE "^[^=]*=|\"" "" value "${line}")
        string(APPEND distribution "${value}")
    endforeach()
endif()
set(revision "1")
if(distribution MATCHES "^[a-z0-9.]+$")
    set(revision "1~${distribution}")
endif()
set(TARNWICK_DEBIAN_VERSION "${PROJECT_VERSION}-${revision}")

configure_file("${TARNWICK_LINUX_PACKAGING}/debian/changelog.in" "${generated}/changelog.Debian" @ONLY)
configure_file("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${generated}/changelog" COPYONLY)
set(documents "${CMAKE_INSTALL_DATADIR}/doc/tarnwick")
install(FILES "${TARNWICK_LINUX_PACKAGING}/debian/copyright" DESTINATION "${documents}")
tarnwick_install_compressed("${generated}/changelog.Debian" "${documents}")
tarnwick_install_compressed("${generated}/changelog" "${documents}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tarnwick)
set(CPACK_PACKAGE_VENDOR Quorlane)
set(CPACK_PACKAGE_CONTACT "The Tarnwick authors <maintainers@tarnwick.example>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "menu bar of the application in front, at the pointer")
# Installed to where it will be, so that what names its own path names the right one.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE "${revision}")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://quorlane.example/")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Press a hot key or an extra mouse button, and the whole menu bar of the
application that you are working in opens as a menu where the pointer is.
Choose an item, and the application does it.
.
Menus are read and pressed through the desktop's accessibility interface,
so applications of GTK, Qt and other toolkits work as they are. The package
holds tarnwick-inspect too, which prints what is read of a menu bar.")
# The libraries by what the programs are linked with; the services that they talk to by name.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "at-spi2-core, default-dbus-session-bus | dbus-session-bus, xkb-data")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libglib2.0-bin, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "xwayland")
include(CPack)
