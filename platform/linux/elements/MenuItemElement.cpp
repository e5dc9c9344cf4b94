// SPDX-License-Identifier: MIT
#include "platform/linux/elements/MenuItemElement.h"

#include "ax/Accessibility.h"
#include "platform/linux/elements/MenuElement.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

const QString EnabledAttribute = u"AXEnabled"_s;
const QString MarkAttribute = u"AXMenuItemMarkChar"_s;
const QString CharacterAttribute = u"AXMenuItemCmdChar"_s;
const QString GlyphAttribute = u"AXMenuItemCmdGlyph"_s;
const QString ModifiersAttribute = u"AXMenuItemCmdModifiers"_s;
const QString CheckMark(QChar(0x2713));

QStringList namesFor(const MenuRow& row)
{
    QStringList names{AXRoleAttribute, AXTitleAttribute, AXParentAttribute};
    if (row.kind == MenuRow::Kind::Separator)
        return names;
    names.append(EnabledAttribute);
    if (row.kind == MenuRow::Kind::Holder)
        names.append(AXChildrenAttribute);
    if (row.checked)
        names.append(MarkAttribute);
    if (row.shortcut)
        names << (row.shortcut->glyph ? GlyphAttribute : CharacterAttribute) << ModifiersAttribute;
    return names;
}

} // namespace

MenuItemElement::MenuItemElement(Kind kind, MenuSource& source, const MenuRow& row, const UIElementRef& menu,
                                 std::optional<qint64> processIdentifier)
    : _kind(kind), _source(source), _row(row), _menu(menu), _processIdentifier(processIdentifier),
      _names(namesFor(row))
{
}

QByteArray MenuItemElement::identity() const
{
    return _row.item.identity();
}

std::optional<QVariant> MenuItemElement::value(const QString& attribute) const
{
    if (!_names.contains(attribute))
        return std::nullopt;
    if (attribute == AXRoleAttribute)
        return _kind == Kind::BarItem ? u"AXMenuBarItem"_s : u"AXMenuItem"_s;
    if (attribute == AXTitleAttribute)
        return _row.title;
    if (attribute == AXParentAttribute)
        return QVariant::fromValue(_menu);
    if (attribute == EnabledAttribute)
        return _row.enabled;
    if (attribute == AXChildrenAttribute)
        return _children();
    if (attribute == MarkAttribute)
        return CheckMark;
    if (attribute == GlyphAttribute)
        return *_row.shortcut->glyph;
    if (attribute == CharacterAttribute)
        return _row.shortcut->character;
    return _row.shortcut->modifiers;
}

QVariantList MenuItemElement::_children() const
{
    const auto menu =
        std::make_shared<const MenuElement>(MenuElement::Kind::Menu, _source, _row.contents,
                                            UIElementRef(shared_from_this()), _processIdentifier);
    return {QVariant::fromValue(UIElementRef(menu))};
}

QStringList MenuItemElement::actionNames() const
{
    // An entry that only says something stands for nothing in the application.
    const bool stands = _row.item || _row.action;
    return _row.kind == MenuRow::Kind::Item && stands ? QStringList(AXPressAction) : QStringList();
}

bool MenuItemElement::perform(const QString& action) const
{
    return actionNames().contains(action) && _source.press(_row);
}

bool MenuItemElement::isDisabledNow(Deadline deadline) const
{
    return _row.enabled && _source.isDisabledNow(_row, deadline);
}

} // namespace tarnwick
