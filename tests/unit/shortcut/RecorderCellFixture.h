// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UserDefaults.h"
#include "shortcut/SRRecorderCell.h"
#include "tests/fakes/FakeRecorderCellView.h"
#include "tests/unit/shortcut/ShortcutFixture.h"

namespace tarnwick {

/// Keys as they come, and who listens to a recorder's cell.
namespace recorder {

inline constexpr quint64 Command = CommandKeyMask;
inline constexpr quint64 Option = AlternateKeyMask;
inline constexpr quint64 Control = ControlKeyMask;
inline constexpr quint64 Shift = ShiftKeyMask;
inline constexpr quint64 Function = FunctionKeyMask;
inline constexpr quint64 CapsLock = 0x10000;
inline constexpr quint64 Everything = 0x9E0000;
inline constexpr double Tick = 0.0334;

inline Event key(quint16 code, quint64 flags, const QString& characters)
{
    Event event;
    event.type = Event::Type::KeyDown;
    event.keyCode = code;
    event.modifierFlags = flags;
    event.characters = characters;
    event.charactersIgnoringModifiers = characters;
    return event;
}

// Keys as the desktop sends them: a letter is itself under every modifier but Shift, keys that type nothing
// have characters from U+F700 on, and the function-key bit is set for function and arrow keys only.
inline Event letterA(quint64 flags)
{
    return key(0, flags, flags & Shift ? QStringLiteral("A") : QStringLiteral("a"));
}
inline Event f5(quint64 flags = 0)
{
    return key(96, flags | Function, QString(QChar(0xF708)));
}
inline Event leftArrow(quint64 flags = 0)
{
    return key(123, flags | Function, QString(QChar(0xF702)));
}
inline Event space(quint64 flags = 0)
{
    return key(49, flags, QStringLiteral(" "));
}
inline Event escape(quint64 flags = 0)
{
    return key(53, flags, QStringLiteral("\u001B"));
}
inline Event backspace(quint64 flags = 0)
{
    return key(51, flags, QStringLiteral("\u007F"));
}
inline Event forwardDelete(quint64 flags = 0)
{
    return key(117, flags, QString(QChar(0xF728)));
}

inline Event flagsEvent(quint64 flags)
{
    Event event;
    event.type = Event::Type::FlagsChanged;
    event.modifierFlags = flags;
    return event;
}

class Listener final : public SRRecorderCellDelegate
{
public:
    Journal* journal = nullptr;
    bool takes = false;
    QList<KeyCombo> combos;
    QList<std::pair<qint64, quint64>> asked;

    void shortcutRecorderCellKeyComboDidChange(SRRecorderCell& /*cell*/, const KeyCombo& keyCombo) override
    {
        combos.append(keyCombo);
        note(journal, QStringLiteral("changed"));
    }
    bool shortcutRecorderCellIsKeyCodeAndFlagsTakenReason(SRRecorderCell& /*cell*/, qint64 keyCode,
                                                          quint64 cocoaFlags,
                                                          std::optional<QString>& reason) override
    {
        asked.append({keyCode, cocoaFlags});
        note(journal, QStringLiteral("asked"));
        reason = QStringLiteral("it is mine");
        return takes;
    }
};

} // namespace recorder

/// A cell in a view that is not in a window, with a delegate that listens.
class SRRecorderCellTest : public ShortcutFixture
{
protected:
    SRRecorderCellTest()
    {
        cell.setControlView(&view);
        cell.setDelegate(&listener);
        listener.journal = &journal;
        symbolicHotKeys.journal = &journal;
        alerts.journal = &journal;
    }

    void startRecording(SRRecorderCell& started)
    {
        started.performKeyEquivalent(recorder::space());
        while (!started.isRecording())
            clock.advance(recorder::Tick);
        journal.clear();
    }
    void startRecording() { startRecording(cell); }

    /// A left click: pressed at one point of the view, dragged over others, released at the last one.
    bool click(const QList<QPointF>& points)
    {
        const auto mouse = [this](Event::Type type, const QPointF& point) {
            Event event;
            event.type = type;
            event.locationInWindow = view.inWindow(point);
            return event;
        };
        for (qsizetype i = 1; i + 1 < points.size(); ++i)
            events.events.append(mouse(Event::Type::LeftMouseDragged, points[i]));
        events.events.append(mouse(Event::Type::LeftMouseUp, points.last()));
        events.arrives = [this](const Event& event) { application.event = event; };
        return cell.trackMouseInRectOfViewUntilMouseUp(mouse(Event::Type::LeftMouseDown, points.first()),
                                                       view.frame, view, true);
    }

    QVariantMap saved(const QString& name = QStringLiteral("Test"))
    {
        return UserDefaults::standardUserDefaults()
            .dictionaryForKey(QStringLiteral("ShortcutRecorder ") + name)
            .value_or(QVariantMap());
    }

    static constexpr QPointF InRemoveButton{190, 11};
    static constexpr QPointF InSnapback{190, 12};
    static constexpr QPointF InMainArea{50, 11};

    Journal journal;
    FakeRecorderCellView view;
    recorder::Listener listener;
    SRRecorderCell cell;
};

} // namespace tarnwick
