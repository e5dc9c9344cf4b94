// SPDX-License-Identifier: MIT
// How long Tarnwick takes to read one submenu and to build its menu.
//   bench_reading PID TITLE ROUNDS [PATIENCE [entries]]
// reads the menu of the bar's entry TITLE and prints the microseconds of each round, one a line, then
// "messages N" for one round and "items N". PATIENCE makes the half second that a reading may take so many
// times as long. With "entries" the round ends when the entries are there, and no menu is built of them;
// there is no "items N" then.
#include "app/Inspection.h"
#include "ax/UIElementUtilities.h"
#include "bench/messages.h"
#include "menu/AppAccessibility.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "platform/qt/application/QtClock.h"
#include "tools/ChosenApplication.h"

#include <QCoreApplication>

#include <chrono>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace tarnwick;

namespace {

/// Its time passes more slowly.
class PatientClock final : public QtClock
{
public:
    explicit PatientClock(double patience) : _patience(patience) {}
    [[nodiscard]] double now() const override { return QtClock::now() / _patience; }

private:
    double _patience;
};

std::shared_ptr<MenuItem> itemTitled(const Menu& menu, const QString& title)
{
    for (const auto& item : menu.itemArray())
        if (item->title() == title)
            return item;
    return nullptr;
}

qint64 microsecondsToRead(AppAccessibility& mirror, Menu& submenu)
{
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    mirror.menuNeedsUpdate(submenu);
    return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin).count();
}

QVariantList childrenOf(const QVariant& element)
{
    return UIElementUtilities::valueOfAttributeOfUIElement(AXChildrenAttribute, element.value<UIElementRef>())
        .toList();
}

/// What the bar's entry of that title holds; nothing without one.
QVariant menuTitled(qint64 pid, const QString& title)
{
    const UIElementRef application = Accessibility::shared().createApplication(pid);
    const QVariantList titles =
        childrenOf(UIElementUtilities::valueOfAttributeOfUIElement(u"AXMenuBar"_s, application));
    for (const QVariant& holder : titles)
        if (UIElementUtilities::titleOfUIElement(holder.value<UIElementRef>()).toString() == title)
            return childrenOf(holder).value(0);
    return {};
}

int measureEntries(const Inspection& inspection, qint64 pid, const QString& title, int rounds)
{
    using Clock = std::chrono::steady_clock;
    Accessibility::setShared(inspection.accessibility.get());
    const QVariant menu = menuTitled(pid, title);
    long messages = 0;
    for (int round = 0; round < rounds; ++round) {
        const long before = bench_messages_sent();
        const auto begin = Clock::now();
        const qsizetype entries = childrenOf(menu).size();
        const auto took = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin);
        if (entries == 0) {
            std::fprintf(stderr, "bench_reading: no entries in %s\n", qPrintable(title));
            return 1;
        }
        std::printf("%lld\n", static_cast<long long>(took.count()));
        messages = bench_messages_sent() - before;
        QCoreApplication::processEvents(); // the next reading has its half second anew
    }
    std::printf("messages %ld\n", messages);
    return 0;
}

int measure(const Inspection& inspection, qint64 pid, const QString& title, int rounds)
{
    ChosenApplicationAccessibility chosen(*inspection.accessibility, pid);
    ChosenApplicationWorkspace workspace(*inspection.workspace,
                                         Workspace::ActiveApplication{u"Menus"_s, pid});
    Accessibility::setShared(&chosen);
    Workspace::setShared(&workspace);
    const auto mirror = AppAccessibility::initWithFocusedApp();
    if (!mirror) {
        std::fputs("bench_reading: nothing to read\n", stderr);
        return 1;
    }
    mirror->setKeyEquivalents(true);
    mirror->update();
    const auto item = itemTitled(*mirror->menu(), title);
    if (!item || !item->hasSubmenu()) {
        std::fprintf(stderr, "bench_reading: no menu %s\n", qPrintable(title));
        return 1;
    }
    const auto submenu = item->submenu();
    long messages = 0;
    for (int round = 0; round < rounds; ++round) {
        const long before = bench_messages_sent();
        std::printf("%lld\n", static_cast<long long>(microsecondsToRead(*mirror, *submenu)));
        messages = bench_messages_sent() - before;
        QCoreApplication::processEvents(); // the next reading has its half second anew
    }
    std::printf("messages %ld\n", messages);
    std::printf("items %d\n", submenu->numberOfItems());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const bool entriesOnly = argc == 6 && QByteArrayView(argv[5]) == "entries";
    if (argc < 4 || (argc > 5 && !entriesOnly)) {
        std::fputs("bench_reading PID TITLE ROUNDS [PATIENCE [entries]]\n", stderr);
        return 2;
    }
    const qint64 pid = QByteArray(argv[1]).toLongLong();
    const QString title = QString::fromLocal8Bit(argv[2]);
    const int rounds = QByteArray(argv[3]).toInt();
    PatientClock clock(argc > 4 ? QByteArray(argv[4]).toDouble() : 1.0);
    const Inspection inspection = openInspection(argc, argv);
    inspection.makeShared();
    Clock::setShared(&clock);
    inspection.accessibility->apiEnabled();
    return entriesOnly ? measureEntries(inspection, pid, title, rounds)
                       : measure(inspection, pid, title, rounds);
}
