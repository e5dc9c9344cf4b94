// SPDX-License-Identifier: MIT
#include "platform/linux/look/LinuxLook.h"

#include "platform/qt/application/Look.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTest>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

TEST(LinuxLookOfKde, isReadAgain_atEachOfTheSignalsThatItHasChanged)
{
    const QString path =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/kdeglobals"_s;
    const auto write = [&path](const char* factor) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray("[KDE]\nAnimationDurationFactor=") + factor + '\n');
    };
    write("1");
    const LinuxLook look({u"KDE"_s}, QDBusConnection::sessionBus());
    EXPECT_FALSE(look.reducesMotion());
    const auto tell = [](const QString& object, const QString& interface, const QString& signal) {
        QDBusConnection::sessionBus().send(QDBusMessage::createSignal(object, interface, signal));
    };
    write("0");
    tell(u"/KGlobalSettings"_s, u"org.kde.KGlobalSettings"_s, u"notifyChange"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return look.reducesMotion(); }));
    write("1");
    tell(u"/kdeglobals"_s, u"org.kde.kconfig.notify"_s, u"ConfigChanged"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !look.reducesMotion(); }));
    QFile::remove(path);
}

/// The part of a desktop's portal that tells settings, on a connection of its own.
class FakeSettingsPortal final : public QDBusVirtualObject
{
public:
    uint colorScheme = 0; ///< lever: what it answers
    QString asked;        ///< look: for what, last
    int questions = 0;    ///< look

    FakeSettingsPortal() { _bus.registerVirtualObject(Path, this); }
    ~FakeSettingsPortal() override
    {
        vanish();
        _bus.unregisterObject(Path);
        QDBusConnection::disconnectFromBus(_bus.name());
    }

    /// Lever: it comes to the bus, or goes.
    void appear() { EXPECT_TRUE(_bus.registerService(Service)) << "another one is there"; }
    void vanish() { _bus.unregisterService(Service); }
    /// Lever: a setting becomes another one.
    void change(const QString& group, const QString& key, uint value)
    {
        if (group == u"org.freedesktop.appearance"_s && key == u"color-scheme"_s)
            colorScheme = value;
        auto signal = QDBusMessage::createSignal(Path, Interface, u"SettingChanged"_s);
        signal.setArguments({group, key, QVariant::fromValue(QDBusVariant(value))});
        _bus.send(signal);
    }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& /*connection*/) override
    {
        if (message.interface() != Interface || message.member() != u"Read"_s)
            return false;
        asked = message.arguments().value(0).toString() + u' ' + message.arguments().value(1).toString();
        ++questions;
        const QDBusVariant inner(colorScheme);
        _bus.send(message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(inner)))));
        return true;
    }

private:
    inline static const QString Service = u"org.freedesktop.portal.Desktop"_s;
    inline static const QString Path = u"/org/freedesktop/portal/desktop"_s;
    inline static const QString Interface = u"org.freedesktop.portal.Settings"_s;

    QDBusConnection _bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"settings portal"_s);
};

class LinuxLookOfThePortal : public ::testing::Test
{
protected:
    void TearDown() override { QApplication::setPalette({}); }
    static bool becomes(bool dark)
    {
        return QTest::qWaitFor([&] { return isDark(QApplication::palette()) == dark; });
    }

    FakeSettingsPortal portal;
    const QString group = u"org.freedesktop.appearance"_s;
    const QString key = u"color-scheme"_s;
};

TEST_F(LinuxLookOfThePortal, isDarkAtOnce_whereThePersonPrefersThat)
{
    portal.colorScheme = 1;
    portal.appear();
    const LinuxLook look({u"sway"_s}, QDBusConnection::sessionBus());
    EXPECT_TRUE(becomes(true));
    EXPECT_EQ(portal.asked, u"org.freedesktop.appearance color-scheme"_s);
}

TEST_F(LinuxLookOfThePortal, followsEachChange_andOfNoOtherSetting)
{
    portal.appear();
    const LinuxLook look({u"sway"_s}, QDBusConnection::sessionBus());
    // An answer that is still to come tells what was before the change.
    ASSERT_TRUE(QTest::qWaitFor([this] { return portal.questions > 0; }));
    portal.change(group, key, 1);
    EXPECT_TRUE(becomes(true));
    portal.change(group, u"contrast"_s, 2);
    portal.change(u"org.example.other"_s, key, 2);
    portal.change(group, key, 2);
    EXPECT_TRUE(becomes(false));
    portal.change(group, u"contrast"_s, 1);
    portal.change(u"org.example.other"_s, key, 1);
    portal.change(group, u"accent-color"_s, 1);
    portal.change(group, key, 1);
    EXPECT_TRUE(becomes(true));
    portal.change(group, key, 0);
    EXPECT_TRUE(becomes(false)) << "with no preference it is the toolkit's own again";
}

TEST_F(LinuxLookOfThePortal, isAskedOf_whenThePortalComesLate)
{
    const LinuxLook look({u"sway"_s}, QDBusConnection::sessionBus());
    portal.colorScheme = 1;
    portal.appear();
    EXPECT_TRUE(becomes(true));
}

TEST_F(LinuxLookOfThePortal, isNotAskedOf_onKde)
{
    portal.appear();
    const LinuxLook look({u"KDE"_s}, QDBusConnection::sessionBus());
    const LinuxLook other({u"sway"_s}, QDBusConnection::sessionBus());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !portal.asked.isEmpty(); }));
    EXPECT_EQ(portal.questions, 1);
}

} // namespace
