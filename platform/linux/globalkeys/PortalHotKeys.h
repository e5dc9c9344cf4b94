// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/globalkeys/GlobalHotKeys.h"
#include "platform/linux/globalkeys/PortalTypes.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>
#include <QMap>

#include <memory>
#include <optional>

class QDBusPendingCallWatcher;

namespace tarnwick {

/// Hot keys by the desktop portal, org.freedesktop.portal.GlobalShortcuts: keys are proposed to it, and what
/// it gives counts. It may ask the person, who may take minutes: nothing waits for it, and all hot keys count
/// as registered meanwhile. Where the portal has no such shortcuts it is as without it: see
/// ConfiguredHotKeys.
class PortalHotKeys final : public GlobalHotKeys
{
    Q_OBJECT

public:
    /// Speaks to the portal on a connection of its own, to the bus at this address: the portal takes what a
    /// connection says first about its program for good.
    PortalHotKeys(QString address, Session session);
    ~PortalHotKeys() override;

    /// Whether a portal is on the bus, or would be started.
    [[nodiscard]] static bool isOffered(const QDBusConnection& bus);

    [[nodiscard]] TriggerHint hotKeyHint(quint32 keyCode, quint32 modifiers) const override;
    /// When the session bus has gone or has come back, at the same address.
    void setBus(const QDBusConnection& bus) override;

protected:
    [[nodiscard]] bool take(const Registered& hotKey, const TriggerKey& key) override;
    void giveBack(const Registered& hotKey) override;

private Q_SLOTS:
    void _answered(uint response, const QVariantMap& results);
    void _activated(const QDBusObjectPath& session, const QString& id, qulonglong time,
                    const QVariantMap& options);
    void _deactivated(const QDBusObjectPath& session, const QString& id, qulonglong time,
                      const QVariantMap& options);
    void _shortcutsChanged(const QDBusMessage& message);
    void _sessionClosed(const QDBusMessage& message);

private:
    enum class State {
        Idle,       ///< no hot key
        NotOffered, ///< no portal, or none that has shortcuts
        Looking,    ///< for a portal that has some
        Asked,      ///< it has not answered yet
        Answered,
        Refused,
    };

    void _connect();
    void _disconnect();
    void _portalGone();
    void _beginAgain();
    void _begin();
    void _createSession();
    void _bind();
    void _endSession();
    void _setState(State state);
    /// Sends a call that is answered by a signal of a request, which goes to `then`.
    void _request(const QString& method, QVariantList arguments, QVariantMap options,
                  void (PortalHotKeys::*then)(const QVariantMap& results));
    void _sessionCreated(const QVariantMap& results);
    void _bound(const QVariantMap& results);
    void _forgetRequest();
    void _takeDescriptions(const QList<PortalShortcut>& shortcuts);
    [[nodiscard]] bool _knows(const QDBusObjectPath& session, const QString& id) const;

    QString _address;
    QString _connectionName;
    std::optional<QDBusConnection> _bus;
    std::unique_ptr<QDBusServiceWatcher> _watcher;
    State _state = State::Idle;
    bool _offered = false; ///< the portal that is there has shortcuts
    quint64 _round = 0;    ///< answers to earlier ones do not count
    int _tokens = 0;
    QString _requestPath; ///< whose answer is awaited
    void (PortalHotKeys::*_then)(const QVariantMap& results) = nullptr;
    QString _session;                ///< its path; empty without one
    QMap<QString, QString> _granted; ///< by id what the desktop calls the keys
};

} // namespace tarnwick
