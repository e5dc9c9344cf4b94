// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/KeyboardLayout.h"

#include <QList>
#include <QMap>

#include <utility>

namespace tarnwick {

/// A keyboard whose layout the test chooses. It types what the layouts of that name type on a PC keyboard;
/// Option changes nothing there.
class FakeKeyboardLayout final : public KeyboardLayout
{
public:
    enum Layout { Us, De, Fr, Jp };

    /// What a key was asked for.
    struct Question
    {
        quint16 virtualKeyCode;
        quint16 keyAction;
        quint32 modifierKeyState;
        quint32 keyboardType;
        quint32 options;
        quint32 deadKeyState;
        friend bool operator==(const Question&, const Question&) = default;
    };

    bool inputSourceMissing = false; ///< lever: there is no layout
    bool refuses = false;            ///< lever: every look-up fails
    /// Lever: what a key types with a modifier state, whatever the layout; longer texts are cut at 4 units.
    QMap<std::pair<quint16, quint32>, QString> typed;
    mutable QList<Question> asked; ///< look

    /// Lever: the user switches to another layout.
    void select(Layout layout);

    /// As it was when it was made, except that observers stay.
    void reset();

    [[nodiscard]] std::unique_ptr<UnicodeKeyLayout> copyCurrentKeyboardInputSource() const override;
    [[nodiscard]] quint8 keyboardType() const override { return 91; }
    void addSelectedKeyboardInputSourceChangedObserver(std::function<void()> changed) override;

private:
    class KeyTable;
    [[nodiscard]] std::optional<QString> _translate(quint16 virtualKeyCode, quint32 modifierKeyState) const;

    Layout _layout = Us;
    QList<std::function<void()>> _observers;
};

} // namespace tarnwick
