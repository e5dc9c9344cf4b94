// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/LinuxSymbolicHotKeys.h"
#include "platform/linux/input/XkbKeymap.h"
#include "platform/linux/x11/X11Connection.h"
#include "tests/contract/session/OtherClient.h"
#include "tests/contract/shortcut/SymbolicHotKeysContract.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

using namespace tarnwick;
using namespace Qt::StringLiterals;

namespace {

/// The shortcuts of a desktop of the K kind, in a folder of their own.
class WrittenShortcuts
{
public:
    void write(const SymbolicHotKeysContract::Shortcuts& shortcuts) const
    {
        QByteArray text = "[desktop]\n";
        for (const auto& [code, modifiers] : shortcuts) {
            const QByteArray keys = keysOf(code, modifiers);
            text += "entry" + QByteArray::number(text.size()) + '=' + keys + ',' + keys + ",Entry\n";
        }
        QFile file(_path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void makeUnreadable() const
    {
        QFile::remove(_path());
        ASSERT_TRUE(QDir().mkdir(_path()));
    }
    [[nodiscard]] DesktopShortcutStores stores() const { return {_folder.path(), {}}; }

private:
    [[nodiscard]] QString _path() const { return _folder.filePath(u"kglobalshortcutsrc"_s); }

    static QByteArray keysOf(qint64 code, quint32 modifiers)
    {
        QByteArray keys;
        if (modifiers & 0x1000)
            keys += "Ctrl+";
        if (modifiers & 0x800)
            keys += "Alt+";
        return keys + (code == 96 ? "F5" : code == 97 ? "F6" : "Z");
    }

    QTemporaryDir _folder;
};

TEST(SymbolicHotKeys, ofADesktop_keepTheContract)
{
    QWidget window; // nothing is recorded without the focus
    window.show();
    ASSERT_TRUE(QTest::qWaitFor([&window] {
        window.activateWindow();
        return window.isActiveWindow();
    }));
    const WrittenShortcuts written;
    LinuxSymbolicHotKeys hotKeys({written.stores(),
                                  {u"KDE"_s},
                                  [] { return XkbKeymap::ofNames("us"); },
                                  [](quint32, quint32) { return false; }});
    OtherClient other;
    SymbolicHotKeysContract contract(
        {.hotKeys = hotKeys,
         .setDesktops =
             [&written](const SymbolicHotKeysContract::Shortcuts& shortcuts) { written.write(shortcuts); },
         .makeUnreadable = [&written] { written.makeUnreadable(); },
         .switchedOff =
             [&other] {
                 X11Connection::shared().sync();
                 return !other.canTakeKeyboard();
             }});
    contract.run();
}

} // namespace
