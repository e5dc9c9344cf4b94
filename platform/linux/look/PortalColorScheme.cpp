// SPDX-License-Identifier: MIT
#include "platform/linux/look/PortalColorScheme.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

const QString Service = u"org.freedesktop.portal.Desktop"_s;
const QString Path = u"/org/freedesktop/portal/desktop"_s;
const QString Interface = u"org.freedesktop.portal.Settings"_s;
const QString Group = u"org.freedesktop.appearance"_s;
const QString Key = u"color-scheme"_s;

/// As the portal numbers them; answers are wrapped once or twice.
ColorScheme colorSchemeOf(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    switch (value.toUInt()) {
    case 1:
        return ColorScheme::Dark;
    case 2:
        return ColorScheme::Light;
    default:
        return ColorScheme::NoPreference;
    }
}

} // namespace

PortalColorScheme::PortalColorScheme(QDBusConnection bus)
    : _bus(std::move(bus)), _portal(Service, _bus, QDBusServiceWatcher::WatchForRegistration)
{
    _bus.connect({}, Path, Interface, u"SettingChanged"_s, this,
                 SLOT(_settingChanged(QString, QString, QDBusVariant)));
    connect(&_portal, &QDBusServiceWatcher::serviceRegistered, this, &PortalColorScheme::_ask);
    _ask();
}

void PortalColorScheme::_ask()
{
    auto question = QDBusMessage::createMethodCall(Service, Path, Interface, u"Read"_s);
    question.setAutoStartService(false);
    question.setArguments({Group, Key});
    auto* answer = new QDBusPendingCallWatcher(_bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            _set(colorSchemeOf(reply.value().variant()));
        answer->deleteLater();
    });
}

void PortalColorScheme::_settingChanged(const QString& group, const QString& key, const QDBusVariant& value)
{
    if (group == Group && key == Key)
        _set(colorSchemeOf(value.variant()));
}

void PortalColorScheme::_set(ColorScheme scheme)
{
    if (std::exchange(_current, scheme) != scheme)
        Q_EMIT changed();
}

} // namespace tarnwick

#include "moc_PortalColorScheme.cpp"
