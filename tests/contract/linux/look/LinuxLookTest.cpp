// SPDX-License-Identifier: MIT
#include "platform/linux/look/LinuxLook.h"

#include <QDBusConnection>
#include <QDBusMessage>
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

} // namespace
