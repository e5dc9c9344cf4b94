// SPDX-License-Identifier: MIT
#pragma once

#include "shortcut/SymbolicHotKeys.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace tarnwick {

/// What the recorder relies on of the desktop's own shortcuts.
class SymbolicHotKeysContract
{
public:
    /// Virtual key code and modifiers of shortcuts, in order.
    using Shortcuts = QList<std::pair<qint64, quint32>>;

    struct Subject
    {
        SymbolicHotKeys& hotKeys;
        /// Makes these the shortcuts of the desktop.
        std::function<void(const Shortcuts& shortcuts)> setDesktops;
        /// From now on the list cannot be read.
        std::function<void()> makeUnreadable;
        /// Whether they are switched off now.
        std::function<bool()> switchedOff;
    };

    explicit SymbolicHotKeysContract(Subject subject)
        : _subject(std::move(subject)), _hotKeys(_subject.hotKeys)
    {
    }

    void run()
    {
        _checkList();
        _checkModes();
    }

private:
    static constexpr quint32 Option = 0x800;
    static constexpr quint32 Control = 0x1000;
    static constexpr qint64 F5 = 96;
    static constexpr qint64 F6 = 97;
    static constexpr qint64 Z = 6;

    void _checkList()
    {
        for (const Shortcuts& desktops :
             {Shortcuts(), Shortcuts{{F5, Option}, {Z, Control | Option}, {F6, 0}},
              Shortcuts{{F6, Control}}}) {
            _subject.setDesktops(desktops);
            for (int time = 0; time < 2; ++time) {
                const auto read = _hotKeys.copySymbolicHotKeys(Z, Control);
                ASSERT_TRUE(read) << "a desktop with " << desktops.size();
                EXPECT_EQ(_shortcutsOf(*read), desktops) << "in its order, read afresh, as often as one asks";
            }
        }
        _subject.makeUnreadable();
        EXPECT_FALSE(_hotKeys.copySymbolicHotKeys(Z, Control)) << "that is not the same as an empty one";
    }

    static Shortcuts _shortcutsOf(const QList<SymbolicHotKey>& hotKeys)
    {
        Shortcuts shortcuts;
        for (const SymbolicHotKey& hotKey : hotKeys) {
            EXPECT_TRUE(hotKey.enabled);
            shortcuts.append({hotKey.code, static_cast<quint32>(hotKey.modifiers)});
        }
        return shortcuts;
    }

    [[nodiscard]] SymbolicHotKeys::ModeToken _push()
    {
        const auto token = _hotKeys.pushSymbolicHotKeyMode(SymbolicHotKeys::AllHotKeysDisabled);
        EXPECT_NE(token, 0U);
        return token;
    }

    void _checkModes()
    {
        EXPECT_FALSE(_subject.switchedOff());
        const auto first = _push();
        EXPECT_TRUE(_subject.switchedOff());
        const auto second = _push();
        EXPECT_NE(first, second);
        _hotKeys.popSymbolicHotKeyMode(first);
        EXPECT_TRUE(_subject.switchedOff()) << "until the last of them";
        _hotKeys.popSymbolicHotKeyMode(0);
        EXPECT_TRUE(_subject.switchedOff()) << "that names none";
        _hotKeys.popSymbolicHotKeyMode(second);
        EXPECT_FALSE(_subject.switchedOff());

        const auto third = _push();
        EXPECT_NE(third, first);
        EXPECT_NE(third, second) << "no name is used twice";
        EXPECT_TRUE(_subject.switchedOff()) << "as often as one likes";
        _hotKeys.popSymbolicHotKeyMode(third);
        EXPECT_FALSE(_subject.switchedOff());
    }

    Subject _subject;
    SymbolicHotKeys& _hotKeys;
};

} // namespace tarnwick
