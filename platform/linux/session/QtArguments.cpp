// SPDX-License-Identifier: MIT
#include "platform/linux/session/QtArguments.h"

#include <QtGlobal>

namespace tarnwick {

namespace {

bool withoutDisplay(const QByteArray& platform)
{
    return platform.startsWith("offscreen") || platform.startsWith("minimal");
}

} // namespace

QtArguments::QtArguments(int argc, char** argv, const QByteArray& platform)
{
    for (int i = 0; i < argc; ++i)
        _texts.append(QByteArray(argv[i]));
    const bool asked = _texts.contains("-platform") || _texts.contains("--platform");
    const qsizetype behindName = qMin<qsizetype>(1, _texts.size());
    if (!asked && !withoutDisplay(qgetenv("QT_QPA_PLATFORM"))) {
        _texts.insert(behindName, platform);
        _texts.insert(behindName, "-platform");
    }
    _texts.insert(behindName, "-nograb");
    for (QByteArray& text : _texts)
        _argv.append(text.data());
    _argc = int(_argv.size());
    _argv.append(nullptr);
}

} // namespace tarnwick
