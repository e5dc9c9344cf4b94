// SPDX-License-Identifier: MIT
#include "platform/qt/tray/QtStatusBar.h"

#include "menu/Menu.h"
#include "platform/qt/menu/MenuTracking.h"
#include "platform/qt/tray/QtStatusItem.h"
#include "tests/fakes/FakeMenuPresenter.h"
#include "tests/fakes/FakeScreens.h"
#include "tests/fakes/SharedPorts.h"

#include <QApplication>
#include <QSystemTrayIcon>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

class FakePublishedIcon final : public PublishedIcon
{
public:
    void setIcon(const QIcon& /*icon*/) override {}
};

class FakeTrayHost final : public TrayHost
{
public:
    Kind now = Kind::None;
    [[nodiscard]] Kind kind() const override { return now; }
    bool publishes = false;
    int published = 0;
    [[nodiscard]] std::unique_ptr<PublishedIcon> publish(QMenu& /*menu*/,
                                                         const std::function<void()>& /*clicked*/) override
    {
        if (!publishes)
            return nullptr;
        ++published;
        return std::make_unique<FakePublishedIcon>();
    }
    void become(Kind kind)
    {
        now = kind;
        Q_EMIT changed();
    }
};

class Target final : public ActionTarget
{
public:
    QStringList performed;
    [[nodiscard]] bool respondsTo(const QString& action) const override { return action == u"act"; }
    void perform(const QString& action, ActionSender* /*sender*/) override { performed.append(action); }
};

constexpr QRgb dark = qRgb(0, 0, 0);
constexpr QRgb light = qRgb(255, 255, 255);

QImage image(Qt::GlobalColor color)
{
    QImage picture(16, 16, QImage::Format_ARGB32);
    picture.fill(color);
    return picture;
}

class QtStatusBarTest : public ::testing::Test
{
protected:
    [[nodiscard]] std::shared_ptr<StatusItem> makeItem()
    {
        auto item = bar->statusItemWithLength(StatusBar::VariableStatusItemLength);
        const auto menu = Menu::create(u"Tarnwick"_s);
        for (const auto& [title, action] :
             {std::pair(u"A & B..."_s, u"act"_s), std::pair(u"Disabled"_s, u"no"_s)}) {
            const auto entry = MenuItem::create(title, action);
            entry->setTarget(target);
            menu->addItem(entry);
        }
        item->setHighlightMode(true);
        item->setMenu(menu);
        item->setImage(image(Qt::black));
        item->setAlternateImage(image(Qt::white));
        return item;
    }

    [[nodiscard]] static QSystemTrayIcon* icon(const std::shared_ptr<StatusItem>& item)
    {
        return static_cast<QtStatusItem&>(*item).trayIcon();
    }

    FakeMenuPresenter presenter;
    FakeScreens screens;
    SharedPorts sharedPorts{presenter, screens};
    /// The toolkit tells of it in a running program only.
    static void showDesktop(bool isDark)
    {
        QTimer::singleShot(0, qApp, [isDark] {
            QPalette palette(isDark ? Qt::black : Qt::white);
            palette.setColor(QPalette::WindowText, isDark ? Qt::white : Qt::black);
            QApplication::setPalette(palette);
            QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        });
        QApplication::exec();
    }

    static QRgb colorOf(const std::shared_ptr<StatusItem>& item)
    {
        return icon(item)->icon().pixmap(16, 16).toImage().pixel(8, 8);
    }

    FakeTrayHost* host = new FakeTrayHost;
    std::unique_ptr<QtStatusBar> bar =
        std::make_unique<QtStatusBar>(std::unique_ptr<TrayHost>(host), u"tarnwick-symbolic"_s);
    std::shared_ptr<Target> target = std::make_shared<Target>();
};

TEST_F(QtStatusBarTest, item_waitsForAHost_andFollowsIt)
{
    const auto item = makeItem();
    EXPECT_EQ(icon(item), nullptr);
    host->become(TrayHost::Kind::Embedding);
    ASSERT_NE(icon(item), nullptr);
    EXPECT_TRUE(icon(item)->isVisible());
    EXPECT_EQ(icon(item)->toolTip(), QCoreApplication::applicationName());
    EXPECT_FALSE(icon(item)->icon().isNull());
    host->become(TrayHost::Kind::None);
    EXPECT_EQ(icon(item), nullptr);
    host->become(TrayHost::Kind::Publishing);
    EXPECT_NE(icon(item), nullptr);
}

TEST_F(QtStatusBarTest, removedItem_staysAway)
{
    host->become(TrayHost::Kind::Embedding);
    const auto item = makeItem();
    bar->removeStatusItem(item);
    EXPECT_EQ(icon(item), nullptr);
    host->become(TrayHost::Kind::Publishing);
    EXPECT_EQ(icon(item), nullptr);
    bar->removeStatusItem(item);
}

TEST_F(QtStatusBarTest, embeddedItem_popsItsMenuUpThroughThePresenter)
{
    host->become(TrayHost::Kind::Embedding);
    const auto item = makeItem();
    EXPECT_EQ(icon(item)->contextMenu(), nullptr);
    Q_EMIT icon(item)->activated(QSystemTrayIcon::Trigger);
    EXPECT_TRUE(QTest::qWaitFor([this] { return presenter.popUps.size() == 1; }));
    Q_EMIT icon(item)->activated(QSystemTrayIcon::Context);
    EXPECT_TRUE(QTest::qWaitFor([this] { return presenter.popUps.size() == 2; }));
    Q_EMIT icon(item)->activated(QSystemTrayIcon::MiddleClick);
    QTest::qWait(10);
    EXPECT_EQ(presenter.popUps.size(), 2);
}

TEST_F(QtStatusBarTest, publishedItem_givesItsMenuToTheDesktop)
{
    host->become(TrayHost::Kind::Publishing);
    const auto item = makeItem();
    QMenu* menu = icon(item)->contextMenu();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions().at(0)->text(), u"A && B..."_s);
    EXPECT_TRUE(menu->actions().at(0)->isEnabled());
    EXPECT_FALSE(menu->actions().at(1)->isEnabled());
    menu->actions().at(0)->trigger();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !target->performed.isEmpty(); }));
    EXPECT_EQ(target->performed, QStringList{u"act"_s});
}

TEST_F(QtStatusBarTest, publishedItem_namesItsIconForAHostWithColoursOfItsOwn)
{
    host->become(TrayHost::Kind::Publishing);
    const auto item = makeItem();
    EXPECT_EQ(icon(item)->icon().name(), u"tarnwick-symbolic"_s);
    EXPECT_EQ(icon(item)->icon().availableSizes(), QList<QSize>{QSize(16, 16)});
    EXPECT_EQ(colorOf(item), dark);
    Q_EMIT icon(item)->contextMenu()->aboutToShow();
    EXPECT_EQ(colorOf(item), dark) << "the host highlights what it draws";
    host->become(TrayHost::Kind::Embedding);
    EXPECT_EQ(icon(item)->icon().name(), QString()) << "nobody but us draws that one";
}

TEST_F(QtStatusBarTest, publishedItemWithoutANamedIcon_isHighlightedWhileItsMenuIsOpen)
{
    auto* ownHost = new FakeTrayHost;
    bar = std::make_unique<QtStatusBar>(std::unique_ptr<TrayHost>(ownHost));
    ownHost->become(TrayHost::Kind::Publishing);
    const auto item = makeItem();
    EXPECT_EQ(icon(item)->icon().name(), QString());
    Q_EMIT icon(item)->contextMenu()->aboutToShow();
    EXPECT_EQ(colorOf(item), light);
    Q_EMIT icon(item)->contextMenu()->aboutToHide();
    EXPECT_EQ(colorOf(item), dark);
}

TEST_F(QtStatusBarTest, item_standsOutFromLightAndFromDark_andFollowsTheChange)
{
    const QPalette before = QApplication::palette();
    showDesktop(false);
    host->become(TrayHost::Kind::Embedding);
    const auto item = makeItem();
    EXPECT_EQ(colorOf(item), dark);
    showDesktop(true);
    EXPECT_EQ(colorOf(item), light);
    showDesktop(false);
    EXPECT_EQ(colorOf(item), dark);
    QApplication::setPalette(before);
}

TEST_F(QtStatusBarTest, itemWithoutAnImage_isThereAllTheSame)
{
    host->become(TrayHost::Kind::Embedding);
    const auto item = bar->statusItemWithLength(StatusBar::VariableStatusItemLength);
    item->setImage(QImage());
    EXPECT_NE(icon(item), nullptr);
}

TEST_F(QtStatusBarTest, trayComesWhileAMenuIsOpen_iconComesAtItsEnd)
{
    const auto item = makeItem();
    MenuTracking::shared().begin();
    host->become(TrayHost::Kind::Embedding);
    EXPECT_EQ(icon(item), nullptr);
    MenuTracking::shared().end();
    EXPECT_TRUE(QTest::qWaitFor([&] { return icon(item) != nullptr; }));
}

TEST_F(QtStatusBarTest, anotherTrayComesWhileAMenuIsOpen_isNotDescribedToAgainAtItsEnd)
{
    const auto item = makeItem();
    MenuTracking::shared().begin();
    host->become(TrayHost::Kind::Embedding);
    host->publishes = true;
    host->become(TrayHost::Kind::Publishing);
    MenuTracking::shared().end();
    QCoreApplication::processEvents();
    EXPECT_EQ(host->published, 1);
}

} // namespace
