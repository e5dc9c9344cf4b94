// SPDX-License-Identifier: MIT
// Reads the menus of an application again and again, with the code that Tarnwick reads with.
//
//     menu_reader PID READS
//
// Each read is that of the menu bar and of one of its menus with all that is below, the next one each time.
// At the end a line "READS reads, ITEMS items, DIFFERENT different, SECONDS seconds": different is how many
// reads of a menu did not give as many items as the first of that menu.
#include "app/Inspection.h"
#include "menu/AppAccessibility.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "tools/ChosenApplication.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHash>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace tarnwick;

namespace {

/// Opens and closes a menu with all below as if it were shown; returns how many items there are.
qint64 readMenu(AppAccessibility& mirror, Menu& menu) // NOLINT(misc-no-recursion)
{
    mirror.menuNeedsUpdate(menu);
    qint64 items = menu.numberOfItems();
    const auto shown = menu.itemArray();
    for (const auto& item : shown)
        if (item->hasSubmenu())
            items += readMenu(mirror, *item->submenu());
    mirror.menuDidClose(menu);
    return items;
}

std::shared_ptr<MenuItem> entryAt(const Menu& bar, int number)
{
    const int entries = bar.numberOfItems();
    return entries > 0 ? bar.itemArray().at(number % entries) : nullptr;
}

int readAgainAndAgain(AppAccessibility& mirror, int reads)
{
    QElapsedTimer time;
    time.start();
    qint64 items = 0;
    int different = 0;
    QHash<QString, qint64> first;
    for (int read = 0; read < reads; ++read) {
        mirror.update();
        const auto entry = entryAt(*mirror.menu(), read);
        const qint64 found = entry && entry->hasSubmenu() ? readMenu(mirror, *entry->submenu()) : 0;
        items += found;
        if (found == 0 || first.value(entry->title(), found) != found)
            ++different;
        else
            first.insert(entry->title(), found);
        QCoreApplication::processEvents(); // the next read has its half second anew
    }
    std::printf("%d reads, %lld items, %d different, %.3f seconds\n", reads, static_cast<long long>(items),
                different, static_cast<double>(time.elapsed()) / 1000);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fputs("menu_reader PID READS\n", stderr);
        return 2;
    }
    const qint64 pid = QByteArray(argv[1]).toLongLong();
    const int reads = QByteArray(argv[2]).toInt();
    const Inspection inspection = openInspection(argc, argv);
    inspection.makeShared();
    inspection.accessibility->apiEnabled();
    ChosenApplicationAccessibility chosen(*inspection.accessibility, pid);
    ChosenApplicationWorkspace workspace(*inspection.workspace,
                                         Workspace::ActiveApplication{u"Menus"_s, pid});
    Accessibility::setShared(&chosen);
    Workspace::setShared(&workspace);
    const auto mirror = AppAccessibility::initWithFocusedApp();
    if (!mirror) {
        std::fputs("menu_reader: nothing to read\n", stderr);
        return 1;
    }
    mirror->setKeyEquivalents(true);
    return readAgainAndAgain(*mirror, reads);
}
