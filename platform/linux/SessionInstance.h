// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

#include <functional>

namespace tarnwick {

/// The one Tarnwick of a session, known by its name on the session bus, as org.freedesktop.Application
/// describes it. Claims the name when made; without a session bus there is nobody to share with.
class SessionInstance final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit SessionInstance(const QDBusConnection& bus);
    ~SessionInstance() override;

    /// True when another instance has the name; it has then been asked to show itself.
    [[nodiscard]] bool anotherIsRunning() const { return _anotherIsRunning; }

    /// From now on `activated` runs for every request to show this instance, later, from the event loop;
    /// once for all that came before.
    void setActivated(std::function<void()> activated);

public Q_SLOTS:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& action, const QVariantList& parameter,
                        const QVariantMap& platformData);

private:
    void _claim();
    [[nodiscard]] bool _activateOther();
    void _deliver();

    QDBusConnection _bus;
    bool _anotherIsRunning = false;
    bool _requested = false;
    std::function<void()> _activated;
};

} // namespace tarnwick
