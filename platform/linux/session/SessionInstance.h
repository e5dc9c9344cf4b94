// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QList>
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

    /// Has the name on another connection, too, when the bus has come back; whoever has taken it meanwhile
    /// keeps it until it ends.
    void setBus(const QDBusConnection& bus);

    /// True when another instance has the name; it has then been asked to show itself.
    [[nodiscard]] bool anotherIsRunning() const { return _anotherIsRunning; }

    enum class Request {
        Show,  ///< the user started the program again
        PopUp, ///< the action "pop-up"
    };

    /// From now on `requested` runs for every request, later, from the event loop; once for all of a kind
    /// that came before.
    void setRequested(std::function<void(Request)> requested);

public Q_SLOTS:
    void Activate(const QVariantMap& platformData);
    /// There are no documents: does nothing.
    void Open(const QStringList& uris, const QVariantMap& platformData);
    /// "pop-up" has the menu opened at the pointer. Others do nothing, and so do parameters.
    void ActivateAction(const QString& action, const QVariantList& parameter,
                        const QVariantMap& platformData);

private:
    void _claim();
    [[nodiscard]] bool _activateOther();
    void _request(Request request);
    void _deliver();

    QDBusConnection _bus;
    bool _anotherIsRunning = false;
    QList<Request> _waiting;
    std::function<void(Request)> _requested;
};

} // namespace tarnwick
