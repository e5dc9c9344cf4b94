// SPDX-License-Identifier: MIT
// What a pop-up of an unchanged root costs, in instructions, on the fakes: no display, no bus, no clock.
//   bench_instructions ROUNDS pop-up|submenu|search
// runs each of the functions below ROUNDS times; callgrind is told which of them to count. With "submenu"
// each pop-up goes on to open a menu of thirty items. With "search" a query is typed letter by letter
// among six thousand entries instead.
#include "app/AppController.h"
#include "app/AppDelegate.h"
#include "bench/many_entries.h"
#include "tests/fakes/FakeDesktop.h"

#include <QHash>
#include <QHashSeed>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace tarnwick;

namespace {

constexpr qint64 editorPid = 100;
constexpr int itemsOfMenu = 30;
constexpr int entriesToSearch = 6000;

/// A desktop with an application in front whose bar is that of tests/data/editor.menu; its last menu, "Many",
/// has thirty items.
struct DesktopWithMenus : FakeDesktop
{
    DesktopWithMenus()
    {
        const UIElementRef editor = accessibility.addApplication(editorPid, u"Editor"_s);
        accessibility.setFocusedApplication(editor);
        workspace.active = Workspace::ActiveApplication{u"Editor"_s, editorPid};
        auto bar = MenuFile::read(u"editor"_s);
        fixture::MenuText many;
        many.title = "Many";
        for (int i = 1; i <= itemsOfMenu; ++i) {
            fixture::MenuText item;
            item.title = "Item " + std::to_string(i);
            many.children.push_back(item);
        }
        bar.push_back(many);
        accessibility.setMenuBar(editor, bar);
        AppDelegate::initialize();
    }
};

} // namespace

// Their names are what callgrind looks for: in a class or with an argument type they would be longer.
extern "C" {

/// The yardstick: what menus are made of, texts, shared objects, lists and look-ups, and always the same.
[[gnu::noinline]] void bench_reference(qsizetype* seen)
{
    QList<std::shared_ptr<QString>> items;
    QHash<QString, qsizetype> places;
    for (int i = 0; i < itemsOfMenu; ++i) {
        items.append(std::make_shared<QString>(u"Item "_s + QString::number(i)));
        places.insert(*items.last(), i);
    }
    for (const auto& item : std::as_const(items))
        *seen += places.value(*item) + item->toLower().size();
}

[[gnu::noinline]] void bench_pop_up(AppController* controller)
{
    controller->popUpMenuAtMouseLocation();
}

/// A query typed letter by letter: what it finds becomes less and less.
[[gnu::noinline]] void bench_search_entries(SearchIndex* index)
{
    const QString typed = u"arrow callout"_s;
    for (qsizetype letters = 1; letters <= typed.size(); ++letters) {
        index->setQuery(SearchQuery::of(typed.first(letters)));
        static_cast<void>(index->ranked());
    }
}
}

int main(int argc, char** argv)
{
    const int rounds = argc == 3 ? QByteArray(argv[1]).toInt() : 0;
    if (rounds <= 0) {
        std::fputs("bench_instructions ROUNDS pop-up|submenu|search\n", stderr);
        return 2;
    }
    QHashSeed::setDeterministicGlobalSeed();
    DesktopWithMenus desktop;
    AppController controller;
    qsizetype seen = 0;
    const auto repeat = [&](const auto& function) {
        for (int round = 0; round <= rounds; ++round) { // the first one fills what is kept
            function();
            desktop.presenter.popUps.clear();
        }
    };
    if (QByteArray(argv[2]) == "submenu")
        desktop.presenter.choose = {u"Many"_s, u"no such item"_s};
    repeat([&] { bench_reference(&seen); });
    if (QByteArray(argv[2]) == "search") {
        SearchIndex index = manyEntries(TARNWICK_BENCH_MENU, entriesToSearch);
        repeat([&] { bench_search_entries(&index); });
        return index.size() < entriesToSearch ? 1 : 0;
    }
    repeat([&] { bench_pop_up(&controller); });
    std::fprintf(stderr, "%lld\n", static_cast<long long>(seen));
    return 0;
}
