// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtEventSource.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

using namespace tarnwick;

namespace {

constexpr quint64 maskOf(Event::Type type)
{
    return quint64(1) << quint32(type);
}

class Window final : public QWidget
{
public:
    int presses = 0;
    int releases = 0;
    void mousePressEvent(QMouseEvent* /*event*/) override { ++presses; }
    void mouseReleaseEvent(QMouseEvent* /*event*/) override { ++releases; }
};

class QtEventSourceTest : public ::testing::Test
{
protected:
    QtEventSourceTest()
    {
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }

    void later(std::function<void()> call) const { QTimer::singleShot(0, qApp, std::move(call)); }

    QtEventSource source = QtEventSource(QtEventConverter({
        [](const QKeyEvent&) { return std::optional<quint16>(6); },
        [](quint16, bool) { return QString(); },
    }));
    std::unique_ptr<Window> window = std::make_unique<Window>();
};

TEST_F(QtEventSourceTest, firstMatchingEvent_isGivenOut_andNotDelivered)
{
    later([this] {
        QTest::mousePress(window.get(), Qt::LeftButton);
        QTest::mouseRelease(window.get(), Qt::LeftButton, {}, QPoint(5, 6));
    });
    const auto event = source.nextEventMatchingMask(maskOf(Event::Type::LeftMouseUp) |
                                                    maskOf(Event::Type::LeftMouseDragged));
    ASSERT_TRUE(event);
    EXPECT_EQ(event->type, Event::Type::LeftMouseUp);
    EXPECT_EQ(event->locationInWindow, QPointF(5, 6));
    EXPECT_EQ(window->presses, 1) << "what is not waited for goes its way";
    EXPECT_EQ(window->releases, 0);
}

TEST_F(QtEventSourceTest, afterwards_eventsAreDeliveredAgain)
{
    later([this] { QTest::mouseRelease(window.get(), Qt::LeftButton); });
    ASSERT_TRUE(source.nextEventMatchingMask(maskOf(Event::Type::LeftMouseUp)));
    QTest::mouseClick(window.get(), Qt::LeftButton);
    EXPECT_EQ(window->presses, 1);
    EXPECT_EQ(window->releases, 1);
}

TEST_F(QtEventSourceTest, windowThatGoes_endsTheWait)
{
    later([this] { window.reset(); });
    EXPECT_FALSE(source.nextEventMatchingMask(maskOf(Event::Type::LeftMouseUp)));
}

TEST_F(QtEventSourceTest, windowThatHides_endsTheWait)
{
    later([this] { window->hide(); });
    EXPECT_FALSE(source.nextEventMatchingMask(maskOf(Event::Type::LeftMouseUp)));
}

TEST_F(QtEventSourceTest, programThatEnds_endsTheWait)
{
    later([] { QCoreApplication::exit(0); });
    EXPECT_FALSE(source.nextEventMatchingMask(maskOf(Event::Type::LeftMouseUp)));
}

} // namespace
