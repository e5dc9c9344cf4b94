// SPDX-License-Identifier: MIT
#include "platform/linux/elements/AtspiAccessibility.h"

#include "platform/linux/workspace/X11FrontApplication.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/FairTimer.h"
#include "tests/contract/ax/AccessibilityContract.h"
#include "tests/contract/session/FixtureProgram.h"

#include <gtest/gtest.h>

#include <csignal>

using namespace tarnwick;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class OnToolkit : public ::testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        if (!FixtureProgram::exists(toolkit()) && !qEnvironmentVariableIsSet("TARNWICK_REQUIRE_TOOLS"))
            GTEST_SKIP() << "no fixture program of " << GetParam();
    }
    [[nodiscard]] static QString toolkit() { return QString::fromLatin1(GetParam()); }

    UIElementRef element(const UIElementRef& of, const QString& attribute)
    {
        return accessibility.copyAttributeValue(of, attribute).value_or(QVariant()).value<UIElementRef>();
    }
    UIElementRef frontApplication()
    {
        return element(accessibility.createSystemWide(), u"AXFocusedApplication"_s);
    }
    UIElementRef menuBar() { return element(frontApplication(), u"AXMenuBar"_s); }

    QVariantList children(const UIElementRef& of)
    {
        return accessibility.copyAttributeValue(of, AXChildrenAttribute).value_or(QVariant()).toList();
    }
    /// The untitled menu of the entry at `index` of the bar.
    UIElementRef menu(qsizetype index)
    {
        const auto item = children(menuBar()).value(index).value<UIElementRef>();
        return children(item).value(0).value<UIElementRef>();
    }
    QStringList titles(const UIElementRef& of)
    {
        QTest::qWait(1);
        QStringList found;
        const QVariantList all = children(of);
        for (const QVariant& child : all)
            found.append(accessibility.copyAttributeValue(child.value<UIElementRef>(), AXTitleAttribute)
                             .value_or(QVariant())
                             .toString());
        return found;
    }
    QString text(const UIElementRef& of, const QString& attribute)
    {
        return accessibility.copyAttributeValue(of, attribute).value_or(QVariant()).toString();
    }
    /// Glyph or character, and modifiers.
    QString shortcut(const UIElementRef& item)
    {
        const QString key = text(item, u"AXMenuItemCmdGlyph"_s) + text(item, u"AXMenuItemCmdChar"_s);
        return key.isEmpty() ? u"none"_s : key + u' ' + text(item, u"AXMenuItemCmdModifiers"_s);
    }
    void checkContract(const FixtureProgram& program)
    {
        const QString title = u"menu_fixture_"_s + toolkit();
        // A program may show its window and export its menus a moment before it is on the accessibility bus.
        ASSERT_TRUE(
            QTest::qWaitFor([&] { return text(frontApplication(), AXTitleAttribute) == title; }, 10'000));
        AccessibilityContract contract({
            .accessibility = accessibility,
            .processIdentifier = program.processIdentifier(),
            .title = title,
            .pressed = [&](qsizetype count) { return program.chosen(count); },
        });
        contract.run();
    }
    bool waitUntilFront(const FixtureProgram& program)
    {
        return QTest::qWaitFor(
            [&] {
                return accessibility.getPid(frontApplication()) == program.processIdentifier() && menuBar();
            },
            10'000);
    }

    std::shared_ptr<LinuxReading> reading = std::make_shared<LinuxReading>(&X11FrontApplication::make);
    AtspiAccessibility accessibility{reading};
    bool enabled = accessibility.apiEnabled(); // before any program starts, as Tarnwick does
};

} // namespace

TEST_P(OnToolkit, accessibility_keepsTheContract)
{
    const FixtureProgram program(toolkit());
    ASSERT_TRUE(waitUntilFront(program));
    checkContract(program);
}

TEST_P(OnToolkit, mnemonics_areNeitherTitlesNorShortcuts)
{
    const FixtureProgram program(toolkit(), {u"--mnemonics"_s});
    ASSERT_TRUE(waitUntilFront(program));
    checkContract(program);
}

TEST_P(OnToolkit, ofSeveralChoices_theChosenOneIsMarked)
{
    const FixtureProgram program(toolkit(), {}, u"kinds"_s);
    ASSERT_TRUE(waitUntilFront(program));
    const auto marked = [this] {
        QTest::qWait(1);
        QStringList found;
        for (const QVariant& child : children(menu(1)))
            if (accessibility.copyAttributeValue(child.value<UIElementRef>(), u"AXMenuItemMarkChar"_s))
                found.append(text(child.value<UIElementRef>(), AXTitleAttribute));
        return found;
    };
    EXPECT_EQ(titles(menu(1)), (QStringList{u"Small"_s, u"Medium"_s, u"Large"_s}));
    EXPECT_EQ(marked(), QStringList(u"Medium"_s));
    QTest::qWait(1);
    EXPECT_TRUE(accessibility.performAction(children(menu(1)).value(2).value<UIElementRef>(), AXPressAction));
    EXPECT_EQ(program.chosen(1), QStringList(u"Large"_s));
    EXPECT_TRUE(QTest::qWaitFor([&] { return marked() == QStringList(u"Large"_s); }, 2000))
        << marked().join(u' ').toStdString();
}

TEST_P(OnToolkit, shortcuts_areThoseThatCanBeToldRightly)
{
    const FixtureProgram program(toolkit(), {}, u"kinds"_s);
    ASSERT_TRUE(waitUntilFront(program));
    QTest::qWait(1);
    const QVariantList keys = children(menu(2));
    const std::pair<QString, QString> rows[] = {
        {u"Chord"_s, u"none"_s}, {u"Keypad"_s, u"5 0"_s},   {u"Function"_s, u"115 0"_s},
        {u"Far"_s, u"123 0"_s},  {u"Too Far"_s, u"none"_s}, {u"Bare"_s, u"none"_s},
        {u"Tab"_s, u"T 0"_s},
    };
    ASSERT_EQ(keys.size(), static_cast<qsizetype>(std::size(rows)));
    for (qsizetype i = 0; i < keys.size(); ++i) {
        const auto item = keys.at(i).value<UIElementRef>();
        EXPECT_EQ(text(item, AXTitleAttribute), rows[i].first);
        EXPECT_EQ(shortcut(item), rows[i].second) << rows[i].first.toStdString();
    }
}

TEST_P(OnToolkit, hiddenEntries_areLeftOut)
{
    const FixtureProgram program(toolkit(), {}, u"hidden"_s);
    ASSERT_TRUE(waitUntilFront(program));
    EXPECT_EQ(titles(menuBar()), (QStringList{u"File"_s, u"Edit"_s}));
    EXPECT_EQ(titles(menu(0)), (QStringList{u"Open"_s, u"Print"_s}));
    EXPECT_EQ(titles(menu(1)), QStringList(u"Redo"_s));
    const auto print = children(menu(0)).value(1).value<UIElementRef>();
    EXPECT_EQ(titles(children(print).value(0).value<UIElementRef>()), QStringList(u"Page"_s));
}

TEST_P(OnToolkit, aStoppedProgram_costsHalfASecondAnEvent)
{
    const FixtureProgram program(toolkit());
    ASSERT_TRUE(waitUntilFront(program));
    QTest::qWait(1);
    const UIElementRef file = menu(0);
    QTest::qWait(1);
    kill(static_cast<pid_t>(program.processIdentifier()), SIGSTOP);
    FairTimer time;
    time.start();
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(children(file).isEmpty());
    EXPECT_GE(time.elapsed(), 450);
    EXPECT_LE(time.fairElapsed(), 700);
    kill(static_cast<pid_t>(program.processIdentifier()), SIGCONT);
    EXPECT_TRUE(QTest::qWaitFor([&] { return children(file).size() == 8; }, 10'000))
        << "answers that come late are left alone";
}

TEST_P(OnToolkit, aReadingThatBegins_hasTheWholeTimeAgainWithinTheSameEvent)
{
    const FixtureProgram program(toolkit());
    ASSERT_TRUE(waitUntilFront(program));
    const UIElementRef file = menu(0);
    QTest::qWait(1);
    kill(static_cast<pid_t>(program.processIdentifier()), SIGSTOP);
    EXPECT_TRUE(children(file).isEmpty());
    kill(static_cast<pid_t>(program.processIdentifier()), SIGCONT);
    EXPECT_TRUE(children(file).isEmpty()) << "nothing is left for the same reading";
    accessibility.beginReading();
    EXPECT_EQ(children(file).size(), 8);
}

namespace {

/// What is so only where menus are read from the accessibility tree.
class OnTree : public OnToolkit
{
};

} // namespace

TEST_P(OnTree, aMenuThatIsFilledWhenItOpens_saysSoAndIsNotOpened)
{
    const FixtureProgram program(toolkit(), {}, u"kinds"_s);
    ASSERT_TRUE(waitUntilFront(program));
    EXPECT_EQ(titles(menuBar()), (QStringList{u"File"_s, u"View"_s, u"Keys"_s, u"Late"_s}));
    // With Qt nobody knows whether it is not simply empty.
    const QStringList unmade = toolkit().startsWith(u"qt")
                                   ? QStringList()
                                   : QStringList(u"Open this menu in the application once"_s);
    EXPECT_EQ(titles(menu(3)), unmade);
    for (const QVariant& row : children(menu(3))) {
        EXPECT_FALSE(accessibility.copyAttributeValue(row.value<UIElementRef>(), u"AXEnabled"_s)
                         .value_or(true)
                         .toBool());
        EXPECT_EQ(accessibility.copyActionNames(row.value<UIElementRef>()), QStringList());
    }
    EXPECT_EQ(titles(menu(0)), (QStringList{u"Save"_s, u"Open Recent"_s}));
    const auto recent = children(menu(0)).value(1).value<UIElementRef>();
    EXPECT_EQ(accessibility.copyActionNames(recent), QStringList()) << "it holds a menu";
    EXPECT_EQ(titles(children(recent).value(0).value<UIElementRef>()), unmade);
    QTest::qWait(200);
    EXPECT_EQ(titles(menu(3)), unmade) << "reading has not opened it";
}

TEST_P(OnTree, ofTwoBarsInOneWindow_theFirstCounts)
{
    const FixtureProgram program(toolkit(), {u"--two-bars"_s});
    ASSERT_TRUE(waitUntilFront(program));
    EXPECT_EQ(titles(menuBar()), (QStringList{u"File"_s, u"Edit"_s, u"View"_s, u"Help"_s}));
}

TEST_P(OnTree, whatIsReadAhead_isShownAsItWas_untilTheMenuHasClosed)
{
    const FixtureProgram program(toolkit());
    ASSERT_TRUE(waitUntilFront(program));
    const auto roots = reading->tree.applications.rootsOf(program.processIdentifier(), Deadline::in(5s));
    ASSERT_FALSE(roots.isEmpty());
    const UIElementRef file = menu(0);
    {
        const MenuTracking::Span tracking;
        reading->tree.menus.readAhead(roots.first().service, 10s);
        kill(static_cast<pid_t>(program.processIdentifier()), SIGSTOP);
        EXPECT_EQ(children(file).size(), 8);
        const auto recent = children(file).value(2).value<UIElementRef>();
        EXPECT_EQ(titles(children(recent).value(0).value<UIElementRef>()),
                  (QStringList{u"notes.txt"_s, u"todo.txt"_s, u"Older"_s}));
    }
    QTest::qWait(1);
    EXPECT_TRUE(children(file).isEmpty()) << "the next one shows what there is then";
    kill(static_cast<pid_t>(program.processIdentifier()), SIGCONT);
}

TEST_P(OnTree, whatIsNotReadAheadInTime_orIsAnothers_isReadWhenItIsOpened)
{
    const FixtureProgram program(toolkit());
    ASSERT_TRUE(waitUntilFront(program));
    const auto roots = reading->tree.applications.rootsOf(program.processIdentifier(), Deadline::in(5s));
    ASSERT_FALSE(roots.isEmpty());
    const UIElementRef file = menu(0);
    QTest::qWait(1);
    const MenuTracking::Span tracking;
    kill(static_cast<pid_t>(program.processIdentifier()), SIGSTOP);
    FairTimer time;
    time.start();
    reading->tree.menus.readAhead(":1.999999", 10s);
    EXPECT_LE(time.fairElapsed(), 50) << "the bar that was read last is none of that program";
    reading->tree.menus.readAhead(roots.first().service, 100ms);
    EXPECT_LE(time.fairElapsed(), 250);
    kill(static_cast<pid_t>(program.processIdentifier()), SIGCONT);
    QTest::qWait(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return children(file).size() == 8; }, 10'000));
}

INSTANTIATE_TEST_SUITE_P(Fixture, OnTree, ::testing::Values("gtk3", "qt5", "qt6"),
                         [](const auto& fixture) { return std::string(fixture.param); });
INSTANTIATE_TEST_SUITE_P(Fixture, OnToolkit, ::testing::Values("gtk3", "gtk4", "qt5", "qt6"),
                         [](const auto& fixture) { return std::string(fixture.param); });
