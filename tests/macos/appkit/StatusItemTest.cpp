// SPDX-License-Identifier: MIT
#include "app/StatusBar.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "platform/macos/tray/AppKitStatusBar.h"
#include "platform/qt/menu/MenuTracking.h"
#include "tests/fakes/FakeApplication.h"
#include "tests/fakes/SharedPorts.h"
#include "tests/macos/appkit/AppKitTest.h"

#include <QImage>

using namespace Qt::StringLiterals;

namespace tarnwick {
namespace {

class Target final : public ActionTarget
{
public:
    QStringList performed;
    [[nodiscard]] bool respondsTo(const QString& action) const override { return action == u"press"_s; }
    void perform(const QString& /*action*/, ActionSender* sender) override
    {
        performed.append(static_cast<MenuItem*>(sender)->title());
    }
};

class StatusItemTest : public AppKitTest
{
protected:
    void TearDown() override
    {
        item.reset();
        AppKitTest::TearDown();
    }

    FakeApplication application;
    SharedPorts sharedPorts{application};
    AppKitStatusBar bar;
    std::shared_ptr<StatusItem> item = bar.statusItemWithLength(-1);
};

TEST_F(StatusItemTest, isThere_untilItIsRemovedOrGone)
{
    ASSERT_EQ(appkit::statusItems().size(), 1);
    EXPECT_EQ(appkit::statusItems().first().length, -1);
    bar.removeStatusItem(item);
    EXPECT_TRUE(appkit::statusItems().isEmpty());
    bar.removeStatusItem(item);
    item = bar.statusItemWithLength(30);
    EXPECT_EQ(appkit::statusItems().size(), 1);
    item.reset();
    EXPECT_TRUE(appkit::statusItems().isEmpty());
}

TEST_F(StatusItemTest, images_areTemplatesOfTheHeightOfTheMenuBar)
{
    QImage image(64, 32, QImage::Format_ARGB32);
    image.fill(Qt::black);
    item->setImage(image);
    item->setAlternateImage(image);
    const auto shown = appkit::statusItems().first();
    ASSERT_TRUE(shown.image && shown.alternateImage);
    EXPECT_EQ(shown.image->size, QSizeF(36, 18));
    EXPECT_TRUE(shown.image->isTemplate);
    EXPECT_EQ(QImage::fromData(shown.image->data).size(), QSize(64, 32));
    EXPECT_NE(shown.image->data, shown.alternateImage->data) << "of dark ink, and of light";
    item->setImage({});
    EXPECT_FALSE(appkit::statusItems().first().image);
}

TEST_F(StatusItemTest, highlighting_isTheSystemsWhereItHasIt)
{
    item->setHighlightMode(true);
    EXPECT_EQ(system().journal, QStringList{u"highlight mode 1"_s});
}

TEST_F(StatusItemTest, itsMenu_isShownAsTheSystemOpensIt_andChoicesArePerformed)
{
    const auto target = std::make_shared<Target>();
    const auto menu = Menu::create(u"Tarnwick"_s);
    const auto quit = MenuItem::create(u"Quit"_s, u"press"_s);
    quit->setTarget(target);
    menu->addItem(quit);
    item->setMenu(menu);
    const auto shown = appkit::statusItems().first().menu;
    ASSERT_TRUE(shown);
    bool whileOpen = false;
    system().whileOpen = [&](appkit::ShownMenu open) {
        whileOpen = MenuTracking::shared().active();
        open.choose(0);
    };
    shown->popUp();
    EXPECT_TRUE(whileOpen) << "no menu at the pointer opens meanwhile";
    EXPECT_FALSE(MenuTracking::shared().active());
    EXPECT_EQ(target->performed, QStringList{u"Quit"_s});
    item->setMenu(nullptr);
    EXPECT_FALSE(appkit::statusItems().first().menu);
}

TEST_F(StatusItemTest, whatClosesMenus_closesItToo)
{
    const auto menu = Menu::create(u"Tarnwick"_s);
    item->setMenu(menu);
    system().whileOpen = [](appkit::ShownMenu) { MenuTracking::shared().cancel(); };
    appkit::statusItems().first().menu->popUp();
    EXPECT_TRUE(system().cancelled);
}

} // namespace
} // namespace tarnwick
