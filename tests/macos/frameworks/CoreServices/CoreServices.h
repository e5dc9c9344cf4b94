// SPDX-License-Identifier: MIT
// The part of Core Services that the adapters use: shared file lists, Apple events, translation of key codes.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

extern "C" {

// Shared file lists.
using LSSharedFileListRef = struct OpaqueLSSharedFileListRef*;
using LSSharedFileListItemRef = struct OpaqueLSSharedFileListItemRef*;
using LSSharedFileListResolutionFlags = UInt32;
enum : LSSharedFileListResolutionFlags {
    kLSSharedFileListNoUserInteraction = 1,
    kLSSharedFileListDoNotMountVolumes = 2,
};
using IconRef = struct OpaqueIconRef*;
struct FSRef;
extern const CFStringRef kLSSharedFileListSessionLoginItems;
extern const LSSharedFileListItemRef kLSSharedFileListItemBeforeFirst;
LSSharedFileListRef LSSharedFileListCreate(CFAllocatorRef allocator, CFStringRef listType,
                                           CFTypeRef listOptions);
CFArrayRef LSSharedFileListCopySnapshot(LSSharedFileListRef list, UInt32* seed);
LSSharedFileListItemRef LSSharedFileListInsertItemURL(LSSharedFileListRef list,
                                                      LSSharedFileListItemRef insertAfter,
                                                      CFStringRef displayName, IconRef icon, CFURLRef url,
                                                      CFDictionaryRef propertiesToSet,
                                                      CFArrayRef propertiesToClear);
OSStatus LSSharedFileListItemResolve(LSSharedFileListItemRef item, LSSharedFileListResolutionFlags flags,
                                     CFURLRef* url, FSRef* file);
OSStatus LSSharedFileListItemRemove(LSSharedFileListRef list, LSSharedFileListItemRef item);

// Apple events.
struct AEDesc;
using AppleEvent = AEDesc;
using SRefCon = void*;
using AEEventClass = OSType;
using AEEventID = OSType;
using AEEventHandlerUPP = OSErr (*)(const AppleEvent* event, AppleEvent* reply, SRefCon context);
enum : OSType { kCoreEventClass = 0x61657674 /* aevt */, kAEReopenApplication = 0x72617070 /* rapp */ };
enum { errAEEventNotHandled = -1708 };
OSErr AEInstallEventHandler(AEEventClass eventClass, AEEventID eventId, AEEventHandlerUPP handler,
                            SRefCon context, Boolean isSystemHandler);

// Key codes to characters.
struct UCKeyboardLayout;
enum : UInt16 { kUCKeyActionDisplay = 3 };
OSStatus UCKeyTranslate(const UCKeyboardLayout* layout, UInt16 virtualKeyCode, UInt16 keyAction,
                        UInt32 modifierKeyState, UInt32 keyboardType, OptionBits options,
                        UInt32* deadKeyState, UniCharCount maxLength, UniCharCount* actualLength,
                        UniChar units[]);

} // extern "C"
