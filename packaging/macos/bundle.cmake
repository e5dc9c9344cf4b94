# Makes the program a bundle, and the bundle a disk image.
find_program(TARNWICK_MACDEPLOYQT macdeployqt HINTS "${Qt6_DIR}/../../../bin" REQUIRED)

set(folder "${CMAKE_CURRENT_LIST_DIR}")
set(icon "${folder}/Tarnwick.icns")
set(pictures
    "${PROJECT_SOURCE_DIR}/resources/TarnwickMenuBarIcon.png"
    "${PROJECT_SOURCE_DIR}/resources/TarnwickMenuBarInverseIcon.png")

target_sources(tarnwick PRIVATE "${icon}" ${pictures})
set_source_files_properties("${icon}" ${pictures} TARGET_DIRECTORY tarnwick
    PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
set_target_properties(tarnwick PROPERTIES
    OUTPUT_NAME Tarnwick
    MACOSX_BUNDLE ON
    MACOSX_BUNDLE_INFO_PLIST "${folder}/Info.plist.in"
    MACOSX_BUNDLE_BUNDLE_NAME Tarnwick
    MACOSX_BUNDLE_GUI_IDENTIFIER example.quorlane.Tarnwick
    MACOSX_BUNDLE_ICON_FILE Tarnwick
    MACOSX_BUNDLE_SHORT_VERSION_STRING "${PROJECT_VERSION}"
    MACOSX_BUNDLE_BUNDLE_VERSION "${PROJECT_VERSION}")

install(TARGETS tarnwick BUNDLE DESTINATION .)
# Qt's libraries and plugins go into the bundle, which takes their signatures away; so all is signed anew: see docs/macos.md.
install(CODE "
    execute_process(
        COMMAND \"${TARNWICK_MACDEPLOYQT}\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/Tarnwick.app\" -always-overwrite
        COMMAND_ERROR_IS_FATAL ANY)
    execute_process(
        COMMAND \"${folder}/sign\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/Tarnwick.app\"
        COMMAND_ERROR_IS_FATAL ANY)")

set(CPACK_GENERATOR DragNDrop)
set(CPACK_PACKAGE_NAME Tarnwick)
set(CPACK_PACKAGE_VENDOR Quorlane)
set(CPACK_PACKAGE_FILE_NAME "Tarnwick-${PROJECT_VERSION}-macos")
set(CPACK_DMG_VOLUME_NAME Tarnwick)
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_DMG_SLA_USE_RESOURCE_FILE_LICENSE OFF)
include(CPack)
