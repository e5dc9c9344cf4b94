// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11SelectionOwner.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Thread.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace tarnwick;

namespace {

/// A program that owns a selection as long as it runs.
class Owner
{
public:
    explicit Owner(const QByteArray& selection)
    {
        xcb_create_window(_x11.get(), XCB_COPY_FROM_PARENT, _window, _x11.root(), 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
        xcb_set_selection_owner(_x11.get(), _window, _x11.atom(selection), XCB_CURRENT_TIME);
        _x11.sync();
    }

    [[nodiscard]] xcb_window_t window() const { return _window; }

private:
    OwnX11Connection _connection = connectToX11();
    X11Connection _x11{_connection.get()};
    xcb_window_t _window = xcb_generate_id(_connection.get());
};

TEST(X11SelectionOwner, tellsThatAnOwnerComes_andThatItGoes)
{
    const X11SelectionOwner watched("_TARNWICK_TEST_A");
    QSignalSpy changed(&watched, &X11SelectionOwner::changed);
    EXPECT_EQ(watched.window(), xcb_window_t(XCB_WINDOW_NONE));
    {
        const Owner owner("_TARNWICK_TEST_A");
        EXPECT_TRUE(QTest::qWaitFor([&] { return changed.size() == 1; }));
        EXPECT_EQ(watched.window(), owner.window());
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return changed.size() == 2; }));
    EXPECT_EQ(watched.window(), xcb_window_t(XCB_WINDOW_NONE));
}

TEST(X11SelectionOwner, tellsNothingOfOtherSelections)
{
    const X11SelectionOwner watched("_TARNWICK_TEST_A");
    const X11SelectionOwner other("_TARNWICK_TEST_B");
    EXPECT_EQ(other.window(), xcb_window_t(XCB_WINDOW_NONE));
    QSignalSpy changed(&watched, &X11SelectionOwner::changed);
    QSignalSpy otherChanged(&other, &X11SelectionOwner::changed);
    const Owner owner("_TARNWICK_TEST_B");
    EXPECT_TRUE(QTest::qWaitFor([&] { return otherChanged.size() == 1; }));
    EXPECT_TRUE(changed.isEmpty());
}

} // namespace
