// SPDX-License-Identifier: MIT
#include "platform/qt/application/QtApplication.h"

#include "foundation/ApplicationDelegate.h"

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <gtest/gtest.h>

#include <array>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

QtEventConverter converter()
{
    return QtEventConverter({
        [](const QKeyEvent&) { return std::optional<quint16>(6); },
        [](quint16, bool shift) { return shift ? u"Z"_s : u"z"_s; },
    });
}

class Delegate final : public ApplicationDelegate
{
public:
    bool agrees = true;
    int asked = 0;
    QStringList performed;

    bool applicationShouldTerminate() override
    {
        ++asked;
        return agrees;
    }
    [[nodiscard]] bool respondsTo(const QString& action) const override { return action == u"known"; }
    void perform(const QString& action, ActionSender* /*sender*/) override { performed.append(action); }
};

class QtApplicationTest : public ::testing::Test
{
protected:
    QtApplicationTest() { application.setDelegate(&delegate); }

    Delegate delegate;
    QtApplication application = QtApplication(converter());
};

TEST_F(QtApplicationTest, terminate_asksTheDelegateOnce_andEndsEveryLoop)
{
    QTimer::singleShot(0, &application, [this] {
        QTimer::singleShot(0, &application, [this] {
            application.terminate(nullptr);
            application.terminate(nullptr);
        });
        QEventLoop inner; // as an open menu or alert has one
        inner.exec();
        EXPECT_TRUE(application.terminating());
    });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_EQ(delegate.asked, 1);
}

TEST_F(QtApplicationTest, delegateThatRefuses_keepsTheProgramRunning)
{
    delegate.agrees = false;
    application.perform(u"terminate:"_s, nullptr);
    EXPECT_EQ(delegate.asked, 1);
    EXPECT_FALSE(application.terminating());
}

TEST_F(QtApplicationTest, lastWindowsEnd_isNotThePrograms)
{
    bool later = false;
    QTimer::singleShot(0, &application, [&] {
        QWidget window;
        window.show();
        window.close();
        QTimer::singleShot(50, &application, [&] {
            later = true;
            QCoreApplication::exit(3);
        });
    });
    EXPECT_EQ(QApplication::exec(), 3);
    EXPECT_TRUE(later);
}

TEST_F(QtApplicationTest, currentEvent_isTheLastOneOfOurWindows)
{
    EXPECT_FALSE(application.currentEvent());
    QWidget window;
    window.show();
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Z, Qt::ControlModifier);
    QCoreApplication::sendEvent(&window, &release);
    ASSERT_TRUE(application.currentEvent());
    EXPECT_EQ(application.currentEvent()->type, Event::Type::KeyUp);
    EXPECT_EQ(application.currentEvent()->modifierFlags, ControlKeyMask);
    EXPECT_EQ(application.currentEvent()->keyCode, 6);
    QTest::mousePress(&window, Qt::RightButton, {}, QPoint(3, 4));
    EXPECT_EQ(application.currentEvent()->type, Event::Type::RightMouseDown);
    EXPECT_EQ(application.currentEvent()->locationInWindow, QPointF(3, 4));
}

TEST_F(QtApplicationTest, keyOfTheMainMenu_actsInAWindow_unlessTheWindowUsesItItself)
{
    class Window final : public QWidget
    {
    public:
        int keys = 0;
        void keyPressEvent(QKeyEvent* /*event*/) override { ++keys; }
    };
    application.setDelegate(nullptr);
    QtApplication other(QtEventConverter({
        [](const QKeyEvent&) { return std::optional<quint16>(12); },
        [](quint16, bool) { return u"q"_s; },
    }));
    other.setDelegate(&delegate);
    delegate.agrees = false;
    Window window;
    Window inner;
    inner.setParent(&window);
    window.show();
    inner.setFocus();
    QTest::keyClick(&inner, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(delegate.asked, 0) << "the control has taken it";
    QTest::keyClick(&window, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(delegate.asked, 1);
}

TEST_F(QtApplicationTest, sendAction_reachesATargetThatResponds)
{
    EXPECT_TRUE(application.sendActionToFrom(u"known"_s, &delegate, nullptr));
    EXPECT_FALSE(application.sendActionToFrom(u"unknown"_s, &delegate, nullptr));
    EXPECT_FALSE(application.sendActionToFrom(u"known"_s, nullptr, nullptr));
    EXPECT_EQ(delegate.performed, QStringList{u"known"_s});
}

TEST_F(QtApplicationTest, bundlePath_isTheProgram)
{
    EXPECT_EQ(application.bundlePath(), QCoreApplication::applicationFilePath());
    EXPECT_TRUE(application.bundlePath().startsWith(u'/'));
}

TEST_F(QtApplicationTest, statusImages_areResources)
{
    for (const QString& name : {u"TarnwickMenuBarIcon"_s, u"TarnwickMenuBarInverseIcon"_s}) {
        const QImage image(application.pathForResourceOfType(name, u"png"_s));
        EXPECT_EQ(image.size(), QSize(64, 64));
        EXPECT_TRUE(image.hasAlphaChannel());
        EXPECT_EQ(qAlpha(image.pixel(63, 0)), 0) << "the corner is empty";
    }
    const QImage normal(application.pathForResourceOfType(u"TarnwickMenuBarIcon"_s, u"png"_s));
    const QImage inverse(application.pathForResourceOfType(u"TarnwickMenuBarInverseIcon"_s, u"png"_s));
    EXPECT_LT(qGray(normal.pixel(40, 46)), 80) << "between the lines of the menu";
    EXPECT_GT(qGray(inverse.pixel(40, 46)), 200);
    EXPECT_EQ(application.pathForResourceOfType(u"Missing"_s, u"png"_s), QString());
}

TEST_F(QtApplicationTest, activation_bringsItsWindowsForward)
{
    QWidget window;
    window.show();
    application.activateIgnoringOtherApps(true);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

/// Takes note of the windows that are raised, by their titles.
class Raised final : public QObject
{
public:
    QStringList titles;

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() == QEvent::ZOrderChange)
            titles.append(static_cast<QWidget*>(receiver)->windowTitle());
        return false;
    }
};

TEST_F(QtApplicationTest, activation_keepsTheOrderOfTheWindows)
{
    QStringList titles;
    std::array<QWidget, 8> windows;
    for (QWidget& window : windows) {
        titles.append(QString::number(titles.size()));
        window.setWindowTitle(titles.last());
        window.show();
    }
    windows[5].showMinimized();
    windows[6].hide();
    windows[2].raise();
    windows[2].activateWindow();
    for (const QString& title : {u"5"_s, u"6"_s, u"2"_s})
        titles.removeOne(title);
    titles.append(u"2"_s);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&windows[2]));
    Raised raised;
    for (QWidget& window : windows)
        window.installEventFilter(&raised);
    for (int times = 0; times < 2; ++times) {
        raised.titles.clear();
        application.activateIgnoringOtherApps(true);
        EXPECT_EQ(raised.titles, titles);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&windows[2]));
        EXPECT_TRUE(windows[5].isMinimized());
    }
}

TEST_F(QtApplicationTest, windowThatTheUserHasActivated_staysInFrontOfTheOthers)
{
    QWidget first;
    QWidget second;
    first.show();
    second.show();
    first.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&first));
    application.activateIgnoringOtherApps(true);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&first));
}

} // namespace
