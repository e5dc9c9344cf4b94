// SPDX-License-Identifier: MIT
#pragma once

#include "prefs/ToolbarItem.h"

#include <QList>
#include <QWidget>

#include <memory>

class QButtonGroup;
class QHBoxLayout;
class QToolButton;

namespace tarnwick {

/// A row of items of which one is selected. A click on an item selects it and sends "changePreferencePane:"
/// to the target.
class PreferencesToolbar final : public QWidget
{
    Q_OBJECT

public:
    /// The target is not owned.
    explicit PreferencesToolbar(ActionTarget& target, QWidget* parent = nullptr);
    ~PreferencesToolbar() override;

    void addItem(std::unique_ptr<ToolbarItem> item);
    [[nodiscard]] const std::vector<std::unique_ptr<ToolbarItem>>& items() const { return _items; }

    /// Empty while none is selected.
    [[nodiscard]] QString selectedItemIdentifier() const;
    /// Sends nothing. An identifier that no item has is ignored.
    void setSelectedItemIdentifier(const QString& identifier);

    /// The button that shows the item; null for a name that no item has.
    [[nodiscard]] QToolButton* button(const QString& identifier) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ActionTarget& _target;
    std::vector<std::unique_ptr<ToolbarItem>> _items;
    QButtonGroup* _buttons;
    QHBoxLayout* _row;
};

} // namespace tarnwick
