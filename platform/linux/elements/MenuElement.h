// SPDX-License-Identifier: MIT
#pragma once

#include "ax/UIElement.h"
#include "platform/linux/elements/LinuxElement.h"
#include "platform/linux/menus/MenuSource.h"

namespace tarnwick {

/// A menu bar, or the untitled menu between an item and its contents. Its children are read each time they
/// are asked for; they keep what was read then.
class MenuElement final : public LinuxElement, public std::enable_shared_from_this<MenuElement>
{
public:
    enum class Kind { Bar, Menu };

    /// `parent` is the application of a bar, the item of a menu. The source must outlive it.
    MenuElement(Kind kind, MenuSource& source, const BusReference& place, const UIElementRef& parent,
                std::optional<qint64> processIdentifier);

    [[nodiscard]] QStringList attributeNames() const override;
    [[nodiscard]] std::optional<QVariant> value(const QString& attribute) const override;
    [[nodiscard]] std::optional<qint64> processIdentifier() const override { return _processIdentifier; }

protected:
    [[nodiscard]] QByteArray identity() const override;

private:
    [[nodiscard]] std::optional<QVariant> _children() const;

    Kind _kind;
    MenuSource& _source;
    BusReference _place;
    UIElementRef _parent;
    std::optional<qint64> _processIdentifier;
};

} // namespace tarnwick
