// SPDX-License-Identifier: MIT
#pragma once

#include "tests/macos/simulation/AxNode.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QPointF>
#include <QRectF>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <optional>

namespace tarnwick {

/// The system behind the declarations in tests/macos/frameworks. It writes down every call with its
/// arguments (see MacCall), counts the references that it hands out, and lets a test play the user and the
/// other applications.
class SimulatedMac
{
public:
    struct Call
    {
        QString function;
        QVariantList arguments;
    };
    struct HotKey
    {
        quint32 keyCode = 0;
        quint32 modifiers = 0;
        quint32 signature = 0;
        quint32 id = 0;
    };
    struct SystemHotKey
    {
        QVariant enabled; ///< a boolean, or anything else that the list may hold
        QVariant code;
        QVariant modifiers;
    };
    /// What the current keyboard layout types: characters by key code and modifier state.
    struct InputSource
    {
        bool hasKeyLayout = true;
        QMap<std::pair<quint16, quint32>, QString> characters;
    };

    static SimulatedMac& instance();

    /// A freshly started system: no calls, no references, nothing installed.
    void reset();

    // What has happened.
    [[nodiscard]] const QList<Call>& calls() const { return _calls; }
    [[nodiscard]] QStringList functionsCalled() const;
    /// The calls of some functions among all, in the order in which they were made.
    [[nodiscard]] QStringList orderOf(const QStringList& functions) const;
    [[nodiscard]] QList<QVariantList> callsOf(const QString& function) const;
    /// The functions whose results nobody has released, once for each reference, sorted.
    [[nodiscard]] QStringList unreleased() const;
    /// References released too often or used after their release, foreign objects.
    [[nodiscard]] const QStringList& faults() const { return _faults; }

    // Levers.
    /// From now on `function` does nothing, and gives `status` where it gives one, else null, zero or false.
    /// Any function but CFRetain and CFRelease, which keep the account of references.
    void fail(const QString& function, int status = -1) { _failing.insert(function, status); }
    void repair(const QString& function) { _failing.remove(function); }
    /// The call at this place of calls() fails in the same way, and no other; -1 for none.
    void failOnly(qsizetype call) { _failingCall = call; }
    /// A function or constant that is looked up at run time and that this system does not have.
    void takeAway(const QString& symbol) { _missing.insert(symbol); }

    double now = 1000;                               ///< seconds since the start; goes on with each event
    std::function<void(double)> whileWaiting;        ///< told how long a call has waited, in seconds
    bool loginListIgnoresInsertions = false;         ///< as today's systems may
    bool accessGranted = false;                      ///< to all programs
    bool processTrusted = true;                      ///< to this one; taps need it
    bool answersItself = true;                       ///< to calls that this process makes to itself
    AxNodeRef systemWide;                            ///< null: no accessibility at all
    QList<AxNodeRef> applications;                   ///< found by their process identifiers
    QList<QRectF> displays{QRectF{0, 0, 1440, 900}}; ///< the main one first, top left origin
    QPointF pointer{0, 0};                           ///< top left origin
    std::optional<InputSource> inputSource = InputSource();
    quint8 keyboardType = 44;
    QList<SystemHotKey> systemHotKeys;
    QList<QString> loginItems;           ///< paths, first to last; an empty one cannot be resolved
    std::optional<int> appServiceStatus; ///< 0 none, 1 enabled, 2 to be approved; nothing: no such service
    QMap<QString, QVariant> preferences;
    QString bundlePath = QStringLiteral("/Applications/Tarnwick.app");
    QStringList bundleResources; ///< names with their endings

    /// Presses a hot key: true when a handler has taken the press.
    bool pressHotKey(const HotKey& hotKey);
    /// Makes an application the active one, with the focus of the keyboard: true when a handler has taken the
    /// event. Nothing happens where it is the active one already.
    bool activate(qint64 processIdentifier);
    std::function<void()> activated; ///< what the workspace tells of it, at once
    /// A menu of this program is open. Presses of hot keys and switches that come meanwhile wait, untaken,
    /// for deliverEvents().
    bool menuIsOpen = false;
    /// The event loop after a menu has closed: how many of the events that have waited a handler has taken.
    int deliverEvents();
    /// The user starts the program again: what the handler answers, nothing without a handler.
    std::optional<int> reopen();
    /// Chooses another keyboard layout.
    void changeInputSource(const InputSource& source);
    /// An input event: true when it has passed all taps and reached the application under the pointer.
    bool sendEvent(quint32 type);
    /// Switches the first live tap on the way of events off and tells it: true when the tap swallowed the
    /// notice.
    bool disableTap(quint32 reason);

    // Looks.
    [[nodiscard]] QList<HotKey> registeredHotKeys() const;
    [[nodiscard]] int symbolicModesPushed() const;
    [[nodiscard]] int enabledTaps() const;
    [[nodiscard]] qint64 activeProcess() const { return _activeProcess; } ///< 0: none yet
    /// Null where no such application runs.
    [[nodiscard]] AxNodeRef application(qint64 processIdentifier) const;

    // For the functions of the simulation.
    /// Writes a call down. The status to fail with; nothing when it is to work.
    std::optional<int> record(const QString& function, const QVariantList& arguments);
    [[nodiscard]] bool isMissing(const QString& function) const { return _missing.contains(function); }
    void fault(const QString& what) { _faults.append(what); }

private:
    SimulatedMac() = default;
    QList<Call> _calls;
    QStringList _faults;
    QMap<QString, int> _failing;
    qsizetype _failingCall = -1;
    QSet<QString> _missing;
    qint64 _activeProcess = 0;
};

} // namespace tarnwick
