// SPDX-License-Identifier: MIT
#include "platform/linux/hotkeys/DesktopShortcutStores.h"

#include "platform/linux/hotkeys/GSettings.h"
#include "platform/linux/hotkeys/KdeShortcuts.h"
#include "platform/linux/hotkeys/XfceShortcuts.h"
#include "platform/linux/xdg/XdgSession.h"
#include "platform/qt/settings/WholeFile.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

using Shortcuts = std::optional<QList<DesktopShortcut>>;

/// Of all programs together: the keyboard is held meanwhile. Each takes some 10 ms.
constexpr std::chrono::milliseconds TimeLimit(500);
constexpr qint64 LargestFile = 4LL * 1024 * 1024;

void append(QList<DesktopShortcut>& list, const QStringList& accelerators)
{
    for (const QString& accelerator : accelerators) {
        if (const auto shortcut = DesktopShortcut::ofAccelerator(accelerator))
            list.append(*shortcut);
    }
}

/// The schemas of a desktop, and where the user's own shortcuts are.
struct SettingsLayout
{
    QStringList schemas;
    QString customSchema; ///< its "binding" is the shortcut
    /// The places of the user's own shortcuts, by what the schemas say and the database holds.
    QStringList (*customPlaces)(const QList<gsettings_text::Setting>& settings, GSettings& reader);
};

QStringList valuesOf(const QList<gsettings_text::Setting>& settings, const QString& key)
{
    for (const auto& setting : settings) {
        if (setting.key == key)
            return setting.values;
    }
    return {};
}

const SettingsLayout& gnomeLayout()
{
    static const SettingsLayout layout = {
        {u"org.gnome.desktop.wm.keybindings"_s, u"org.gnome.shell.keybindings"_s,
         u"org.gnome.mutter.keybindings"_s, u"org.gnome.mutter.wayland.keybindings"_s,
         u"org.gnome.settings-daemon.plugins.media-keys"_s},
        u"org.gnome.settings-daemon.plugins.media-keys.custom-keybinding"_s,
        [](const QList<gsettings_text::Setting>& settings, GSettings& /*reader*/) {
            return valuesOf(settings, u"custom-keybindings"_s);
        },
    };
    return layout;
}

const SettingsLayout& mateLayout()
{
    static const SettingsLayout layout = {
        {u"org.mate.Marco.global-keybindings"_s, u"org.mate.Marco.window-keybindings"_s,
         u"org.mate.SettingsDaemon.plugins.media-keys"_s},
        u"org.mate.control-center.keybinding"_s,
        [](const QList<gsettings_text::Setting>& /*settings*/, GSettings& reader) {
            const QString folder = u"/org/mate/desktop/keybindings/"_s;
            QStringList places = reader.folders(folder);
            for (QString& place : places)
                place.prepend(folder);
            return places;
        },
    };
    return layout;
}

const SettingsLayout& cinnamonLayout()
{
    static const SettingsLayout layout = {
        {u"org.cinnamon.desktop.keybindings"_s, u"org.cinnamon.desktop.keybindings.wm"_s,
         u"org.cinnamon.desktop.keybindings.media-keys"_s},
        u"org.cinnamon.desktop.keybindings.custom-keybinding"_s,
        [](const QList<gsettings_text::Setting>& settings, GSettings& /*reader*/) {
            QStringList places = valuesOf(settings, u"custom-list"_s);
            places.removeAll(u"__dummy__"_s);
            for (QString& place : places)
                place = u"/org/cinnamon/desktop/keybindings/custom-keybindings/%1/"_s.arg(place);
            return places;
        },
    };
    return layout;
}

Shortcuts readSettings(const SettingsLayout& layout)
{
    GSettings reader(TimeLimit);
    const auto settings = reader.read(layout.schemas);
    if (!settings)
        return std::nullopt;
    QList<DesktopShortcut> shortcuts;
    for (const auto& setting : *settings)
        append(shortcuts, setting.values);
    QStringList places = layout.customPlaces(*settings, reader);
    places.removeIf([](const QString& place) { return !place.startsWith(u'/') || !place.endsWith(u'/'); });
    for (QString& place : places)
        place.prepend(layout.customSchema + u':');
    const auto custom = reader.read(places);
    if (!custom)
        return std::nullopt;
    for (const auto& setting : *custom) {
        if (setting.key == u"binding")
            append(shortcuts, setting.values);
    }
    return shortcuts;
}

} // namespace

DesktopShortcutStores::DesktopShortcutStores(QString userConfiguration, QStringList systemConfigurations)
    : _userConfiguration(std::move(userConfiguration)), _systemConfigurations(std::move(systemConfigurations))
{
}

DesktopShortcutStores DesktopShortcutStores::ofSession()
{
    const auto folders = xdg_session::configurationFolders();
    return {folders.user, folders.system};
}

std::optional<QList<DesktopShortcut>> DesktopShortcutStores::read(const QStringList& currentDesktops) const
{
    for (const QString& desktop : currentDesktops) {
        if (desktop == u"GNOME")
            return readSettings(gnomeLayout());
        if (desktop == u"MATE")
            return readSettings(mateLayout());
        if (desktop == u"X-Cinnamon" || desktop == u"Cinnamon")
            return readSettings(cinnamonLayout());
        if (desktop == u"XFCE")
            return _readXfce();
        if (desktop == u"KDE")
            return _readKde();
    }
    return QList<DesktopShortcut>();
}

std::optional<QList<DesktopShortcut>> DesktopShortcutStores::_readXfce() const
{
    QStringList folders = _systemConfigurations;
    std::reverse(folders.begin(), folders.end());
    folders.append(_userConfiguration);
    XfceShortcuts merged;
    for (const QString& folder : std::as_const(folders)) {
        const auto contents = wholeFile(
            folder + u"/xfce4/xfconf/xfce-perchannel-xml/xfce4-keyboard-shortcuts.xml"_s, LargestFile);
        if (!contents)
            return std::nullopt;
        if (contents->isEmpty())
            continue;
        const auto layer = XfceShortcuts::parse(*contents);
        if (!layer)
            return std::nullopt;
        merged.merge(*layer);
    }
    return merged.shortcuts();
}

std::optional<QList<DesktopShortcut>> DesktopShortcutStores::_readKde() const
{
    const auto contents = wholeFile(_userConfiguration + u"/kglobalshortcutsrc"_s, LargestFile);
    return contents ? Shortcuts(parseKdeShortcuts(*contents)) : std::nullopt;
}

} // namespace tarnwick
