// SPDX-License-Identifier: MIT
#include "platform/linux/look/LinuxLook.h"

#include "platform/linux/look/LookSources.h"
#include "platform/qt/settings/WholeFile.h"

#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

constexpr qint64 LargestFile = 1024LL * 1024;

QList<QByteArray> kdeGlobals()
{
    QList<QByteArray> layers;
    const auto paths = QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, u"kdeglobals"_s);
    for (const QString& path : paths)
        if (const auto contents = wholeFile(path, LargestFile))
            layers.append(*contents);
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
    } else {
        _scheme = std::make_unique<PortalColorScheme>(bus);
        connect(_scheme.get(), &PortalColorScheme::changed, this, &LinuxLook::_follow);
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
    if (_kde)
        return lookOfKdeGlobals(kdeGlobals());
    return withColorScheme(lookOfXSettings(_settings.values()), _scheme->current());
}

} // namespace tarnwick

#include "moc_LinuxLook.cpp"
