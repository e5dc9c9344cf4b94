// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/UrlOpener.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

TEST(UrlOpener, settingsPanes_areInExactlyOneDirectory)
{
    EXPECT_EQ(UrlOpener::preferencePanesDirectories().size(), 1);
}

struct Row
{
    const char* currentDesktop;
    QList<QStringList> commands;
};

TEST(UrlOpener, accessibilitySettings_areThoseOfTheRunningDesktop)
{
    const QStringList gnome = {u"gnome-control-center"_s, u"universal-access"_s};
    const Row rows[] = {
        {"GNOME", {gnome}},
        {"ubuntu:GNOME", {gnome}},
        {"KDE", {{u"systemsettings"_s, u"kcm_access"_s}, {u"systemsettings5"_s, u"kcm_access"_s}}},
        {"XFCE", {{u"xfce4-accessibility-settings"_s}}},
        {"MATE", {{u"mate-at-properties"_s}}},
        {"X-Cinnamon", {{u"cinnamon-settings"_s, u"universal-access"_s}}},
        {"Budgie:GNOME", {{u"budgie-control-center"_s, u"universal-access"_s}, gnome}},
        {"Openbox", {}},
        {"", {}},
    };
    for (const Row& row : rows)
        EXPECT_EQ(UrlOpener::accessibilitySettingsCommands(QString::fromLatin1(row.currentDesktop)),
                  row.commands)
            << row.currentDesktop;
}

TEST(UrlOpener, accessibilityPane_startsTheFirstProgramThatThereIs)
{
    const QTemporaryDir folder;
    const QString seen = folder.filePath(u"seen"_s);
    QFile program(folder.filePath(u"systemsettings5"_s));
    ASSERT_TRUE(program.open(QIODevice::WriteOnly));
    program.write("#!/bin/sh\necho \"$@\" > " + seen.toUtf8() + ".tmp && mv " + seen.toUtf8() + ".tmp " +
                  seen.toUtf8() + '\n');
    program.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    program.close();
    const QByteArray path = qgetenv("PATH");
    const QByteArray desktop = qgetenv("XDG_CURRENT_DESKTOP");
    qputenv("PATH", folder.path().toUtf8() + ":/bin");
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    const QUrl pane = QUrl::fromLocalFile(UrlOpener::preferencePanesDirectories().constFirst() +
                                          u"/UniversalAccessPref.prefPane"_s);
    EXPECT_TRUE(UrlOpener::openURL(pane));
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(seen); }, 5000));
    QFile arguments(seen);
    ASSERT_TRUE(arguments.open(QIODevice::ReadOnly));
    EXPECT_EQ(arguments.readAll(), "kcm_access\n");
    qputenv("XDG_CURRENT_DESKTOP", "Openbox");
    EXPECT_FALSE(UrlOpener::openURL(pane)) << "an unknown desktop has no settings to show";
    qputenv("PATH", path);
    qputenv("XDG_CURRENT_DESKTOP", desktop);
}

TEST(UrlOpener, nothing_cannotBeOpened)
{
    EXPECT_FALSE(UrlOpener::openURL(QUrl()));
    EXPECT_FALSE(UrlOpener::openURL(QUrl(u"http://[bad"_s)));
}

} // namespace
