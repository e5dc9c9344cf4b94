// SPDX-License-Identifier: MIT
#include "platform/linux/popup/X11PopUpPointer.h"

#include "platform/linux/input/X11RawInput.h"
#include "platform/linux/x11/X11Connection.h"
#include "tests/contract/session/OtherClient.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

/// No program of the desktop does anything with this one.
const QString Button = u"9"_s;

class X11PopUpPointerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        _keeper.show();
        X11Connection::shared().sync();
        user({u"mousemove"_s, u"300"_s, u"300"_s});
    }

    void TearDown() override { user({u"mouseup"_s, Button}); }

    static void user(const QStringList& doing) { EXPECT_EQ(QProcess::execute(u"xdotool"_s, doing), 0); }

    [[nodiscard]] static X11PointerState now() { return pointerState(X11Connection::shared()); }

    QWidget _keeper{nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint};
    X11PopUpPointer _pointer{X11Connection::shared(), static_cast<xcb_window_t>(_keeper.winId())};
    OtherClient _other;
    QSignalSpy _taken{&_pointer, &X11PopUpPointer::taken};
    QSignalSpy _lost{&_pointer, &X11PopUpPointer::lost};
    QSignalSpy _dragged{&_pointer, &X11PopUpPointer::dragged};
    QSignalSpy _dragReleased{&_pointer, &X11PopUpPointer::dragReleased};
    QSignalSpy _pressedElsewhere{&_pointer, &X11PopUpPointer::pressedElsewhere};
};

TEST_F(X11PopUpPointerTest, openedByKey_isOursUntilItIsReleased)
{
    ASSERT_TRUE(_pointer.take(now().device));
    EXPECT_FALSE(_other.canTakePointer());
    _pointer.release();
    X11Connection::shared().sync();
    EXPECT_TRUE(_other.canTakePointer());
    EXPECT_TRUE(_taken.isEmpty()) << "whoever takes it knows";
}

TEST_F(X11PopUpPointerTest, openedByKey_isNotOursWhileAnotherClientHasIt)
{
    ASSERT_TRUE(_other.takePointer());
    EXPECT_FALSE(_pointer.take(now().device));
    EXPECT_FALSE(_pointer.held());
}

TEST_F(X11PopUpPointerTest, yielded_isOthersUntilItIsTakenBack)
{
    ASSERT_TRUE(_pointer.take(now().device));
    _pointer.yield();
    X11Connection::shared().sync();
    EXPECT_TRUE(_other.canTakePointer());
    _pointer.takeBack();
    EXPECT_FALSE(_other.canTakePointer());
    EXPECT_EQ(_taken.size(), 1);
}

TEST_F(X11PopUpPointerTest, takenBack_comesWhenTheOtherClientGivesIt)
{
    ASSERT_TRUE(_pointer.take(now().device));
    _pointer.yield();
    X11Connection::shared().sync();
    ASSERT_TRUE(_other.takePointer());
    _pointer.takeBack();
    EXPECT_FALSE(_pointer.held());
    _other.givePointerBack();
    EXPECT_TRUE(QTest::qWaitFor([this] { return _taken.size() == 1; }));
    EXPECT_TRUE(_pointer.held());
    EXPECT_TRUE(_lost.isEmpty());
}

TEST_F(X11PopUpPointerTest, keptByAnotherClient_isLostAfterASecond)
{
    ASSERT_TRUE(_pointer.take(now().device));
    _pointer.yield();
    X11Connection::shared().sync();
    ASSERT_TRUE(_other.takePointer());
    QElapsedTimer time;
    time.start();
    _pointer.takeBack();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !_lost.isEmpty(); }));
    EXPECT_GE(time.elapsed(), 1000);
}

TEST_F(X11PopUpPointerTest, openedByAClick_isOursAtOnceWhenTheButtonIsUpAgain)
{
    _pointer.follow(now());
    EXPECT_TRUE(_pointer.held());
}

TEST_F(X11PopUpPointerTest, openedByAButton_comesAtItsRelease)
{
    user({u"mousedown"_s, Button});
    _pointer.follow(now());
    EXPECT_FALSE(_pointer.held());
    user({u"mouseup"_s, Button});
    EXPECT_TRUE(QTest::qWaitFor([this] { return _taken.size() == 1; }));
    EXPECT_TRUE(_dragged.isEmpty() && _dragReleased.isEmpty()) << "it was not moved";
}

TEST_F(X11PopUpPointerTest, aButtonThatIsDragged_isTold_andItsRelease)
{
    user({u"mousedown"_s, Button});
    _pointer.follow(now());
    user({u"mousemove"_s, u"340"_s, u"300"_s});
    EXPECT_TRUE(QTest::qWaitFor([this] { return !_dragged.isEmpty(); }));
    EXPECT_TRUE(_dragReleased.isEmpty());
    user({u"mouseup"_s, Button});
    EXPECT_TRUE(QTest::qWaitFor([this] { return _dragReleased.size() == 1; }));
    EXPECT_TRUE(_pointer.held());
}

TEST_F(X11PopUpPointerTest, yieldedWhileAButtonIsDown_isOthersAtItsRelease)
{
    user({u"mousedown"_s, Button});
    _pointer.follow(now());
    _pointer.yield();
    user({u"mousemove"_s, u"340"_s, u"300"_s});
    EXPECT_TRUE(QTest::qWaitFor([this] { return !_dragged.isEmpty(); }));
    user({u"mouseup"_s, Button});
    EXPECT_TRUE(QTest::qWaitFor([this] { return _dragReleased.size() == 1; }));
    EXPECT_FALSE(_pointer.held());
    EXPECT_TRUE(_other.canTakePointer());
    _pointer.takeBack();
    EXPECT_TRUE(_pointer.held());
}

TEST_F(X11PopUpPointerTest, takenBackWhileAButtonIsStillDown_comesAtItsRelease)
{
    user({u"mousedown"_s, Button});
    _pointer.follow(now());
    _pointer.yield();
    _pointer.takeBack();
    EXPECT_FALSE(_pointer.held());
    user({u"mouseup"_s, Button});
    EXPECT_TRUE(QTest::qWaitFor([this] { return _pointer.held(); }));
}

TEST_F(X11PopUpPointerTest, aPressElsewhere_isToldWhileItIsNotOurs)
{
    user({u"click"_s, Button});
    EXPECT_TRUE(QTest::qWaitFor([this] { return _pressedElsewhere.size() == 1; }));
}

TEST_F(X11PopUpPointerTest, settled_signalsNothingAnyMore)
{
    QSignalSpy pressed(&X11RawInput::shared(), &X11RawInput::buttonPressed);
    user({u"mousedown"_s, Button});
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressed.size() == 1; }));
    _pointer.follow(now());
    _pressedElsewhere.clear();
    _pointer.settle();
    user({u"mouseup"_s, Button, u"click"_s, Button});
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressed.size() == 2; }));
    EXPECT_TRUE(_pressedElsewhere.isEmpty());
    EXPECT_FALSE(_pointer.held());
}

} // namespace
