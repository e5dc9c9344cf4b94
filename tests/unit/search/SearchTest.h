// SPDX-License-Identifier: MIT
#pragma once

#include "search/MenuSearch.h"
#include "tests/fakes/FakeClock.h"
#include "tests/unit/menu/MirrorTest.h"

#include <QStringList>

#include <memory>

namespace tarnwick {

/// Searches the mirrored menu bar of an application.
class SearchTest : public MirrorTest
{
protected:
    /// Opens the root menu, which the search begins in.
    void openRoot() { mirror->menuNeedsUpdate(root()); }

    [[nodiscard]] std::unique_ptr<MenuSearch> begun(const QList<std::shared_ptr<Menu>>& open = {})
    {
        return std::make_unique<MenuSearch>(
            mirror->menu(), open, [](const MenuItem& item) { return item.title(); }, QStringLiteral("Editor"),
            chosenBefore);
    }

    /// A search that has read everything.
    [[nodiscard]] std::unique_ptr<MenuSearch> finished()
    {
        auto search = begun();
        while (search->step()) {
        }
        return search;
    }

    /// The titles down to an entry, like "File > Open".
    [[nodiscard]] static QString written(const MenuSearch& search, int number)
    {
        return (search.path(number) + QStringList(search.entry(number).title)).join(QStringLiteral(" > "));
    }

    [[nodiscard]] static QStringList rowsOf(const MenuSearch& search)
    {
        QStringList rows;
        for (const int number : search.rows())
            rows.append(written(search, number));
        return rows;
    }

    [[nodiscard]] static QStringList found(MenuSearch& search, const QString& typed)
    {
        search.setText(typed);
        return rowsOf(search);
    }

    FakeClock clock;
    SharedPorts sharedClock{clock};
    ChosenBefore chosenBefore;
};

} // namespace tarnwick
