// SPDX-License-Identifier: MIT
#pragma once

#include "ax/UIElement.h"
#include "foundation/Action.h"

#include <QString>

#include <memory>
#include <optional>

namespace tarnwick {

class MenuItem;

/// Ties an item of the mirrored menu to the element in the other application that it stands for, and is the
/// item's target: "clickMenuItem" presses the element. The item owns its proxy, not the other way round. GUI
/// thread only.
class ProxyMenuItem final : public ActionTarget
{
public:
    [[nodiscard]] const UIElementRef& itemAXUIElementRef() const { return _itemAXUIElementRef; }
    void setItemAXUIElementRef(const UIElementRef& element) { _itemAXUIElementRef = element; }
    [[nodiscard]] const UIElementRef& appAXUIElementRef() const { return _appAXUIElementRef; }
    void setAppAXUIElementRef(const UIElementRef& element) { _appAXUIElementRef = element; }
    [[nodiscard]] const std::optional<QString>& appName() const { return _appName; }
    void setAppName(const std::optional<QString>& name) { _appName = name; }
    [[nodiscard]] const std::weak_ptr<MenuItem>& menuItem() const { return _menuItem; }
    void setMenuItem(std::weak_ptr<MenuItem> item) { _menuItem = std::move(item); }

    [[nodiscard]] static const QString& clickMenuItemAction();
    /// Presses the element and looks at no result: it may be gone.
    void clickMenuItem();

    /// Whether the element offers to be pressed; so if it does not say.
    [[nodiscard]] bool canBePressed() const;

    /// The path of titles down to `item`, every title but a leaf's followed by "|". Each level starts from
    /// the key stored last, so that the path is clean only before the first itemKey().
    [[nodiscard]] QString createKeyForFennrickItem(const std::shared_ptr<MenuItem>& item) const;

    /// Application name, "|" and path; stored. Deliberately longer at each call: the key stored before is
    /// folded into the new one.
    QString itemKey();

    /// Responds to "clickMenuItem" only.
    [[nodiscard]] bool respondsTo(const QString& action) const override;
    void perform(const QString& action, ActionSender* sender) override;

private:
    UIElementRef _itemAXUIElementRef;
    UIElementRef _appAXUIElementRef;
    std::optional<QString> _appName;
    QString _itemKey = QLatin1String("");
    std::weak_ptr<MenuItem> _menuItem;
};

} // namespace tarnwick
