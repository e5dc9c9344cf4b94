// SPDX-License-Identifier: MIT
#include "platform/linux/elements/MenuElement.h"

#include "ax/Accessibility.h"
#include "platform/linux/elements/MenuItemElement.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

MenuElement::MenuElement(Kind kind, MenuSource& source, const BusReference& place, const UIElementRef& parent,
                         std::optional<qint64> processIdentifier)
    : _kind(kind), _source(source), _place(place), _parent(parent), _processIdentifier(processIdentifier)
{
}

QByteArray MenuElement::identity() const
{
    return (_kind == Kind::Bar ? "bar " : "menu ") + _place.identity();
}

QStringList MenuElement::attributeNames() const
{
    return {AXRoleAttribute, AXChildrenAttribute, AXParentAttribute};
}

std::optional<QVariant> MenuElement::value(const QString& attribute) const
{
    if (attribute == AXRoleAttribute)
        return _kind == Kind::Bar ? u"AXMenuBar"_s : u"AXMenu"_s;
    if (attribute == AXParentAttribute)
        return QVariant::fromValue(_parent);
    return attribute == AXChildrenAttribute ? _children() : std::nullopt;
}

std::optional<QVariant> MenuElement::_children() const
{
    const auto rows = _kind == Kind::Bar ? _source.readBar(_place) : _source.readMenu(_place);
    if (!rows)
        return std::nullopt;
    const auto itemKind = _kind == Kind::Bar ? MenuItemElement::Kind::BarItem : MenuItemElement::Kind::Item;
    const UIElementRef self(shared_from_this());
    QVariantList children;
    children.reserve(rows->size());
    for (const MenuRow& row : *rows)
        children.append(QVariant::fromValue(UIElementRef(
            std::make_shared<const MenuItemElement>(itemKind, _source, row, self, _processIdentifier))));
    return children;
}

} // namespace tarnwick
