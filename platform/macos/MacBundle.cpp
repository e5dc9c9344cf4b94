// SPDX-License-Identifier: MIT
#include "platform/macos/MacBundle.h"

#include "platform/macos/CfText.h"

namespace tarnwick {

QString mainBundlePath()
{
    const CfOwned<CFURLRef> url(CFBundleCopyBundleURL(CFBundleGetMainBundle()));
    return filePathOf(url.get());
}

QString mainBundleResource(const QString& name, const QString& type)
{
    const CfOwned<CFURLRef> url(CFBundleCopyResourceURL(CFBundleGetMainBundle(), cfString(name).get(),
                                                        cfString(type).get(), nullptr));
    return filePathOf(url.get());
}

} // namespace tarnwick
