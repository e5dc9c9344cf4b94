// SPDX-License-Identifier: MIT
#pragma once

#include "app/HotKeys.h"
#include "platform/linux/globalkeys/Compositor.h"
#include "platform/linux/globalkeys/HotKeyPresses.h"
#include "platform/linux/globalkeys/TriggerKey.h"
#include "platform/qt/menu/PopUpTrigger.h"
#include "prefs/TriggerAdvice.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace tarnwick {

/// Hot keys in a session where a program cannot take keys itself, and what there is to say about them. What
/// is common to all ways: which keys are registered, who handles them, and the lines for a compositor's
/// configuration. GUI thread only.
class GlobalHotKeys : public QObject, public HotKeys, public TriggerAdvice
{
    Q_OBJECT

public:
    /// What they need of the session.
    struct Session
    {
        Compositor compositor = Compositor::Unknown;
        TriggerOrder order = fromEventLoop;
        KeyTexts texts = textOfCurrentLayout;
    };

    explicit GlobalHotKeys(Session session);
    ~GlobalHotKeys() override;

    void installEventHandler(std::function<qint32()> handler) override;
    /// Registering a combination that is registered already is refused, too, and so is a key that has no
    /// name.
    std::optional<EventHotKeyRef> registerEventHotKey(quint32 keyCode, quint32 modifiers, EventHotKeyID id,
                                                      quint32 options) override;
    bool unregisterEventHotKey(EventHotKeyRef hotKey) override;

    [[nodiscard]] TriggerHint mouseButtonHint(quint64 button) const override;
    [[nodiscard]] std::optional<QString> ownerOf(quint32 keyCode, quint32 modifiers) const override;
    void addChangeObserver(std::function<void()> changed) override;

    /// What a hot key does, for the desktop to show.
    [[nodiscard]] static QString actionName();

    /// The session bus has gone, or is another connection now.
    virtual void setBus(const QDBusConnection& bus);
    /// The layout types something else now.
    virtual void layoutChanged();
    /// Another program has asked for the menu: what the compositor is told to run at a key, or at a button,
    /// does arrive. Is kept in the settings, as the line that is advised for that now.
    void menuWasAskedFor(PopUpTrigger::Kind by);

protected:
    struct Registered
    {
        quint32 keyCode = 0;
        quint32 modifiers = 0;
        QString action; ///< its name for the desktop, used once at a time
    };

    /// Has the desktop give the key. False when somebody else has it.
    [[nodiscard]] virtual bool take(const Registered& hotKey, const TriggerKey& key) = 0;
    /// It is not among the registered ones any more.
    virtual void giveBack(const Registered& hotKey) = 0;

    [[nodiscard]] const std::map<EventHotKeyRef, Registered>& registered() const { return _registered; }
    [[nodiscard]] bool isRegistered(quint32 keyCode, quint32 modifiers) const;
    [[nodiscard]] std::optional<TriggerKey> keyOf(quint32 keyCode, quint32 modifiers) const;
    [[nodiscard]] HotKeyPresses& presses() { return _presses; }
    /// The compositor's line, or the bare command.
    [[nodiscard]] TriggerHint configurationHint(quint32 keyCode, quint32 modifiers) const;
    void changed() const;

private:
    [[nodiscard]] QString _advisedFor(PopUpTrigger::Kind trigger) const;
    [[nodiscard]] QString _freeAction() const;

    Session _session;
    HotKeyPresses _presses;
    std::map<EventHotKeyRef, Registered> _registered;
    EventHotKeyRef _lastRef = 0;
    std::vector<std::function<void()>> _observers;
};

} // namespace tarnwick
