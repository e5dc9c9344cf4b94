// SPDX-License-Identifier: MIT
// The part of Carbon that the adapters use: event handlers, hot keys, symbolic hot keys, text input sources.
#pragma once

#include <ApplicationServices/ApplicationServices.h>

extern "C" {

// Event handlers.
using EventRef = struct OpaqueEventRef*;
using EventTargetRef = struct OpaqueEventTargetRef*;
using EventHandlerRef = struct OpaqueEventHandlerRef*;
using EventHandlerCallRef = struct OpaqueEventHandlerCallRef*;
using EventHandlerUPP = OSStatus (*)(EventHandlerCallRef next, EventRef event, void* userData);
struct EventTypeSpec
{
    OSType eventClass;
    UInt32 eventKind;
};
enum : OSType {
    kEventClassKeyboard = 0x6B657962,    // keyb
    kEventClassApplication = 0x6170706C, // appl
};
enum : UInt32 { kEventHotKeyPressed = 5, kEventAppFrontSwitched = 7 };
enum { eventHotKeyExistsErr = -9878, eventHotKeyInvalidErr = -9879 };
using EventTime = double; // seconds since the system has started
EventTargetRef GetApplicationEventTarget(void);
EventTime GetCurrentEventTime(void);
EventTime GetEventTime(EventRef event);
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount typeCount,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* handlerRef);

// Hot keys.
enum { cmdKey = 0x100, shiftKey = 0x200, optionKey = 0x800, controlKey = 0x1000 };
using EventHotKeyRef = struct OpaqueEventHotKeyRef*;
struct EventHotKeyID
{
    OSType signature;
    UInt32 id;
};
OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id, EventTargetRef target,
                             OptionBits options, EventHotKeyRef* hotKey);
OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey);

// Symbolic hot keys.
#define kHISymbolicHotKeyCode CFSTR("kHISymbolicHotKeyCode")
#define kHISymbolicHotKeyModifiers CFSTR("kHISymbolicHotKeyModifiers")
#define kHISymbolicHotKeyEnabled CFSTR("kHISymbolicHotKeyEnabled")
enum : OptionBits { kHIHotKeyModeAllDisabled = 1 };
OSStatus CopySymbolicHotKeys(CFArrayRef* hotKeys);
void* PushSymbolicHotKeyMode(OptionBits options);
void PopSymbolicHotKeyMode(void* token);

// Text input sources.
using TISInputSourceRef = struct __TISInputSource*;
extern const CFStringRef kTISPropertyUnicodeKeyLayoutData;
extern const CFStringRef kTISNotifySelectedKeyboardInputSourceChanged;
TISInputSourceRef TISCopyCurrentKeyboardInputSource(void);
void* TISGetInputSourceProperty(TISInputSourceRef source, CFStringRef property);
UInt8 LMGetKbdType(void);

} // extern "C"
