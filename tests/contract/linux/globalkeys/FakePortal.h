// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/globalkeys/PortalTypes.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QList>

namespace tarnwick {

/// A desktop portal on a connection of its own.
class FakePortal final : public QDBusVirtualObject
{
public:
    enum class Person { Grants, Refuses, IsAsked };

    Person person = Person::Grants; ///< lever
    bool hasShortcuts = true;       ///< lever
    QString grantsInstead;          ///< lever: these keys, and not those that were proposed
    bool grantsNoKeys = false;      ///< lever: the shortcut is known, and no keys for it
    QStringList calls;              ///< look: the methods, in order
    QStringList programs;           ///< look: what connections have said they are
    QString program;                ///< look: the name on the bus of the last one
    QList<PortalShortcut> bound;    ///< look: what the session has
    QString session;                ///< look: its path; empty without one
    int closedRequests = 0;         ///< look

    explicit FakePortal(const QString& address);
    ~FakePortal() override;

    /// Lever: it comes to the bus, or goes and forgets everything.
    void appear();
    void vanish();
    /// Lever: the person has read the dialog.
    void answer(Person how);
    /// Lever: the person presses and releases the keys. False when nobody has them.
    bool press(const QString& keys);
    /// Lever: the desktop's settings give other keys.
    void change(const QString& id, const QString& keys);
    void closeSession();
    /// Returns when the bus has all that this has sent.
    void flush() const { flush(_bus); }
    /// Returns when all that the bus has sent so far to a connection waits in this thread.
    static void flush(const QDBusConnection& connection);

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    void _createSession(const QDBusMessage& message);
    void _bind(const QDBusMessage& message);
    void _respond(uint response, const QVariantMap& results);
    void _signal(const QString& path, const QString& interface, const QString& name,
                 const QVariantList& arguments) const;

    QDBusConnection _bus;
    QString _request; ///< the one that is being answered
    QList<PortalShortcut> _wanted;
};

} // namespace tarnwick
