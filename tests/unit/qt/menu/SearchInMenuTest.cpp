// SPDX-License-Identifier: MIT
#include "foundation/Event.h"
#include "menu/Menu.h"
#include "menu/MenuDelegate.h"
#include "menu/MenuItem.h"
#include "platform/qt/menu/PopUpBeginning.h"
#include "platform/qt/menu/QMenuView.h"
#include "platform/qt/menu/SearchField.h"
#include "platform/qt/menu/SearchList.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/SharedPorts.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

class Target final : public ActionTarget
{
public:
    bool respondsTo(const QString& /*action*/) const override { return true; }
    void perform(const QString& /*action*/, ActionSender* /*sender*/) override {}
};

/// Fills its menu as it is asked for, as the mirror does.
class Reading final : public MenuDelegate
{
public:
    std::function<void(Menu&)> fill;
    int times = 0;
    bool isOpen = false;

    void menuNeedsUpdate(Menu& menu) override
    {
        ++times;
        menu.removeAllItems();
        fill(menu);
    }
    void menuWillOpen(Menu& /*menu*/) override { isOpen = true; }
    void menuDidClose(Menu& /*menu*/) override { isOpen = false; }
};

class SearchInMenuTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QObject::connect(&view, &QMenuView::itemChosen,
                         [this](const std::shared_ptr<Menu>& menu, const std::shared_ptr<MenuItem>& item) {
                             chosen.append(menu->title() + u'/' + item->title());
                         });
        fileReading.fill = [this](Menu& menu) {
            for (const QString& title : fileTitles)
                add(menu, title)->setEnabled(title != u"Revert"_s);
        };
        file->setDelegate(&fileReading);
        file->setAutoenablesItems(false);
        root->setAutoenablesItems(false);
        add(*root, u"File"_s)->setSubmenu(file);
        add(*root, u"Edit"_s);
    }

    std::shared_ptr<MenuItem> add(Menu& menu, const QString& title)
    {
        auto item = MenuItem::create(title, u"choose"_s, {});
        item->setTarget(target);
        menu.addItem(item);
        return item;
    }

    /// As the toolkit does: to the widget of the pop-up that has its focus.
    static void press(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget* popUp = QApplication::activePopupWidget();
        ASSERT_TRUE(popUp);
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
        QApplication::sendEvent(popUp->focusWidget() ? popUp->focusWidget() : popUp, &event);
    }

    void type(const QString& text)
    {
        for (const QChar letter : text)
            press(letter.toUpper().unicode(), letter);
    }

    void open()
    {
        view.openAt(QPoint(10, 10));
        QApplication::processEvents();
    }

    void search(const QString& text)
    {
        open();
        press(Qt::Key_Slash, u"/"_s);
        clock.advance(1);
        type(text);
    }

    [[nodiscard]] SearchField& field() { return *view.findChild<SearchField*>(); }
    [[nodiscard]] SearchList& list() { return *view.findChild<SearchList*>(); }

    [[nodiscard]] QStringList rows()
    {
        QStringList titles;
        for (int row = 0; row < list().model()->rowCount(); ++row)
            titles.append(list().model()->index(row, 0).data().toString());
        return titles;
    }
    [[nodiscard]] QString highlighted() { return list().currentIndex().data().toString(); }

    void mouse(QEvent::Type type, QPoint place)
    {
        QWidget* viewport = list().viewport();
        const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, viewport->mapToGlobal(place), button,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &event);
    }
    [[nodiscard]] QPoint centerOf(int row)
    {
        return list().visualRect(list().model()->index(row, 0)).center();
    }

    FakeClock clock;
    SharedPorts ports{clock};
    std::shared_ptr<Target> target = std::make_shared<Target>();
    std::shared_ptr<Menu> root = Menu::create(u"root"_s);
    std::shared_ptr<Menu> file = Menu::create(u"File"_s);
    QStringList fileTitles{u"Save"_s, u"Save As..."_s, u"Revert"_s};
    Reading fileReading;
    QStringList chosen;
    QMenuView view{root};
};

TEST_F(SearchInMenuTest, aSlash_turnsTheMenuIntoAFieldWithTheKeys)
{
    open();
    EXPECT_FALSE(view.isSearched());
    press(Qt::Key_Slash, u"/"_s);
    EXPECT_TRUE(view.isSearched());
    EXPECT_TRUE(view.isVisible());
    type(u"sa"_s);
    EXPECT_EQ(field().text(), u"sa");
    EXPECT_EQ(view.activeAction(), nullptr);
}

TEST_F(SearchInMenuTest, controlAndF_beginsItToo)
{
    open();
    press(Qt::Key_F, u"\x06"_s, Qt::ControlModifier);
    EXPECT_TRUE(view.isSearched());
}

TEST_F(SearchInMenuTest, controlAndK_fromASubmenuToo)
{
    open();
    press(Qt::Key_F, u"f"_s);
    press(Qt::Key_Right);
    ASSERT_TRUE(fileReading.isOpen);
    press(Qt::Key_K, u"\x0b"_s, Qt::ControlModifier);
    EXPECT_TRUE(view.isSearched());
    EXPECT_FALSE(fileReading.isOpen);
}

TEST_F(SearchInMenuTest, anEntryThatBeginsWithASlash_winsItsKey)
{
    add(*root, u"/usr"_s);
    open();
    press(Qt::Key_Slash, u"/"_s);
    EXPECT_FALSE(view.isSearched());
    ASSERT_TRUE(view.activeAction());
    EXPECT_EQ(view.activeAction()->text(), u"/usr");
}

TEST_F(SearchInMenuTest, suchAnEntry_winsInItsOwnMenuOnly)
{
    add(*root, u"/usr"_s);
    open();
    press(Qt::Key_F, u"f"_s);
    press(Qt::Key_Right);
    ASSERT_TRUE(fileReading.isOpen);
    press(Qt::Key_Slash, u"/"_s);
    EXPECT_TRUE(view.isSearched());
}

TEST_F(SearchInMenuTest, theKeyHeldDownAMomentLonger_typesNothing)
{
    open();
    press(Qt::Key_Slash, u"/"_s);
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_Slash, {}, u"/"_s, true);
    QApplication::sendEvent(&field(), &repeat);
    EXPECT_EQ(field().text(), QString());
}

TEST_F(SearchInMenuTest, keysThatTypeTogether_typeOneText_butNotAsShortcuts)
{
    QList<quint32> asked;
    view.setKeyComposition([&](quint32 keysym) -> std::optional<QString> {
        asked.append(keysym);
        if (keysym == 1)
            return QString();
        return keysym == 2 && asked.size() > 1 ? std::optional(u"\u00e9"_s) : std::nullopt;
    });
    open();
    press(Qt::Key_Slash, u"/"_s);
    type(u"r"_s);
    asked.clear();
    const auto pressed = [this](quint32 keysym, const QString& text, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_unknown, modifiers, 0, keysym, 0, text);
        QApplication::sendEvent(&field(), &event);
    };
    pressed(1, {});
    EXPECT_EQ(field().text(), u"r");
    pressed(2, u"e"_s);
    EXPECT_EQ(field().text(), u"r\u00e9");
    pressed(3, u"v"_s);
    EXPECT_EQ(field().text(), u"r\u00e9v");
    pressed(1, {}, Qt::ControlModifier);
    EXPECT_EQ(asked, (QList<quint32>{1, 2, 3}));
}

TEST_F(SearchInMenuTest, nothingIsRead_beforeTheSearchBegins_andOneMenuInAnEvent)
{
    open();
    clock.advance(1);
    EXPECT_EQ(fileReading.times, 0);
    press(Qt::Key_Slash, u"/"_s);
    EXPECT_EQ(fileReading.times, 0);
    clock.advance(0);
    EXPECT_EQ(fileReading.times, 1);
    EXPECT_FALSE(fileReading.isOpen);
    clock.advance(1);
    EXPECT_EQ(fileReading.times, 1);
}

TEST_F(SearchInMenuTest, returnChooses_andPerformsWithTheMenuItWasReadIn)
{
    search(u"save as"_s);
    EXPECT_EQ(rows(), QStringList{u"Save As..."_s});
    press(Qt::Key_Return);
    EXPECT_EQ(chosen, QStringList{u"File/Save As..."_s});
    EXPECT_FALSE(view.isVisible());
}

TEST_F(SearchInMenuTest, whatWasChosenBefore_goesFirstAmongItsEquals_inThisApplicationOnly)
{
    fileTitles = {u"Print One"_s, u"Print Two"_s};
    search(u"print"_s);
    EXPECT_EQ(rows(), (QStringList{u"Print One"_s, u"Print Two"_s}));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    ASSERT_EQ(chosen, QStringList{u"File/Print Two"_s});
    search(u"print"_s);
    EXPECT_EQ(rows(), (QStringList{u"Print Two"_s, u"Print One"_s}));
    view.close();
    add(*root, u"View"_s);
    search(u"print"_s);
    EXPECT_EQ(rows(), (QStringList{u"Print One"_s, u"Print Two"_s})) << "the menu bar of another one";
}

TEST_F(SearchInMenuTest, whatIsGreyed_isNotChosen)
{
    search(u"revert"_s);
    EXPECT_EQ(highlighted(), u"Revert");
    press(Qt::Key_Return);
    EXPECT_EQ(chosen, QStringList());
    EXPECT_TRUE(view.isVisible());
}

TEST_F(SearchInMenuTest, upAndDown_moveAndGoRound)
{
    search(u"save"_s);
    EXPECT_EQ(rows(), (QStringList{u"Save"_s, u"Save As..."_s}));
    EXPECT_EQ(highlighted(), u"Save");
    press(Qt::Key_Down);
    EXPECT_EQ(highlighted(), u"Save As...");
    press(Qt::Key_Down);
    EXPECT_EQ(highlighted(), u"Save");
    press(Qt::Key_Up);
    EXPECT_EQ(highlighted(), u"Save As...");
    press(Qt::Key_PageUp);
    EXPECT_EQ(highlighted(), u"Save");
}

TEST_F(SearchInMenuTest, upWithoutAHighlight_goesToTheLastRow)
{
    open();
    press(Qt::Key_Slash, u"/"_s);
    type(u"i"_s); // in "File" and "Edit" only inside: not meant before all is read
    ASSERT_EQ(highlighted(), QString());
    const QString last = rows().constLast();
    press(Qt::Key_Up);
    EXPECT_EQ(highlighted(), last);
}

TEST_F(SearchInMenuTest, escape_goesBackToTheMenu_andASecondOneCloses)
{
    open();
    const QRect place = view.geometry();
    press(Qt::Key_Slash, u"/"_s);
    clock.advance(1);
    type(u"s"_s);
    EXPECT_NE(view.geometry(), place);
    press(Qt::Key_Escape);
    EXPECT_FALSE(view.isSearched());
    EXPECT_TRUE(view.isVisible());
    EXPECT_EQ(view.geometry(), place);
    press(Qt::Key_E, u"e"_s);
    ASSERT_TRUE(view.activeAction()) << "the keys are the menu's again";
    EXPECT_EQ(view.activeAction()->text(), u"Edit");
    press(Qt::Key_Escape);
    EXPECT_FALSE(view.isVisible());
}

TEST_F(SearchInMenuTest, escape_endsTheReading)
{
    open();
    press(Qt::Key_Slash, u"/"_s);
    press(Qt::Key_Escape);
    clock.advance(1);
    EXPECT_EQ(fileReading.times, 0);
    EXPECT_EQ(clock.pending(), 0);
}

TEST_F(SearchInMenuTest, closingTheMenu_endsTheReading)
{
    open();
    press(Qt::Key_Slash, u"/"_s);
    view.close();
    EXPECT_FALSE(view.isSearched());
    clock.advance(1);
    EXPECT_EQ(fileReading.times, 0);
}

TEST_F(SearchInMenuTest, emptyingTheText_goesBack)
{
    search(u"s"_s);
    press(Qt::Key_Backspace);
    EXPECT_FALSE(view.isSearched());
    EXPECT_TRUE(view.isVisible());
}

TEST_F(SearchInMenuTest, right_showsTheEntryInItsMenu)
{
    search(u"save as"_s);
    press(Qt::Key_Right);
    EXPECT_FALSE(view.isSearched());
    QMenu* submenu = view.actions().constFirst()->menu();
    for (int turn = 0; turn < 100 && !(submenu->isVisible() && submenu->activeAction()); ++turn)
        QApplication::processEvents();
    ASSERT_TRUE(submenu->isVisible());
    EXPECT_TRUE(fileReading.isOpen);
    ASSERT_TRUE(submenu->activeAction());
    EXPECT_EQ(submenu->activeAction()->text(), u"Save As...");
    EXPECT_EQ(chosen, QStringList());
    press(Qt::Key_Return);
    EXPECT_EQ(chosen, QStringList{u"File/Save As..."_s});
}

TEST_F(SearchInMenuTest, rightBeforeTheEndOfTheText_movesTheCursor)
{
    search(u"save"_s);
    press(Qt::Key_Left);
    press(Qt::Key_Right);
    EXPECT_TRUE(view.isSearched());
    press(Qt::Key_Right);
    EXPECT_FALSE(view.isSearched());
}

TEST_F(SearchInMenuTest, right_ofWhatIsThereNoMore_pressesNothing)
{
    search(u"save as"_s);
    fileTitles = QStringList{u"Close"_s};
    press(Qt::Key_Right);
    QMenu* submenu = view.actions().constFirst()->menu();
    for (int turn = 0; turn < 100 && !submenu->isVisible(); ++turn)
        QApplication::processEvents();
    QApplication::processEvents();
    EXPECT_TRUE(submenu->isVisible());
    EXPECT_EQ(submenu->activeAction(), nullptr);
    EXPECT_EQ(chosen, QStringList());
}

TEST_F(SearchInMenuTest, returnOnAMenu_opensIt)
{
    search(u"file"_s);
    EXPECT_EQ(highlighted(), u"File");
    press(Qt::Key_Return);
    for (int turn = 0; turn < 100 && !view.activeAction(); ++turn)
        QApplication::processEvents();
    ASSERT_TRUE(view.activeAction());
    EXPECT_EQ(view.activeAction()->text(), u"File");
    EXPECT_EQ(chosen, QStringList());
}

TEST_F(SearchInMenuTest, thePointer_choosesOnlyAfterItHasMoved)
{
    search(u"save"_s);
    QApplication::processEvents();
    mouse(QEvent::MouseMove, centerOf(1));
    mouse(QEvent::MouseButtonPress, centerOf(1));
    mouse(QEvent::MouseButtonRelease, centerOf(1));
    EXPECT_EQ(highlighted(), u"Save");
    EXPECT_EQ(chosen, QStringList());
    mouse(QEvent::MouseMove, centerOf(0));
    mouse(QEvent::MouseMove, centerOf(1));
    EXPECT_EQ(highlighted(), u"Save As...");
    mouse(QEvent::MouseButtonPress, centerOf(1));
    EXPECT_EQ(chosen, QStringList());
    mouse(QEvent::MouseButtonRelease, centerOf(1));
    EXPECT_EQ(chosen, QStringList{u"File/Save As..."_s});
}

TEST_F(SearchInMenuTest, aPointerThatRestsWhileRowsChange_choosesNothing)
{
    fileTitles = {u"Save"_s, u"Save As..."_s, u"Save All"_s, u"Save Again"_s};
    search(u"save"_s);
    mouse(QEvent::MouseMove, centerOf(0));
    mouse(QEvent::MouseMove, centerOf(1));
    ASSERT_EQ(highlighted(), u"Save As...");
    const QPoint place = centerOf(1);
    type(u" a"_s);
    ASSERT_EQ(highlighted(), u"Save As...");
    ASSERT_NE(rows().at(1), u"Save As...");
    mouse(QEvent::MouseMove, place);
    mouse(QEvent::MouseButtonPress, place);
    mouse(QEvent::MouseButtonRelease, place);
    EXPECT_EQ(chosen, QStringList());
    EXPECT_EQ(highlighted(), u"Save As...");
}

TEST_F(SearchInMenuTest, aPressOnTheField_doesNotClose_oneBesideDoes)
{
    search(u"save"_s);
    const auto pressAt = [this](QPoint place) {
        QMouseEvent event(QEvent::MouseButtonPress, place, view.mapToGlobal(place), Qt::LeftButton,
                          Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&view, &event);
    };
    pressAt(QPoint(0, 0));
    EXPECT_TRUE(view.isVisible());
    pressAt(QPoint(-20, -20));
    EXPECT_FALSE(view.isVisible());
}

TEST_F(SearchInMenuTest, keysOfALineOfText_moveWithinIt)
{
    search(u"save as"_s);
    press(Qt::Key_Home);
    EXPECT_EQ(field().cursorPosition(), 0);
    press(Qt::Key_Right, {}, Qt::ControlModifier);
    EXPECT_EQ(field().cursorPosition(), 5);
    press(Qt::Key_Right);
    EXPECT_EQ(field().cursorPosition(), 6);
    press(Qt::Key_Left, {}, Qt::ControlModifier);
    EXPECT_EQ(field().cursorPosition(), 5);
    press(Qt::Key_End, {}, Qt::ShiftModifier);
    EXPECT_EQ(field().selectedText(), u"as");
    press(Qt::Key_Right); // at its end, but what is selected is left first
    EXPECT_TRUE(view.isSearched());
    EXPECT_FALSE(field().hasSelectedText());
    press(Qt::Key_A, u"\x01"_s, Qt::ControlModifier);
    EXPECT_EQ(field().selectedText(), u"save as");
    press(Qt::Key_End);
    EXPECT_TRUE(view.isSearched());
    press(Qt::Key_Right);
    EXPECT_FALSE(view.isSearched()) << "at the end it shows the entry in its menu";
}

/// Looks at the rows as they are drawn.
class SearchRowsTest : public SearchInMenuTest
{
protected:
    /// Where the two pictures differ, from the left to the right.
    static std::pair<int, int> difference(const QImage& one, const QImage& other)
    {
        int left = one.width();
        int right = -1;
        for (int y = 0; y < one.height(); ++y)
            for (int x = 0; x < one.width(); ++x)
                if (one.pixel(x, y) != other.pixel(x, y)) {
                    left = std::min(left, x);
                    right = std::max(right, x);
                }
        return {left, right};
    }
    [[nodiscard]] QImage pictureOf(int row)
    {
        return list().viewport()->grab(list().visualRect(list().model()->index(row, 0))).toImage();
    }
    /// The lightness of the darkest point between these, 255 for white.
    static int darkest(const QImage& picture, int left, int right)
    {
        int found = 255;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = left; x < right; ++x)
                found = std::min(found, qGray(picture.pixel(x, y)));
        return found;
    }
    /// The only row below the highlighted one, when the second entry of "File" is made so.
    [[nodiscard]] QImage pictureOfSecond(const std::function<void(MenuItem&)>& make)
    {
        fileReading.fill = [this, make](Menu& menu) {
            add(menu, u"Save"_s);
            make(*add(menu, u"Save it"_s));
        };
        search(u"save"_s);
        QApplication::processEvents();
        EXPECT_EQ(rows(), (QStringList{u"Save"_s, u"Save it"_s}));
        QImage picture = pictureOf(1);
        view.close();
        return picture;
    }
};

TEST_F(SearchRowsTest, thePath_isDimmerThanTheTitle)
{
    const QImage row = pictureOfSecond([](MenuItem&) {});
    const QFontMetrics metrics(view.font());
    QFont bold = view.font();
    bold.setBold(true);
    const int line = metrics.height();
    const int path = line + line / 2 + QFontMetrics(bold).horizontalAdvance(u"Save"_s) +
                     metrics.horizontalAdvance(u" it"_s) + line / 2;
    EXPECT_LT(darkest(row, path, row.width()), 250) << "it is there";
    EXPECT_GT(darkest(row, path, row.width()), darkest(row, 0, path) + 40);
}

TEST_F(SearchRowsTest, shortcutsChecksAndWhatIsGreyed_areSeenWhereTheyAreInAMenu)
{
    const QImage plain = pictureOfSecond([](MenuItem&) {});
    EXPECT_EQ(difference(plain, pictureOfSecond([](MenuItem&) {})), std::pair(plain.width(), -1));
    const QImage withShortcut = pictureOfSecond([](MenuItem& item) { item.setKeyEquivalent(u"s"_s); });
    EXPECT_GT(difference(plain, withShortcut).first, plain.width() * 3 / 4);
    const QImage checked = pictureOfSecond([](MenuItem& item) { item.setState(MenuItem::State::On); });
    const auto [left, right] = difference(plain, checked);
    EXPECT_LT(left, right);
    EXPECT_LT(right, view.fontMetrics().height() * 2);
    const QImage greyed = pictureOfSecond([](MenuItem& item) { item.setEnabled(false); });
    EXPECT_GT(darkest(greyed, 0, greyed.width()), darkest(plain, 0, plain.width()) + 40);
}

/// The menus of a language that runs from right to left.
class SearchFromRightTest : public SearchRowsTest
{
protected:
    SearchFromRightTest() { view.setLayoutDirection(Qt::RightToLeft); }

    void searchHebrew(const QString& typed)
    {
        fileTitles = {u"שמירה בשם"_s, u"שמירה"_s, u"Save a Copy"_s};
        search(typed);
    }
};

TEST_F(SearchFromRightTest, theArrowThatLeadsOn_isTheLeftOne)
{
    searchHebrew(u"שמירה בשם"_s);
    EXPECT_EQ(rows(), QStringList{u"שמירה בשם"_s});
    press(Qt::Key_Right);
    EXPECT_TRUE(view.isSearched());
    EXPECT_EQ(field().cursorPosition(), 8) << "back by a letter";
    press(Qt::Key_Left);
    EXPECT_TRUE(view.isSearched());
    EXPECT_EQ(field().cursorPosition(), 9);
    press(Qt::Key_Left);
    EXPECT_FALSE(view.isSearched());
}

TEST_F(SearchFromRightTest, inATextThatRunsFromTheLeft_itIsTheRightOne)
{
    searchHebrew(u"save"_s);
    EXPECT_EQ(rows(), QStringList{u"Save a Copy"_s});
    press(Qt::Key_Left);
    EXPECT_EQ(field().cursorPosition(), 3);
    press(Qt::Key_Right);
    EXPECT_EQ(field().cursorPosition(), 4);
    press(Qt::Key_Right);
    EXPECT_FALSE(view.isSearched());
}

TEST_F(SearchFromRightTest, inMenusThatRunFromTheLeft_theTextDecidesToo)
{
    view.setLayoutDirection(Qt::LeftToRight);
    searchHebrew(u"שמירה"_s);
    press(Qt::Key_Right);
    EXPECT_EQ(field().cursorPosition(), 4);
    press(Qt::Key_Left);
    EXPECT_EQ(field().cursorPosition(), 5);
    press(Qt::Key_Left);
    EXPECT_FALSE(view.isSearched());
}

TEST_F(SearchFromRightTest, rowsAreTurnedOver_andTheirMarksAreAtTheLettersTyped)
{
    searchHebrew(u"שמ"_s);
    ASSERT_EQ(rows().size(), 2);
    press(Qt::Key_Down);
    press(Qt::Key_Down); // the same row highlighted as before
    const int row = 1;
    const QImage begun = pictureOf(row);
    type(u"ירה"_s);
    ASSERT_EQ(rows().size(), 2);
    const auto [left, right] = difference(begun, pictureOf(row));
    EXPECT_GT(right, left) << "the letters typed next are marked, too";
    EXPECT_GT(left, begun.width() / 2) << "the title stands at the right";
}

TEST_F(SearchInMenuTest, asAPopUpBegins_itMayBeSearchedAtOnce)
{
    {
        const PopUpBeginning::Scope inSearch(PopUpBeginning::Kind::Search);
        open();
    }
    EXPECT_TRUE(view.isSearched());
    clock.advance(1);
    type(u"save as"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(chosen, QStringList{u"File/Save As..."_s});
    open();
    EXPECT_FALSE(view.isSearched());
}

TEST_F(SearchInMenuTest, anOpenSubmenu_isClosed_andNotReadAgain)
{
    open();
    press(Qt::Key_F, u"f"_s);
    press(Qt::Key_Right);
    ASSERT_TRUE(fileReading.isOpen);
    press(Qt::Key_Slash, u"/"_s);
    EXPECT_TRUE(view.isSearched());
    EXPECT_FALSE(fileReading.isOpen);
    type(u"save as"_s);
    EXPECT_EQ(rows(), QStringList{u"Save As..."_s});
    clock.advance(1);
    EXPECT_EQ(fileReading.times, 1);
}

TEST_F(SearchInMenuTest, whatArrivesLater_isAdded_andTheHighlightStays)
{
    open();
    press(Qt::Key_Slash, u"/"_s);
    type(u"e"_s);
    const QStringList before = rows();
    EXPECT_EQ(highlighted(), u"Edit");
    clock.advance(1);
    EXPECT_GT(rows().size(), before.size());
    EXPECT_EQ(rows().constFirst(), u"Edit");
    EXPECT_EQ(highlighted(), u"Edit");
}

TEST_F(SearchInMenuTest, aMenuThatIsEmpty_isNamedAtTheEnd_andTheNumberOfResultsTold)
{
    fileTitles.clear();
    search(u"edit"_s);
    const QString told = view.findChild<QLabel*>()->text();
    EXPECT_TRUE(told.contains(u"Results: 1"_s)) << told.toStdString();
    EXPECT_TRUE(told.contains(u"not searched: 1"_s)) << told.toStdString();
    EXPECT_EQ(field().accessibleDescription(), told);
}

TEST_F(SearchInMenuTest, aRowTellsAScreenReaderAllOfIt)
{
    fileReading.fill = [this](Menu& menu) {
        auto item = add(menu, u"Wrap"_s);
        item->setState(MenuItem::State::On);
        item->setEnabled(false);
        item->setKeyEquivalent(u"w"_s);
    };
    search(u"wrap"_s);
    EXPECT_EQ(list().model()->index(0, 0).data(Qt::AccessibleTextRole).toString(), u"Wrap, File, Ctrl+W");
}

TEST_F(SearchInMenuTest, whatIsQuiet_isInTheColourOfTheText_alsoOfAPaletteThatNamesFewColours)
{
    search(u"s"_s);
    auto* field = view.findChild<SearchField*>();
    const auto* state = view.findChild<QLabel*>();
    for (const QColor text : {QColor(240, 240, 250), QColor(20, 10, 0)}) {
        QPalette few = QApplication::palette();
        few.setColor(QPalette::Text, text);
        few.setColor(QPalette::PlaceholderText, Qt::magenta);
        view.setPalette(few);
        for (const QColor& quiet : {state->palette().color(QPalette::WindowText),
                                    field->palette().color(QPalette::PlaceholderText)}) {
            EXPECT_EQ(quiet.rgb(), text.rgb());
            EXPECT_LT(quiet.alphaF(), 1.0);
        }
        EXPECT_EQ(field->palette().color(QPalette::Text), text);
    }
}

TEST_F(SearchInMenuTest, modifiersHeldInTheSearch_leaveItsSizeAlone)
{
    add(*root, u"Edit All of It, with a Long Title"_s)->setAlternate(true);
    search(u"save"_s);
    const QRect place = view.geometry();
    view.setHeldModifiers(AlternateKeyMask);
    EXPECT_EQ(view.geometry(), place);
}

TEST_F(SearchInMenuTest, itIsNoHigherThanTheScreen)
{
    for (int count = 0; count < 500; ++count)
        fileTitles.append(u"Save %1"_s.arg(count));
    search(u"save"_s);
    EXPECT_EQ(rows().size(), 502);
    EXPECT_TRUE(view.screen()->geometry().contains(view.geometry()));
    for (int count = 0; count < 300; ++count)
        press(Qt::Key_Down);
    EXPECT_TRUE(list().viewport()->rect().contains(list().visualRect(list().currentIndex())));
}

/// The tree that screen readers walk.
class SearchAccessibleTest : public SearchInMenuTest
{
protected:
    [[nodiscard]] static QAccessibleInterface* accessible(QObject& object)
    {
        return QAccessible::queryAccessibleInterface(&object);
    }
    /// As found from the menu down.
    static QAccessibleInterface* below(QAccessibleInterface* node, QAccessible::Role role)
    {
        for (int index = 0; index < node->childCount(); ++index) {
            QAccessibleInterface* child = node->child(index);
            EXPECT_EQ(child->parent(), node);
            EXPECT_EQ(node->indexOfChild(child), index);
            if (child->role() == role)
                return child;
            if (QAccessibleInterface* found = below(child, role))
                return found;
        }
        return nullptr;
    }
    QAccessibleInterface* below(QAccessible::Role role) { return below(accessible(view), role); }
};

TEST_F(SearchAccessibleTest, theMenuIsAnotherThing_whileItIsSearched)
{
    open();
    EXPECT_EQ(accessible(view)->childCount(), 2) << "its entries";
    const QAccessible::Id before = QAccessible::uniqueId(accessible(view));
    press(Qt::Key_Slash, u"/"_s);
    EXPECT_EQ(accessible(view)->role(), QAccessible::PopupMenu);
    EXPECT_EQ(accessible(view)->text(QAccessible::Name), u"Search the menus");
    EXPECT_NE(QAccessible::uniqueId(accessible(view)), before);
    EXPECT_NE(below(QAccessible::EditableText), nullptr);
    press(Qt::Key_Escape);
    EXPECT_EQ(accessible(view)->childCount(), 2);
    EXPECT_EQ(accessible(view)->child(0)->text(QAccessible::Name), u"File");
}

TEST_F(SearchAccessibleTest, theFieldIsAText_andHasTheFocusWhileNoRowIsHighlighted)
{
    open();
    press(Qt::Key_Slash, u"/"_s);
    QAccessibleInterface* found = below(QAccessible::EditableText);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->text(QAccessible::Name), u"Search the menus");
    EXPECT_TRUE(found->state().focused);
    EXPECT_TRUE(found->state().editable);
    clock.advance(1);
    type(u"save"_s);
    EXPECT_FALSE(found->state().focused) << "a row has it";
    QAccessibleTextInterface* text = found->textInterface();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->text(0, text->characterCount()), u"save");
    EXPECT_EQ(text->cursorPosition(), 4);
    EXPECT_LT(text->characterRect(0).left(), text->characterRect(3).left());
    EXPECT_EQ(text->offsetAtPoint(text->characterRect(2).center()), 2);
    text->setSelection(0, 1, 3);
    EXPECT_EQ(field().selectedText(), u"av");
    found->editableTextInterface()->replaceText(0, 2, u"re"_s);
    EXPECT_EQ(field().text(), u"reve");
    EXPECT_EQ(rows(), QStringList{u"Revert"_s});
}

TEST_F(SearchAccessibleTest, eachRowIsInTheList_withItsNameItsStatesAndItsPlace)
{
    fileReading.fill = [this](Menu& menu) {
        add(menu, u"Wrap Lines"_s)->setState(MenuItem::State::On);
        add(menu, u"Wrap Words"_s)->setEnabled(false);
        add(menu, u"Cut"_s);
    };
    search(u"wrap"_s);
    QAccessibleInterface* found = below(QAccessible::List);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->text(QAccessible::Name), u"Results");
    ASSERT_EQ(found->childCount(), 2);
    QAccessibleInterface* lines = found->child(0);
    QAccessibleInterface* words = found->child(1);
    EXPECT_EQ(lines->role(), QAccessible::ListItem);
    EXPECT_EQ(lines->parent(), found);
    EXPECT_EQ(found->indexOfChild(words), 1);
    EXPECT_EQ(lines->text(QAccessible::Name), u"Wrap Lines, File");
    EXPECT_TRUE(lines->state().checked);
    EXPECT_FALSE(lines->state().disabled);
    EXPECT_TRUE(lines->state().focused);
    EXPECT_TRUE(lines->state().selected);
    EXPECT_FALSE(words->state().checked);
    EXPECT_TRUE(words->state().disabled);
    EXPECT_FALSE(words->state().focused);
    EXPECT_FALSE(words->state().invisible);
    EXPECT_EQ(found->focusChild(), lines);
    press(Qt::Key_Down);
    EXPECT_TRUE(words->state().focused);
    EXPECT_FALSE(lines->state().focused);
    EXPECT_EQ(found->childAt(words->rect().center().x(), words->rect().center().y()), words);
    // The row of an entry stays that entry's, wherever it goes.
    type(u" words"_s);
    EXPECT_FALSE(lines->isValid());
    EXPECT_TRUE(lines->state().invalid);
    EXPECT_EQ(lines->text(QAccessible::Name), QString());
    EXPECT_EQ(found->child(0), words);
    EXPECT_EQ(found->child(1), nullptr);
}

TEST_F(SearchAccessibleTest, aRowCanBePressed)
{
    search(u"save"_s);
    QAccessibleInterface* second = below(QAccessible::List)->child(1);
    ASSERT_NE(second, nullptr);
    second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(chosen, QStringList{u"File/Save As..."_s});
}

TEST_F(SearchAccessibleTest, theNumberOfResultsIsANotification)
{
    search(u"save"_s);
    QAccessibleInterface* state = below(QAccessible::Notification);
    ASSERT_NE(state, nullptr);
    EXPECT_EQ(state->text(QAccessible::Name), u"Results: 2");
    type(u" as"_s);
    EXPECT_EQ(state->text(QAccessible::Name), u"Results: 1");
}

} // namespace
} // namespace tarnwick
