// SPDX-License-Identifier: MIT
#include "search/MenuCollector.h"

#include "menu/MenuDelegate.h"
#include "tests/unit/search/SearchTest.h"

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

using Reason = UnsearchedMenu::Reason;

QString titleOf(const MenuItem& item)
{
    return item.title();
}

class MenuCollectorTest : public SearchTest
{
protected:
    [[nodiscard]] MenuCollector collector(const QList<std::shared_ptr<Menu>>& open = {}) const
    {
        return {mirror->menu(), open, titleOf};
    }

    /// The menus in the order in which they were read, each with its entries: "File: New, Open".
    static QStringList collected(MenuCollector& collector)
    {
        QStringList menus;
        while (!collector.isFinished()) {
            if (const auto menu = collector.step())
                menus.append(written(*menu));
        }
        return menus;
    }

    static QString written(const CollectedMenu& menu)
    {
        QStringList titles;
        for (const MenuEntry& entry : menu.entries)
            titles.append((entry.enabled ? u""_s : u"-"_s) + entry.title);
        return menu.path.join(u" > "_s) + u": "_s + titles.join(u", "_s);
    }

    /// From now on the menu of this item of the bar takes so many seconds to read.
    void makeSlow(const QString& title, double seconds)
    {
        _seconds.insert(title, seconds);
        accessibility.beforeRead = [this](const UIElementRef& element, const QString& attribute) {
            if (attribute != AXChildrenAttribute)
                return;
            for (auto slow = _seconds.cbegin(); slow != _seconds.cend(); ++slow) {
                if (element == accessibility.menuItem(application, {slow.key()}))
                    clock.advance(slow.value());
            }
        };
    }

    /// The menu of this item of the bar holds one greyed entry that offers nothing.
    void fillWithAWord(const QString& title)
    {
        const UIElementRef holder = accessibility.menuItem(application, {title});
        accessibility.removeChildren(holder);
        const UIElementRef menu = accessibility.addElement(holder, u"AXMenu"_s);
        const UIElementRef word = accessibility.addElement(menu, u"AXMenuItem"_s, u"Only a Word"_s);
        accessibility.setAttribute(word, u"AXEnabled"_s, false);
        mirror->update();
    }

private:
    QHash<QString, double> _seconds;
};

/// Fills each menu of its with what a test wants.
struct Filler final : MenuDelegate
{
    void menuNeedsUpdate(Menu& menu) override
    {
        ++updates;
        if (fill)
            fill(menu);
    }
    void menuWillOpen(Menu& /*menu*/) override { ++openings; }
    void menuDidClose(Menu& /*menu*/) override { ++closings; }

    std::function<void(Menu&)> fill;
    int updates = 0;
    int openings = 0;
    int closings = 0;
};

struct Target final : ActionTarget
{
    [[nodiscard]] bool respondsTo(const QString& action) const override { return action == u"do"; }
    void perform(const QString& /*action*/, ActionSender* /*sender*/) override {}
};

std::shared_ptr<MenuItem> leaf(const QString& title)
{
    const auto item = MenuItem::create(title, u"do"_s);
    item->setTarget(std::make_shared<Target>());
    return item;
}

std::shared_ptr<Menu> addMenu(Menu& menu, const QString& title, MenuDelegate* delegate)
{
    const auto item = MenuItem::create(title);
    const auto submenu = Menu::create(title);
    submenu->setDelegate(delegate);
    item->setSubmenu(submenu);
    menu.addItem(item);
    return submenu;
}

} // namespace

TEST_F(MenuCollectorTest, menus_areReadLevelByLevel)
{
    show(
        u"File\n  New\n  Recent\n    a.txt\n    Older\n      b.txt\nEdit\n  Cut\n  Find\n    Next\nHelp\n  About\n"_s);
    auto menus = collector();
    EXPECT_EQ(collected(menus),
              QStringList({u": File, Edit, Help"_s, u"File: New, Recent"_s, u"Edit: Cut, Find"_s,
                           u"Help: About"_s, u"File > Recent: a.txt, Older"_s, u"Edit > Find: Next"_s,
                           u"File > Recent > Older: b.txt"_s}));
    EXPECT_TRUE(menus.unsearched().isEmpty());
}

TEST_F(MenuCollectorTest, openMenus_areTakenAsTheyStandAndTheirsReadFirst)
{
    show(u"File\n  Recent\n    a.txt\nEdit\n  Find\n    Next\n    More\n      Most\nHelp\n  About\n"_s);
    const auto edit = opened(u"Edit"_s);
    const auto find = edit->itemWithTitle(u"Find"_s)->submenu();
    mirror->menuNeedsUpdate(*find);
    const auto next = find->itemWithTitle(u"Next"_s);
    auto menus = collector({edit, find});
    for (const char16_t* expected : {u": File, Edit, Help", u"Edit: Find", u"Edit > Find: Next, More"}) {
        EXPECT_TRUE(menus.isNextOpen());
        EXPECT_EQ(written(*menus.step()), QString::fromUtf16(expected));
    }
    EXPECT_FALSE(menus.isNextOpen());
    EXPECT_EQ(collected(menus), QStringList({u"Edit > Find > More: Most"_s, u"File: Recent"_s,
                                             u"Help: About"_s, u"File > Recent: a.txt"_s}));
    EXPECT_EQ(find->itemWithTitle(u"Next"_s), next) << "an open menu was read again";
}

TEST_F(MenuCollectorTest, whatIsRead_isWhatOpeningTheMenusReads)
{
    const QString bar = u"File\n  New\n  Recent\n    a.txt\nEdit\n  -Cut\n  Find\n    Next\n"_s;
    const auto reads = [&](const std::function<void()>& read) {
        show(bar);
        accessibility.reads.clear();
        accessibility.logReads = true;
        read();
        accessibility.logReads = false;
        return accessibility.reads;
    };
    const QStringList byOpening = reads([&] {
        const auto file = opened(u"File"_s);
        const auto edit = opened(u"Edit"_s);
        mirror->menuNeedsUpdate(*file->itemWithTitle(u"Recent"_s)->submenu());
        mirror->menuNeedsUpdate(*edit->itemWithTitle(u"Find"_s)->submenu());
    });
    ASSERT_FALSE(byOpening.isEmpty());
    EXPECT_EQ(reads([&] {
                  auto menus = collector();
                  static_cast<void>(collected(menus));
              }),
              byOpening);
}

TEST_F(MenuCollectorTest, delegate_isNotToldOfAnOpening)
{
    Filler filler;
    filler.fill = [](Menu& menu) { menu.addItem(leaf(u"New"_s)); };
    const auto bar = Menu::create(u"Bar"_s);
    bar->setDelegate(&filler);
    addMenu(*bar, u"File"_s, &filler);
    MenuCollector menus(bar, {}, titleOf);
    EXPECT_EQ(collected(menus), QStringList({u": File"_s, u"File: New"_s}));
    EXPECT_EQ(filler.updates, 1);
    EXPECT_EQ(filler.openings + filler.closings, 0);
}

TEST_F(MenuCollectorTest, menuThatEnablesItsItems_enablesThemBefore)
{
    const auto bar = Menu::create(u"Bar"_s);
    const auto file = addMenu(*bar, u"File"_s, nullptr);
    file->addItem(leaf(u"New"_s));
    const auto other = MenuItem::create(u"Other"_s, u"something else"_s);
    other->setTarget(std::make_shared<Target>());
    file->addItem(other);
    MenuCollector menus(bar, {}, titleOf);
    EXPECT_EQ(collected(menus), QStringList({u": File"_s, u"File: New, -Other"_s}));
}

TEST_F(MenuCollectorTest, whatCannotBeChosen_isLeftOut)
{
    show(u"File\n  New\n  ---\n  -Greyed\n  \\ \n"_s);
    const auto heading = MenuItem::create(u"Recent Selections"_s);
    root().addItem(heading);
    auto menus = collector();
    EXPECT_EQ(collected(menus), QStringList({u": File"_s, u"File: New, -Greyed"_s}));
}

TEST_F(MenuCollectorTest, alternates_areEntriesOfTheirOwn)
{
    show(u"File\n  Close\tCtrl+W\n"_s);
    const auto alternate = leaf(u"Close All"_s);
    alternate->setAlternate(true);
    const auto file = opened(u"File"_s);
    file->addItem(alternate);
    auto menus = collector({file});
    EXPECT_EQ(collected(menus), QStringList({u": File"_s, u"File: Close, Close All"_s}));
}

TEST_F(MenuCollectorTest, greyedMenu_isAnEntryAndIsNotRead)
{
    show(u"File\n  -Recent\n    a.txt\n"_s);
    auto menus = collector();
    EXPECT_EQ(collected(menus), QStringList({u": File"_s, u"File: -Recent"_s}));
    EXPECT_TRUE(menus.unsearched().isEmpty());
}

TEST_F(MenuCollectorTest, theWordThatAMenuIsMadeLater_isNoEntry_andItsMenuIsNamed)
{
    show(u"Late\n  -Undo\nGreyed\n  -Undo\nEdit\n  Cut\n  -Redo\n"_s);
    fillWithAWord(u"Late"_s);
    auto menus = collector();
    EXPECT_EQ(collected(menus), (QStringList{u": Late, Greyed, Edit"_s, u"Late: "_s, u"Greyed: -Undo"_s,
                                             u"Edit: Cut, -Redo"_s}));
    EXPECT_EQ(menus.unsearched(), QList<UnsearchedMenu>({{{u"Late"_s}, Reason::Empty}}));
}

TEST_F(MenuCollectorTest, theSameOfAMenuThatIsOpen)
{
    show(u"Late\n  -Undo\nEdit\n  Cut\n"_s);
    fillWithAWord(u"Late"_s);
    auto menus = collector({opened(u"Late"_s)});
    EXPECT_EQ(collected(menus), (QStringList{u": Late, Edit"_s, u"Late: "_s, u"Edit: Cut"_s}));
    EXPECT_EQ(menus.unsearched(), QList<UnsearchedMenu>({{{u"Late"_s}, Reason::Empty}}));
}

TEST_F(MenuCollectorTest, emptyMenu_isNamed)
{
    show(u"File\n  New\n^Late\n  Only Then\nEdit\n  Cut\n"_s);
    accessibility.removeChildren(accessibility.menuItem(application, {u"Late"_s}));
    accessibility.addElement(accessibility.menuItem(application, {u"Late"_s}), u"AXMenu"_s);
    mirror->update();
    auto menus = collector();
    static_cast<void>(collected(menus));
    EXPECT_EQ(menus.unsearched(), QList<UnsearchedMenu>({{{u"Late"_s}, Reason::Empty}}));
}

TEST_F(MenuCollectorTest, slowMenu_isNamedAndWhatCameOfItIsTaken)
{
    show(u"File\n  New\nEdit\n  Cut\n"_s);
    makeSlow(u"File"_s, MenuCollector::TimeForMenu);
    auto menus = collector();
    EXPECT_EQ(collected(menus), QStringList({u": File, Edit"_s, u"File: New"_s, u"Edit: Cut"_s}));
    EXPECT_EQ(menus.unsearched(), QList<UnsearchedMenu>({{{u"File"_s}, Reason::Slow}}));
}

TEST_F(MenuCollectorTest, allMenusTogether_haveThreeSeconds)
{
    const QStringList titles{u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"F"_s, u"G"_s, u"H"_s};
    QString bar;
    for (const QString& title : titles)
        bar += title + u"\n  New\n"_s;
    show(bar);
    for (const QString& title : titles)
        makeSlow(title, MenuCollector::TimeForMenu);
    auto menus = collector();
    const double begin = clock.now();
    const QStringList read = collected(menus);
    EXPECT_EQ(clock.now() - begin, MenuCollector::TimeInAll);
    EXPECT_EQ(read.size(), 1 + 6);
    ASSERT_EQ(menus.unsearched().size(), 8);
    EXPECT_EQ(menus.unsearched().at(5), (UnsearchedMenu{{u"F"_s}, Reason::Slow}));
    EXPECT_EQ(menus.unsearched().at(6), (UnsearchedMenu{{u"G"_s}, Reason::OutOfTime}));
    EXPECT_EQ(menus.unsearched().at(7), (UnsearchedMenu{{u"H"_s}, Reason::OutOfTime}));
}

TEST_F(MenuCollectorTest, timeBetweenTheSteps_doesNotCount)
{
    show(u"File\n  New\nEdit\n  Cut\n"_s);
    auto menus = collector();
    QStringList read;
    while (!menus.isFinished()) {
        if (const auto menu = menus.step())
            read.append(written(*menu));
        clock.advance(10);
    }
    EXPECT_EQ(read.size(), 3);
    EXPECT_TRUE(menus.unsearched().isEmpty());
}

TEST_F(MenuCollectorTest, cancel_endsItAtOnce)
{
    show(u"File\n  New\nEdit\n  Cut\n"_s);
    auto menus = collector();
    static_cast<void>(menus.step());
    menus.cancel();
    EXPECT_TRUE(menus.isFinished());
    const int reads = accessibility.calls.attributeValues;
    EXPECT_FALSE(menus.step());
    EXPECT_EQ(accessibility.calls.attributeValues, reads);
}

TEST_F(MenuCollectorTest, cancelWhileAMenuIsRead_dropsIt)
{
    Filler filler;
    const auto bar = Menu::create(u"Bar"_s);
    addMenu(*bar, u"File"_s, &filler);
    addMenu(*bar, u"Edit"_s, &filler);
    MenuCollector menus(bar, {}, titleOf);
    filler.fill = [&menus](Menu& menu) {
        menu.addItem(leaf(u"New"_s));
        menus.cancel();
    };
    EXPECT_EQ(collected(menus), QStringList({u": File, Edit"_s}));
    EXPECT_EQ(filler.updates, 1);
    EXPECT_TRUE(menus.unsearched().isEmpty());
}

TEST_F(MenuCollectorTest, cancel_emptiesWhatItHasFilled)
{
    show(u"File\n  New\nEdit\n  Cut\nView\n  Zoom\n"_s);
    const auto opened = MirrorTest::opened(u"Edit"_s);
    auto menus = collector();
    static_cast<void>(menus.step());
    const auto file = menus.step();
    ASSERT_TRUE(file);
    static_cast<void>(menus.step());
    EXPECT_EQ(titlesOf(*root().itemWithTitle(u"File"_s)->submenu()), QStringList({u"New"_s}));
    menus.cancel();
    EXPECT_EQ(titlesOf(*root().itemWithTitle(u"File"_s)->submenu()), QStringList());
    EXPECT_EQ(titlesOf(*opened), QStringList({u"Cut"_s}));
    EXPECT_EQ(written(*file), u"File: New"_s);
    static_cast<void>(MirrorTest::opened(u"File"_s));
    menus.cancel();
    EXPECT_EQ(titlesOf(*root().itemWithTitle(u"File"_s)->submenu()), QStringList({u"New"_s}));
}

TEST_F(MenuCollectorTest, menuAfterASlowOne_isWaitedFor)
{
    show(u"File\n  New\nEdit\n  Cut\nView\n  Zoom\n"_s);
    makeSlow(u"File"_s, MenuCollector::TimeForMenu);
    auto menus = collector();
    QList<double> delays;
    while (!menus.isFinished()) {
        static_cast<void>(menus.step());
        delays.append(menus.delayOfNextStep());
    }
    EXPECT_EQ(delays, QList<double>({0, MenuCollector::PauseAfterSlowMenu, 0, 0}));
}

TEST_F(MenuCollectorTest, stepWithinAStep_readsNothing)
{
    Filler filler;
    const auto bar = Menu::create(u"Bar"_s);
    addMenu(*bar, u"File"_s, &filler);
    addMenu(*bar, u"Edit"_s, &filler);
    MenuCollector menus(bar, {}, titleOf);
    int deepest = 0;
    int depth = 0;
    filler.fill = [&](Menu& menu) {
        deepest = std::max(deepest, ++depth);
        EXPECT_FALSE(menus.isFinished());
        EXPECT_FALSE(menus.step());
        menu.addItem(leaf(u"New"_s));
        --depth;
    };
    EXPECT_EQ(collected(menus), QStringList({u": File, Edit"_s, u"File: New"_s, u"Edit: New"_s}));
    EXPECT_EQ(deepest, 1);
}

TEST_F(MenuCollectorTest, menusOfARootThatWasRebuilt_areNotAskedFor)
{
    show(u"File\n  New\nEdit\n  Cut\n"_s);
    auto menus = collector();
    static_cast<void>(menus.step());
    static_cast<void>(menus.step());
    mirror->update();
    mirror.reset(); // a menu that is attached to nothing still names it as its delegate
    const int reads = accessibility.calls.attributeValues;
    EXPECT_FALSE(menus.step());
    EXPECT_TRUE(menus.isFinished());
    EXPECT_EQ(accessibility.calls.attributeValues, reads);
    EXPECT_TRUE(menus.unsearched().isEmpty());
}

TEST_F(MenuCollectorTest, menusWithoutEnd_areReadDownToALimit)
{
    Filler filler;
    filler.fill = [&filler](Menu& menu) { addMenu(menu, u"Deeper"_s, &filler); };
    const auto bar = Menu::create(u"Bar"_s);
    addMenu(*bar, u"Deep"_s, &filler);
    MenuCollector menus(bar, {}, titleOf);
    EXPECT_EQ(collected(menus).size(), 1 + MenuCollector::DeepestMenu);
    EXPECT_EQ(filler.updates, MenuCollector::DeepestMenu);
    ASSERT_EQ(menus.unsearched().size(), 1);
    EXPECT_EQ(menus.unsearched().first().reason, Reason::TooMuch);
    EXPECT_EQ(menus.unsearched().first().path.size(), MenuCollector::DeepestMenu + 1);
}

TEST_F(MenuCollectorTest, entriesWithoutEnd_areTakenUpToALimit)
{
    const auto bar = Menu::create(u"Bar"_s);
    const auto many = addMenu(*bar, u"Many"_s, nullptr);
    for (int i = 0; i < MenuCollector::MostEntries + 5; ++i)
        many->addItem(leaf(u"x"_s));
    addMenu(*bar, u"More"_s, nullptr)->addItem(leaf(u"y"_s));
    MenuCollector menus(bar, {}, titleOf);
    qsizetype entries = 0;
    while (!menus.isFinished()) {
        if (const auto menu = menus.step())
            entries += menu->entries.size();
    }
    EXPECT_EQ(entries, MenuCollector::MostEntries);
    EXPECT_EQ(menus.unsearched(),
              QList<UnsearchedMenu>({{{u"Many"_s}, Reason::TooMuch}, {{u"More"_s}, Reason::TooMuch}}));
}

TEST_F(MenuCollectorTest, rootWithoutEntries_isAllThereIs)
{
    show(u""_s);
    auto menus = collector();
    EXPECT_EQ(collected(menus), QStringList({u": "_s}));
    EXPECT_TRUE(menus.unsearched().isEmpty());
}

} // namespace tarnwick
