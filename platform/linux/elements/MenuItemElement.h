// SPDX-License-Identifier: MIT
#pragma once

#include "ax/UIElement.h"
#include "platform/linux/elements/LinuxElement.h"
#include "platform/linux/menus/MenuSource.h"

namespace tarnwick {

/// An entry of a menu bar or of a menu, as it was when its menu was read. Asking it costs nothing.
class MenuItemElement final : public LinuxElement, public std::enable_shared_from_this<MenuItemElement>
{
public:
    enum class Kind { BarItem, Item };

    /// `menu` is the element that holds it. The source must outlive it.
    MenuItemElement(Kind kind, MenuSource& source, const MenuRow& row, const UIElementRef& menu,
                    std::optional<qint64> processIdentifier);

    [[nodiscard]] QStringList attributeNames() const override { return _names; }
    [[nodiscard]] std::optional<QVariant> value(const QString& attribute) const override;
    [[nodiscard]] std::optional<qint64> processIdentifier() const override { return _processIdentifier; }
    [[nodiscard]] QStringList actionNames() const override;
    bool perform(const QString& action) const override;
    /// Whether an item that could be chosen says by the deadline that it can't be any more; asks the
    /// application.
    [[nodiscard]] bool isDisabledNow(Deadline deadline) const;

protected:
    [[nodiscard]] QByteArray identity() const override;

private:
    [[nodiscard]] QVariantList _children() const;

    Kind _kind;
    MenuSource& _source;
    MenuRow _row;
    UIElementRef _menu;
    std::optional<qint64> _processIdentifier;
    QStringList _names;
};

} // namespace tarnwick
