// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/front/FrontHint.h"

#include <QDBusConnection>
#include <QList>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <utility>

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
        Show,           ///< the user started the program again
        PopUp,          ///< the action "pop-up"
        PopUpByPointer, ///< the action "pop-up-by-pointer"
        Search,         ///< the action "search"
    };

    /// `hint` has come with the action.
    using Requested = std::function<void(Request request, const FrontHint& hint)>;
    /// From now on `requested` runs for every request, later, from the event loop; once for all of a kind
    /// that came before, with the last one's hint.
    void setRequested(Requested requested);

public Q_SLOTS:
    /// An activation token that comes with it is the next activated window's.
    void Activate(const QVariantMap& platformData);
    /// There are no documents: does nothing.
    void Open(const QStringList& uris, const QVariantMap& platformData);
    /// "pop-up" has the menu opened at the pointer; its parameter may tell where that is, and over which
    /// window (PopUpParameter.h). So has "pop-up-by-pointer", for a person who has no hand at the keyboard.
    /// "search" opens it in its search.
    /// Others do nothing.
    void ActivateAction(const QString& action, const QVariantList& parameter,
                        const QVariantMap& platformData);

private:
    void _claim();
    [[nodiscard]] bool _activateOther();
    void _request(Request request, const FrontHint& hint = {});
    void _deliver();

    QDBusConnection _bus;
    bool _anotherIsRunning = false;
    QList<std::pair<Request, FrontHint>> _waiting;
    Requested _requested;
};

} // namespace tarnwick
