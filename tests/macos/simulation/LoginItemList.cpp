// SPDX-License-Identifier: MIT
// Simulated shared file lists.
#include "tests/macos/simulation/MacObject.h"
#include "tests/macos/simulation/SimulatedMac.h"

#include <CoreServices/CoreServices.h>

using namespace Qt::StringLiterals;
using namespace tarnwick;

namespace {

SimulatedMac& mac()
{
    return SimulatedMac::instance();
}
MacObjects& objects()
{
    return MacObjects::instance();
}

struct MacFileList final : MacHandle
{
};
struct MacFileListItem final : MacHandle
{
    QString path;
};

char beforeFirst = 0;

MacFileListItem* itemFor(const QString& path)
{
    auto* item = objects().make<MacFileListItem>();
    item->path = path;
    return item;
}

CFStringRef permanentString(const char16_t* text)
{
    auto* string = objects().makePermanent<MacString>();
    string->text = QString::fromUtf16(text);
    return referenceTo<CFStringRef>(string);
}

} // namespace

const CFStringRef kLSSharedFileListSessionLoginItems =
    permanentString(u"com.apple.LSSharedFileList.SessionLoginItems");
const LSSharedFileListItemRef kLSSharedFileListItemBeforeFirst =
    reinterpret_cast<LSSharedFileListItemRef>(&beforeFirst);

LSSharedFileListRef LSSharedFileListCreate(CFAllocatorRef allocator, CFStringRef listType,
                                           CFTypeRef listOptions)
{
    mac().record(u"LSSharedFileListCreate"_s,
                 {allocator == kCFAllocatorDefault, textOf(listType), listOptions == nullptr});
    if (mac().failure(u"LSSharedFileListCreate"_s))
        return nullptr;
    return handOut<LSSharedFileListRef>(objects().make<MacFileList>(), u"LSSharedFileListCreate"_s);
}

CFArrayRef LSSharedFileListCopySnapshot(LSSharedFileListRef list, UInt32* seed)
{
    (void)objects().find<MacFileList>(list);
    mac().record(u"LSSharedFileListCopySnapshot"_s, {*seed});
    if (mac().failure(u"LSSharedFileListCopySnapshot"_s))
        return nullptr;
    *seed = 12;
    auto* array = objects().make<MacArray>();
    for (const QString& path : std::as_const(mac().loginItems)) {
        array->items.append(itemFor(path));
        array->items.last()->madeBy = u"LSSharedFileListCopySnapshot"_s;
        MacObjects::hold(array->items.last());
    }
    return handOut<CFArrayRef>(array, u"LSSharedFileListCopySnapshot"_s);
}

LSSharedFileListItemRef LSSharedFileListInsertItemURL(LSSharedFileListRef list,
                                                      LSSharedFileListItemRef insertAfter,
                                                      CFStringRef displayName, IconRef icon, CFURLRef url,
                                                      CFDictionaryRef propertiesToSet,
                                                      CFArrayRef propertiesToClear)
{
    (void)objects().find<MacFileList>(list);
    const auto* target = objects().find<MacUrl>(url);
    mac().record(u"LSSharedFileListInsertItemURL"_s,
                 {insertAfter == kLSSharedFileListItemBeforeFirst, displayName == nullptr, icon == nullptr,
                  target ? target->text : QString(), propertiesToSet == nullptr,
                  propertiesToClear == nullptr});
    if (mac().failure(u"LSSharedFileListInsertItemURL"_s) || !target)
        return nullptr;
    mac().loginItems.prepend(target->path);
    return handOut<LSSharedFileListItemRef>(itemFor(target->path), u"LSSharedFileListInsertItemURL"_s);
}

OSStatus LSSharedFileListItemResolve(LSSharedFileListItemRef item, LSSharedFileListResolutionFlags flags,
                                     CFURLRef* url, FSRef* file)
{
    mac().record(u"LSSharedFileListItemResolve"_s, {flags, file == nullptr});
    if (const auto status = mac().failure(u"LSSharedFileListItemResolve"_s))
        return *status;
    const auto* object = objects().find<MacFileListItem>(item);
    if (!object || object->path.isEmpty())
        return -43; // no such file
    *url = handOut<CFURLRef>(urlFor(object->path, object->path.endsWith(u".app"_s)),
                             u"LSSharedFileListItemResolve"_s);
    return noErr;
}

OSStatus LSSharedFileListItemRemove(LSSharedFileListRef list, LSSharedFileListItemRef item)
{
    (void)objects().find<MacFileList>(list);
    const auto* object = objects().find<MacFileListItem>(item);
    mac().record(u"LSSharedFileListItemRemove"_s, {object ? object->path : QString()});
    if (const auto status = mac().failure(u"LSSharedFileListItemRemove"_s))
        return *status;
    if (object)
        mac().loginItems.removeOne(object->path);
    return noErr;
}
