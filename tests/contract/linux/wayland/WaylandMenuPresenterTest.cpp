// SPDX-License-Identifier: MIT
// The pop-up in the compositor that this program is started in. Keys and the pointer are somebody else's:
// what is to be done with them is written to the standard output, and a line comes back when it has been
// done.
#include "platform/linux/wayland/WaylandMenuPresenter.h"

#include "foundation/NotificationCenter.h"
#include "menu/Menu.h"
#include "menu/MenuDelegate.h"
#include "menu/MenuItem.h"
#include "platform/linux/wayland/WaylandFrontApplication.h"
#include "platform/qt/menu/PopUpTrigger.h"
#include "tests/RunTests.h"
#include "tests/contract/menu/MenuPresenterContract.h"
#include "tests/fakes/FakeApplication.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMenu>
#include <QScopeGuard>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <iostream>
#include <string>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

std::shared_ptr<CompositorConnection> connection;
std::shared_ptr<Toplevels> toplevels; ///< one for all tests, as there is to be one for a connection

constexpr int Escape = 9;
constexpr int Return = 36;
constexpr int Control = 37;
constexpr int Alt = 64;
constexpr int Right = 114;
constexpr int Down = 116;
constexpr QPoint Middle(500, 300);

/// A person at keyboard and pointer.
class Hands
{
public:
    /// Has something done and does not wait for it.
    static void begin(const QString& what)
    {
        finish();
        std::cout << "hands " << what.toStdString() << std::endl;
        _busy = true;
    }
    static void finish()
    {
        if (!std::exchange(_busy, false))
            return;
        std::string line;
        ASSERT_TRUE(std::getline(std::cin, line)) << "nobody lends a hand";
    }
    static void tap(std::initializer_list<int> keys)
    {
        QStringList words;
        for (const int key : keys)
            words << u"tap %1"_s.arg(key);
        begin(words.join(u' '));
    }
    static void move(QPoint place) { begin(u"move %1 %2"_s.arg(place.x()).arg(place.y())); }

private:
    static inline bool _busy = false;
};

/// The key on which a title begins, on an English keyboard.
int keyOf(QChar letter)
{
    static const QHash<QChar, int> keys{{u'O', 32}, {u'R', 27}, {u'A', 38},
                                        {u'B', 56}, {u'D', 40}, {u'C', 54}};
    return keys.value(letter);
}

/// Runs something once a menu has been painted.
class Painted final : public QObject
{
public:
    explicit Painted(std::function<void()> then) : _then(std::move(then)) { qApp->installEventFilter(this); }

    [[nodiscard]] bool yes() const { return _yes; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->inherits("QMenu") && !std::exchange(_yes, true))
            QTimer::singleShot(0, this, _then);
        return false;
    }

private:
    std::function<void()> _then;
    bool _yes = false;
};

/// Whether an event of a kind has come to a window since, or to a menu.
class Seen final : public QObject
{
public:
    explicit Seen(QEvent::Type kind, const char* in = "QWindow") : _kind(kind), _in(in)
    {
        qApp->installEventFilter(this);
    }

    [[nodiscard]] bool yes() const { return _yes; }
    /// Whether a window of ours had the keyboard then.
    [[nodiscard]] bool withKeyboard() const { return _withKeyboard; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == _kind && watched->inherits(_in) && !std::exchange(_yes, true))
            _withKeyboard = QGuiApplication::focusWindow();
        return false;
    }

private:
    QEvent::Type _kind;
    const char* _in;
    bool _yes = false;
    bool _withKeyboard = false;
};

class Target final : public ActionTarget
{
public:
    [[nodiscard]] bool respondsTo(const QString& action) const override { return action == u"choose"; }
    void perform(const QString& /*action*/, ActionSender* sender) override
    {
        performed.append(static_cast<MenuItem*>(sender)->title());
    }

    QStringList performed;
};

class Highlights final : public MenuDelegate
{
public:
    void menuWillHighlightItem(Menu& /*menu*/, MenuItem* item) override
    {
        titles.append(item ? item->title() : u"none"_s);
    }

    QStringList titles;
};

/// An application in front that takes a choice, or does not.
class FakeTarget final : public MenuTarget
{
public:
    explicit FakeTarget(QStringList& journal) : _journal(journal) {}
    void fix() override { _journal << (haveKeyboard() ? u"fixed late"_s : u"fixed"_s); }
    void readAhead() override
    {
        // It is the stage's place in time to come up, which must not take anything from anybody yet.
        QTest::qWait(readingTakes);
        if (haveKeyboard())
            _journal << u"read late"_s;
        else
            _journal << (shown() ? u"read"_s : u"read before the stage"_s);
    }
    void giveFocusBack() override { _journal << u"back"_s; }
    [[nodiscard]] bool takes(const MenuItem& item, int patience) override
    {
        asked = item.title();
        longest = std::max(longest, patience);
        QTest::qSleep(busy);
        return patience < needs || takesAfter-- <= 0;
    }

    int takesAfter = 0;
    int busy = 0;         ///< milliseconds for each answer
    int needs = 0;        ///< milliseconds; with less it says nothing
    int readingTakes = 0; ///< milliseconds, in which events are dealt with
    QString asked;
    int longest = 0;

private:
    [[nodiscard]] static bool haveKeyboard() { return QGuiApplication::focusWindow(); }
    [[nodiscard]] static bool shown()
    {
        const auto windows = QGuiApplication::topLevelWindows();
        return std::any_of(windows.cbegin(), windows.cend(), [](const QWindow* w) { return w->isVisible(); });
    }

    QStringList& _journal;
};

class WaylandPopUp : public ::testing::Test
{
protected:
    void SetUp() override
    {
        Application::setShared(&_application);
        _menu->setAutoenablesItems(false);
        _menu->setDelegate(&_highlights);
        add(_menu, u"Copy"_s);
        const auto recent = add(_menu, u"Recent"_s);
        auto submenu = Menu::create(u"recent"_s);
        submenu->setAutoenablesItems(false);
        add(submenu, u"Alpha"_s);
        recent->setSubmenu(submenu);
        Hands::move(Middle);
        Hands::finish();
    }
    void TearDown() override
    {
        Hands::finish();
        QCoreApplication::processEvents(); // the keys that were too late for the menu go nowhere
        Application::setShared(nullptr);
    }

    std::shared_ptr<MenuItem> add(const std::shared_ptr<Menu>& menu, const QString& title)
    {
        auto item = MenuItem::create(title, u"choose"_s);
        item->setTarget(_performer);
        menu->addItem(item);
        return item;
    }

    /// Opens the menu and gives what the call has given; `opened` runs when it has been painted.
    bool popUp(const std::function<void()>& opened)
    {
        Hands::finish();
        QCoreApplication::processEvents(); // what was done before is over
        const Painted painted(opened);
        QTimer limit;
        limit.callOnTimeout([this] {
            ADD_FAILURE() << "the menu does not close";
            _presenter.cancelTracking();
        });
        limit.start(20'000);
        const bool chosen = _presenter.popUpMenuPositioningItem(_menu, nullptr, QPointF());
        EXPECT_TRUE(painted.yes());
        return chosen;
    }

    FakeApplication _application;
    QStringList _journal;
    FakeTarget* _target = nullptr;
    WaylandMenuPresenter _presenter{connection, [this] {
                                        auto target = std::make_unique<FakeTarget>(_journal);
                                        _target = target.get();
                                        return target;
                                    }()};
    std::shared_ptr<Menu> _menu = Menu::create(u"menu"_s);
    std::shared_ptr<Target> _performer = std::make_shared<Target>();
    Highlights _highlights;
};

TEST_F(WaylandPopUp, keepsTheContract)
{
    std::unique_ptr<Painted> painted;
    const auto user = [&painted](const QStringList& way, const std::function<void()>& whileOpen) {
        Hands::finish();
        QCoreApplication::processEvents();
        painted = std::make_unique<Painted>([way, whileOpen] {
            if (whileOpen)
                whileOpen();
            QStringList words;
            for (const QString& title : way)
                words << u"tap %1 tap %2"_s.arg(keyOf(title.front())).arg(Return);
            Hands::begin((words << u"tap %1"_s.arg(Escape)).join(u' '));
        });
    };
    MenuPresenterContract({.presenter = _presenter, .user = user}).run();
}

TEST_F(WaylandPopUp, whereItTakesTheKeyboard_firstSetsTheStage_thenReadsAhead_andGivesItBack)
{
    _target->readingTakes = 100; // more than a compositor takes to give the keyboard
    const Seen shown(QEvent::Show, "QMenu");
    popUp([] { Hands::tap({Escape}); });
    const bool canGrab = connection->offers("zwp_input_method_manager_v2");
    EXPECT_EQ(_journal,
              canGrab ? QStringList({u"fixed"_s}) : QStringList({u"fixed"_s, u"read"_s, u"back"_s}));
    EXPECT_TRUE(shown.yes());
    EXPECT_EQ(shown.withKeyboard(), !canGrab) << "or the next key goes to the application";
    EXPECT_FALSE(_presenter.hasKeyboard());
}

/// Our surfaces that stand on the screen now.
int surfaces()
{
    const auto windows = QGuiApplication::topLevelWindows();
    return static_cast<int>(std::count_if(windows.cbegin(), windows.cend(),
                                          [](const QWindow* window) { return window->isVisible(); }));
}

TEST_F(WaylandPopUp, anExpectedMenu_hasItsStageAtOnce_andTheSameWhenItComes)
{
    auto expected = _presenter.expectMenu();
    EXPECT_EQ(surfaces(), QGuiApplication::screens().size());
    EXPECT_TRUE(popUp([] { Hands::tap({Down, Return}); }));
    EXPECT_EQ(surfaces(), 0);
    const auto another = _presenter.expectMenu();
    expected.reset();
    EXPECT_EQ(surfaces(), QGuiApplication::screens().size()) << "what is over takes nothing away";
}

TEST_F(WaylandPopUp, anExpectedMenuThatDoesNotCome_leavesNothing)
{
    auto expected = _presenter.expectMenu();
    auto another = _presenter.expectMenu();
    expected.reset();
    EXPECT_EQ(surfaces(), QGuiApplication::screens().size());
    another.reset();
    EXPECT_EQ(surfaces(), 0);
    EXPECT_TRUE(popUp([] { Hands::tap({Down, Return}); }));
}

TEST_F(WaylandPopUp, whileAMenuIsOpen_noneIsExpected)
{
    bool isExpected = true;
    popUp([&] {
        isExpected = _presenter.expectMenu() != nullptr;
        Hands::tap({Escape});
    });
    EXPECT_FALSE(isExpected);
}

TEST_F(WaylandPopUp, aClickBeforeAnExpectedMenu_isTheEndOfIt)
{
    const Seen entered(QEvent::Enter);
    const Seen pressed(QEvent::MouseButtonPress);
    const auto expected = _presenter.expectMenu();
    ASSERT_TRUE(QTest::qWaitFor([&] { return entered.yes(); }, 10'000));
    Hands::begin(u"click 200 200 left"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return pressed.yes(); }, 10'000));
    const Painted painted([this] { _presenter.cancelTracking(); });
    EXPECT_FALSE(_presenter.popUpMenuPositioningItem(_menu, nullptr, QPointF()));
    EXPECT_FALSE(painted.yes());
}

TEST_F(WaylandPopUp, chosen_waitsUntilTheApplicationTakesIt)
{
    _target->takesAfter = 4;
    EXPECT_TRUE(popUp([] { Hands::tap({Down, Return}); }));
    EXPECT_EQ(_performer->performed, QStringList(u"Copy"_s));
    EXPECT_EQ(_target->takesAfter, -1);
    EXPECT_EQ(_target->asked, u"Copy"_s);
    EXPECT_LE(_target->longest, 150);
}

TEST_F(WaylandPopUp, whatIsNotTakenInTime_isNotPerformed_andSaysSo)
{
    _target->takesAfter = 1'000'000;
    _target->needs = 10;
    bool told = false;
    const auto observer = NotificationCenter::defaultCenter().addObserver(
        QString::fromUtf16(MenuDidSendActionNotificationName), nullptr, [&](const auto&) { told = true; });
    EXPECT_FALSE(popUp([] { Hands::tap({Down, Return}); }));
    EXPECT_EQ(_performer->performed, QStringList());
    EXPECT_FALSE(told);
    EXPECT_LT(_target->takesAfter, 1'000'000);
}

TEST_F(WaylandPopUp, aNoThatComesTooLate_isNone)
{
    _target->takesAfter = 1'000'000;
    _target->busy = 160;
    EXPECT_TRUE(popUp([] { Hands::tap({Down, Return}); }));
    EXPECT_EQ(_performer->performed, QStringList(u"Copy"_s));
    EXPECT_EQ(_target->takesAfter, 999'999);
}

TEST_F(WaylandPopUp, opensAtThePointer_whichHighlightsNothingUntilItMoves)
{
    popUp([this] {
        EXPECT_EQ(QApplication::activePopupWidget()->pos(), Middle);
        EXPECT_EQ(_highlights.titles, QStringList());
        Hands::tap({Escape});
    });
}

TEST_F(WaylandPopUp, flipsAtTheEdges_andUnderThePointerStillHighlightsNothing)
{
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    Hands::move(screen.bottomRight() - QPoint(3, 3));
    Hands::finish();
    popUp([this, screen] {
        EXPECT_TRUE(screen.contains(QApplication::activePopupWidget()->geometry()));
        EXPECT_EQ(_highlights.titles, QStringList());
        Hands::tap({Escape});
    });
}

TEST_F(WaylandPopUp, keysThatFollowEachOtherAtOnce_openSubmenusWhereTheyBelong)
{
    QRect root;
    QRect submenu;
    QTimer look;
    look.callOnTimeout([&] {
        const QWidget* popUp = QApplication::activePopupWidget();
        if (!popUp || popUp->geometry() == root || !popUp->windowHandle()->isExposed())
            return;
        submenu = popUp->geometry();
        look.stop();
        _presenter.cancelTracking();
    });
    popUp([&] {
        root = QApplication::activePopupWidget()->geometry();
        Hands::tap({Down, Down, Right});
        look.start(5);
    });
    EXPECT_LT(qAbs(submenu.left() - root.right()), 20);
    EXPECT_GT(submenu.top(), root.top());
}

TEST_F(WaylandPopUp, aClickBeside_closes_withAnyButton)
{
    for (const char* button : {"left", "middle", "right"}) {
        EXPECT_FALSE(popUp([button] { Hands::begin(u"click 200 200 %1"_s.arg(QLatin1StringView(button))); }))
            << button;
    }
    EXPECT_FALSE(popUp([] {
        Hands::begin(u"tap %1 tap %1 tap %2 click 200 200 left"_s.arg(Down).arg(Right));
    })) << "beside a submenu, too";
}

TEST_F(WaylandPopUp, aClick_chooses)
{
    EXPECT_TRUE(popUp([] {
        const auto* popUp = static_cast<QMenu*>(QApplication::activePopupWidget());
        const QPoint entry = popUp->mapToGlobal(popUp->actionGeometry(popUp->actions().first()).center());
        Hands::begin(u"click %1 %2 left"_s.arg(entry.x()).arg(entry.y()));
    }));
    EXPECT_EQ(_performer->performed, QStringList(u"Copy"_s));
    EXPECT_EQ(_journal.last(), u"back"_s);
}

TEST_F(WaylandPopUp, modifierKeys_chooseTheAlternates_andCloseNothing)
{
    const auto plain = add(_menu, u"Plain"_s);
    plain->setKeyEquivalent(u"c"_s);
    const auto alternate = add(_menu, u"Alternate"_s);
    alternate->setKeyEquivalent(u"c"_s);
    alternate->setKeyEquivalentModifierMask(CommandKeyMask | AlternateKeyMask);
    alternate->setAlternate(true);
    const auto shown = [] {
        QStringList titles;
        if (const auto* popUp = static_cast<QMenu*>(QApplication::activePopupWidget()))
            for (const QAction* action : popUp->actions())
                if (action->isVisible())
                    titles << action->text();
        return titles.join(u' ');
    };
    QTimer look;
    int step = 0;
    look.callOnTimeout([&] {
        if (step == 0 && shown().contains(u"Alternate"_s)) {
            EXPECT_FALSE(shown().contains(u"Plain"_s));
            Hands::begin(u"release %1"_s.arg(Alt));
            ++step;
        } else if (step == 1 && shown().contains(u"Plain"_s)) {
            look.stop();
            Hands::tap({Control, Escape});
        }
    });
    EXPECT_FALSE(popUp([&] {
        EXPECT_TRUE(shown().contains(u"Plain"_s));
        EXPECT_FALSE(shown().contains(u"Alternate"_s));
        Hands::begin(u"press %1"_s.arg(Alt));
        look.start(5);
    }));
    EXPECT_EQ(step, 1);
}

TEST_F(WaylandPopUp, keysThatAreDownAtTheStart_doNothingUntilTheyArePressedAnew)
{
    Hands::begin(u"press %1 press %2"_s.arg(Alt).arg(Down));
    Hands::finish();
    EXPECT_TRUE(popUp([this] {
        EXPECT_EQ(_highlights.titles, QStringList());
        // Alt is down: a letter is a letter all the same.
        Hands::begin(
            u"tap %1 release %2 release %3 tap %4"_s.arg(keyOf(u'C')).arg(Down).arg(Alt).arg(Return));
    }));
    EXPECT_EQ(_performer->performed, QStringList(u"Copy"_s));
}

TEST_F(WaylandPopUp, openedWithThePointer_leavesTheKeyboardWhereItIs)
{
    const PopUpTrigger::Scope byPointer(PopUpTrigger::Kind::Pointer);
    EXPECT_FALSE(popUp([] { Hands::begin(u"tap %1 tap %2 click 200 200 left"_s.arg(Down).arg(Return)); }));
    EXPECT_EQ(_highlights.titles, QStringList());
    EXPECT_EQ(_journal, QStringList({u"fixed"_s, u"back"_s}));
}

TEST_F(WaylandPopUp, whatIsCancelledBeforeThePlaceIsKnown_neverOpens)
{
    QMetaObject::invokeMethod(&_presenter, &WaylandMenuPresenter::cancelTracking, Qt::QueuedConnection);
    EXPECT_FALSE(_presenter.popUpMenuPositioningItem(_menu, nullptr, QPointF()));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

/// All three compositors tell of windows, KWin in a way of its own.
class ActiveWindows : public WaylandPopUp
{
protected:
    /// A window of an application, which is the active one.
    [[nodiscard]] std::unique_ptr<QWidget> activeWindow()
    {
        const auto before = _toplevels->active();
        auto window = std::make_unique<QWidget>();
        window->resize(200, 100);
        window->show();
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return _toplevels->active() != 0 && _toplevels->active() != before; }, 10'000));
        return window;
    }

    /// What has changed so far has been told.
    void settle()
    {
        bool settled = false;
        _frontApplication.afterChangesSoFar([&] { settled = true; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return settled; }, 10'000));
    }

    std::shared_ptr<Toplevels> _toplevels = toplevels;
    AtspiBus _bus;
    AtspiApplications _applications{_bus};
    ReadingBudget _budget;
    AtspiActiveWindow _inTree{_applications, _budget};
    WaylandFrontApplication _frontApplication{_inTree, _toplevels};
};

TEST_F(ActiveWindows, tellTheActiveWindow_andMakeOneActive)
{
    int told = 0;
    const QObject listener;
    QObject::connect(_toplevels.get(), &Toplevels::activeChanged, &listener, [&] { ++told; });
    const auto first = activeWindow();
    const auto firstWindow = _toplevels->active();
    auto second = activeWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return told >= 2; }, 10'000));
    _toplevels->activate(firstWindow);
    EXPECT_TRUE(QTest::qWaitFor([&] { return _toplevels->active() == firstWindow; }, 10'000));
    EXPECT_EQ(_toplevels->activeNow(), firstWindow);
    second.reset();
    first->close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return _toplevels->active() == 0; }, 10'000));
    _toplevels->activate(firstWindow); // it has gone
    EXPECT_EQ(_toplevels->activeNow(), 0U);
}

TEST_F(ActiveWindows, aMenuClosesWhenAnotherWindowBecomesActive)
{
    const auto first = activeWindow();
    ASSERT_TRUE(_frontApplication.watch());
    settle();
    std::unique_ptr<QWidget> second;
    EXPECT_FALSE(popUp([&] { second = activeWindow(); }));
}

TEST_F(ActiveWindows, aMenuClosesWhenNoWindowIsActiveAnyMore_unlessItIsTheReason)
{
    bool excused = false;
    _frontApplication.setExcuse([&] { return excused; }, [](const auto& then) { then(); });
    auto first = activeWindow();
    ASSERT_TRUE(_frontApplication.watch());
    settle();
    EXPECT_FALSE(popUp([&] { first.reset(); }));
    first = activeWindow();
    settle();
    excused = true;
    // Where keys come to the menu no other way, it has taken them from the window.
    EXPECT_TRUE(popUp([&] {
        QTest::qWait(2 * WaylandFrontApplication::NoneCounts.count());
        Hands::tap({Down, Return});
    }));
    EXPECT_FALSE(popUp([&] { first.reset(); })) << "the window that it was for has gone";
}

TEST_F(ActiveWindows, whoeverWaitsForTheChangesSoFar_isAnsweredAfterThem)
{
    ASSERT_TRUE(_frontApplication.watch());
    const auto first = activeWindow();
    bool answered = false;
    _frontApplication.afterChangesSoFar([&] { answered = true; });
    EXPECT_FALSE(answered) << "from the event loop";
    EXPECT_TRUE(QTest::qWaitFor([&] { return answered; }, 10'000));
}

/// The active window is what a test says, and no application says that it is its own.
class ToldToplevels final : public Toplevels
{
public:
    void makeActive(Window window)
    {
        _active = window;
        change();
    }
    [[nodiscard]] Window active() const override { return _active; }
    [[nodiscard]] Window activeNow() override { return _active; }
    [[nodiscard]] FrontHint about(Window window) const override
    {
        questions += window != 0 ? 1 : 0;
        return {};
    }
    void activate(Window /*window*/) override {}

    mutable int questions = 0; ///< about a window

private:
    Window _active = 0;
};

TEST_F(ActiveWindows, aWindowThatLosesTheFrontBeforeItIsFound_leavesNoneOnceThatCounts)
{
    const auto told = std::make_shared<ToldToplevels>();
    WaylandFrontApplication front{_inTree, told};
    int changes = 0;
    QObject::connect(told.get(), &Toplevels::activeChanged, &front, [&] { ++changes; });
    ASSERT_TRUE(front.watch());
    told->makeActive(1);
    // By what tells of the change, and by the first look of those that follow until one has found it.
    ASSERT_TRUE(QTest::qWaitFor([&] { return changes == 1 && told->questions >= 2; }, 10'000));
    QElapsedTimer since;
    since.start();
    told->makeActive(0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return changes == 2; }, 10'000));
    bool answered = false;
    front.afterChangesSoFar([&] { answered = true; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return answered; }, 10'000));
    EXPECT_GE(since.elapsed(), WaylandFrontApplication::NoneCounts.count() * 9 / 10)
        << "or a menu that opens then is closed by it";
}

} // namespace

int main(int argc, char** argv)
{
    ::testing::InitGoogleTest(&argc, argv);
    connection = CompositorConnection::open();
    if (!connection || !WaylandMenuPresenter::canShowOn(*connection)) {
        std::cerr << "There is no compositor with layers.\n";
        return EXIT_FAILURE;
    }
    const QApplication application(argc, argv);
    connection->follow();
    toplevels = Toplevels::open(connection);
    const auto forget = qScopeGuard([] { toplevels.reset(); });
    return runTests();
}
