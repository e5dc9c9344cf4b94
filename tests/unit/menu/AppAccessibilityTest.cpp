// SPDX-License-Identifier: MIT
#include "menu/AppAccessibility.h"

#include "tests/unit/menu/MirrorTest.h"

#include <QCoreApplication>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

using AppAccessibilityTest = MirrorTest;

const QString Type = u"Type"_s;
const QString Item = u"MenuItem"_s;

/// One item of the application, put together attribute by attribute.
class ItemTest : public MirrorTest
{
protected:
    ItemTest()
    {
        show(u"File\n  Save\n"_s);
        element = accessibility.menuItem(application, {u"File"_s, u"Save"_s});
    }

    void set(const QString& attribute, const QVariant& value)
    {
        accessibility.setAttribute(element, attribute, value);
    }

    [[nodiscard]] std::shared_ptr<MenuItem> made()
    {
        return mirror->getMenuItemForElement(element).value(Item).value<std::shared_ptr<MenuItem>>();
    }

    UIElementRef element;
};

} // namespace

TEST_F(AppAccessibilityTest, initWithFocusedApp_withoutAccessibility_givesNothing)
{
    accessibility.present = false;
    EXPECT_EQ(AppAccessibility::initWithFocusedApp(), nullptr);
}

TEST_F(AppAccessibilityTest, initWithFocusedApp_withoutAFocusedApplication_givesNothing)
{
    accessibility.setFocusedApplication({});
    EXPECT_EQ(AppAccessibility::initWithFocusedApp(), nullptr);
}

TEST_F(AppAccessibilityTest, newMirror_hasAnEmptyRootMenuAndItsFlags)
{
    EXPECT_EQ(mirror->menu()->title(), u"Fennrick"_s);
    EXPECT_EQ(mirror->menu()->numberOfItems(), 0);
    EXPECT_EQ(mirror->menu()->delegate(), mirror.get());
    EXPECT_TRUE(mirror->menu()->autoenablesItems());
    EXPECT_TRUE(mirror->recentSelectionsList().isEmpty());
    EXPECT_EQ(mirror->auxiliaryMenu(), nullptr);
    EXPECT_EQ(mirror->currentAppName(), std::nullopt);
    EXPECT_TRUE(mirror->showApplicationMenu());
    EXPECT_FALSE(mirror->showAppleMenu());
    EXPECT_FALSE(mirror->showRecentSelections());
    EXPECT_FALSE(mirror->foldAlternateItems());
    EXPECT_FALSE(mirror->keyEquivalents());
}

TEST_F(AppAccessibilityTest, flags_areStoredAndChangeNothingBeforeTheNextUpdate)
{
    show(u"Apple\nFile\n"_s);
    EXPECT_EQ(titlesOf(root()), QStringList{u"File"_s});
    mirror->setShowAppleMenu(true);
    mirror->setShowApplicationMenu(false);
    mirror->setShowRecentSelections(true);
    mirror->setFoldAlternateItems(true);
    mirror->setKeyEquivalents(true);
    EXPECT_TRUE(mirror->showAppleMenu() && mirror->showRecentSelections());
    EXPECT_TRUE(mirror->foldAlternateItems() && mirror->keyEquivalents());
    EXPECT_FALSE(mirror->showApplicationMenu());
    EXPECT_EQ(titlesOf(root()), QStringList{u"File"_s});
    mirror->update();
    EXPECT_EQ(titlesOf(root()), QStringList{u"\uF8FF"_s});
}

TEST_F(AppAccessibilityTest, update_takesTheNameOfTheApplicationInFront)
{
    mirror->update();
    EXPECT_EQ(mirror->currentAppName(), u"Editor"_s);
    workspace.active.reset();
    mirror->update();
    EXPECT_EQ(mirror->currentAppName(), std::nullopt);
}

TEST_F(AppAccessibilityTest, elements_thatCannotBeRead_areNothing)
{
    EXPECT_EQ(mirror->elementOfAppWithFocus(), application);
    EXPECT_FALSE(mirror->getAXMenuBarFor(application));
    EXPECT_FALSE(mirror->getAXMenuBarFor({}));
    EXPECT_EQ(mirror->menuItemsIn({}), std::nullopt);
    EXPECT_EQ(mirror->menuItemsIn(application), std::nullopt);
    const auto bar = accessibility.setMenuBar(application, MenuFile::parse(u"File\nEdit\n"_s));
    EXPECT_EQ(mirror->getAXMenuBarFor(application), bar);
    ASSERT_TRUE(mirror->menuItemsIn(bar));
    EXPECT_EQ(mirror->menuItemsIn(bar)->size(), 2);
    accessibility.quit(application);
    EXPECT_FALSE(mirror->getAXMenuBarFor(application));
    EXPECT_EQ(mirror->menuItemsIn(bar), std::nullopt);
}

TEST_F(AppAccessibilityTest, elements_ofAnotherTypeThanExpected_areNothing)
{
    accessibility.setAttribute(application, u"AXMenuBar"_s, u"not an element"_s);
    EXPECT_FALSE(mirror->getAXMenuBarFor(application));
    show(u"File\n"_s);
    const auto bar = mirror->getAXMenuBarFor(application);
    accessibility.setAttribute(bar, u"AXChildren"_s, u"no array"_s);
    EXPECT_EQ(mirror->menuItemsIn(bar), std::nullopt);
    accessibility.setAttribute(bar, u"AXChildren"_s, QVariantList{u"no element"_s, 1});
    mirror->update();
    EXPECT_EQ(root().numberOfItems(), 0);
}

TEST_F(AppAccessibilityTest, elementOfOurProcess_isTheApplicationWithOurProcessIdentifier)
{
    const auto own = accessibility.addApplication(QCoreApplication::applicationPid(), u"Tarnwick"_s);
    EXPECT_EQ(mirror->getAXElementOfOurProcess(), own);
}

TEST_F(AppAccessibilityTest, rebuild_readsTheFirstLevelOnly)
{
    show(u"File\n  New\n  Open Recent\n    notes.txt\nEdit\n  Undo\n"_s);
    EXPECT_EQ(titlesOf(root()), (QStringList{u"File"_s, u"Edit"_s}));
    for (const auto& item : root().itemArray()) {
        ASSERT_TRUE(item->hasSubmenu());
        EXPECT_EQ(item->submenu()->numberOfItems(), 0);
        EXPECT_EQ(item->submenu()->delegate(), mirror.get());
        EXPECT_FALSE(item->submenu()->autoenablesItems());
        EXPECT_TRUE(item->action().isEmpty()) << "an item with a submenu has no action";
        EXPECT_NE(proxyOf(item), nullptr);
    }
    EXPECT_EQ(root().itemAtIndex(0)->submenu()->title(), u"Sub Menu for: File"_s);
}

TEST_F(AppAccessibilityTest, rebuild_ofAnItemWithoutAMenu_leavesItItsAction)
{
    const auto bar = accessibility.setMenuBar(application, {});
    const auto entry = accessibility.addElement(bar, u"AXMenuBarItem"_s, u"Run"_s);
    accessibility.setAttribute(entry, u"AXEnabled"_s, true);
    mirror->update();
    const auto item = root().itemWithTitle(u"Run"_s);
    ASSERT_NE(item, nullptr);
    EXPECT_FALSE(item->hasSubmenu());
    EXPECT_EQ(item->action(), u"clickMenuItem"_s);
}

TEST_F(AppAccessibilityTest, rebuild_replacesTheItems_notTheMenu)
{
    show(u"File\nEdit\n"_s);
    const auto menu = mirror->menu();
    const std::weak_ptr<MenuItem> old = root().itemAtIndex(0);
    show(u"Go\n"_s);
    EXPECT_EQ(mirror->menu(), menu);
    EXPECT_EQ(titlesOf(root()), QStringList{u"Go"_s});
    EXPECT_TRUE(old.expired());
}

TEST_F(AppAccessibilityTest, rebuild_withoutApplicationOrMenuBar_leavesTheRootMenuEmpty)
{
    show(u"File\n"_s);
    accessibility.removeAttribute(application, u"AXMenuBar"_s);
    mirror->update();
    EXPECT_EQ(root().numberOfItems(), 0);
    show(u"File\n"_s);
    accessibility.setFocusedApplication({});
    mirror->update();
    EXPECT_EQ(root().numberOfItems(), 0);
    accessibility.setFocusedApplication(application);
    accessibility.quit(application);
    mirror->update();
    EXPECT_EQ(root().numberOfItems(), 0);
}

TEST_F(AppAccessibilityTest, appleMenuAndApplicationMenu_followTheirFlags)
{
    const QString logo = u"\uF8FF"_s;
    const struct
    {
        const char* sentence;
        bool showApple;
        bool showApplication;
        QString bar;
        QStringList titles;
    } rows[] = {
        {"both", true, true, u"Apple\nFile\nEdit\n"_s, {logo, u"File"_s, u"Edit"_s}},
        {"the application only", false, true, u"Apple\nFile\nEdit\n"_s, {u"File"_s, u"Edit"_s}},
        {"the system menu only", true, false, u"Apple\nFile\nEdit\n"_s, {logo}},
        {"neither", false, false, u"Apple\nFile\nEdit\n"_s, {}},
        {"without a system menu", true, true, u"File\n"_s, {u"File"_s}},
        {"without a system menu nothing survives", true, false, u"File\nEdit\n"_s, {}},
        {"only the exact title counts", true, false, u"apple\nApples\nApple\n"_s, {logo}},
        {"of two only the first gets the logo", true, false, u"Apple\nFile\nApple\n"_s, {logo, u"Apple"_s}},
        {"of two only the first is removed", false, true, u"Apple\nFile\nApple\n"_s, {u"File"_s, u"Apple"_s}},
    };
    for (const auto& row : rows) {
        mirror->setShowAppleMenu(row.showApple);
        mirror->setShowApplicationMenu(row.showApplication);
        show(row.bar);
        EXPECT_EQ(titlesOf(root()), row.titles) << row.sentence;
    }
}

TEST_F(ItemTest, descriptor_ofWhatMakesNoEntry_saysWhy)
{
    const struct
    {
        const char* sentence;
        QString role;
        QString title; ///< null for none
        QString type;
    } rows[] = {
        {"an untitled menu", u"AXMenu"_s, {}, u"AXMenu"_s},
        {"an untitled item", u"AXMenuItem"_s, {}, u"AXOther"_s},
        {"an untitled text field", u"AXTextField"_s, {}, u"AXOther"_s},
        {"a title that is the name of a role counts as the role", u"AXButton"_s, u"AXMenu"_s, u"AXMenu"_s},
        {"and so does this one", u"AXButton"_s, u"AXMenuItem"_s, u"AXOther"_s},
        {"a titled menu is an entry", u"AXMenu"_s, u"Tools"_s, u"AXMenuItem"_s},
        {"an untitled element of another role is an entry", u"AXButton"_s, {}, u"AXMenuItem"_s},
        {"an empty title is a title", u"AXMenuItem"_s, u""_s, u"AXMenuItem"_s},
    };
    for (const auto& row : rows) {
        const auto other = accessibility.addElement(application, row.role, row.title);
        const QVariantMap descriptor = mirror->getMenuItemForElement(other);
        EXPECT_EQ(descriptor.keys(), (QStringList{Item, Type})) << row.sentence;
        EXPECT_EQ(descriptor.value(Type), row.type) << row.sentence;
        if (row.type == u"AXMenuItem")
            EXPECT_NE(descriptor.value(Item).value<std::shared_ptr<MenuItem>>(), nullptr) << row.sentence;
        else
            EXPECT_EQ(descriptor.value(Item), u"Nothing"_s) << row.sentence;
    }
    EXPECT_EQ(mirror->getMenuItemForElement({}).value(Type), u"AXOther"_s);
}

TEST_F(ItemTest, attributes_areReadInTheirOrder)
{
    set(u"AXMenuItemMarkChar"_s, u"✓"_s);
    set(u"AXMenuItemCmdModifiers"_s, 0);
    set(u"AXMenuItemCmdChar"_s, u"S"_s);
    set(u"AXMenuItemPrimaryUIElement"_s, QVariant::fromValue(element));
    set(u"AXMenuItemCmdGlyph"_s, 11);
    accessibility.logReads = true;
    (void)mirror->getMenuItemForElement(element);
    EXPECT_EQ(accessibility.reads.mid(0, 8),
              (QStringList{u"AXRole"_s, u"AXTitle"_s, u"AXEnabled"_s, u"AXMenuItemMarkChar"_s,
                           u"AXMenuItemCmdModifiers"_s, u"AXMenuItemCmdChar"_s,
                           u"AXMenuItemPrimaryUIElement"_s, u"AXMenuItemCmdGlyph"_s}));
}

TEST_F(ItemTest, titleThatIsEmptyOrADash_makesASeparator)
{
    for (const QString& title : {u""_s, u"-"_s}) {
        set(u"AXTitle"_s, title);
        const auto item = made();
        ASSERT_NE(item, nullptr);
        EXPECT_TRUE(item->isSeparatorItem());
        EXPECT_EQ(item->title(), u""_s);
        EXPECT_EQ(item->target(), nullptr);
        EXPECT_TRUE(item->action().isEmpty());
    }
    set(u"AXTitle"_s, u"--"_s);
    EXPECT_FALSE(made()->isSeparatorItem());
    set(u"AXTitle"_s, u" "_s);
    EXPECT_FALSE(made()->isSeparatorItem());
}

TEST_F(ItemTest, item_getsItsProxy)
{
    const auto item = made();
    EXPECT_EQ(item->title(), u"Save"_s);
    EXPECT_EQ(item->action(), u"clickMenuItem"_s);
    EXPECT_EQ(item->keyEquivalent(), u""_s);
    EXPECT_FALSE(item->isAlternate());
    const auto* proxy = proxyOf(item);
    ASSERT_NE(proxy, nullptr);
    EXPECT_EQ(proxy->itemAXUIElementRef(), element);
    EXPECT_EQ(proxy->appAXUIElementRef(), application);
    EXPECT_EQ(proxy->appName(), u"Editor"_s);
    EXPECT_EQ(proxy->menuItem().lock(), item);
}

TEST_F(ItemTest, actionNode_isMadeForAnyElementAndItem)
{
    const auto item = MenuItem::create(u"Own"_s);
    const auto proxy = mirror->createActionNodeWithAndMenuItem(element, item);
    EXPECT_EQ(proxy->itemAXUIElementRef(), element);
    EXPECT_EQ(proxy->appAXUIElementRef(), application);
    EXPECT_EQ(proxy->appName(), u"Editor"_s);
    EXPECT_EQ(proxy->menuItem().lock(), item);
    EXPECT_EQ(item->target(), nullptr) << "whoever asked for it sets it";
}

TEST_F(ItemTest, actionNode_ofAnApplicationWithoutATitle_bearsItsRole)
{
    accessibility.hideAttribute(application, u"AXTitle"_s);
    mirror->update();
    EXPECT_EQ(mirror->createActionNodeWithAndMenuItem(element, nullptr)->appName(), u"AXApplication"_s);
}

TEST_F(ItemTest, state_isOnForAnyMark)
{
    EXPECT_EQ(made()->state(), MenuItem::State::Off);
    for (const QVariant& mark : {QVariant(u"✓"_s), QVariant(u""_s), QVariant(false), QVariant(0)}) {
        set(u"AXMenuItemMarkChar"_s, mark);
        EXPECT_EQ(made()->state(), MenuItem::State::On);
    }
    accessibility.failAttribute(element, u"AXMenuItemMarkChar"_s);
    EXPECT_EQ(made()->state(), MenuItem::State::Off);
}

TEST_F(ItemTest, enabled_onlyByTheBooleanTrue)
{
    const struct
    {
        QVariant value;
        bool enabled;
    } rows[] = {{true, true}, {false, false}, {1, false}, {u"true"_s, false}};
    for (const auto& [value, enabled] : rows) {
        set(u"AXEnabled"_s, value);
        EXPECT_EQ(made()->isEnabled(), enabled);
    }
    set(u"AXEnabled"_s, true);
    accessibility.hideAttribute(element, u"AXEnabled"_s);
    EXPECT_FALSE(made()->isEnabled()) << "an item whose state cannot be read is greyed";
}

TEST_F(ItemTest, disabledItemWithAMark_isCheckedAndGreyed)
{
    set(u"AXEnabled"_s, false);
    set(u"AXMenuItemMarkChar"_s, u"✓"_s);
    EXPECT_EQ(made()->state(), MenuItem::State::On);
    EXPECT_FALSE(made()->isEnabled());
}

TEST_F(ItemTest, keyEquivalent_comesFromCharacterAndGlyph)
{
    const struct
    {
        const char* sentence;
        bool keyEquivalents;
        QVariant character;
        QVariant glyph;
        QVariant modifiers;
        QString key;
        quint64 mask;
    } rows[] = {
        {"an upper-case character is lowered", true, u"S"_s, {}, 1, u"s"_s, 0x120000},
        {"a glyph without a character", true, {}, 100, 0, u"\uF702"_s, 0x100000},
        {"the glyph wins over the character", true, u"X"_s, 111, {}, u"\uF704"_s, 0x100000},
        {"an unknown glyph leaves the character", true, u"X"_s, 99, {}, u"x"_s, 0x100000},
        {"a glyph code as text", true, {}, u"27"_s, {}, u"\u001B"_s, 0x100000},
        {"several characters", true, u"Tab"_s, {}, {}, u"tab"_s, 0x100000},
        {"no shortcut", true, {}, {}, {}, u""_s, 0x100000},
        {"switched off, the mask stays", false, u"S"_s, 111, 1, u""_s, 0x120000},
        {"code 0 is Command", true, u"S"_s, {}, 0, u"s"_s, 0x100000},
        {"code 5 has no entry", true, u"S"_s, {}, 5, u"s"_s, 0x100000},
        {"code 8 is Command as well", true, u"S"_s, {}, 8, u"s"_s, 0x100000},
        {"code 9 is Shift", true, u"S"_s, {}, 9, u"s"_s, 0x20000},
        {"code 12 is Control", true, u"S"_s, {}, 12, u"s"_s, 0x40000},
        {"code 15 has no entry", true, u"S"_s, {}, 15, u"s"_s, 0x100000},
        {"an unknown code", true, u"S"_s, {}, 99, u"s"_s, 0x100000},
    };
    for (const auto& row : rows) {
        mirror->setKeyEquivalents(row.keyEquivalents);
        set(u"AXMenuItemCmdChar"_s, row.character);
        set(u"AXMenuItemCmdGlyph"_s, row.glyph);
        set(u"AXMenuItemCmdModifiers"_s, row.modifiers);
        EXPECT_EQ(made()->keyEquivalent(), row.key) << row.sentence;
        EXPECT_EQ(made()->keyEquivalentModifierMask(), row.mask) << row.sentence;
    }
}

TEST_F(ItemTest, alternate_whenThePrimaryHasAnotherTitle_andFoldingIsOn)
{
    const auto menu = accessibility.attribute(element, u"AXParent"_s).value<UIElementRef>();
    const auto primary = accessibility.addElement(menu, u"AXMenuItem"_s, u"Close"_s);
    EXPECT_FALSE(made()->isAlternate());
    set(u"AXMenuItemPrimaryUIElement"_s, QVariant::fromValue(primary));
    EXPECT_FALSE(made()->isAlternate()) << "folding is off";
    mirror->setFoldAlternateItems(true);
    EXPECT_TRUE(made()->isAlternate());
    set(u"AXMenuItemPrimaryUIElement"_s, QVariant::fromValue(element));
    EXPECT_FALSE(made()->isAlternate()) << "an item is its own primary";
    accessibility.setAttribute(primary, u"AXTitle"_s, u"Save"_s);
    set(u"AXMenuItemPrimaryUIElement"_s, QVariant::fromValue(primary));
    EXPECT_FALSE(made()->isAlternate()) << "the primary has the same title";
    accessibility.hideAttribute(primary, u"AXTitle"_s);
    EXPECT_TRUE(made()->isAlternate()) << "an untitled primary is described by its role";
}

TEST_F(ItemTest, missingAttributesEverywhere_makeADisabledItem)
{
    for (const QString& name : {u"AXEnabled"_s, u"AXParent"_s})
        accessibility.removeAttribute(element, name);
    mirror->setKeyEquivalents(true);
    mirror->setFoldAlternateItems(true);
    const auto item = made();
    EXPECT_EQ(item->title(), u"Save"_s);
    EXPECT_FALSE(item->isEnabled());
    EXPECT_EQ(item->state(), MenuItem::State::Off);
    EXPECT_EQ(item->keyEquivalent(), u""_s);
    EXPECT_EQ(item->keyEquivalentModifierMask(), 0x100000U);
    accessibility.failAttributeNames(element);
    EXPECT_EQ(mirror->getMenuItemForElement(element).value(Type), u"AXOther"_s)
        << "without its names it is an untitled item";
    EXPECT_TRUE(opened(u"File"_s) && opened(u"File"_s)->numberOfItems() == 0);
}

TEST_F(AppAccessibilityTest, oddTitles_areKeptAsTheyAre)
{
    const auto bar = accessibility.setMenuBar(application, MenuFile::parse(u"Go\n"_s));
    const auto menu = mirror->menuItemsIn(mirror->menuItemsIn(bar)->first())->first();
    const QStringList titles = {u"a|b"_s,      u"R&D && more"_s, u"tab\there"_s, u"two\nlines"_s,
                                u"%@ %d %1"_s, u"שלום عربي"_s,   u"\u202Eabc"_s, QString(10000, u'x')};
    for (const QString& title : titles) {
        const auto element = accessibility.addElement(menu, u"AXMenuItem"_s, title);
        accessibility.addElement(element, u"AXMenu"_s);
    }
    mirror->update();
    const auto submenu = opened(u"Go"_s);
    ASSERT_NE(submenu, nullptr);
    EXPECT_EQ(titlesOf(*submenu), titles);
    for (const auto& item : submenu->itemArray()) {
        ASSERT_TRUE(item->hasSubmenu());
        EXPECT_EQ(item->submenu()->title(), u"Sub Menu for: "_s + item->title());
    }
}

TEST_F(AppAccessibilityTest, submenu_isReadEachTimeItOpens)
{
    show(u"File\n  New\n  -Save\n  ---\n  *Wrap\n  Recent\n    one\n"_s);
    const auto file = opened(u"File"_s);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(titlesOf(*file), (QStringList{u"New"_s, u"Save"_s, u""_s, u"Wrap"_s, u"Recent"_s}));
    EXPECT_TRUE(file->itemAtIndex(0)->isEnabled());
    EXPECT_FALSE(file->itemAtIndex(1)->isEnabled());
    EXPECT_TRUE(file->itemAtIndex(2)->isSeparatorItem());
    EXPECT_EQ(file->itemAtIndex(3)->state(), MenuItem::State::On);
    EXPECT_EQ(file->itemAtIndex(4)->submenu()->numberOfItems(), 0) << "not before it opens itself";

    const auto element = accessibility.menuItem(application, {u"File"_s, u"New"_s});
    accessibility.setAttribute(element, u"AXTitle"_s, u"New Window"_s);
    EXPECT_EQ(opened(u"File"_s), file) << "the menu stays, its items are new";
    EXPECT_EQ(titlesOf(*file), (QStringList{u"New Window"_s, u"Save"_s, u""_s, u"Wrap"_s, u"Recent"_s}));
}

TEST_F(AppAccessibilityTest, nestedSubmenu_isReadFromItsOwnElement)
{
    show(u"File\n  Recent\n    Older\n      2019.txt\n"_s);
    const auto recent = opened(u"File"_s)->itemWithTitle(u"Recent"_s)->submenu();
    mirror->menuNeedsUpdate(*recent);
    const auto older = recent->itemWithTitle(u"Older"_s)->submenu();
    EXPECT_EQ(older->title(), u"Sub Menu for: Older"_s);
    mirror->menuNeedsUpdate(*older);
    EXPECT_EQ(titlesOf(*older), QStringList{u"2019.txt"_s});
    EXPECT_EQ(proxyOf(older->itemAtIndex(0))->itemKey(), u"Editor|File|Recent|Older|2019.txt"_s);
}

TEST_F(AppAccessibilityTest, submenuOfAnApplicationThatHasQuit_isEmptied)
{
    show(u"File\n  New\n"_s);
    EXPECT_EQ(opened(u"File"_s)->numberOfItems(), 1);
    accessibility.quit(application);
    EXPECT_EQ(opened(u"File"_s)->numberOfItems(), 0);
}

TEST_F(AppAccessibilityTest, menuThatIsNowhere_isEmptied)
{
    const auto menu = plainMenu({u"A"_s});
    mirror->menuNeedsUpdate(*menu);
    EXPECT_EQ(menu->numberOfItems(), 0);

    const auto holder = plainMenu({u"B"_s});
    const auto below = plainMenu({u"C"_s});
    holder->itemAtIndex(0)->setSubmenu(below);
    mirror->menuNeedsUpdate(*below);
    EXPECT_EQ(below->numberOfItems(), 0) << "its item is no mirrored one";
}

TEST_F(AppAccessibilityTest, menuWithTheReservedTitle_isLeftAlone)
{
    const auto menu = Menu::create(AppAccessibility::reservedMarkerTitle());
    menu->addItem(MenuItem::create(u"A"_s));
    mirror->menuNeedsUpdate(*menu);
    EXPECT_EQ(menu->numberOfItems(), 1);
    QString equal = AppAccessibility::reservedMarkerTitle();
    equal.detach();
    menu->setTitle(equal);
    mirror->menuNeedsUpdate(*menu);
    EXPECT_EQ(menu->numberOfItems(), 0) << "an equal title is not the same one";
}

TEST_F(AppAccessibilityTest, submenus_ofTwoHoldersWithOneTitle_goToTheFirst)
{
    show(u"File\n  first\nFile\n  second\n"_s);
    EXPECT_EQ(root().numberOfItems(), 2);
    EXPECT_TRUE(root().itemAtIndex(0)->hasSubmenu());
    EXPECT_FALSE(root().itemAtIndex(1)->hasSubmenu());
    EXPECT_EQ(root().itemAtIndex(1)->action(), u"clickMenuItem"_s) << "only the first loses its action";
    EXPECT_EQ(titlesOf(*opened(u"File"_s)), QStringList{u"first"_s});
}

TEST_F(AppAccessibilityTest, secondMenuOfAnItem_attachesToTheItemsOfTheFirst)
{
    show(u"File\n  Same\n    one\n"_s);
    const auto second =
        accessibility.addElement(accessibility.menuItem(application, {u"File"_s}), u"AXMenu"_s);
    accessibility.addMenuEntry(second, MenuFile::parse(u"Same\n  two\n"_s).front());
    const auto file = opened(u"File"_s);
    EXPECT_EQ(titlesOf(*file), (QStringList{u"Same"_s, u"Same"_s}));
    EXPECT_TRUE(file->itemAtIndex(0)->hasSubmenu());
    EXPECT_FALSE(file->itemAtIndex(1)->hasSubmenu());
}

TEST_F(AppAccessibilityTest, menuBelowASeparator_goesToTheFirstSeparator)
{
    show(u"Go\n  A\n"_s);
    const auto menu =
        mirror->menuItemsIn(mirror->menuItemsIn(mirror->getAXMenuBarFor(application))->first())->first();
    accessibility.addElement(menu, u"AXMenuItem"_s, u"-"_s);
    const auto second = accessibility.addElement(menu, u"AXMenuItem"_s, u""_s);
    accessibility.addElement(second, u"AXMenu"_s);
    const auto go = opened(u"Go"_s);
    ASSERT_EQ(go->numberOfItems(), 3);
    EXPECT_TRUE(go->itemAtIndex(1)->hasSubmenu());
    EXPECT_FALSE(go->itemAtIndex(2)->hasSubmenu());
}

TEST_F(AppAccessibilityTest, untitledMenuAmongTheFirstLevel_attachesToNothing)
{
    const auto bar = accessibility.setMenuBar(application, MenuFile::parse(u"File\n"_s));
    accessibility.addElement(bar, u"AXMenu"_s);
    accessibility.addElement(bar, u"AXMenuItem"_s, u""_s);
    mirror->update();
    ASSERT_EQ(root().numberOfItems(), 2);
    EXPECT_FALSE(root().itemAtIndex(1)->hasSubmenu()) << "no title is not the empty title";
}

TEST_F(AppAccessibilityTest, itemsBelowAnItem_followItInTheSameMenu)
{
    const auto bar = accessibility.setMenuBar(application, MenuFile::parse(u"File\n"_s));
    const auto tools = accessibility.addElement(bar, u"AXMenuBarItem"_s, u"Tools"_s);
    const auto inner = accessibility.addElement(tools, u"AXMenuItem"_s, u"Inner"_s);
    accessibility.addElement(inner, u"AXMenu"_s);
    accessibility.addElement(bar, u"AXMenuBarItem"_s, u"Help"_s);
    mirror->update();
    EXPECT_EQ(titlesOf(root()), (QStringList{u"File"_s, u"Tools"_s, u"Inner"_s, u"Help"_s}));
    EXPECT_FALSE(root().itemAtIndex(1)->hasSubmenu());
    EXPECT_EQ(root().itemAtIndex(2)->submenu()->title(), u"Sub Menu for: Inner"_s);
}

TEST_F(AppAccessibilityTest, onlyChildrenThatAreMenus_fillASubmenu)
{
    show(u"File\n  New\n"_s);
    const auto file = accessibility.menuItem(application, {u"File"_s});
    const auto group = accessibility.addElement(file, u"AXGroup"_s);
    accessibility.addElement(group, u"AXMenuItem"_s, u"hidden"_s);
    const auto second = accessibility.addElement(file, u"AXMenu"_s, u"titled menu"_s);
    accessibility.addElement(second, u"AXMenuItem"_s, u"Also"_s);
    EXPECT_EQ(titlesOf(*opened(u"File"_s)), (QStringList{u"New"_s, u"Also"_s}));
    const auto menu = plainMenu({});
    mirror->processSubAXMenuAsNSMenuWithParentMenuAndPrevDesc(group, *menu, std::nullopt);
    mirror->processSubAXMenuAsNSMenuWithParentMenuAndPrevDesc(application, *menu, std::nullopt);
    mirror->processSubAXMenuAsNSMenuWithParentMenuAndPrevDesc({}, *menu, std::nullopt);
    EXPECT_EQ(menu->numberOfItems(), 0);
}

TEST_F(AppAccessibilityTest, elementThatIsItsOwnChild_endsTheReading)
{
    show(u"File\n  Loop\n"_s);
    const auto loop = accessibility.menuItem(application, {u"File"_s, u"Loop"_s});
    const auto menu = accessibility.attribute(loop, u"AXParent"_s).value<UIElementRef>();
    accessibility.setAttribute(loop, u"AXChildren"_s,
                               QVariantList{QVariant::fromValue(loop), QVariant::fromValue(loop)});
    EXPECT_EQ(titlesOf(*opened(u"File"_s)), (QStringList{u"Loop"_s, u"Loop"_s, u"Loop"_s}));

    accessibility.setAttribute(loop, u"AXChildren"_s, QVariantList{QVariant::fromValue(menu)});
    const auto file = opened(u"File"_s);
    EXPECT_EQ(titlesOf(*file), QStringList{u"Loop"_s});
    const auto again = file->itemAtIndex(0)->submenu();
    ASSERT_NE(again, nullptr) << "a menu that holds itself can be opened as often as one likes";
    mirror->menuNeedsUpdate(*again);
    EXPECT_EQ(titlesOf(*again), QStringList{u"Loop"_s});
}

TEST_F(AppAccessibilityTest, itemsNestedWithoutEnd_areReadToALimit)
{
    show(u"File\n  Deep\n"_s);
    UIElementRef inner = accessibility.menuItem(application, {u"File"_s, u"Deep"_s});
    for (int i = 0; i < 100000; ++i)
        inner = accessibility.addElement(inner, u"AXMenuItem"_s, u"Deep"_s);
    EXPECT_LT(opened(u"File"_s)->numberOfItems(), 100);
}

TEST_F(AppAccessibilityTest, treeThatChangesBetweenTwoReads_leavesWhatWasRead)
{
    show(u"File\n  New\n  Open\n  Save\n"_s);
    int titles = 0;
    accessibility.beforeRead = [this, &titles](const UIElementRef&, const QString& attribute) {
        if (attribute == u"AXTitle" && ++titles == 2)
            accessibility.removeChildren(accessibility.menuItem(application, {u"File"_s}));
    };
    EXPECT_EQ(opened(u"File"_s)->numberOfItems(), 3) << "the array was read before";
    accessibility.beforeRead = {};
    EXPECT_EQ(opened(u"File"_s)->numberOfItems(), 0);
}

TEST_F(AppAccessibilityTest, delegate_saysYesToKeyEquivalentsWithoutATarget)
{
    ActionTarget* target = nullptr;
    QString action;
    EXPECT_TRUE(mirror->menuHasKeyEquivalentForEventTargetAction(root(), Event(), target, action));
    EXPECT_EQ(target, nullptr);
    EXPECT_TRUE(action.isNull());
}

TEST_F(AppAccessibilityTest, otherDelegateCallsAndSelections_changeNothing)
{
    show(u"File\n  New\n"_s);
    const auto calls = accessibility.calls.attributeValues;
    mirror->menuWillOpen(root());
    mirror->menuWillHighlightItem(root(), root().itemAtIndex(0).get());
    mirror->menuWillHighlightItem(root(), nullptr);
    mirror->menuDidClose(root());
    NotificationCenter::defaultCenter().postNotificationName(u"NSMenuDidSendActionNotification"_s, &root());
    EXPECT_EQ(titlesOf(root()), QStringList{u"File"_s});
    EXPECT_EQ(accessibility.calls.attributeValues, calls);
    EXPECT_TRUE(accessibility.presses.isEmpty());
    EXPECT_TRUE(mirror->recentSelectionsList().isEmpty());
}

TEST_F(AppAccessibilityTest, lookUpTables_areBuiltOnceAndBuildingAgainChangesNothing)
{
    mirror->initializeGlyphLookUpTable();
    mirror->initializeModifierLookUpTable();
    mirror->setKeyEquivalents(true);
    show(u"Edit\n  Find Next\tCtrl+Shift+F3\n"_s);
    const auto item = opened(u"Edit"_s)->itemAtIndex(0);
    EXPECT_EQ(item->keyEquivalent(), u"\uF706"_s);
    EXPECT_EQ(item->keyEquivalentModifierMask(), 0x120000U);
}

TEST_F(AppAccessibilityTest, choice_isPressedInTheApplicationAfterTheMenuHasClosed)
{
    show(u"File\n  Recent\n    one\n    two\n"_s);
    presenter.choose = {u"File"_s, u"Recent"_s, u"two"_s};
    presenter.whileOpen = [this] { EXPECT_TRUE(accessibility.presses.isEmpty()); };
    EXPECT_TRUE(presenter.popUpMenuPositioningItem(mirror->menu(), nullptr, QPointF(1, 2)));
    EXPECT_EQ(accessibility.pressedTitles(), QStringList{u"two"_s});
}

TEST_F(AppAccessibilityTest, rebuildWhileTheMenuIsOpen_leavesTheChoiceAsItWas)
{
    show(u"File\n  New\n"_s);
    presenter.choose = {u"File"_s, u"New"_s};
    presenter.whileOpen = [this] { show(u"Other\n"_s); };
    const auto element = accessibility.menuItem(application, {u"File"_s, u"New"_s});
    EXPECT_TRUE(presenter.popUpMenuPositioningItem(mirror->menu(), nullptr, {}));
    ASSERT_EQ(accessibility.presses.size(), 1);
    EXPECT_EQ(accessibility.presses.first().element, element);
    EXPECT_EQ(titlesOf(root()), QStringList{u"Other"_s});
}

TEST_F(AppAccessibilityTest, submenuReadAgainWhileItIsOpen_leavesTheChoiceAsItWas)
{
    show(u"File\n  New\n"_s);
    presenter.choose = {u"File"_s, u"New"_s};
    presenter.whileOpen = [this] { (void)opened(u"File"_s); };
    EXPECT_TRUE(presenter.popUpMenuPositioningItem(mirror->menu(), nullptr, {}));
    EXPECT_EQ(accessibility.pressedTitles(), QStringList{u"New"_s});
}

TEST_F(AppAccessibilityTest, mirrorThatGoesAway_leavesMenusWithoutADelegate)
{
    show(u"File\n  New\n"_s);
    const auto menu = mirror->menu();
    const auto submenu = menu->itemAtIndex(0)->submenu();
    mirror.reset();
    EXPECT_EQ(menu->delegate(), nullptr);
    EXPECT_EQ(submenu->delegate(), nullptr);
}

TEST_F(AppAccessibilityTest, reading_isLinearInTheItems)
{
    const auto callsFor = [this](int count) {
        QString bar = u"File\n"_s;
        for (int i = 0; i < count; ++i)
            bar += u"  item\n"_s;
        show(bar);
        accessibility.calls = {};
        (void)opened(u"File"_s);
        return accessibility.calls;
    };
    const auto one = callsFor(1);
    const auto two = callsFor(2);
    const auto many = callsFor(1001);
    EXPECT_EQ(many.attributeValues - one.attributeValues, 1000 * (two.attributeValues - one.attributeValues));
    EXPECT_EQ(many.attributeNames - one.attributeNames, 1000 * (two.attributeNames - one.attributeNames));
    EXPECT_LE(two.attributeValues - one.attributeValues, 4) << "role, title, enabled, children";
}

TEST_F(AppAccessibilityTest, rebuild_readsEachEntryAndTheApplicationOnce)
{
    show(u"File\n  New\nEdit\n  Undo\n"_s);
    accessibility.logReads = true;
    accessibility.reads.clear();
    mirror->updateRootMenu();
    EXPECT_EQ(accessibility.reads.count(u"AXChildren"_s), 3);
    EXPECT_EQ(accessibility.reads.count(u"AXFocusedApplication"_s), 1);
    EXPECT_EQ(accessibility.reads.count(u"AXMenuBar"_s), 1);
    EXPECT_EQ(accessibility.reads.count(u"AXTitle"_s), 3) << "two entries and the application";
}
