// SPDX-License-Identifier: MIT
#include "platform/linux/AtspiAccessibility.h"

#include "tests/contract/AccessibilityContract.h"
#include "tests/contract/FixtureProgram.h"

#include <QElapsedTimer>
#include <gtest/gtest.h>

#include <csignal>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class OnToolkit : public ::testing::TestWithParam<const char*>
{
protected:
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
    bool waitUntilFront(const FixtureProgram& program)
    {
        return QTest::qWaitFor(
            [&] {
                return accessibility.getPid(frontApplication()) == program.processIdentifier() && menuBar();
            },
            10'000);
    }

    AtspiAccessibility accessibility;
    bool enabled = accessibility.apiEnabled(); // before any program starts, as Tarnwick does
};

} // namespace

TEST_P(OnToolkit, accessibility_keepsTheContract)
{
    const FixtureProgram program(toolkit());
    ASSERT_TRUE(waitUntilFront(program));
    const QString title = u"menu_fixture_"_s + toolkit();
    // A program may show its window and export its menus a moment before it is on the accessibility bus.
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return accessibility.copyAttributeValue(frontApplication(), AXTitleAttribute) == title; },
        10'000));
    AccessibilityContract contract({
        .accessibility = accessibility,
        .processIdentifier = program.processIdentifier(),
        .title = title,
        .breathe = [] { QTest::qWait(1); },
        .pressed = [&](qsizetype count) { return program.chosen(count); },
    });
    contract.run();
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
    QElapsedTimer time;
    time.start();
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(children(file).isEmpty());
    EXPECT_GE(time.elapsed(), 450);
    EXPECT_LE(time.elapsed(), 700);
    kill(static_cast<pid_t>(program.processIdentifier()), SIGCONT);
    QTest::qWait(1);
    EXPECT_EQ(children(file).size(), 8) << "answers that come late are left alone";
}

INSTANTIATE_TEST_SUITE_P(Fixture, OnToolkit, ::testing::Values("gtk3", "gtk4", "qt5", "qt6"),
                         [](const auto& fixture) { return std::string(fixture.param); });
