# What goes where on a system of the XDG kind, in any prefix; and the package for Debian and Ubuntu.
set(TARNWICK_LINUX_PACKAGING "${CMAKE_CURRENT_LIST_DIR}")

# The one place that says when this version came out, as `date -u -d 2026-11-21T12:00 +%s` does.
set(release_time 1795262400)
set(source_date_epoch "$ENV{SOURCE_DATE_EPOCH}")
set(ENV{SOURCE_DATE_EPOCH} ${release_time})
string(TIMESTAMP TARNWICK_RELEASE_DATE "%Y-%m-%d" UTC)
string(TIMESTAMP TARNWICK_MAN_DATE "%B %d, %Y" UTC)
string(TIMESTAMP TARNWICK_DEBIAN_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
if(source_date_epoch STREQUAL "")
    unset(ENV{SOURCE_DATE_EPOCH})
else()
    set(ENV{SOURCE_DATE_EPOCH} "${source_date_epoch}")
endif()

install(TARGETS tarnwick tarnwick-inspect RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(DIRECTORY "${TARNWICK_LINUX_PACKAGING}/icons/hicolor" DESTINATION "${CMAKE_INSTALL_DATADIR}/icons")

# For all users of the system; who wants it switches it on. Its schema is where GSettings looks for those of the system.
set(gnome_extension "${PROJECT_SOURCE_DIR}/packaging/gnome-extension")
install(FILES "${gnome_extension}/metadata.json" "${gnome_extension}/extension.js"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/gnome-shell/extensions/tarnwick@quorlane.example")
install(FILES "${gnome_extension}/schemas/org.gnome.shell.extensions.tarnwick.gschema.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/glib-2.0/schemas")

set(generated "${PROJECT_BINARY_DIR}/packaging")
configure_file("${TARNWICK_LINUX_PACKAGING}/example.quorlane.Tarnwick.metainfo.xml.in"
    "${generated}/example.quorlane.Tarnwick.metainfo.xml" @ONLY)
install(FILES "${generated}/example.quorlane.Tarnwick.metainfo.xml" DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")

# Compressed without a time stamp, so that the same sources give the same files.
find_program(TARNWICK_GZIP gzip)
function(tarnwick_install_compressed source destination)
    if(NOT TARNWICK_GZIP)
        install(FILES "${source}" DESTINATION "${destination}")
        return()
    endif()
    cmake_path(GET source FILENAME name)
    set(compressed "${generated}/${name}.gz")
    execute_process(COMMAND "${TARNWICK_GZIP}" -9nc "${source}" OUTPUT_FILE "${compressed}" COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source}")
    install(FILES "${compressed}" DESTINATION "${destination}")
endfunction()

foreach(page tarnwick.1 tarnwick-inspect.1)
    configure_file("${TARNWICK_LINUX_PACKAGING}/man/${page}.in" "${generated}/${page}" @ONLY)
    tarnwick_install_compressed("${generated}/${page}" "${CMAKE_INSTALL_MANDIR}/man1")
endforeach()

# These name the program by its full path, which is known only when it is installed: the prefix can be given then.
install(CODE "
    set(generated \"${generated}/installed\")
    set(TARNWICK_PROGRAM \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/tarnwick\")
    get_filename_component(TARNWICK_PROGRAM \"\${TARNWICK_PROGRAM}\" ABSOLUTE)
    set(TARNWICK_EXEC \"\${TARNWICK_PROGRAM}\")
    if(TARNWICK_EXEC MATCHES \"[^A-Za-z0-9/._+-]\")
        set(TARNWICK_EXEC \"\\\"\${TARNWICK_PROGRAM}\\\"\")
    endif()
    foreach(name desktop service)
        configure_file(\"${TARNWICK_LINUX_PACKAGING}/example.quorlane.Tarnwick.\${name}.in\"
            \"\${generated}/example.quorlane.Tarnwick.\${name}\" @ONLY)
    endforeach()
    file(INSTALL \"\${generated}/example.quorlane.Tarnwick.desktop\"
        DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/applications\")
    file(INSTALL \"\${generated}/example.quorlane.Tarnwick.service\"
        DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/dbus-1/services\")")

add_custom_target(uninstall
    COMMAND "${CMAKE_COMMAND}" "-DMANIFEST=${PROJECT_BINARY_DIR}/install_manifest.txt"
        -P "${TARNWICK_LINUX_PACKAGING}/uninstall.cmake"
    VERBATIM)

include("${TARNWICK_LINUX_PACKAGING}/deb.cmake")
