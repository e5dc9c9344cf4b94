// SPDX-License-Identifier: MIT
// The hosts of the status area, and what they are told of its items.
#include "platform/linux/tray/LinuxTrayHost.h"

#include "platform/linux/tray/StatusNotifierItem.h"
#include "tests/contract/session/OtherClient.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QMenu>
#include <QTest>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

/// As a panel does it whose tray shows the windows of others.
void ownTheTray(OtherClient& panel)
{
    X11Connection& x11 = panel.x11();
    const xcb_window_t window = xcb_generate_id(x11.get());
    xcb_create_window(x11.get(), XCB_COPY_FROM_PARENT, window, x11.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(x11.get(), window, x11.atom("_NET_SYSTEM_TRAY_S0"), XCB_CURRENT_TIME);
    x11.sync();
}

TEST(TrayHostOnX11, ownerOfTheTraySelection_isAnEmbeddingHost_whileItIsThere)
{
    LinuxTrayHost host(QDBusConnection::sessionBus());
    EXPECT_EQ(host.kind(), TrayHost::Kind::None);
    int changes = 0;
    QObject::connect(&host, &TrayHost::changed, [&] { ++changes; });
    {
        OtherClient tray;
        ownTheTray(tray);
        EXPECT_TRUE(QTest::qWaitFor([&] { return host.kind() == TrayHost::Kind::Embedding; }));
        LinuxTrayHost later(QDBusConnection::sessionBus());
        EXPECT_TRUE(QTest::qWaitFor([&] { return later.kind() == TrayHost::Kind::Embedding; }));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return host.kind() == TrayHost::Kind::None; }));
    EXPECT_EQ(changes, 2);
}

/// A host of published icons, as desktops have it on the session bus.
class PublishingHost final : public QDBusVirtualObject
{
public:
    PublishingHost() : _bus(QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"host"_s))
    {
        _bus.registerVirtualObject(u"/StatusNotifierWatcher"_s, this);
        EXPECT_TRUE(_bus.registerService(u"org.kde.StatusNotifierWatcher"_s));
    }
    ~PublishingHost() override { QDBusConnection::disconnectFromBus(u"host"_s); }
    Q_DISABLE_COPY_MOVE(PublishingHost)

    QStringList registered; ///< items that have told it of themselves

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        if (message.member() == u"RegisterStatusNotifierItem")
            registered.append(message.arguments().value(0).toString());
        const bool there =
            message.member() == u"Get" && message.arguments().value(1) == u"IsStatusNotifierHostRegistered"_s;
        return there && connection.send(message.createReply(QVariant::fromValue(QDBusVariant(true))));
    }

private:
    QDBusConnection _bus;
};

TEST(TrayHostOnX11, aHostOfPublishedIcons_goesBeforeOneThatEmbeds)
{
    OtherClient tray;
    ownTheTray(tray);
    LinuxTrayHost embedded(QDBusConnection::sessionBus());
    ASSERT_TRUE(QTest::qWaitFor([&] { return embedded.kind() == TrayHost::Kind::Embedding; }));
    const PublishingHost publishing;
    LinuxTrayHost host(QDBusConnection::sessionBus());
    QList<TrayHost::Kind> kinds;
    QObject::connect(&host, &TrayHost::changed, [&] { kinds.append(host.kind()); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !kinds.isEmpty(); }));
    EXPECT_EQ(kinds, QList<TrayHost::Kind>{TrayHost::Kind::Publishing});
    EXPECT_EQ(embedded.kind(), TrayHost::Kind::Embedding) << "an icon that is there stays where it is";
}

TEST(StatusNotifierItemOnTheBus, tellsEachHostThatComesOfItself)
{
    QMenu menu;
    const StatusNotifierItem item(QDBusConnection::sessionBus(), menu, [] {});
    for (int time = 0; time < 2; ++time) {
        const PublishingHost host;
        EXPECT_TRUE(QTest::qWaitFor([&] { return !host.registered.isEmpty(); }));
        EXPECT_EQ(host.registered, QStringList(QDBusConnection::sessionBus().baseService()));
    }
}

} // namespace
