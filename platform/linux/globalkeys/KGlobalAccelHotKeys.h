// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/globalkeys/GlobalHotKeys.h"

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QMap>

namespace tarnwick {

/// Hot keys by Plasma's service for global shortcuts, org.kde.kglobalaccel, among whose shortcuts in the
/// desktop's settings they are. A service that goes and comes back is told of them again. No call waits for
/// it longer than 0.5 s; of one that does not answer by then it is taken that nobody else has the keys.
class KGlobalAccelHotKeys final : public GlobalHotKeys
{
    Q_OBJECT

public:
    KGlobalAccelHotKeys(const QDBusConnection& bus, Session session);
    /// Gives all of them back: the desktop keeps what is left to it for good.
    ~KGlobalAccelHotKeys() override;

    /// Whether that service is on the bus, or would be started, and belongs to the compositor. That of
    /// another desktop takes keys from an X server.
    [[nodiscard]] static bool isOffered(const QDBusConnection& bus);

    [[nodiscard]] TriggerHint hotKeyHint(quint32 keyCode, quint32 modifiers) const override;
    /// Plasma's settings have an extra button press keys, whichever the settings name.
    [[nodiscard]] TriggerHint mouseButtonHint(quint64 button) const override;
    [[nodiscard]] std::optional<QString> ownerOf(quint32 keyCode, quint32 modifiers) const override;
    void setBus(const QDBusConnection& bus) override;
    void layoutChanged() override;

protected:
    [[nodiscard]] bool take(const Registered& hotKey, const TriggerKey& key) override;
    void giveBack(const Registered& hotKey) override;

private Q_SLOTS:
    void _pressed(const QString& component, const QString& action, qlonglong time);
    void _released(const QString& component, const QString& action, qlonglong time);
    void _keysChanged(const QDBusMessage& message);

private:
    void _follow();
    void _stopFollowing();
    void _registerAgain();
    [[nodiscard]] bool _knows(const QString& component, const QString& action) const;

    QDBusConnection _bus;
    QDBusServiceWatcher _watcher;
    QMap<QString, int> _granted; ///< by action the key that the desktop has given it
};

} // namespace tarnwick
