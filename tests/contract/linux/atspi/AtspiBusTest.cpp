// SPDX-License-Identifier: MIT
// The reader against an application that does what a test has written down, on a bus of its own.
#include "platform/linux/atspi/AtspiAccess.h"
#include "platform/linux/atspi/AtspiActiveWindow.h"
#include "platform/linux/atspi/AtspiConstants.h"
#include "platform/linux/atspi/AtspiMenuBars.h"
#include "platform/linux/atspi/AtspiMenuSource.h"
#include "platform/linux/atspi/MenuBarSearch.h"
#include "platform/linux/bus/SdBus.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/FairTimer.h"
#include "tests/contract/session/BusDaemon.h"
#include "tests/contract/session/DeafBus.h"
#include "tests/contract/session/ScriptedApplication.h"

#include <QTest>
#include <gtest/gtest.h>

#include <mutex>

using namespace tarnwick;
using namespace tarnwick::atspi;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

using Object = ScriptedApplication::Object;
using Objects = QMap<QByteArray, Object>;

constexpr quint64 bit(State state)
{
    return quint64{1} << state;
}

/// For what comes at once where nothing else is going on.
constexpr auto Patience = 20s;
constexpr int Limit = 20'000; // ms

constexpr quint64 Usable = bit(StateSensitive) | bit(StateEnabled) | bit(StateVisible);

/// A menu at "/menu" with this many items "Item N" at "/N".
Objects menuOf(int items)
{
    Objects objects;
    for (int i = 0; i < items; ++i) {
        const QByteArray number = QByteArray::number(i);
        objects["/" + number] = {"Item " + number, RoleMenuItem, Usable, {}, {}};
        objects["/menu"].children.append("/" + number);
    }
    objects["/menu"].role = RoleMenu;
    return objects;
}

/// The last word of the interface, the member, and the arguments with their types.
QString textOf(sd_bus_message* call)
{
    const QString interface = QLatin1StringView(sd_bus_message_get_interface(call));
    QString text = interface.section(u'.', -1) + u'.' + QLatin1StringView(sd_bus_message_get_member(call));
    const QByteArray types = sd_bus_message_get_signature(call, 1);
    if (!types.isEmpty())
        text += u' ' + QLatin1StringView(types);
    for (const char type : types) {
        union {
            const char* text;
            std::int32_t number;
        } argument{};
        sd_bus_message_read_basic(call, type, &argument);
        text += u' ' + (type == 's' ? QString::fromUtf8(argument.text) : QString::number(argument.number));
    }
    sd_bus_message_rewind(call, 1);
    return text;
}

class AtspiBusTest : public ::testing::Test
{
protected:
    void publish(const QByteArray& toolkit, const Objects& objects)
    {
        application = std::make_unique<ScriptedApplication>(daemon.address(), toolkit, objects);
        ASSERT_TRUE(bus.connection(Deadline::in(Patience)));
    }
    [[nodiscard]] BusReference at(const QByteArray& path) const
    {
        BusReference reference = bus.root(application->service());
        reference.path = path;
        return reference;
    }
    QList<MenuRow> menu() { return source.readMenu(at("/menu")).value_or(QList<MenuRow>()); }
    QStringList titles()
    {
        QStringList found;
        for (const MenuRow& row : menu())
            found.append(row.title);
        return found;
    }
    [[nodiscard]] int presses() const { return application->count(u"DoAction"_s); }

    BusDaemon daemon;
    std::unique_ptr<ScriptedApplication> application;
    AtspiBus bus;
    ReadingBudget budget;
    AtspiToolkits toolkits{bus};
    ChildrenJustTold childrenJustTold;
    AtspiMenuSource source{bus, budget, toolkits, childrenJustTold};
};

} // namespace

TEST_F(AtspiBusTest, aGtkMenu_costsFourMessagesAnItemAndOne)
{
    publish("gtk", menuOf(30));
    EXPECT_EQ(menu().size(), 30);
    EXPECT_EQ(application->count(u"Get ToolkitName"_s), 1) << "once an application";
    application->forgetCalls();
    EXPECT_EQ(menu().size(), 30);
    EXPECT_EQ(application->calls().size(), 1 + 4 * 30);
    EXPECT_EQ(application->count(u"GetChildAtIndex"_s), 0) << "the role tells what holds a menu";
}

TEST_F(AtspiBusTest, aGtkMenu_tellsItsKeysOnce_unlessAnItemIsAnotherOne)
{
    Objects objects = menuOf(4);
    objects["/0"].keyBinding = ";;<Primary>n";
    objects["/1"].keyBinding = ";;<Primary>o";
    objects["/2"].keyBinding = ";;<Primary>p";
    publish("gtk", objects);
    EXPECT_EQ(menu().size(), 4);
    EXPECT_EQ(application->count(u"GetKeyBinding"_s), 4);
    application->forgetCalls();
    application->change("/1", [](ScriptedApplication::Object& item) {
        item.name = "Another";
        item.keyBinding = ";;<Primary>x";
    });
    application->change("/2", [](ScriptedApplication::Object& item) { item.role = RoleCheckMenuItem; });
    const auto rows = menu();
    ASSERT_EQ(rows.size(), 4);
    EXPECT_EQ(application->count(u"GetKeyBinding /0"_s), 0);
    EXPECT_EQ(application->count(u"GetKeyBinding /1"_s), 1) << "another name";
    EXPECT_EQ(application->count(u"GetKeyBinding /2"_s), 1) << "another role";
    EXPECT_EQ(application->count(u"GetKeyBinding /3"_s), 1) << "it had none";
    ASSERT_TRUE(rows[0].shortcut && rows[1].shortcut && rows[2].shortcut);
    EXPECT_EQ(rows[0].shortcut->character, u"N"_s);
    EXPECT_EQ(rows[1].shortcut->character, u"X"_s);
    EXPECT_EQ(rows[2].shortcut->character, u"P"_s);
    application->forgetCalls();
    EXPECT_EQ(menu().size(), 4);
    EXPECT_EQ(application->count(u"GetKeyBinding"_s), 1) << "what it is now is remembered, too";
}

TEST_F(AtspiBusTest, aQtMenu_costsSixMessagesAnItemAndOne)
{
    publish("Qt", menuOf(30));
    EXPECT_EQ(menu().size(), 30);
    application->forgetCalls();
    EXPECT_EQ(menu().size(), 30);
    EXPECT_EQ(application->calls().size(), 1 + 6 * 30);
}

TEST_F(AtspiBusTest, aMenuOfGtk4_isLeftAlone)
{
    publish("GTK", menuOf(3));
    const auto bar = source.readBar(at("/menu"));
    EXPECT_TRUE(bar && bar->isEmpty()) << "what a press would do, nobody knows";
    EXPECT_EQ(titles(), QStringList());
    EXPECT_EQ(application->calls(), QStringList(u"Get ToolkitName "_s + QLatin1String(RootPath)));
}

namespace {

const QString Unmade = u"Open this menu in the application once"_s;

} // namespace

TEST_F(AtspiBusTest, aMenuThatIsYetToBeMade_saysSoInOneGreyedRow)
{
    Objects objects = menuOf(1);
    objects["/bar"] = {"", RoleMenuBar, Usable, {}, {"/menu", "/unmade", "/greyed", "/hidden"}};
    objects["/menu"] = {"File", RoleMenu, Usable, {}, {"/0", "/below", "/belowGreyed"}};
    objects["/below"] = {"Below", RoleMenu, Usable, {}, {}};
    objects["/belowGreyed"] = {"Below", RoleMenu, bit(StateVisible), {}, {}};
    objects["/unmade"] = {"Late", RoleMenu, Usable, {}, {}};
    objects["/greyed"] = {"Greyed", RoleMenu, bit(StateVisible), {}, {}};
    objects["/hidden"] = {"Hidden", RoleMenu, Usable, {}, {"/unseen"}};
    objects["/unseen"] = {"Unseen", RoleMenuItem, bit(StateSensitive), {}, {}};
    for (const char* toolkit : {"gtk", "Gecko", "J2SE-access-bridge"}) {
        publish(toolkit, objects);
        const auto at = [this](const char* path) {
            return source.readMenu(this->at(path)).value_or(QList<MenuRow>());
        };
        EXPECT_TRUE(at("/unmade").isEmpty()) << "of no bar that was read";
        EXPECT_EQ(source.readBar(this->at("/bar"))->size(), 4);
        const QList<MenuRow> made = at("/menu");
        ASSERT_EQ(made.size(), 3);
        MenuRow item = made[0];
        item.enabled = false; // pressed at once, without a question
        for (const char* unmade : {"/unmade", "/below"}) {
            const QList<MenuRow> rows = at(unmade);
            ASSERT_EQ(rows.size(), 1) << toolkit << unmade;
            EXPECT_EQ(rows[0].title, Unmade);
            EXPECT_EQ(rows[0].kind, MenuRow::Kind::Item);
            EXPECT_FALSE(rows[0].enabled);
            application->forgetCalls();
            source.press(rows[0]);
            source.press(item);
            ASSERT_TRUE(QTest::qWaitFor([&] { return application->count(u"DoAction"_s) > 0; }, 20'000));
            EXPECT_EQ(application->calls(), QStringList(u"DoAction /0"_s))
                << "there is nothing else to press";
        }
        for (const char* empty : {"/greyed", "/belowGreyed"})
            EXPECT_TRUE(at(empty).isEmpty()) << toolkit << empty;
        EXPECT_NE(at("/hidden").value(0).title, Unmade) << "what it holds is there, shown or not";
        application->change("/unmade", [](Object& menu) { menu.children = {"/0"}; });
        EXPECT_EQ(at("/unmade").value(0).title, u"Item 0"_s) << "once it was opened";
    }
}

TEST_F(AtspiBusTest, onceOurMenuHasClosed_onlyMenusOfTheBarAreYetToBeMade)
{
    Objects objects = menuOf(1);
    objects["/bar"] = {"", RoleMenuBar, Usable, {}, {"/menu", "/unmade"}};
    objects["/menu"] = {"File", RoleMenu, Usable, {}, {"/below"}};
    objects["/below"] = {"Below", RoleMenu, Usable, {}, {}};
    objects["/unmade"] = {"Late", RoleMenu, Usable, {}, {}};
    publish("gtk", objects);
    const auto titleIn = [this](const char* path) {
        return source.readMenu(this->at(path)).value_or(QList<MenuRow>()).value(0).title;
    };
    source.readBar(at("/bar"));
    for (int pass = 0; pass < 2; ++pass) {
        EXPECT_EQ(titleIn("/menu"), u"Below"_s);
        EXPECT_EQ(titleIn("/below"), Unmade) << "when what holds it has been read " << pass;
        {
            const MenuTracking::Span open;
        }
        EXPECT_EQ(titleIn("/below"), QString()) << "nothing of thousands of menus is kept";
        EXPECT_EQ(titleIn("/unmade"), Unmade) << "the bar is not read again before it is shown";
    }
}

TEST_F(AtspiBusTest, ofQt_anEmptyMenuIsEmpty)
{
    Objects objects;
    objects["/bar"] = {"", RoleMenuBar, Usable, {}, {"/holder"}};
    objects["/holder"] = {"Recent", RoleMenuItem, Usable, {}, {"/empty"}};
    objects["/empty"] = {"Recent", RolePopupMenu, Usable, {}, {}};
    publish("Qt", objects);
    const auto bar = source.readBar(at("/bar"));
    ASSERT_TRUE(bar && bar->size() == 1 && bar->first().kind == MenuRow::Kind::Holder);
    EXPECT_EQ(source.readMenu(bar->first().contents)->size(), 0);
}

TEST_F(AtspiBusTest, whereAllMenusAreMade_anEmptyOneIsEmpty)
{
    Objects objects;
    objects["/bar"] = {"", RoleMenuBar, Usable, {}, {"/empty"}};
    objects["/empty"] = {"Empty", RoleMenu, Usable, {}, {}};
    objects["/other"] = {"", RoleMenuBar, Usable, {}, {"/empty"}};
    publish("gtk", objects);
    source.menusAreMade(at("/bar"));
    EXPECT_EQ(source.readBar(at("/bar"))->size(), 1);
    EXPECT_TRUE(source.readMenu(at("/empty"))->isEmpty());
    EXPECT_EQ(source.readBar(at("/other"))->size(), 1);
    EXPECT_EQ(source.readMenu(at("/empty"))->size(), 1) << "of another bar nothing was said";
}

TEST_F(AtspiBusTest, aMenuThatIsNotToldInTime_saysNothing)
{
    Objects objects;
    objects["/bar"] = {"", RoleMenuBar, Usable, {}, {"/late"}};
    objects["/late"] = {"Late", RoleMenu, Usable, {}, {}};
    publish("gtk", objects);
    EXPECT_EQ(source.readBar(at("/bar"))->size(), 1);
    application->setInterceptor([](sd_bus_message* /*call*/) { return true; });
    EXPECT_FALSE(source.readMenu(at("/late")));
    application->setInterceptor({});
}

TEST_F(AtspiBusTest, theToolkit_isAskedForOnce_whoeverNeedsIt)
{
    publish("GTK", menuOf(3));
    X11Connection noDisplay(nullptr);
    X11Windows windows(noDisplay);
    AtspiApplications applications(bus);
    AtspiMenuBars bars(bus, applications, toolkits, windows, budget, childrenJustTold);
    EXPECT_TRUE(bars.hidesClosedMenus(at("/menu")));
    EXPECT_TRUE(menu().isEmpty());
    EXPECT_TRUE(bars.hidesClosedMenus(at("/menu")));
    EXPECT_EQ(application->count(u"Get ToolkitName"_s), 1);
}

TEST_F(AtspiBusTest, aToolkitThatWasNotTold_isAskedForAgain_whateverTheMenusShow)
{
    Objects objects = menuOf(3);
    objects["/bar"] = {"", RoleMenuBar, Usable, {}, {"/menu"}};
    objects["/menu"].name = "File";
    publish("GTK", objects);
    std::atomic<bool> tells = false;
    application->setInterceptor([&tells](sd_bus_message* call) {
        return !tells && QByteArrayView(sd_bus_message_get_path(call)) == RootPath &&
               sd_bus_reply_method_errorf(call, SD_BUS_ERROR_FAILED, "no") >= 0;
    });
    EXPECT_EQ(source.readBar(at("/bar"))->size(), 1) << "as of any other toolkit";
    tells = true;
    EXPECT_EQ(source.readBar(at("/bar"))->size(), 0);
    EXPECT_EQ(toolkits.told(bus.root(application->service())), AtspiToolkit::Gtk4);
    application->setInterceptor({});
}

TEST_F(AtspiBusTest, eachQuestion_isPutInItsOwnWords)
{
    publish("gtk", menuOf(1));
    std::mutex mutex;
    QStringList asked;
    application->setInterceptor([&](sd_bus_message* call) {
        const std::lock_guard lock(mutex);
        asked.append(textOf(call));
        return false;
    });
    constexpr std::pair<AtspiQuestion, const char*> rows[] = {
        {AtspiQuestion::Name, "Properties.Get ss org.a11y.atspi.Accessible Name"},
        {AtspiQuestion::Role, "Accessible.GetRole"},
        {AtspiQuestion::States, "Accessible.GetState"},
        {AtspiQuestion::KeyBinding, "Action.GetKeyBinding i 0"},
        {AtspiQuestion::Area, "Component.GetExtents u 0"},
        {AtspiQuestion::Toolkit, "Properties.Get ss org.a11y.atspi.Application ToolkitName"},
        {AtspiQuestion::ChildCount, "Properties.Get ss org.a11y.atspi.Accessible ChildCount"},
        {AtspiQuestion::FirstChild, "Accessible.GetChildAtIndex i 0"},
        {AtspiQuestion::Children, "Accessible.GetChildren"},
    };
    for (const auto& [question, words] : rows) {
        static_cast<void>(bus.facts(at("/0"), {question}, Deadline::in(Patience)));
        const std::lock_guard lock(mutex);
        EXPECT_EQ(asked, QStringList(QLatin1StringView(words)));
        asked.clear();
    }
    const auto asksTheBus = bus.facts(at("/0"), {AtspiQuestion::ProcessIdentifier}, Deadline::in(Patience));
    EXPECT_EQ(asksTheBus.processIdentifier, QCoreApplication::applicationPid());
    EXPECT_TRUE(asked.isEmpty());
    application->setInterceptor({});
}

TEST_F(AtspiBusTest, aBarOfMenus_tellsThatRolesTell)
{
    Objects objects = menuOf(3);
    objects["/bar"] = {"", RoleMenuBar, Usable, {}, {"/menu"}};
    objects["/menu"].name = "File";
    objects["/menu"].states = Usable;
    publish("VCL", objects);
    const auto entries = source.readBar(at("/bar"));
    ASSERT_TRUE(entries && entries->size() == 1);
    EXPECT_EQ(entries->first().kind, MenuRow::Kind::Holder);
    application->forgetCalls();
    EXPECT_EQ(menu().size(), 3);
    EXPECT_EQ(application->calls().size(), 1 + 4 * 3);
}

TEST_F(AtspiBusTest, aChildThatIsNoMenu_isNoSubmenu)
{
    Objects objects = menuOf(2);
    objects["/0"].children = {"/label"};
    objects["/label"] = {"Item 0", 29, Usable, {}, {}};
    objects["/1"].children = {"/popup"};
    objects["/popup"] = {"", RolePopupMenu, Usable, {}, {}};
    publish("another", objects);
    const auto rows = menu();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0].kind, MenuRow::Kind::Item);
    EXPECT_EQ(rows[1].kind, MenuRow::Kind::Holder);
    EXPECT_EQ(rows[1].contents.path, "/popup");
}

TEST_F(AtspiBusTest, aMenuInBetween_isPassedThrough)
{
    Objects objects = menuOf(2);
    objects["/outer"] = {"File", RoleMenu, Usable, {}, {"/menu"}};
    objects["/menu"].role = RolePopupMenu;
    publish("gtk", objects);
    const auto rows = source.readMenu(at("/outer"));
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->size(), 2);
}

TEST_F(AtspiBusTest, nothingIsAsked_thatHarmsTheApplication)
{
    for (const char* toolkit : {"gtk", "Qt", "another"}) {
        publish(toolkit, menuOf(3));
        EXPECT_EQ(menu().size(), 3);
        EXPECT_FALSE(findMenuBar(bus, at("/menu"), Deadline::in(Patience)));
        for (const QString& call : application->calls()) {
            const QString member = call.section(u' ', 0, 0);
            const QStringList harmless{u"Get"_s,        u"GetChildren"_s,   u"GetRole"_s,
                                       u"GetState"_s,   u"GetKeyBinding"_s, u"GetChildAtIndex"_s,
                                       u"GetExtents"_s, u"Ping"_s};
            EXPECT_TRUE(harmless.contains(member)) << call.toStdString();
        }
    }
}

TEST_F(AtspiBusTest, answersThatMakeNoSense_areMissing)
{
    publish("gtk", menuOf(4));
    application->setInterceptor([](sd_bus_message* call) {
        const QByteArrayView path = sd_bus_message_get_path(call);
        const QByteArrayView member = sd_bus_message_get_member(call);
        if (path == "/1" && member == "GetRole")
            return sd_bus_reply_method_return(call, "s", "menu item") >= 0;
        if (path == "/2" && member == "Get")
            return sd_bus_reply_method_return(call, "v", "as", 1, "Item 2") >= 0;
        if (path == "/3" && member == "GetState")
            return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_FAILED, "no") >= 0;
        return false;
    });
    const auto rows = menu();
    ASSERT_EQ(rows.size(), 2);
    EXPECT_EQ(rows[0].title, u"Item 0"_s);
    EXPECT_EQ(rows[1].title, u"Item 3"_s);
    EXPECT_FALSE(rows[1].enabled);
}

TEST_F(AtspiBusTest, aNameOfManyBytes_isCut)
{
    Objects objects = menuOf(1);
    objects["/0"].name = QByteArray(1'000'000, 'x');
    publish("gtk", objects);
    EXPECT_EQ(titles().value(0).size(), 64 * 1024);
}

TEST_F(AtspiBusTest, thousandsOfCalls_goOutInPortions)
{
    publish("gtk", menuOf(1));
    QList<AtspiFacts> facts(6000);
    QList<AtspiInquiry> inquiries;
    for (AtspiFacts& one : facts) {
        one.reference = at("/0");
        inquiries.append({&one, AtspiQuestion::Name});
    }
    bus.ask(inquiries, Deadline::in(Patience));
    EXPECT_EQ(application->count(u"Get Name"_s), 6000);
    for (const AtspiFacts& one : facts)
        EXPECT_EQ(one.name, u"Item 0"_s);

    application->forgetCalls();
    application->setInterceptor([](sd_bus_message*) { return true; }); // no answer
    bus.ask(inquiries, Deadline::in(500ms));
    EXPECT_TRUE(QTest::qWaitFor([&] { return application->count(u"Get Name"_s) >= 2000; }, Limit));
    QTest::qWait(100);
    EXPECT_EQ(application->count(u"Get Name"_s), 2000) << "no more than this may be outstanding";
}

TEST_F(AtspiBusTest, anApplicationThatOwesManyAnswers_silencesNoOther)
{
    publish("gtk", menuOf(1));
    std::atomic<int> asked = 0;
    application->setInterceptor([&](sd_bus_message* call) {
        if (QByteArrayView(sd_bus_message_get_path(call)) != "/mute")
            return false;
        ++asked;
        return true;
    });
    QList<AtspiFacts> mute(2000, {.reference = at("/mute")});
    QList<AtspiInquiry> inquiries;
    for (AtspiFacts& one : mute)
        inquiries.append({&one, AtspiQuestion::Name});
    for (int i = 0; i < 40; ++i)
        bus.ask(inquiries, Deadline::in(60ms));
    AtspiFacts other{.reference = at("/0")}; // the application gets to this when it has seen all of those
    bus.ask({{&other, AtspiQuestion::Name}}, Deadline::in(Patience));
    EXPECT_EQ(other.name, u"Item 0"_s) << "the bus holds no more than 50,000 calls for us";
    EXPECT_EQ(titles(), QStringList(u"Item 0"_s));
    EXPECT_LE(asked, 12'000);
}

TEST_F(AtspiBusTest, whatHasNotComeByTheDeadline_isMissing)
{
    publish("gtk", menuOf(3));
    application->setInterceptor([](sd_bus_message* call) {
        return QByteArrayView(sd_bus_message_get_path(call)) == "/1"; // never answered
    });
    FairTimer time;
    time.start();
    EXPECT_EQ(titles(), (QStringList{u"Item 0"_s, u"Item 2"_s}));
    EXPECT_GE(time.elapsed(), 450);
    EXPECT_LE(time.fairElapsed(), 900);

    time.start();
    EXPECT_TRUE(titles().isEmpty()) << "the event's time is used up";
    EXPECT_LE(time.fairElapsed(), 200);

    application->setInterceptor({});
    QTest::qWait(1);
    EXPECT_EQ(titles().size(), 3) << "the next event has its own";
}

TEST_F(AtspiBusTest, theEndOfTheBus_isNoticedWithoutAnotherCall_afterALateAnswer)
{
    publish("gtk", menuOf(3));
    application->setInterceptor([](sd_bus_message* call) {
        return QByteArrayView(sd_bus_message_get_path(call)) == "/1"; // never answered
    });
    EXPECT_EQ(titles().size(), 2);
    const SdBus* standing = bus.standingConnection();
    ASSERT_TRUE(standing);
    daemon.stop();
    EXPECT_TRUE(QTest::qWaitFor([standing] { return !standing->isOpen(); }, Limit));
}

TEST_F(AtspiBusTest, theBusCanGoAndComeBack)
{
    publish("gtk", menuOf(3));
    const BusReference old = at("/menu");
    EXPECT_EQ(menu().size(), 3);
    daemon.stop();
    EXPECT_FALSE(source.readMenu(old));
    FairTimer time;
    time.start();
    for (int i = 0; i < 20; ++i)
        EXPECT_FALSE(source.readMenu(old));
    EXPECT_LE(time.fairElapsed(), 400) << "it does not try again and again";

    daemon.start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bus.connection(Deadline::in(Patience)) != nullptr; }, Limit));
    publish("gtk", menuOf(2));
    EXPECT_EQ(menu().size(), 2);
    EXPECT_FALSE(source.readMenu(old)) << "names of the old connection mean nothing";
    MenuRow row;
    row.item = old;
    EXPECT_FALSE(source.press(row)) << "least of all for a press";
}

TEST_F(AtspiBusTest, withoutABus_nothingIsReadAndNothingWaits)
{
    daemon.stop();
    FairTimer time;
    time.start();
    AtspiApplications applications(bus);
    EXPECT_FALSE(applications.roots(Deadline::in(2s)));
    EXPECT_FALSE(source.readMenu({":1.1", "/menu", 0}));
    EXPECT_LE(time.fairElapsed(), 500);
}

TEST_F(AtspiBusTest, aBusThatDoesNotWelcomeUs_isGivenUp)
{
    daemon.stop();
    QTemporaryDir directory;
    const DeafBus deaf(directory.filePath(u"deaf"_s).toLocal8Bit());
    ASSERT_TRUE(deaf.listens());
    qputenv("AT_SPI_BUS_ADDRESS", deaf.address());
    FairTimer time;
    time.start();
    EXPECT_EQ(bus.connection(Deadline::in(200ms)), nullptr);
    EXPECT_GE(time.elapsed(), 190);
    EXPECT_LE(time.fairElapsed(), 600);
}

TEST_F(AtspiBusTest, theFirstMenuBar_isTheFirstInDocumentOrder)
{
    Objects objects;
    objects["/window"] = {"", RoleFrame, Usable, {}, {"/panel", "/root"}};
    objects["/panel"] = {"", 39, Usable, {}, {"/inner"}};
    objects["/inner"] = {"", 39, Usable, {}, {"/scroll"}};
    objects["/scroll"] = {"", 49, Usable, {}, {"/first"}};
    objects["/first"] = {"", RoleMenuBar, Usable, {}, {}};
    objects["/root"] = {"", 39, Usable, {}, {"/second"}};
    objects["/second"] = {"", RoleMenuBar, Usable, {}, {}};
    publish("VCL", objects);
    EXPECT_EQ(findMenuBar(bus, at("/window"), Deadline::in(Patience)).path, "/first");
    application->change("/scroll", [](Object& scroll) { scroll.children.clear(); });
    EXPECT_EQ(findMenuBar(bus, at("/window"), Deadline::in(Patience)).path, "/second");
}

TEST_F(AtspiBusTest, theSearch_leavesOutWhatMayBeLarge)
{
    for (const quint32 role : {RoleTable, RoleTreeTable, RoleTree, RoleList, RoleListBox, RoleTerminal,
                               RoleDocumentFrame, RoleDocumentSpreadsheet, RoleDocumentPresentation,
                               RoleDocumentText, RoleDocumentWeb, RoleDocumentEmail, RoleText}) {
        Objects objects;
        objects["/window"] = {"", RoleFrame, Usable, {}, {"/large"}};
        objects["/large"] = {"", role, Usable, {}, {"/bar"}};
        objects["/bar"] = {"", RoleMenuBar, Usable, {}, {}};
        publish("gtk", objects);
        EXPECT_FALSE(findMenuBar(bus, at("/window"), Deadline::in(Patience))) << role;
        EXPECT_EQ(application->count(u"GetChildren /large"_s), 0) << role;
    }
}

TEST_F(AtspiBusTest, theSearch_isBoundedInBreadthAndDepth)
{
    Objects objects;
    objects["/window"] = {"", RoleFrame, Usable, {}, {"/managing", "/wide"}};
    objects["/managing"] = {"", 39, Usable | bit(StateManagesDescendants), {}, {"/bar"}};
    objects["/bar"] = {"", RoleMenuBar, Usable, {}, {}};
    objects["/wide"] = {"", 39, Usable, {}, QList<QByteArray>(201, "/bar")};
    publish("gtk", objects);
    EXPECT_FALSE(findMenuBar(bus, at("/window"), Deadline::in(Patience)));
    EXPECT_EQ(application->count(u"GetChildren"_s), 1);
    application->change("/wide", [](Object& wide) { wide.children.removeLast(); });
    EXPECT_EQ(findMenuBar(bus, at("/window"), Deadline::in(Patience)).path, "/bar");

    for (const int depth : {8, 9}) {
        Objects chain;
        for (int i = 0; i < depth; ++i)
            chain["/" + QByteArray::number(i)] = {"", 39, Usable, {}, {"/" + QByteArray::number(i + 1)}};
        chain["/" + QByteArray::number(depth)] = {"", RoleMenuBar, Usable, {}, {}};
        publish("gtk", chain);
        EXPECT_EQ(bool(findMenuBar(bus, at("/0"), Deadline::in(Patience))), depth <= 8);
    }
}

TEST_F(AtspiBusTest, aTreeThatLoops_ends)
{
    Objects objects;
    objects["/window"] = {"", RoleFrame, Usable, {}, {"/window", "/window"}};
    publish("gtk", objects);
    EXPECT_FALSE(findMenuBar(bus, at("/window"), Deadline::in(Patience)));
}

TEST_F(AtspiBusTest, aPress_isSentOnceAndNotWaitedFor)
{
    publish("gtk", menuOf(1));
    application->setInterceptor([](sd_bus_message* call) {
        return QByteArrayView(sd_bus_message_get_member(call)) == "DoAction"; // as while a dialog is open
    });
    const MenuRow row = menu().value(0);
    FairTimer time;
    time.start();
    EXPECT_TRUE(source.press(row));
    EXPECT_LE(time.fairElapsed(), 200);
    ASSERT_TRUE(QTest::qWaitFor([&] { return presses() > 0; }, Limit));
    QTest::qWait(400);
    EXPECT_EQ(presses(), 1);
}

TEST_F(AtspiBusTest, aPress_asksForNoReply)
{
    publish("gtk", menuOf(1));
    std::atomic<int> expecting = -1;
    application->setInterceptor([&](sd_bus_message* call) {
        if (QByteArrayView(sd_bus_message_get_member(call)) == "DoAction")
            expecting = sd_bus_message_get_expect_reply(call);
        return false;
    });
    EXPECT_TRUE(source.press(menu().value(0)));
    ASSERT_TRUE(QTest::qWaitFor([&] { return expecting >= 0; }, Limit));
    EXPECT_EQ(expecting, 0);
}

TEST_F(AtspiBusTest, anItemThatIsDisabledForAMoment_isWaitedForThenPressedOnce)
{
    publish("gtk", menuOf(1));
    const MenuRow row = menu().value(0);
    application->change("/0", [](Object& item) { item.states = bit(StateVisible); });
    EXPECT_TRUE(source.press(row));
    ASSERT_TRUE(QTest::qWaitFor([&] { return application->count(u"GetState"_s) >= 4; }, Limit));
    EXPECT_EQ(presses(), 0);
    application->change("/0", [](Object& item) { item.states = Usable; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return presses() > 0; }, Limit));
    QTest::qWait(400);
    EXPECT_EQ(presses(), 1);
}

TEST_F(AtspiBusTest, anItemThatStaysDisabled_isPressedAfterAQuarterOfASecond)
{
    publish("gtk", menuOf(1));
    const MenuRow row = menu().value(0);
    application->change("/0", [](Object& item) { item.states = bit(StateVisible); });
    FairTimer time;
    time.start();
    EXPECT_TRUE(source.press(row));
    ASSERT_TRUE(QTest::qWaitFor([&] { return presses() > 0; }, Limit));
    EXPECT_GE(time.elapsed(), 237) << "a timer may be a twentieth early";
    QTest::qWait(300);
    EXPECT_EQ(presses(), 1);
}

TEST_F(AtspiBusTest, anApplicationThatDoesNotAnswer_isStillPressedOnce)
{
    publish("gtk", menuOf(1));
    const MenuRow row = menu().value(0);
    application->setInterceptor([](sd_bus_message*) { return true; });
    EXPECT_TRUE(source.press(row));
    ASSERT_TRUE(QTest::qWaitFor([&] { return presses() > 0; }, Limit));
    QTest::qWait(600);
    EXPECT_EQ(presses(), 1);
}

TEST_F(AtspiBusTest, aWindowIsInactive_ifItSaysSoByTheDeadline)
{
    Objects objects;
    objects["/window"] = {"", RoleFrame, Usable | bit(StateActive), {}, {"/window", "/window"}};
    publish("gtk", objects);
    AtspiApplications applications(bus);
    AtspiActiveWindow window(applications, budget);
    EXPECT_FALSE(window.isInactive(at("/window"), Deadline::in(Patience)));
    application->change("/window", [](Object& frame) { frame.states = Usable; });
    EXPECT_TRUE(window.isInactive(at("/window"), Deadline::in(Patience)));
    application->setInterceptor([](sd_bus_message*) { return true; });
    FairTimer time;
    time.start();
    EXPECT_FALSE(window.isInactive(at("/window"), Deadline::in(100ms)));
    EXPECT_LE(time.fairElapsed(), 300);
}

TEST_F(AtspiBusTest, anItemIsDisabledNow_ifItSaysSoByTheDeadline)
{
    publish("gtk", menuOf(1));
    const MenuRow row = menu().value(0);
    EXPECT_FALSE(source.isDisabledNow(row, Deadline::in(Patience)));
    application->change("/0", [](Object& item) { item.states = bit(StateVisible); });
    EXPECT_TRUE(source.isDisabledNow(row, Deadline::in(Patience)));
    // An entry of a menu that has never been open may lack one of the two.
    for (const auto state : {StateEnabled, StateSensitive}) {
        application->change("/0", [state](Object& item) { item.states = bit(state); });
        EXPECT_FALSE(source.isDisabledNow(row, Deadline::in(Patience)));
    }
    application->change("/0", [](Object& item) { item.states = bit(StateVisible); });
    application->setInterceptor([](sd_bus_message*) { return true; });
    FairTimer time;
    time.start();
    EXPECT_FALSE(source.isDisabledNow(row, Deadline::in(100ms)));
    EXPECT_LE(time.fairElapsed(), 300);
    EXPECT_EQ(presses(), 0);
}

TEST_F(AtspiBusTest, anItemThatWasDisabledInTheMenu_isNotAskedAgain)
{
    Objects objects = menuOf(1);
    objects["/0"].states = bit(StateVisible);
    publish("gtk", objects);
    const MenuRow row = menu().value(0);
    EXPECT_FALSE(row.enabled);
    application->forgetCalls();
    EXPECT_TRUE(source.press(row));
    ASSERT_TRUE(QTest::qWaitFor([&] { return presses() > 0; }, Limit));
    EXPECT_EQ(application->calls().size(), 1);
}

namespace {

/// The accessibility services as a session has them, played by the test: the answer to each call by its name.
class AtspiAccessTest : public ::testing::Test
{
protected:
    AtspiAccessTest()
    {
        qunsetenv("AT_SPI_BUS_ADDRESS");
        qputenv("DBUS_SESSION_BUS_ADDRESS", daemon.address());
        services.setInterceptor([this](sd_bus_message* call) {
            const QByteArrayView member = sd_bus_message_get_member(call);
            if (member == "GetAddress")
                return _reply(call, hasAddress, "s", daemon.address().constData());
            if (member == "GetChildren")
                return _reply(call, registryAnswers, "a(so)", 0);
            if (member == "Get")
                return _reply(call, hasStatus, "v", "b", int(enabled));
            return _reply(call, canBeSwitchedOn, "");
        });
    }
    ~AtspiAccessTest() override { qunsetenv("DBUS_SESSION_BUS_ADDRESS"); }

    QStringList calls()
    {
        QStringList members;
        for (const QString& call : services.calls())
            members.append(call.section(u' ', 0, call.startsWith("Get "_L1) ? 1 : 0));
        return members;
    }

    BusDaemon daemon;
    ScriptedApplication services{daemon.address(), {}, {}, {"org.a11y.Bus", RegistryService}};
    std::atomic<bool> hasAddress = true;
    std::atomic<bool> registryAnswers = true;
    std::atomic<bool> hasStatus = true;
    std::atomic<bool> enabled = false;
    std::atomic<bool> canBeSwitchedOn = true;
    AtspiBus bus;
    AtspiApplications applications{bus};
    AtspiAccess access{bus, applications};

private:
    template <typename... Arguments>
    bool _reply(sd_bus_message* call, bool well, Arguments... arguments)
    {
        if (well)
            return sd_bus_reply_method_return(call, arguments...) >= 0;
        return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_FAILED, "no") >= 0;
    }
};

} // namespace

TEST_F(AtspiAccessTest, open_asksForTheAddressThenTheRegistryAndSwitchesOnLast)
{
    EXPECT_TRUE(access.open());
    EXPECT_EQ(calls(), (QStringList{u"GetAddress"_s, u"GetChildren"_s, u"Get IsEnabled"_s, u"Set"_s}));
    EXPECT_TRUE(access.granted());
    EXPECT_EQ(calls().size(), 4) << "granted() asks nobody again";
}

TEST_F(AtspiAccessTest, whatIsOnAlready_isLeftAsItIs)
{
    enabled = true;
    EXPECT_TRUE(access.open());
    EXPECT_EQ(calls(), (QStringList{u"GetAddress"_s, u"GetChildren"_s, u"Get IsEnabled"_s}));
}

TEST_F(AtspiAccessTest, withoutAnAddress_nothingElseIsTouched)
{
    hasAddress = false;
    EXPECT_FALSE(access.open());
    EXPECT_FALSE(access.granted());
    EXPECT_EQ(calls(), QStringList(u"GetAddress"_s));
}

TEST_F(AtspiAccessTest, withoutARegistry_nothingIsSwitchedOn)
{
    registryAnswers = false;
    EXPECT_FALSE(access.open());
    EXPECT_EQ(calls(), (QStringList{u"GetAddress"_s, u"GetChildren"_s}));
}

TEST_F(AtspiAccessTest, whatCannotBeSwitchedOn_isNoAccess)
{
    canBeSwitchedOn = false;
    EXPECT_FALSE(access.granted()) << "the first time it looks for itself";
    EXPECT_EQ(calls().last(), u"Set"_s);
    canBeSwitchedOn = true;
    EXPECT_TRUE(access.open()) << "and it can be asked again";
    EXPECT_TRUE(access.granted());
}

TEST_F(AtspiAccessTest, aStatusThatCannotBeRead_isSwitchedOn)
{
    hasStatus = false;
    EXPECT_TRUE(access.open());
    EXPECT_EQ(calls().last(), u"Set"_s);
}
