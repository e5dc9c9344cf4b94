# The adapters in three groups. Those in C++ run in the tests of every system, on simulated frameworks; those that put
# the desktop together are compiled there; those in Objective-C++ are checked with clang.
set(TARNWICK_MACOS_SIMULATED
    AXAccessibility.cpp
    AppServiceLoginItems.cpp
    CFDefaultsStore.cpp
    CGScreens.cpp
    CarbonFrontSwitch.cpp
    CarbonFrontSwitch.h
    CarbonHotKeys.cpp
    CarbonSymbolicHotKeys.cpp
    CfText.cpp
    CfValue.cpp
    MacApplication.cpp
    MacApplication.h
    MacBundle.cpp
    MacKeyboard.cpp
    MacMenuPresenter.cpp
    MacMenuPresenter.h
    QuartzEventTaps.cpp
    ReopenEvent.cpp
    SharedFileListLoginItems.cpp
    TISKeyboardLayout.cpp
    TemplateImage.cpp)
set(TARNWICK_MACOS_COMPILED
    MacSession.cpp
    SystemSymbol.cpp
    openDesktop.cpp
    openInspection.cpp)
set(TARNWICK_MACOS_OBJC
    AppKitAlerts.mm
    AppKitMenus.mm
    AppKitStatusBar.mm
    AppKitWindows.mm
    AppKitWorkspace.mm
    AppService.mm
    NsFont.mm
    TWNativeMenu.mm)
# A file that is in none of them would be built on a Mac by nobody, and checked by nobody here.
file(GLOB present CONFIGURE_DEPENDS RELATIVE "${CMAKE_CURRENT_LIST_DIR}"
    "${CMAKE_CURRENT_LIST_DIR}/*.cpp" "${CMAKE_CURRENT_LIST_DIR}/*.mm")
list(REMOVE_ITEM present ${TARNWICK_MACOS_SIMULATED} ${TARNWICK_MACOS_COMPILED} ${TARNWICK_MACOS_OBJC})
if(present)
    message(FATAL_ERROR "platform/macos/Sources.cmake does not name: ${present}")
endif()
set(foreign ${TARNWICK_MACOS_SIMULATED} ${TARNWICK_MACOS_COMPILED})
list(FILTER foreign INCLUDE REGEX "\\.mm$")
if(foreign)
    message(FATAL_ERROR "platform/macos/Sources.cmake: only TARNWICK_MACOS_OBJC is checked with clang, not ${foreign}")
endif()
foreach(group SIMULATED COMPILED OBJC)
    list(TRANSFORM TARNWICK_MACOS_${group} PREPEND "${PROJECT_SOURCE_DIR}/platform/macos/")
endforeach()
