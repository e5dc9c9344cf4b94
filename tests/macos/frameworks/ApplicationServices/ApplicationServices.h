// SPDX-License-Identifier: MIT
// The part of Application Services that the adapters use: Quartz displays and event taps, accessibility.
#pragma once

#include <CoreServices/CoreServices.h>

extern "C" {

// Geometry.
using CGFloat = double;
struct CGPoint
{
    CGFloat x;
    CGFloat y;
};
struct CGSize
{
    CGFloat width;
    CGFloat height;
};
struct CGRect
{
    CGPoint origin;
    CGSize size;
};

// Displays.
using CGError = SInt32;
enum : CGError { kCGErrorSuccess = 0 };
using CGDirectDisplayID = UInt32;
CGDirectDisplayID CGMainDisplayID(void);
CGRect CGDisplayBounds(CGDirectDisplayID display);
CGError CGGetActiveDisplayList(UInt32 maxDisplays, CGDirectDisplayID* displays, UInt32* displayCount);

// Events and event taps.
using CGEventRef = struct __CGEvent*;
using CGEventSourceRef = struct __CGEventSource*;
using CGEventTapProxy = struct __CGEventTapProxy*;
using CGEventMask = UInt64;
enum CGEventType : UInt32 {
    kCGEventOtherMouseDown = 25,
    kCGEventTapDisabledByTimeout = 0xFFFFFFFE,
    kCGEventTapDisabledByUserInput = 0xFFFFFFFF,
};
enum CGEventTapLocation : UInt32 {
    kCGHIDEventTap = 0,
    kCGSessionEventTap = 1,
    kCGAnnotatedSessionEventTap = 2
};
enum CGEventTapPlacement : UInt32 { kCGHeadInsertEventTap = 0, kCGTailAppendEventTap = 1 };
enum CGEventTapOptions : UInt32 { kCGEventTapOptionDefault = 0 };
using CGEventTapCallBack = CGEventRef (*)(CGEventTapProxy proxy, CGEventType type, CGEventRef event,
                                          void* userInfo);
CFMachPortRef CGEventTapCreate(CGEventTapLocation tap, CGEventTapPlacement place, CGEventTapOptions options,
                               CGEventMask eventsOfInterest, CGEventTapCallBack callback, void* userInfo);
void CGEventTapEnable(CFMachPortRef tap, bool enable);
CGEventRef CGEventCreate(CGEventSourceRef source);
CGPoint CGEventGetLocation(CGEventRef event);

// Accessibility.
using AXUIElementRef = const struct __AXUIElement*;
using AXValueRef = const struct __AXValue*;
enum AXError : SInt32 {
    kAXErrorSuccess = 0,
    kAXErrorIllegalArgument = -25201,
    kAXErrorInvalidUIElement = -25202,
    kAXErrorCannotComplete = -25204,
    kAXErrorAttributeUnsupported = -25205,
    kAXErrorActionUnsupported = -25206,
    kAXErrorAPIDisabled = -25211,
    kAXErrorNoValue = -25212,
};
enum AXValueType : UInt32 {
    kAXValueTypeIllegal = 0,
    kAXValueTypeCGPoint = 1,
    kAXValueTypeCGSize = 2,
    kAXValueTypeCGRect = 3,
    kAXValueTypeCFRange = 4,
};
extern const CFStringRef kAXTrustedCheckOptionPrompt;
Boolean AXIsProcessTrusted(void);
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options);
AXUIElementRef AXUIElementCreateSystemWide(void);
AXUIElementRef AXUIElementCreateApplication(pid_t processIdentifier);
CFTypeID AXUIElementGetTypeID(void);
AXError AXUIElementGetPid(AXUIElementRef element, pid_t* processIdentifier);
AXError AXUIElementCopyAttributeNames(AXUIElementRef element, CFArrayRef* names);
AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef* value);
AXError AXUIElementGetAttributeValueCount(AXUIElementRef element, CFStringRef attribute, CFIndex* count);
AXError AXUIElementIsAttributeSettable(AXUIElementRef element, CFStringRef attribute, Boolean* settable);
AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef value);
AXError AXUIElementCopyActionNames(AXUIElementRef element, CFArrayRef* names);
AXError AXUIElementCopyActionDescription(AXUIElementRef element, CFStringRef action,
                                         CFStringRef* description);
AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef action);
AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float timeoutInSeconds);
CFTypeID AXValueGetTypeID(void);
AXValueRef AXValueCreate(AXValueType type, const void* value);
AXValueType AXValueGetType(AXValueRef value);
Boolean AXValueGetValue(AXValueRef value, AXValueType type, void* result);

} // extern "C"
