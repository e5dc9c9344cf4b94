// SPDX-License-Identifier: MIT
#include "platform/linux/workspace/PopUpRequest.h"

#include "platform/linux/front/FrontApplication.h"
#include "platform/linux/workspace/SwitchAnnouncements.h"
#include "platform/qt/menu/MenuTracking.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <vector>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

const FrontWindow OnXWayland{10, 100};
const FrontWindow Native{XCB_WINDOW_NONE, 300, {":1.5", "/window", 1}};
const FrontHint Hint{QPoint(40, 50), 300, u"Notes"_s};

/// A display server that says nothing of a native window by itself.
class Front final : public FrontApplication
{
public:
    FrontWindow window = OnXWayland;
    std::vector<FrontHint> hints;

    bool watch() override { return true; }
    [[nodiscard]] FrontWindow current() const override { return window; }
    std::optional<FrontWindow> lookAgain() override { return lookAgainFor({}); }
    std::optional<FrontWindow> lookAgainFor(const FrontHint& hint) override
    {
        hints.push_back(hint);
        return std::nullopt;
    }
    void afterChangesSoFar(std::function<void()> then) override
    {
        QMetaObject::invokeMethod(this, std::move(then), Qt::QueuedConnection);
    }
};

class PopUpRequestTest : public ::testing::Test
{
protected:
    using Pointer = std::optional<QPoint>;

    PopUpRequestTest()
    {
        EXPECT_TRUE(announcements.start([] {}));
    }

    /// Asks for the menu; the pointer's places while it was opened.
    std::vector<Pointer> placesFor(const FrontHint& hint)
    {
        std::vector<Pointer> places;
        request.carryOut(hint, [&] { places.push_back(pointer); });
        for (int i = 0; i < 20; ++i)
            QCoreApplication::processEvents();
        return places;
    }

    Front front;
    SwitchAnnouncements announcements{front, [](const FrontWindow&) { return MenuBarOwner(); }};
    Pointer pointer;
    int placesTold = 0;
    std::vector<bool> backdrops; ///< whether the pointer was told to each
    std::weak_ptr<void> backdrop;
    std::weak_ptr<void> expected; ///< the menu
    PopUpRequest request{announcements, front,
                         PopUpRequest::Surroundings{
                             [this](bool pointerIsTold) {
                                 backdrops.push_back(pointerIsTold);
                                 std::shared_ptr<void> made = std::make_shared<int>();
                                 backdrop = made;
                                 return made;
                             },
                             [this](Pointer told) {
                                 ++placesTold;
                                 pointer = told;
                             },
                             [this] {
                                 std::shared_ptr<void> made = std::make_shared<int>();
                                 expected = made;
                                 return made;
                             },
                         }};
};

TEST_F(PopUpRequestTest, theHint_isGivenToWhoLooksForTheFront_andItsPlaceHoldsWhileTheMenuIsOpen)
{
    EXPECT_EQ(placesFor(Hint), std::vector<Pointer>{Hint.pointer});
    EXPECT_EQ(front.hints, std::vector<FrontHint>{Hint});
    EXPECT_EQ(pointer, std::nullopt) << "again where it is found to be";
    EXPECT_TRUE(backdrops.empty()) << "the server knows this window";
}

TEST_F(PopUpRequestTest, withoutAHint_nobodyIsToldAnything)
{
    EXPECT_EQ(placesFor({}), std::vector<Pointer>{std::nullopt});
    EXPECT_EQ(front.hints, std::vector<FrontHint>{FrontHint()});
    EXPECT_EQ(placesTold, 0);
}

TEST_F(PopUpRequestTest, overANativeWindow_theBackdropIsToldWhetherThePointerIsKnown)
{
    front.window = Native;
    EXPECT_EQ(placesFor({}), std::vector<Pointer>{std::nullopt});
    EXPECT_EQ(placesFor(Hint), std::vector<Pointer>{Hint.pointer});
    EXPECT_EQ(placesFor({{}, 300, {}}), std::vector<Pointer>{std::nullopt});
    EXPECT_EQ(backdrops, (std::vector<bool>{false, true, false}));
    EXPECT_TRUE(backdrop.expired()) << "it lives as long as the menu";
}

TEST_F(PopUpRequestTest, anotherRequestOverANativeWindow_closesTheMenu)
{
    front.window = Native;
    int closed = 0;
    QObject::connect(&MenuTracking::shared(), &MenuTracking::cancelRequested, &front, [&] { ++closed; });
    request.carryOut(Hint, [&] {
        MenuTracking::shared().begin();
        request.carryOut(Hint, [] { ADD_FAILURE() << "a second menu"; });
        MenuTracking::shared().end();
    });
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
    EXPECT_EQ(closed, 1);
    EXPECT_EQ(pointer, std::nullopt);
}

TEST_F(PopUpRequestTest, theMenuIsExpectedAtOnce_untilItHasClosed)
{
    bool whileOpen = false;
    request.carryOut(Hint, [&] { whileOpen = !expected.expired(); });
    EXPECT_FALSE(expected.expired()) << "before anybody looks for the front";
    EXPECT_TRUE(front.hints.empty());
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
    EXPECT_TRUE(whileOpen);
    EXPECT_TRUE(expected.expired());
}

} // namespace
