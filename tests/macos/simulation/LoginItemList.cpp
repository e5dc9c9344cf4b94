// SPDX-License-Identifier: MIT
// Simulated shared file lists. Their functions can only be looked up: a call by name does not link.
#include "tests/macos/simulation/MacObject.h"
#include "tests/macos/simulation/SimulatedMac.h"
#include "tests/macos/simulation/Symbols.h"

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
    [[nodiscard]] QVariant value() const override { return path; }
    QString path;
};

MacFileListItem* itemFor(const QString& path)
{
    auto* item = objects().make<MacFileListItem>();
    item->path = path;
    return item;
}

/// Where the insertion goes: a constant that is no item.
LSSharedFileListItemRef beforeFirst =
    constantHandle<LSSharedFileListItemRef>(u"kLSSharedFileListItemBeforeFirst"_s);
CFStringRef sessionLoginItems =
    constantString<CFStringRef>(u"com.apple.LSSharedFileList.SessionLoginItems"_s);

LSSharedFileListRef create(CFAllocatorRef allocator, CFStringRef listType, CFTypeRef listOptions)
{
    const MacCall call("LSSharedFileListCreate", allocator, listType, listOptions);
    if (call.fails())
        return nullptr;
    return handOut<LSSharedFileListRef>(objects().make<MacFileList>(), call);
}

CFArrayRef copySnapshot(LSSharedFileListRef list, UInt32* seed)
{
    const MacCall call("LSSharedFileListCopySnapshot", list, *seed);
    if (!objects().find<MacFileList>(list) || call.fails())
        return nullptr;
    *seed = 12;
    auto* array = objects().make<MacArray>();
    for (const QString& path : std::as_const(mac().loginItems)) {
        array->items.append(itemFor(path));
        MacObjects::hold(array->items.last());
    }
    return handOut<CFArrayRef>(array, call);
}

LSSharedFileListItemRef insertItemUrl(LSSharedFileListRef list, LSSharedFileListItemRef insertAfter,
                                      CFStringRef displayName, IconRef icon, CFURLRef url,
                                      CFDictionaryRef propertiesToSet, CFArrayRef propertiesToClear)
{
    const MacCall call("LSSharedFileListInsertItemURL", list, insertAfter, displayName, icon, url,
                       propertiesToSet, propertiesToClear);
    const auto* target = objects().find<MacUrl>(url);
    if (!objects().find<MacFileList>(list) || !target || call.fails())
        return nullptr;
    if (!mac().loginListIgnoresInsertions)
        mac().loginItems.prepend(target->path);
    return handOut<LSSharedFileListItemRef>(itemFor(target->path), call);
}

OSStatus resolve(LSSharedFileListItemRef item, LSSharedFileListResolutionFlags flags, CFURLRef* url,
                 FSRef* file)
{
    const MacCall call("LSSharedFileListItemResolve", item, flags, url, file);
    const auto* object = objects().find<MacFileListItem>(item);
    if (call.fails())
        return call.status();
    if (!object || object->path.isEmpty())
        return fnfErr;
    *url = handOut<CFURLRef>(urlFor(object->path, object->path.endsWith(u".app"_s)), call);
    return noErr;
}

OSStatus removeItem(LSSharedFileListRef list, LSSharedFileListItemRef item)
{
    const MacCall call("LSSharedFileListItemRemove", list, item);
    const auto* object = objects().find<MacFileListItem>(item);
    if (call.fails())
        return call.status();
    if (!objects().find<MacFileList>(list) || !object)
        return paramErr;
    mac().loginItems.removeOne(object->path);
    return noErr;
}

} // namespace

void* tarnwick::fileListSymbol(const QString& name)
{
    const std::pair<QString, void*> symbols[] = {
        {u"LSSharedFileListCreate"_s, reinterpret_cast<void*>(&create)},
        {u"LSSharedFileListCopySnapshot"_s, reinterpret_cast<void*>(&copySnapshot)},
        {u"LSSharedFileListInsertItemURL"_s, reinterpret_cast<void*>(&insertItemUrl)},
        {u"LSSharedFileListItemResolve"_s, reinterpret_cast<void*>(&resolve)},
        {u"LSSharedFileListItemRemove"_s, reinterpret_cast<void*>(&removeItem)},
        {u"kLSSharedFileListSessionLoginItems"_s, static_cast<void*>(&sessionLoginItems)},
        {u"kLSSharedFileListItemBeforeFirst"_s, static_cast<void*>(&beforeFirst)},
    };
    for (const auto& [symbol, place] : symbols) {
        if (symbol == name)
            return place;
    }
    return nullptr;
}
