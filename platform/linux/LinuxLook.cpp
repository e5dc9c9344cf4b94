// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxLook.h"

#include "platform/linux/LookSources.h"

#include <QFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

QList<QByteArray> kdeGlobals()
{
    QList<QByteArray> layers;
    const auto paths = QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, u"kdeglobals"_s);
    for (const QString& path : paths)
        if (QFile file(path); file.open(QFile::ReadOnly))
            layers.append(file.readAll());
    return layers;
}

} // namespace

LinuxLook::LinuxLook(const QStringList& currentDesktops, QDBusConnection bus)
    : _kde(currentDesktops.contains(u"KDE"_s))
{
    connect(&_settings, &X11Settings::changed, this, &LinuxLook::_follow);
    if (_kde) {
        // The first when colours and fonts have been changed, the second for the rest of the file.
        bus.connect({}, u"/KGlobalSettings"_s, u"org.kde.KGlobalSettings"_s, u"notifyChange"_s, this,
                    SLOT(_follow()));
        bus.connect({}, u"/kdeglobals"_s, u"org.kde.kconfig.notify"_s, u"ConfigChanged"_s, this,
                    SLOT(_follow()));
    }
    _follow();
}

LinuxLook::~LinuxLook() = default;

void LinuxLook::_follow()
{
    _look = _read();
    applyLook(_look);
}

Look LinuxLook::_read() const
{
    return _kde ? lookOfKdeGlobals(kdeGlobals()) : lookOfXSettings(_settings.values());
}

} // namespace tarnwick
