// SPDX-License-Identifier: MIT
#include "platform/linux/wayland/FixedWindowSizes.h"

#include <QApplication>
#include <QMessageBox>
#include <QResizeEvent>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <gtest/gtest.h>

#include <memory>

namespace tarnwick {
namespace {

constexpr QSize Wanted(300, 200);
constexpr QSize Given(294, 167);

/// Counts the other sizes that a window was given; `insists` on one, as a compositor may.
class Sizes final : public QObject
{
public:
    explicit Sizes(QWidget& window) : _window(window) { window.installEventFilter(this); }

    bool insists = false;
    int given = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Resize) {
            const QSize size = static_cast<QResizeEvent*>(event)->size();
            given += size != _window.maximumSize();
            if (insists && size == _window.maximumSize())
                QMetaObject::invokeMethod(
                    &_window, [this] { _window.windowHandle()->resize(Given); }, Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget& _window;
};

class FixedSizes : public ::testing::Test
{
protected:
    void SetUp() override
    {
        window.setFixedSize(Wanted);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    void give(QSize size)
    {
        const int before = sizes.given;
        window.windowHandle()->resize(size);
        ASSERT_TRUE(QTest::qWaitFor([&] { return sizes.given > before; }));
    }

    /// Whether the window comes to rest with a size: nothing is to be done any more.
    bool restsWith(QSize size)
    {
        for (int round = 0; round < 50; ++round)
            QCoreApplication::processEvents();
        return window.size() == size;
    }

    std::unique_ptr<FixedWindowSizes> fixed = std::make_unique<FixedWindowSizes>(*qApp);
    QWidget window;
    Sizes sizes{window};
};

TEST_F(FixedSizes, anotherSize_isAskedAwayAgain)
{
    for (int times = 1; times <= 3; ++times) {
        give(Given);
        EXPECT_TRUE(restsWith(Wanted)) << times;
    }
    EXPECT_EQ(sizes.given, 3);
}

TEST_F(FixedSizes, whoInsists_hasTheLastWord)
{
    sizes.insists = true;
    give(Given);
    EXPECT_TRUE(restsWith(Given));
    EXPECT_EQ(sizes.given, 5);
    give(Wanted - QSize(1, 1));
    EXPECT_TRUE(restsWith(Wanted - QSize(1, 1))) << "whatever that word is";
}

TEST_F(FixedSizes, anotherSizeOfItsOwn_isAskedForAnew_asIsOneThatIsShownAnew)
{
    sizes.insists = true;
    give(Given);
    ASSERT_TRUE(restsWith(Given));
    sizes.insists = false;
    window.setFixedSize(Wanted + QSize(0, 50));
    ASSERT_TRUE(restsWith(Wanted + QSize(0, 50)));
    give(Given);
    EXPECT_TRUE(restsWith(Wanted + QSize(0, 50)));

    sizes.insists = true;
    give(Given);
    ASSERT_TRUE(restsWith(Given));
    sizes.insists = false;
    window.hide();
    window.show();
    EXPECT_TRUE(restsWith(Wanted + QSize(0, 50)));
}

TEST_F(FixedSizes, aWindowOfManySizes_hasWhatItIsGiven)
{
    window.setMinimumSize(Wanted / 2);
    give(Given);
    EXPECT_TRUE(restsWith(Given));
}

TEST_F(FixedSizes, anAlert_isOfThem)
{
    QMessageBox alert(QMessageBox::Information, {}, QStringLiteral("It is so."), QMessageBox::Ok);
    alert.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&alert));
    const Sizes ofAlert(alert);
    const QSize size = alert.size();
    alert.windowHandle()->resize(size - QSize(6, 33));
    EXPECT_TRUE(QTest::qWaitFor([&] { return ofAlert.given > 0; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return alert.size() == size; }));
}

} // namespace
} // namespace tarnwick
