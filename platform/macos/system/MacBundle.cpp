// SPDX-License-Identifier: MIT
#include "platform/macos/system/MacBundle.h"

#include "platform/macos/system/CfText.h"

namespace tarnwick {

QString mainBundlePath()
{
    const auto bundle = CFBundleGetMainBundle();
    if (!bundle)
        return {};
    const CfOwned<CFURLRef> url(CFBundleCopyBundleURL(bundle));
    return filePathOf(url.get());
}

QString mainBundleResource(const QString& name, const QString& type)
{
    const auto bundle = CFBundleGetMainBundle();
    const CfOwned<CFStringRef> base = cfString(name);
    const CfOwned<CFStringRef> ending = cfString(type);
    if (!bundle || !base || !ending)
        return {};
    const CfOwned<CFURLRef> url(CFBundleCopyResourceURL(bundle, base.get(), ending.get(), nullptr));
    return filePathOf(url.get());
}

} // namespace tarnwick
