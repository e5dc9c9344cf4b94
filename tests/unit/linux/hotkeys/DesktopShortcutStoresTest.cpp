// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/DesktopShortcutStores.h"

#include "tests/FairTimer.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <sys/stat.h>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

/// Stores in a folder of their own, and a settings program of our own in front of the search path.
class DesktopShortcutStoresTest : public ::testing::Test
{
protected:
    DesktopShortcutStoresTest() : _path(qgetenv("PATH"))
    {
        qputenv("PATH", _folder.path().toUtf8() + ":/usr/bin:/bin");
    }
    ~DesktopShortcutStoresTest() override { qputenv("PATH", _path); }

    void write(const QString& name, const QByteArray& contents, bool program = false) const
    {
        const QString path = _folder.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
        if (program)
            file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    }

    [[nodiscard]] std::optional<QList<DesktopShortcut>> read(const QStringList& desktops) const
    {
        const DesktopShortcutStores stores(_folder.filePath(u"user"_s), {_folder.filePath(u"system"_s)});
        return stores.read(desktops);
    }
    /// Of settings programs that answer: on a busy machine not always within the limit that there is for
    /// them.
    [[nodiscard]] std::optional<QList<DesktopShortcut>> readInTime(const QStringList& desktops) const
    {
        auto shortcuts = read(desktops);
        for (int further = 20; !shortcuts && further > 0; --further)
            shortcuts = read(desktops);
        return shortcuts;
    }

    QTemporaryDir _folder;
    QByteArray _path;
};

QList<quint32> keysyms(const std::optional<QList<DesktopShortcut>>& shortcuts)
{
    QList<quint32> symbols;
    for (const DesktopShortcut& shortcut : shortcuts.value_or(QList<DesktopShortcut>()))
        symbols.append(shortcut.keysym);
    return symbols;
}

const QString XfceFile = u"/xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml"_s;

TEST_F(DesktopShortcutStoresTest, unknownDesktop_hasAnEmptyList)
{
    for (const QStringList& desktops : {QStringList{}, QStringList{u"Openbox"_s}, QStringList{u"LXQt"_s}}) {
        const auto shortcuts = read(desktops);
        ASSERT_TRUE(shortcuts);
        EXPECT_TRUE(shortcuts->isEmpty());
    }
}

TEST_F(DesktopShortcutStoresTest, gnomeAndItsKin_areAskedThroughTheirSettings)
{
    write(u"gsettings"_s, R"(#!/bin/sh
case "$1 $2" in
"list-schemas ") echo org.gnome.desktop.wm.keybindings; echo org.gnome.settings-daemon.plugins.media-keys
  echo org.mate.Marco.global-keybindings; echo org.cinnamon.desktop.keybindings ;;
"list-relocatable-schemas ") echo org.gnome.settings-daemon.plugins.media-keys.custom-keybinding
  echo org.mate.control-center.keybinding; echo org.cinnamon.desktop.keybindings.custom-keybinding ;;
"list-recursively org.gnome.desktop.wm.keybindings") echo "org.gnome.desktop.wm.keybindings close ['<Alt>F4']" ;;
"list-recursively org.gnome.settings-daemon.plugins.media-keys")
  echo "x home ['<Super>e']"; echo "x custom-keybindings ['/org/gnome/custom0/']" ;;
"list-recursively org.gnome.settings-daemon.plugins.media-keys.custom-keybinding:/org/gnome/custom0/")
  echo "y binding '<Alt>x'"; echo "y name 'y'"; echo "y command 'z'" ;;
"list-recursively org.mate.Marco.global-keybindings") echo "m run-command 'disabled'"; echo "m menu '<Alt>F1'" ;;
"list-recursively org.mate.control-center.keybinding:/org/mate/desktop/keybindings/custom0/")
  echo "m binding '<Alt>c'"; echo "m name 'b'" ;;
"list-recursively org.cinnamon.desktop.keybindings") echo "c custom-list ['__dummy__', 'custom7']" ;;
"list-recursively org.cinnamon.desktop.keybindings.custom-keybinding:/org/cinnamon/desktop/keybindings/custom-keybindings/custom7/")
  echo "c binding ['<Alt>d', '<Alt>e']" ;;
*) exit 1 ;;
esac
)",
          true);
    write(u"dconf"_s, "#!/bin/sh\n[ \"$1 $2\" = 'list /org/mate/desktop/keybindings/' ] && echo custom0/\n",
          true);
    EXPECT_EQ(keysyms(readInTime({u"ubuntu"_s, u"GNOME"_s})),
              (QList<quint32>{XKB_KEY_F4, XKB_KEY_e, XKB_KEY_x}));
    EXPECT_EQ(keysyms(readInTime({u"MATE"_s})), (QList<quint32>{XKB_KEY_F1, XKB_KEY_c}));
    EXPECT_EQ(keysyms(readInTime({u"X-Cinnamon"_s})), (QList<quint32>{XKB_KEY_d, XKB_KEY_e}));
}

TEST_F(DesktopShortcutStoresTest, realSettings_areReadWhereTheyAreInstalled)
{
    if (!QFile::exists(u"/usr/share/glib-2.0/schemas/org.gnome.desktop.wm.keybindings.gschema.xml"_s) ||
        QStandardPaths::findExecutable(u"gsettings"_s).isEmpty())
        GTEST_SKIP() << "no GNOME settings on this machine";
    qputenv("GSETTINGS_BACKEND", "memory"); // the defaults, and none of the user's own
    const auto shortcuts = readInTime({u"GNOME"_s});
    qunsetenv("GSETTINGS_BACKEND");
    ASSERT_TRUE(shortcuts);
    EXPECT_TRUE(shortcuts->contains(DesktopShortcut{XKB_KEY_F4, 0, 0x800})) << "close a window";
    EXPECT_TRUE(shortcuts->contains(DesktopShortcut{XKB_KEY_Tab, 0, 0x800})) << "switch windows";
    EXPECT_GT(shortcuts->size(), 20);
}

TEST_F(DesktopShortcutStoresTest, settingsProgramThatFails_meansThatNothingIsKnown)
{
    write(u"gsettings"_s, "#!/bin/sh\nexit 1\n", true);
    EXPECT_FALSE(read({u"GNOME"_s}));
    qputenv("PATH", _folder.filePath(u"nowhere"_s).toUtf8());
    EXPECT_FALSE(read({u"GNOME"_s})) << "and so does a missing one";
}

TEST_F(DesktopShortcutStoresTest, settingsProgramThatFailsAtOneSchema_meansThatNothingIsKnown)
{
    const QString asked = _folder.filePath(u"asked"_s);
    write(u"gsettings"_s,
          "#!/bin/sh\ncase \"$1\" in\nlist-schemas) echo org.gnome.desktop.wm.keybindings ;;\n"
          "list-relocatable-schemas) ;;\n*) touch '" +
              asked.toUtf8() + "'; exit 1 ;;\nesac\n",
          true);
    std::optional<QList<DesktopShortcut>> known;
    for (int attempt = 0; attempt < 20 && !QFile::exists(asked); ++attempt)
        known = read({u"GNOME"_s});
    EXPECT_TRUE(QFile::exists(asked));
    EXPECT_FALSE(known);
}

TEST_F(DesktopShortcutStoresTest, settingsProgramThatHangs_isNotWaitedForLongerThanTheLimit)
{
    write(u"gsettings"_s, "#!/bin/sh\nexec sleep 60\n", true);
    FairTimer since;
    since.start();
    EXPECT_FALSE(read({u"GNOME"_s}));
    EXPECT_LT(since.fairElapsed(), 1400) << "half a second, and what a busy machine adds";
}

TEST_F(DesktopShortcutStoresTest, pipeInThePlaceOfAFile_isNotWaitedForAndMeansThatNothingIsKnown)
{
    for (const auto& [desktop, file] :
         {std::pair{u"KDE"_s, u"user/kglobalshortcutsrc"_s}, std::pair{u"XFCE"_s, u"user"_s + XfceFile}}) {
        write(file, {});
        QFile::remove(_folder.filePath(file));
        ASSERT_EQ(::mkfifo(_folder.filePath(file).toUtf8().constData(), 0600), 0);
        EXPECT_FALSE(read({desktop})) << desktop.toStdString();
    }
}

TEST_F(DesktopShortcutStoresTest, fileThatIsTooLarge_meansThatNothingIsKnown)
{
    write(u"user/kglobalshortcutsrc"_s, "[kwin]\nClose=Alt+F4,none,Close\n" + QByteArray(4 << 20, '#'));
    EXPECT_FALSE(read({u"KDE"_s}));
}

TEST_F(DesktopShortcutStoresTest, xfce_laysTheUsersFileOverTheSystems)
{
    EXPECT_TRUE(read({u"XFCE"_s})) << "no file, no shortcut";
    write(u"system"_s + XfceFile,
          "<channel><property name='commands'><property name='default'>"
          "<property name='F1' type='string' value='x'/></property></property></channel>");
    EXPECT_EQ(keysyms(read({u"XFCE"_s})), QList<quint32>{XKB_KEY_F1});
    write(u"user"_s + XfceFile,
          "<channel><property name='commands'><property name='custom'>"
          "<property name='F2' type='string' value='x'/><property name='override' type='bool' value='true'/>"
          "</property></property></channel>");
    EXPECT_EQ(keysyms(read({u"XFCE"_s})), QList<quint32>{XKB_KEY_F2});
    write(u"system"_s + XfceFile,
          "<channel><property name='commands'><property name='default'>"
          "<property name='F1' type='string' value='x'/></property><property name='custom'>"
          "<property name='F3' type='string' value='x'/><property name='override' type='bool' value='true'/>"
          "</property></property></channel>");
    write(u"user"_s + XfceFile,
          "<channel><property name='commands'><property name='custom'>"
          "<property name='override' type='bool' value='false'/></property></property></channel>");
    EXPECT_EQ(keysyms(read({u"XFCE"_s})), QList<quint32>{XKB_KEY_F1}) << "the user has the last word";
    write(u"user"_s + XfceFile, "<channel><property");
    EXPECT_FALSE(read({u"XFCE"_s})) << "a broken file means that nothing is known";
}

TEST_F(DesktopShortcutStoresTest, kde_isReadFromItsFile)
{
    EXPECT_TRUE(read({u"KDE"_s})) << "no file, no shortcut";
    write(u"user/kglobalshortcutsrc"_s, "[kwin]\nClose=Alt+F4,none,Close\n");
    EXPECT_EQ(keysyms(read({u"KDE"_s})), QList<quint32>{XKB_KEY_F4});
    write(u"user/kglobalshortcutsrc"_s,
          "[example.quorlane.Tarnwick]\npop-up=Alt+F5,none,Open\n[kwin]\nClose=Alt+F4,none,Close\n");
    EXPECT_EQ(keysyms(read({u"KDE"_s})), QList<quint32>{XKB_KEY_F4}) << "our own hot key is free for us";
    QFile::remove(_folder.filePath(u"user/kglobalshortcutsrc"_s));
    QDir().mkpath(_folder.filePath(u"user/kglobalshortcutsrc"_s));
    EXPECT_FALSE(read({u"KDE"_s})) << "what cannot be read means that nothing is known";
}

} // namespace
