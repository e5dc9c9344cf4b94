// SPDX-License-Identifier: MIT
#include "platform/qt/menu/SearchKeys.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

struct Meaning
{
    int key;
    SearchKey means;
};
constexpr Meaning Meanings[] = {
    {Qt::Key_Return, SearchKey::Choose},     {Qt::Key_Enter, SearchKey::Choose},
    {Qt::Key_Escape, SearchKey::Leave},      {Qt::Key_Up, SearchKey::Up},
    {Qt::Key_Down, SearchKey::Down},         {Qt::Key_PageUp, SearchKey::PageUp},
    {Qt::Key_PageDown, SearchKey::PageDown},
};

} // namespace

bool beginsSearch(const QKeyEvent& event)
{
    const auto modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    if (modifiers == Qt::ControlModifier)
        return event.key() == Qt::Key_F || event.key() == Qt::Key_K;
    return !(modifiers & ~Qt::ShiftModifier) && event.text() == u"/"_s;
}

SearchKey searchKey(const QKeyEvent& event, Qt::LayoutDirection direction)
{
    if (event.modifiers() & ~Qt::KeypadModifier)
        return SearchKey::Text;
    if (event.key() == (direction == Qt::RightToLeft ? Qt::Key_Left : Qt::Key_Right))
        return SearchKey::ShowInMenu;
    for (const Meaning& meaning : Meanings)
        if (meaning.key == event.key())
            return meaning.means;
    return SearchKey::Text;
}

} // namespace tarnwick
