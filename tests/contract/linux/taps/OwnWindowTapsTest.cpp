// SPDX-License-Identifier: MIT
// Taps on the buttons that are pressed on a window of ours.
#include "platform/linux/taps/OwnWindowTaps.h"

#include "tests/contract/mouse/EventTapsContract.h"

#include <QMouseEvent>
#include <QTest>
#include <QWidget>
#include <QWindow>

using namespace tarnwick;

namespace {

class TapsOnOwnWindows : public ::testing::Test
{
protected:
    TapsOnOwnWindows()
    {
        _window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&_window));
        _field.setFocusPolicy(Qt::StrongFocus);
    }

    void press(Qt::MouseButton button)
    {
        QTest::mousePress(_window.windowHandle(), button, {}, {5, 5});
        QTest::mouseRelease(_window.windowHandle(), button, {}, {5, 5});
        QCoreApplication::processEvents();
    }

    OwnWindowTaps taps;
    int seen = 0;
    EventTapRef tap = 0;

    void listen()
    {
        tap = taps.create(EventTaps::AnnotatedSessionEventTap, EventTaps::HeadInsertEventTap,
                          EventTaps::EventTapOptionDefault, quint64{1} << EventTapOtherMouseDown,
                          [this](quint32, const TappedEvent* event) {
                              ++seen;
                              return event;
                          });
        taps.addSourceToMainRunLoop(tap);
        taps.enable(tap, true);
    }

private:
    QWidget _window;
    QWidget _field{&_window};
};

TEST_F(TapsOnOwnWindows, keepThePromisesOfThePort)
{
    eventTapsContract(taps, [this] { press(Qt::BackButton); });
}

TEST_F(TapsOnOwnWindows, buttons_thatAreExtra_areTold)
{
    listen();
    press(Qt::LeftButton);
    press(Qt::RightButton);
    EXPECT_EQ(seen, 0);
    press(Qt::MiddleButton);
    EXPECT_EQ(seen, 1);
    press(Qt::ForwardButton);
    EXPECT_EQ(seen, 2) << "once, though the window and a widget in it have the press";
    press(Qt::ExtraButton5);
    EXPECT_EQ(seen, 3);
}

TEST_F(TapsOnOwnWindows, press_isToldBeforeWhatItsReleasePostpones)
{
    listen();
    int seenAtRelease = -1;
    QWindow window;
    QMouseEvent down(QEvent::MouseButtonPress, {}, {}, Qt::BackButton, Qt::BackButton, {});
    QCoreApplication::sendEvent(&window, &down); // unlike those of QTest, with nothing after it
    EXPECT_EQ(seen, 0) << "not from inside the event";
    QMetaObject::invokeMethod(
        &window, [&] { seenAtRelease = seen; }, Qt::QueuedConnection);
    QCoreApplication::processEvents();
    EXPECT_EQ(seenAtRelease, 1);
}

} // namespace
