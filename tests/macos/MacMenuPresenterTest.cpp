// SPDX-License-Identifier: MIT
#include "platform/macos/menu/MacMenuPresenter.h"

#include "foundation/NotificationCenter.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "platform/macos/hotkeys/QuartzEventTaps.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/SharedPorts.h"
#include "tests/macos/MacTest.h"
#include "tests/macos/PlayedMenus.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

class Target final : public ActionTarget
{
public:
    QStringList performed;
    std::function<void()> onPerform;

    [[nodiscard]] bool respondsTo(const QString& action) const override { return action == u"press"_s; }
    void perform(const QString& action, ActionSender* sender) override
    {
        performed.append(action + u' ' + static_cast<MenuItem*>(sender)->title());
        if (onPerform)
            onPerform();
    }
};

} // namespace

class MacMenuPresenterTest : public MacTest
{
protected:
    void SetUp() override
    {
        MacTest::SetUp();
        auto owned = std::make_unique<PlayedMenus>();
        menus = owned.get();
        presenter = std::make_unique<MacMenuPresenter>(std::move(owned));
        item = MenuItem::create(u"Open"_s, u"press"_s);
        item->setTarget(target);
        menu->addItem(item);
    }

    void TearDown() override
    {
        presenter.reset();
        MacTest::TearDown();
    }

    void chooseTheItem()
    {
        menus->whileOpen = [this](const NativeMenus::Chosen& chosen) { chosen(menu, item); };
    }

    FakeApplication application;
    SharedPorts sharedPorts{application};
    std::shared_ptr<Menu> menu = Menu::create(u"Fennrick"_s);
    std::shared_ptr<MenuItem> item;
    std::shared_ptr<Target> target = std::make_shared<Target>();
    PlayedMenus* menus = nullptr;
    std::unique_ptr<MacMenuPresenter> presenter;
};

TEST_F(MacMenuPresenterTest, menu_popsUpWhereItWasAskedFor)
{
    EXPECT_FALSE(presenter->popUpMenuPositioningItem(menu, nullptr, {100, 700}));
    ASSERT_EQ(menus->popUps.size(), 1);
    EXPECT_EQ(menus->popUps.first().menu, menu);
    EXPECT_EQ(menus->popUps.first().item, nullptr);
    EXPECT_EQ(menus->popUps.first().location, QPointF(100, 700));
    EXPECT_TRUE(target->performed.isEmpty());
    presenter->popUpMenuPositioningItem(menu, item, {});
    EXPECT_EQ(menus->popUps.last().item, item);
}

TEST_F(MacMenuPresenterTest, choice_isPerformedOnceTheMenuHasClosed_thenTold)
{
    QStringList order;
    target->onPerform = [&] {
        order.append(MenuTracking::shared().active() ? u"while open"_s : u"performed"_s);
    };
    const auto observer = NotificationCenter::defaultCenter().addObserver(
        QString::fromUtf16(MenuDidSendActionNotificationName), menu.get(),
        [&](const Notification& notification) {
            order.append(u"told "_s + notification.userInfo.value(u"MenuItem"_s).toString());
        });
    chooseTheItem();
    EXPECT_TRUE(presenter->popUpMenuPositioningItem(menu, nullptr, {}));
    EXPECT_EQ(target->performed, QStringList{u"press Open"_s});
    EXPECT_EQ(order, (QStringList{u"performed"_s, u"told Open"_s}));
}

TEST_F(MacMenuPresenterTest, choiceThatComesAfterTheMenuHasClosed_isPerformedThen)
{
    EXPECT_FALSE(presenter->popUpMenuPositioningItem(menu, nullptr, {}));
    menus->last(menu, item);
    EXPECT_EQ(target->performed, QStringList{u"press Open"_s});
}

TEST_F(MacMenuPresenterTest, triggerWhileAMenuIsOpen_isDropped)
{
    bool second = true;
    menus->whileOpen = [&](const auto&) { second = presenter->popUpMenuPositioningItem(menu, nullptr, {}); };
    presenter->popUpMenuPositioningItem(menu, nullptr, {});
    EXPECT_FALSE(second);
    EXPECT_EQ(menus->popUps.size(), 1);
    EXPECT_FALSE(MenuTracking::shared().active());
}

TEST_F(MacMenuPresenterTest, noMenu_isNotShown)
{
    EXPECT_FALSE(presenter->popUpMenuPositioningItem(nullptr, nullptr, {}));
    EXPECT_TRUE(menus->popUps.isEmpty());
}

TEST_F(MacMenuPresenterTest, cancel_closesTheOpenMenuOnly)
{
    presenter->cancelTracking();
    EXPECT_EQ(menus->cancels, 0);
    menus->whileOpen = [this](const auto&) {
        presenter->cancelTracking();
        MenuTracking::shared().cancel();
    };
    presenter->popUpMenuPositioningItem(menu, nullptr, {});
    EXPECT_EQ(menus->cancels, 2);
}

TEST_F(MacMenuPresenterTest, menuAskedForInsideATapsCallback_opensOnceThatHasReturned)
{
    QuartzEventTaps taps;
    int calls = 0;
    const EventTapRef tap =
        taps.create(EventTaps::AnnotatedSessionEventTap, EventTaps::HeadInsertEventTap,
                    EventTaps::EventTapOptionDefault, 0x2000000, [&](quint32, const TappedEvent* event) {
                        EXPECT_FALSE(presenter->popUpMenuPositioningItem(menu, nullptr, {5, 6}));
                        // A second trigger before the first menu could open.
                        EXPECT_FALSE(presenter->popUpMenuPositioningItem(menu, nullptr, {7, 8}));
                        EXPECT_TRUE(menus->popUps.isEmpty());
                        ++calls;
                        return event;
                    });
    taps.addSourceToMainRunLoop(tap);
    taps.enable(tap, true);
    keepSource();
    chooseTheItem();
    EXPECT_TRUE(mac.sendEvent(25));
    EXPECT_EQ(calls, 1);
    QCoreApplication::processEvents();
    ASSERT_EQ(menus->popUps.size(), 1);
    EXPECT_EQ(menus->popUps.first().location, QPointF(5, 6));
    EXPECT_EQ(target->performed.size(), 1);
    EXPECT_TRUE(presenter->popUpMenuPositioningItem(menu, nullptr, {})) << "and later ones open again";
    taps.release(tap);
}

} // namespace tarnwick
