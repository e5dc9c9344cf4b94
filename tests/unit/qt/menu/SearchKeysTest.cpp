// SPDX-License-Identifier: MIT
#include "platform/qt/menu/SearchKeys.h"

#include <QKeyEvent>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

TEST(SearchKeys, whatBeginsASearch)
{
    struct Row
    {
        const char* name;
        int key;
        Qt::KeyboardModifiers modifiers;
        QString text;
        bool begins;
    };
    const Row rows[] = {
        {"a slash", Qt::Key_Slash, {}, u"/"_s, true},
        {"a slash above a digit", Qt::Key_Slash, Qt::ShiftModifier, u"/"_s, true},
        {"that of the keypad", Qt::Key_Slash, Qt::KeypadModifier, u"/"_s, true},
        {"a slash with Control", Qt::Key_Slash, Qt::ControlModifier, u"/"_s, false},
        {"Control and F", Qt::Key_F, Qt::ControlModifier, u"\x06"_s, true},
        {"Control and K", Qt::Key_K, Qt::ControlModifier, u"\x0b"_s, true},
        {"Control, Shift and F", Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier, {}, false},
        {"Alt and F", Qt::Key_F, Qt::AltModifier, u"f"_s, false},
        {"F alone", Qt::Key_F, {}, u"f"_s, false},
        {"Control and G", Qt::Key_G, Qt::ControlModifier, u"\x07"_s, false},
    };
    for (const Row& row : rows)
        EXPECT_EQ(beginsSearch(QKeyEvent(QEvent::KeyPress, row.key, row.modifiers, row.text)), row.begins)
            << row.name;
}

TEST(SearchKeys, whatAKeyDoesInTheSearch)
{
    struct Row
    {
        const char* name;
        int key;
        Qt::KeyboardModifiers modifiers;
        Qt::LayoutDirection direction;
        SearchKey does;
    };
    const Row rows[] = {
        {"Return", Qt::Key_Return, {}, Qt::LeftToRight, SearchKey::Choose},
        {"Enter of the keypad", Qt::Key_Enter, Qt::KeypadModifier, Qt::LeftToRight, SearchKey::Choose},
        {"Escape", Qt::Key_Escape, {}, Qt::LeftToRight, SearchKey::Leave},
        {"Up", Qt::Key_Up, {}, Qt::LeftToRight, SearchKey::Up},
        {"Down", Qt::Key_Down, {}, Qt::LeftToRight, SearchKey::Down},
        {"PageUp", Qt::Key_PageUp, {}, Qt::LeftToRight, SearchKey::PageUp},
        {"PageDown", Qt::Key_PageDown, {}, Qt::LeftToRight, SearchKey::PageDown},
        {"Right", Qt::Key_Right, {}, Qt::LeftToRight, SearchKey::ShowInMenu},
        {"Left", Qt::Key_Left, {}, Qt::LeftToRight, SearchKey::Text},
        {"Right in Hebrew", Qt::Key_Right, {}, Qt::RightToLeft, SearchKey::Text},
        {"Left in Hebrew", Qt::Key_Left, {}, Qt::RightToLeft, SearchKey::ShowInMenu},
        {"a word to the right", Qt::Key_Right, Qt::ControlModifier, Qt::LeftToRight, SearchKey::Text},
        {"Home", Qt::Key_Home, {}, Qt::LeftToRight, SearchKey::Text},
        {"a letter", Qt::Key_A, {}, Qt::LeftToRight, SearchKey::Text},
    };
    for (const Row& row : rows)
        EXPECT_EQ(searchKey(QKeyEvent(QEvent::KeyPress, row.key, row.modifiers), row.direction), row.does)
            << row.name;
}

} // namespace
} // namespace tarnwick
