# The adapters in C++, which the tests compile on every system, and those in Objective-C++.
set(TARNWICK_MACOS_SOURCES
    AXAccessibility.cpp
    CFDefaultsStore.cpp
    CGScreens.cpp
    CarbonFrontSwitch.cpp
    CarbonFrontSwitch.h
    CarbonHotKeys.cpp
    CarbonSymbolicHotKeys.cpp
    CfText.cpp
    CfValue.cpp
    QuartzEventTaps.cpp
    SharedFileListLoginItems.cpp
    TISKeyboardLayout.cpp)
list(TRANSFORM TARNWICK_MACOS_SOURCES PREPEND "${PROJECT_SOURCE_DIR}/platform/macos/")
