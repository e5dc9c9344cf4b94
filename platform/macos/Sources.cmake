# The adapters in three groups. Those in C++ run in the tests of every system, on simulated frameworks; those that put
# the desktop together are compiled there; those in Objective-C++ are checked with clang.
set(TARNWICK_MACOS_SIMULATED
    AXAccessibility.cpp
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
    SystemFunction.cpp
    openDesktop.cpp
    openInspection.cpp)
set(TARNWICK_MACOS_OBJC
    AppKitAlerts.mm
    AppKitMenus.mm
    AppKitStatusBar.mm
    AppKitWindows.mm
    AppKitWorkspace.mm
    AppServiceLoginItems.mm
    NsFont.mm
    TWNativeMenu.mm)
foreach(group SIMULATED COMPILED OBJC)
    list(TRANSFORM TARNWICK_MACOS_${group} PREPEND "${PROJECT_SOURCE_DIR}/platform/macos/")
endforeach()
