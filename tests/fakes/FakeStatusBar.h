// SPDX-License-Identifier: MIT
#pragma once

#include "app/StatusBar.h"
#include "tests/fakes/Journal.h"

#include <QList>

namespace tarnwick {

class FakeStatusItem final : public StatusItem
{
public:
    explicit FakeStatusItem(double itemLength) : length(itemLength) {}

    double length = 0;
    bool highlightMode = false;
    std::shared_ptr<Menu> menu;
    QImage image;
    QImage alternateImage;

    void setHighlightMode(bool highlight) override { highlightMode = highlight; }
    void setMenu(const std::shared_ptr<Menu>& itemMenu) override { menu = itemMenu; }
    void setImage(const QImage& itemImage) override { image = itemImage; }
    void setAlternateImage(const QImage& itemImage) override { alternateImage = itemImage; }
};

/// A status area whose items the test can look at.
class FakeStatusBar final : public StatusBar
{
public:
    bool hasArea = true;        ///< lever: whether the desktop has a status area
    int made = 0;               ///< look: items made so far
    int removed = 0;            ///< look: items taken out by removeStatusItem()
    Journal* journal = nullptr; ///< "status item", "remove status item"

    /// Look: the items that are shown now.
    [[nodiscard]] QList<std::shared_ptr<FakeStatusItem>> items() const
    {
        QList<std::shared_ptr<FakeStatusItem>> shown;
        for (const auto& each : _items) {
            if (const auto item = each.lock(); item && hasArea)
                shown.append(item);
        }
        return shown;
    }

    [[nodiscard]] std::shared_ptr<StatusItem> statusItemWithLength(double length) override
    {
        ++made;
        note(journal, QStringLiteral("status item"));
        const auto item = std::make_shared<FakeStatusItem>(length);
        _items.append(item);
        return item;
    }

    void removeStatusItem(const std::shared_ptr<StatusItem>& item) override
    {
        ++removed;
        note(journal, QStringLiteral("remove status item"));
        _items.removeIf([&](const std::weak_ptr<FakeStatusItem>& each) { return each.lock() == item; });
    }

private:
    QList<std::weak_ptr<FakeStatusItem>> _items;
};

} // namespace tarnwick
