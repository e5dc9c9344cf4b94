// SPDX-License-Identifier: MIT
#include "mouse/TWMouseButtonIdentifier.h"

#include "mouse/TWMouseButtonIdentifierTap.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/FakeEventTaps.h"
#include "tests/fakes/FakeFonts.h"
#include "tests/fakes/SharedPorts.h"

#include <QAccessible>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 OtherDown = 25;

class Target final : public ActionTarget
{
public:
    QList<std::pair<QString, ActionSender*>> performed;
    [[nodiscard]] bool respondsTo(const QString& action) const override
    {
        return action == u"mouseButtonChanged:";
    }
    void perform(const QString& action, ActionSender* sender) override { performed.append({action, sender}); }
};

class TWMouseButtonIdentifierTest : public ::testing::Test
{
protected:
    TWMouseButtonIdentifierTest()
    {
        taps.journal = &journal;
        mouse_button_identifier::eventTap = 0;
        mouse_button_identifier::mouseCode = 0;
        control.setTarget(&target);
        control.setAction(u"mouseButtonChanged:"_s);
    }
    void click(Qt::MouseButton button)
    {
        if (button != Qt::LeftButton && button != Qt::RightButton)
            taps.send(OtherDown);
        QTest::mouseClick(&control, button);
        QCoreApplication::processEvents();
    }

    Journal journal;
    FakeApplication application;
    FakeEventTaps taps;
    FakeFonts fonts;
    SharedPorts sharedPorts{application, taps, fonts};
    Target target;
    TWMouseButtonIdentifier control;
};

} // namespace

TEST_F(TWMouseButtonIdentifierTest, cell_isOfTheClassOfCells_andHoldsWhatTheControlDoes)
{
    TWMouseButtonIdentifier::initialize();
    control.setupTap();
    const TWMouseButtonIdentifier::cellClass& cell = control.cell();
    static_assert(std::is_same_v<decltype(cell), const ActionCell&>);
    EXPECT_EQ(cell.target(), &target);
    EXPECT_EQ(cell.action(), u"mouseButtonChanged:"_s);
    control.setTarget(nullptr);
    click(Qt::MiddleButton);
    EXPECT_EQ(cell.target(), nullptr);
    EXPECT_TRUE(target.performed.isEmpty());
    EXPECT_EQ(control.buttonNumber(), 25U) << "learned all the same";
}

TEST_F(TWMouseButtonIdentifierTest, settingUp_createsSchedulesAndEnables_thenEnablesAgain)
{
    control.setupTap();
    EXPECT_EQ(journal, (Journal{u"create"_s, u"add source"_s, u"enable"_s, u"enable"_s}));
    ASSERT_EQ(taps.taps.size(), 1);
    const FakeEventTaps::Tap& tap = taps.taps.first();
    EXPECT_EQ(static_cast<int>(tap.location), 2);
    EXPECT_EQ(static_cast<int>(tap.placement), 0);
    EXPECT_EQ(static_cast<int>(tap.options), 0);
    EXPECT_EQ(tap.eventsOfInterest, 0x2000000U);
    EXPECT_TRUE(tap.inMainRunLoop);
    EXPECT_TRUE(tap.enabled);
    EXPECT_EQ(mouse_button_identifier::eventTap, taps.taps.firstKey());
}

TEST_F(TWMouseButtonIdentifierTest, eachExtraButton_teachesTheCodeOfItsPress_andSendsTheAction)
{
    control.setupTap();
    for (const Qt::MouseButton button :
         {Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton, Qt::ExtraButton5}) {
        control.setButtonNumber(0);
        target.performed.clear();
        click(button);
        EXPECT_EQ(control.buttonNumber(), 25U);
        EXPECT_EQ(control.text(), u"Button Number: 25"_s);
        ASSERT_EQ(target.performed.size(), 1);
        EXPECT_EQ(target.performed[0].first, u"mouseButtonChanged:"_s);
        EXPECT_EQ(target.performed[0].second, &control);
    }
}

TEST_F(TWMouseButtonIdentifierTest, leftAndRightClicks_teachNothing)
{
    control.setupTap();
    control.setButtonNumber(7);
    click(Qt::LeftButton);
    click(Qt::RightButton);
    EXPECT_EQ(control.buttonNumber(), 7U);
    EXPECT_TRUE(target.performed.isEmpty());
}

TEST_F(TWMouseButtonIdentifierTest, buttonReleasedElsewhere_teachesNothing)
{
    control.setupTap();
    control.resize(100, 40);
    taps.send(OtherDown);
    QTest::mousePress(&control, Qt::MiddleButton, Qt::NoModifier, {5, 5});
    QTest::mouseRelease(&control, Qt::MiddleButton, Qt::NoModifier, {500, 5});
    QCoreApplication::processEvents();
    EXPECT_TRUE(target.performed.isEmpty());
}

TEST_F(TWMouseButtonIdentifierTest, wordOfThePressThatComesAfterTheRelease_isTheOneThatIsLearned)
{
    control.setupTap();
    mouse_button_identifier::mouseCode = 0;
    QMetaObject::invokeMethod(
        &control, [this] { taps.send(OtherDown); }, Qt::QueuedConnection);
    QTest::mouseClick(&control, Qt::MiddleButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(control.buttonNumber(), 25U);
}

TEST_F(TWMouseButtonIdentifierTest, pressIsOnlyWatched)
{
    control.setupTap();
    EXPECT_TRUE(taps.send(OtherDown)) << "it reaches the application under the mouse";
}

TEST_F(TWMouseButtonIdentifierTest, wordThatTheTapWasSwitchedOff_isTakenForACode_andTheTapStaysOff)
{
    for (const quint32 reason : {EventTapDisabledByTimeout, EventTapDisabledByUserInput}) {
        control.setupTap();
        EXPECT_FALSE(taps.switchOff(mouse_button_identifier::eventTap, reason)) << "the word is passed on";
        EXPECT_EQ(mouse_button_identifier::mouseCode, reason);
        EXPECT_FALSE(taps.taps[mouse_button_identifier::eventTap].enabled);
        control.otherMouseUp();
        EXPECT_EQ(control.buttonNumber(), reason);
    }
    EXPECT_EQ(control.text(), u"Button Number: -1"_s);
}

TEST_F(TWMouseButtonIdentifierTest, showingTwice_leavesTwoTaps_closingReleasesTheLatest)
{
    control.setupTap();
    control.setupTap();
    EXPECT_EQ(taps.taps.size(), 2);
    journal.clear();
    control.disableAndReleaseTap();
    EXPECT_EQ(journal, (Journal{u"disable"_s, u"release"_s}));
    ASSERT_EQ(taps.taps.size(), 1);
    EXPECT_EQ(taps.taps.firstKey(), taps.everMade.first());
}

TEST_F(TWMouseButtonIdentifierTest, refusedTap_endsTheProcess)
{
    taps.refuses = true;
    EXPECT_EXIT(control.setupTap(), ::testing::ExitedWithCode(1), "^failed to create event tap\n$");
}

TEST_F(TWMouseButtonIdentifierTest, text_isTheLow32BitsAsASignedNumber)
{
    const QList<std::pair<quint64, QString>> rows{
        {0, u"Button Number: 0"_s},
        {25, u"Button Number: 25"_s},
        {0x80000000U, u"Button Number: -2147483648"_s},
        {0x100000019U, u"Button Number: 25"_s},
        {std::numeric_limits<quint64>::max(), u"Button Number: -1"_s},
    };
    for (const auto& [number, text] : rows) {
        control.setButtonNumber(number);
        EXPECT_EQ(control.buttonNumber(), number);
        EXPECT_EQ(control.text(), text);
    }
}

TEST_F(TWMouseButtonIdentifierTest, tagIsStored_andTheRestDoesNothing)
{
    control.setTag(-300);
    EXPECT_EQ(control.tag(), -300);
    control.setButtonNumber(25);
    control.resetButtonNumber(nullptr);
    control.awakeFromNib();
    EXPECT_EQ(control.buttonNumber(), 25U);
    EXPECT_TRUE(journal.isEmpty());
}

TEST_F(TWMouseButtonIdentifierTest, takesAndGivesUpTheFocus)
{
    EXPECT_TRUE(TWMouseButtonIdentifier::acceptsFirstResponder());
    EXPECT_TRUE(control.resignFirstResponder());
    EXPECT_TRUE(control.focusPolicy() & Qt::TabFocus);
}

TEST_F(TWMouseButtonIdentifierTest, text_isBlackOnALightGround_alsoOnADarkDesktop)
{
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::WindowText, Qt::white);
    control.setPalette(dark);
    control.resize(220, 40);
    QImage image(control.size(), QImage::Format_RGB32);
    image.fill(Qt::darkGray);
    control.render(&image);
    EXPECT_GT(image.pixelColor(10, 20).lightness(), 220);
    int darkest = 255;
    for (int x = 32; x < 200; ++x) {
        for (int y = 10; y < 38; ++y)
            darkest = std::min(darkest, image.pixelColor(x, y).lightness());
        for (int y = 4; y < 10; ++y)
            EXPECT_GT(image.pixelColor(x, y).lightness(), 200) << "nothing above the text's rectangle";
    }
    EXPECT_LT(darkest, 60);
    for (int x = 6; x < 32; ++x)
        EXPECT_GT(image.pixelColor(x, 20).lightness(), 200) << "nor before it";
}

TEST_F(TWMouseButtonIdentifierTest, focusRing_isDrawnWithTheFocus)
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* identifier = new TWMouseButtonIdentifier;
    auto* other = new QLineEdit;
    layout->addWidget(other);
    layout->addWidget(identifier);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    other->setFocus();
    const QImage without = identifier->grab().toImage();
    identifier->setFocus();
    EXPECT_NE(identifier->grab().toImage(), without);
    other->setFocus();
    EXPECT_EQ(identifier->grab().toImage(), without);
}

TEST_F(TWMouseButtonIdentifierTest, accessible_readsNameAndNumber)
{
    auto* accessible = QAccessible::queryAccessibleInterface(&control);
    ASSERT_NE(accessible, nullptr);
    control.setButtonNumber(25);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Button Number: 25"_s);
    control.setAccessibleName(u"Mouse button"_s);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Mouse button, Button Number: 25"_s);
    EXPECT_EQ(accessible->role(), QAccessible::StaticText);
    EXPECT_TRUE(accessible->state().focusable);
}
