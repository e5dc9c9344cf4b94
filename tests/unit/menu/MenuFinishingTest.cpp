// SPDX-License-Identifier: MIT
// What the mirror does to its menus beyond mirroring: own entry, duplicates, recent selections.
#include "tests/unit/menu/MirrorTest.h"

#include <QCoreApplication>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class MenuFinishingTest : public MirrorTest
{
protected:
    MenuFinishingTest()
    {
        auxiliary = plainMenu({u"About Tarnwick..."_s, u"Preferences..."_s, u"Quit"_s});
        auxiliary->setTitle(u"Tarnwick"_s);
    }

    std::shared_ptr<Menu> auxiliary;
};

} // namespace

TEST_F(MenuFinishingTest, setAuxiliaryMenu_changesNothingBeforeTheRootMenuOpens)
{
    show(u"File\n"_s);
    mirror->setAuxiliaryMenu(auxiliary);
    EXPECT_EQ(mirror->auxiliaryMenu(), auxiliary);
    EXPECT_EQ(titlesOf(root()), QStringList{u"File"_s});
    mirror->menuNeedsUpdate(root());
    EXPECT_EQ(titlesOf(root()), (QStringList{u"File"_s, u""_s, u"Tarnwick"_s}));
    const auto entry = root().itemAtIndex(2);
    EXPECT_TRUE(root().itemAtIndex(1)->isSeparatorItem());
    EXPECT_EQ(entry->submenu(), auxiliary);
    EXPECT_TRUE(entry->action().isEmpty());
    EXPECT_EQ(entry->keyEquivalent(), u""_s);
    EXPECT_TRUE(entry->isEnabled());
}

TEST_F(MenuFinishingTest, openingAgain_leavesOneSeparatorAndOneOwnEntry)
{
    mirror->setAuxiliaryMenu(auxiliary);
    show(u"File\nEdit\n"_s);
    const QStringList expected = {u"File"_s, u"Edit"_s, u""_s, u"Tarnwick"_s};
    for (int opening = 0; opening < 3; ++opening) {
        mirror->menuNeedsUpdate(root());
        EXPECT_EQ(titlesOf(root()), expected);
        EXPECT_EQ(auxiliary->supermenu(), &root());
    }
    mirror->update();
    EXPECT_EQ(auxiliary->supermenu(), nullptr) << "a rebuild empties the root menu";
    mirror->menuNeedsUpdate(root());
    mirror->menuNeedsUpdate(root());
    EXPECT_EQ(titlesOf(root()), expected);
}

TEST_F(MenuFinishingTest, openingAgain_withTarnwickItselfInFront_leavesOneOwnEntry)
{
    const auto own = accessibility.addApplication(QCoreApplication::applicationPid(), u"Tarnwick"_s);
    accessibility.setFocusedApplication(own);
    accessibility.setMenuBar(own, MenuFile::parse(u"Apple\nApplication\n  About Tarnwick...\nWindow\n"_s));
    workspace.active = Workspace::ActiveApplication{u"Tarnwick"_s, QCoreApplication::applicationPid()};
    mirror->setAuxiliaryMenu(auxiliary);
    mirror->update();
    for (int opening = 0; opening < 3; ++opening) {
        mirror->menuNeedsUpdate(root());
        EXPECT_EQ(titlesOf(root()), (QStringList{u"Application"_s, u"Window"_s, u""_s, u"Tarnwick"_s}));
    }
}

TEST_F(MenuFinishingTest, openingAgain_withAnOwnMenuOfTheSameNameInFront_leavesThatMenu)
{
    const auto own = accessibility.addApplication(QCoreApplication::applicationPid(), u"Tarnwick"_s);
    accessibility.setFocusedApplication(own);
    accessibility.setMenuBar(own, MenuFile::parse(u"Apple\nTarnwick\n  Quit Tarnwick\nWindow\n"_s));
    workspace.active = Workspace::ActiveApplication{u"Tarnwick"_s, QCoreApplication::applicationPid()};
    mirror->setAuxiliaryMenu(auxiliary);
    mirror->update();
    for (int opening = 0; opening < 3; ++opening) {
        mirror->menuNeedsUpdate(root());
        EXPECT_EQ(titlesOf(root()), (QStringList{u"Tarnwick"_s, u"Window"_s, u""_s, u"Tarnwick"_s}));
        EXPECT_NE(root().itemAtIndex(0)->submenu(), auxiliary);
        EXPECT_EQ(root().itemAtIndex(3)->submenu(), auxiliary);
    }
}

TEST_F(MenuFinishingTest, withoutAnAuxiliaryMenu_theRootMenuEndsWithTheLastMirroredOne)
{
    show(u"File\nEdit\n"_s);
    mirror->menuNeedsUpdate(root());
    EXPECT_EQ(titlesOf(root()), (QStringList{u"File"_s, u"Edit"_s}));
    mirror->appendAuxiliaryMenuTo(root());
    EXPECT_EQ(root().numberOfItems(), 2);
}

TEST_F(MenuFinishingTest, withNothingOfTheApplication_theFirstOpeningShowsTheOwnEntryOnly)
{
    mirror->setAuxiliaryMenu(auxiliary);
    mirror->setShowApplicationMenu(false);
    show(u"Apple\nFile\n"_s);
    EXPECT_EQ(root().numberOfItems(), 0);
    mirror->menuNeedsUpdate(root());
    EXPECT_EQ(titlesOf(root()), (QStringList{u""_s, u"Tarnwick"_s}));
}

TEST_F(MenuFinishingTest, appending_toAnotherMenu_movesTheEntryThere)
{
    mirror->setAuxiliaryMenu(auxiliary);
    const auto first = plainMenu({u"A"_s});
    const auto second = plainMenu({u"B"_s, u"C"_s});
    mirror->appendAuxiliaryMenuTo(*first);
    mirror->appendAuxiliaryMenuTo(*second);
    EXPECT_EQ(titlesOf(*first), (QStringList{u"A"_s, u""_s})) << "its separator stays";
    EXPECT_EQ(titlesOf(*second), (QStringList{u"B"_s, u""_s, u"Tarnwick"_s}))
        << "and the last item here goes";
    EXPECT_EQ(auxiliary->supermenu(), second.get());
}

TEST_F(MenuFinishingTest, rootMenuThatOpens_dropsAnAppleMenuThatIsNotShown)
{
    mirror->setShowAppleMenu(true);
    show(u"Apple\nFile\nApple\n"_s);
    EXPECT_EQ(titlesOf(root()), (QStringList{u"\uF8FF"_s, u"File"_s, u"Apple"_s}));
    mirror->menuNeedsUpdate(root());
    EXPECT_EQ(root().numberOfItems(), 3);
    mirror->setShowAppleMenu(false);
    mirror->menuNeedsUpdate(root());
    EXPECT_EQ(titlesOf(root()), (QStringList{u"\uF8FF"_s, u"File"_s}));
}

TEST_F(MenuFinishingTest, adjacentDuplicates_collapse)
{
    const struct
    {
        const char* sentence;
        QStringList before;
        QStringList after;
    } rows[] = {
        {"a run", {u"New"_s, u"Open"_s, u"Open"_s, u"Open"_s, u"Close"_s}, {u"New"_s, u"Open"_s, u"Close"_s}},
        {"only neighbours", {u"A"_s, u"B"_s, u"A"_s}, {u"A"_s, u"B"_s, u"A"_s}},
        {"an empty menu", {}, {}},
        {"one item", {u"A"_s}, {u"A"_s}},
        {"a duplicate at index 1", {u"A"_s, u"A"_s, u"B"_s}, {u"A"_s, u"B"_s}},
        {"two items alike", {u"A"_s, u"A"_s}, {u"A"_s}},
        {"three items alike", {u"A"_s, u"A"_s, u"A"_s}, {u"A"_s}},
        {"at the end", {u"A"_s, u"B"_s, u"B"_s}, {u"A"_s, u"B"_s}},
        {"separators", {u"A"_s, u""_s, u""_s, u"B"_s}, {u"A"_s, u""_s, u"B"_s}},
        {"case matters", {u"A"_s, u"a"_s}, {u"A"_s, u"a"_s}},
        {"runs at both ends", {u"A"_s, u"A"_s, u"B"_s, u"C"_s, u"C"_s}, {u"A"_s, u"B"_s, u"C"_s}},
    };
    for (const auto& row : rows) {
        const auto menu = plainMenu(row.before);
        const auto first = menu->itemAtIndex(0);
        mirror->removeDuplicateMenuItems(*menu);
        EXPECT_EQ(titlesOf(*menu), row.after) << row.sentence;
        EXPECT_EQ(menu->itemAtIndex(0), first) << row.sentence << ": of a run the first stays";
    }
}

TEST_F(MenuFinishingTest, duplicates_areRemovedInTwoApplicationsOnly)
{
    const struct
    {
        QString application;
        bool removed;
    } rows[] = {{u"Finder"_s, true},
                {u"Safari"_s, true},
                {u"Editor"_s, false},
                {u"finder"_s, false},
                {u"Finder "_s, false}};
    for (const auto& [name, removed] : rows) {
        workspace.active = Workspace::ActiveApplication{name, 77};
        show(u"File\n  Open\n  Open\nGo\nGo\n"_s);
        EXPECT_EQ(opened(u"File"_s)->numberOfItems(), removed ? 1 : 2) << name.toStdString();
        EXPECT_EQ(root().numberOfItems(), 3) << name.toStdString();
        mirror->menuNeedsUpdate(root());
        EXPECT_EQ(root().numberOfItems(), removed ? 2 : 3) << name.toStdString();
    }
    workspace.active.reset();
    show(u"File\n  Open\n  Open\n"_s);
    EXPECT_EQ(opened(u"File"_s)->numberOfItems(), 2) << "no application in front";
}

TEST_F(MenuFinishingTest, duplicates_goAlsoFromAMenuWithTheReservedTitle)
{
    workspace.active = Workspace::ActiveApplication{u"Safari"_s, 77};
    const auto menu = plainMenu({u"A"_s, u"A"_s});
    menu->setTitle(AppAccessibility::reservedMarkerTitle());
    mirror->menuNeedsUpdate(*menu);
    EXPECT_EQ(titlesOf(*menu), QStringList{u"A"_s});
}

TEST_F(MenuFinishingTest, recordingASelection_addsNothing)
{
    show(u"File\n  New\n"_s);
    mirror->updateRecentSelectionsListWithItem(opened(u"File"_s)->itemAtIndex(0));
    mirror->updateRecentSelectionsListWithItem(root().itemAtIndex(0));
    mirror->updateRecentSelectionsListWithItem(MenuItem::create(u"Lone"_s));
    mirror->updateRecentSelectionsListWithItem(nullptr);
    EXPECT_TRUE(mirror->recentSelectionsList().isEmpty());
}

TEST_F(MenuFinishingTest, recentSelections_beginWithASeparatorAndABoldHeader)
{
    const auto menu = plainMenu({u"A"_s});
    mirror->addRecentSelectionsMenuTo(*menu);
    EXPECT_EQ(titlesOf(*menu), (QStringList{u"A"_s, u""_s, u"Recent Selections"_s}));
    EXPECT_TRUE(menu->itemAtIndex(1)->isSeparatorItem());
    const auto header = menu->itemAtIndex(2);
    EXPECT_TRUE(header->action().isEmpty());
    EXPECT_EQ(header->keyEquivalent(), u""_s);
    ASSERT_TRUE(header->attributedTitle());
    EXPECT_EQ(header->attributedTitle()->text, u"Recent Selections"_s);
    EXPECT_EQ(header->attributedTitle()->strokeWidth, -1.0);
    EXPECT_EQ(header->attributedTitle()->font, fonts.menuFontOfSize(0));
}

TEST_F(MenuFinishingTest, recentSelections_listWhatTheirPathsLeadTo)
{
    show(u"File\n  New\n  ---\n  Recent\n    one\n    two\nEdit\n  -Undo\n"_s);
    const struct
    {
        const char* sentence;
        QString key;
        QStringList added;
    } rows[] = {
        {"a leaf", u"Editor|File|New"_s, {u"New"_s}},
        {"a leaf two menus down", u"Editor|File|Recent|two"_s, {u"two"_s}},
        {"a holder", u"Editor|File|Recent"_s, {u"Recent"_s}},
        {"another application", u"Finder|File|New"_s, {}},
        {"an application in another case", u"editor|File|New"_s, {}},
        {"a path that is gone", u"Editor|File|Save"_s, {}},
        {"a menu that is gone", u"Editor|Go|New"_s, {}},
        {"a part in between that is gone: the search goes on where it is",
         u"Editor|File|Lost|New"_s,
         {u"New"_s}},
        {"the last part that is gone", u"Editor|File|New|Lost"_s, {}},
        {"an entry of the bar alone", u"Editor|File"_s, {}},
        {"the key of an entry of the bar leads to the first separator", u"Editor|File|"_s, {u""_s}},
        {"and to nothing in a menu without one", u"Editor|Edit|"_s, {}},
        {"the application alone", u"Editor"_s, {}},
        {"an empty key", u""_s, {}},
    };
    for (const auto& row : rows) {
        mirror->setRecentSelectionsList({row.key});
        const auto menu = plainMenu({});
        mirror->addRecentSelectionsMenuTo(*menu);
        EXPECT_EQ(titlesOf(*menu).mid(2), row.added) << row.sentence;
    }
}

TEST_F(MenuFinishingTest, recentSelections_keepTheirOrderAndPressTheSameElements)
{
    show(u"File\n  New\n  Open\nEdit\n  -Undo\n"_s);
    mirror->setRecentSelectionsList(
        {u"Editor|File|Open"_s, u"Editor|Edit|Undo"_s, u"Finder|File|New"_s, u"Editor|File|New"_s});
    const auto menu = plainMenu({});
    mirror->addRecentSelectionsMenuTo(*menu);
    EXPECT_EQ(titlesOf(*menu), (QStringList{u""_s, u"Recent Selections"_s, u"Open"_s, u"Undo"_s, u"New"_s}));
    EXPECT_FALSE(menu->itemAtIndex(3)->isEnabled());
    const auto copied = menu->itemAtIndex(2);
    EXPECT_EQ(copied->action(), u"clickMenuItem"_s);
    copied->target()->perform(copied->action(), copied.get());
    EXPECT_EQ(accessibility.pressedTitles(), QStringList{u"Open"_s});
}
