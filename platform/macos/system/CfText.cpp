// SPDX-License-Identifier: MIT
#include "platform/macos/system/CfText.h"

namespace tarnwick {

static_assert(sizeof(UniChar) == sizeof(QChar));

CfOwned<CFStringRef> cfString(const QString& text)
{
    const auto* units = reinterpret_cast<const UniChar*>(text.utf16());
    return CfOwned<CFStringRef>(
        CFStringCreateWithCharacters(kCFAllocatorDefault, units, static_cast<CFIndex>(text.size())));
}

QString textOfString(CFStringRef string)
{
    if (!string)
        return {};
    const CFIndex length = CFStringGetLength(string);
    QString text(length, QChar());
    CFStringGetCharacters(string, CFRangeMake(0, length), reinterpret_cast<UniChar*>(text.data()));
    return text;
}

CfOwned<CFURLRef> cfFileUrl(const QString& path, bool isDirectory)
{
    const CfOwned<CFStringRef> text = cfString(path);
    if (!text)
        return nullptr;
    return CfOwned<CFURLRef>(
        CFURLCreateWithFileSystemPath(kCFAllocatorDefault, text.get(), kCFURLPOSIXPathStyle, isDirectory));
}

QString filePathOf(CFURLRef url)
{
    if (!url)
        return {};
    const CfOwned<CFURLRef> absolute(CFURLCopyAbsoluteURL(url));
    if (!absolute)
        return {};
    const CfOwned<CFStringRef> path(CFURLCopyFileSystemPath(absolute.get(), kCFURLPOSIXPathStyle));
    return textOfString(path.get());
}

} // namespace tarnwick
