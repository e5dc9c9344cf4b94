// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/globalkeys/KGlobalAccelTypes.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>
#include <QMutex>
#include <QThread>

#include <optional>

namespace tarnwick {

/// Plasma's service for global shortcuts, on a connection and in a thread of its own: it is asked by whoever
/// waits for it.
class FakeKGlobalAccel final : public QDBusVirtualObject
{
public:
    /// One set of keys of one program.
    struct Shortcut
    {
        QStringList id; ///< component, action, and what both are called
        QList<int> keys;
        uint flags = 0;
    };

    explicit FakeKGlobalAccel(const QString& address);
    ~FakeKGlobalAccel() override;

    /// Lever: keys that another program has.
    void giveToAnother(int key, const QStringList& id);
    /// Lever: it comes to the bus, or goes, and forgets everything as it does.
    void appear();
    void vanish();
    /// Lever: calls are taken and not answered.
    void setSilent(bool silent);
    /// Lever: the person presses and releases a key, or holds it until it repeats. False when nobody has it.
    bool press(int key, int repeats = 0);
    /// Lever: a press that is told without its release.
    bool pressOnly(int key);
    /// Lever: the person chooses another key in the desktop's settings.
    void change(const QString& action, int key);

    /// Look: ours, by action.
    [[nodiscard]] QMap<QString, Shortcut> ours() const;
    [[nodiscard]] QStringList introduced() const;

    [[nodiscard]] QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    [[nodiscard]] QVariant _set(const Shortcut& wanted);
    [[nodiscard]] QVariant _byKey(int key) const;
    [[nodiscard]] std::optional<QStringList> _holder(int key) const;
    void _tell(const QString& signal, const QStringList& id);

    mutable QMutex _mutex;
    QThread _thread;
    QDBusConnection _bus;
    QMap<QString, Shortcut> _ours;
    QMap<int, QStringList> _others;
    QStringList _introduced;
    bool _silent = false;
};

} // namespace tarnwick
