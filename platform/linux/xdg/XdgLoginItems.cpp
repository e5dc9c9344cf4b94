// SPDX-License-Identifier: MIT
#include "platform/linux/xdg/XdgLoginItems.h"

#include "platform/linux/xdg/DesktopEntry.h"
#include "platform/linux/xdg/DesktopNames.h"
#include "platform/linux/xdg/XdgSession.h"
#include "platform/qt/settings/PrivateFile.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace tarnwick {

namespace {

class AutostartItem final : public LoginItems::Item
{
public:
    AutostartItem(const QFileInfo& file, QStringList command) : _file(file), _command(std::move(command)) {}

    [[nodiscard]] const QFileInfo& file() const { return _file; }

    [[nodiscard]] std::optional<QUrl> program() const
    {
        if (_command.isEmpty())
            return std::nullopt;
        const QString path = QStandardPaths::findExecutable(_command.constFirst());
        if (path.isEmpty())
            return std::nullopt;
        return QUrl::fromLocalFile(QFileInfo(path).canonicalFilePath());
    }

private:
    QFileInfo _file;
    QStringList _command;
};

QString autostartFolder(const QString& configuration)
{
    return configuration + u"/autostart"_s;
}

class AutostartList final : public LoginItems::List
{
public:
    AutostartList(const QString& userConfiguration, const QStringList& systemConfigurations,
                  QStringList currentDesktops)
        : _userFolder(autostartFolder(userConfiguration)), _currentDesktops(std::move(currentDesktops))
    {
        _folders.append(_userFolder);
        for (const QString& configuration : systemConfigurations)
            _folders.append(autostartFolder(configuration));
    }

    [[nodiscard]] QList<std::shared_ptr<LoginItems::Item>> copySnapshot() override
    {
        QList<std::shared_ptr<AutostartItem>> items;
        QStringList names;
        for (const QString& folder : std::as_const(_folders)) {
            const auto files = QDir(folder).entryInfoList({u"*.desktop"_s}, QDir::Files, QDir::Name);
            for (const QFileInfo& file : files) {
                if (names.contains(file.fileName()))
                    continue; // the folder before this one has the word
                names.append(file.fileName());
                const auto entry = DesktopEntry::read(file.filePath());
                if (entry && _starts(*entry))
                    items.append(std::make_shared<AutostartItem>(file, entry->command()));
            }
        }
        std::stable_sort(items.begin(), items.end(), [](const auto& left, const auto& right) {
            return left->file().lastModified() > right->file().lastModified();
        });
        return {items.cbegin(), items.cend()};
    }

    [[nodiscard]] std::optional<QUrl> resolve(const LoginItems::Item& item, quint32 /*resolveFlags*/) override
    {
        return static_cast<const AutostartItem&>(item).program();
    }

    void insertBeforeFirst(const QUrl& applicationUrl) override
    {
        const QString path = applicationUrl.toLocalFile();
        const QString exec = DesktopEntry::execValue({path});
        // When the program has been uninstalled, the entry that stays in the user's home starts nothing.
        const QString tryExec = DesktopEntry::stringValue(path);
        _write(_nameOfNewEntry(applicationUrl),
               u"[Desktop Entry]\nType=Application\nName=%1\nExec=%2\nTryExec=%4\nIcon=%3\nTerminal=false\n"
               u"X-GNOME-Autostart-enabled=true\n"_s.arg(desktop_names::ApplicationName, exec,
                                                         desktop_names::BusName, tryExec));
    }

    void remove(const LoginItems::Item& item) override
    {
        const QFileInfo& file = static_cast<const AutostartItem&>(item).file();
        if (file.path() == _userFolder)
            QFile::remove(file.filePath());
        for (qsizetype i = 1; i < _folders.size(); ++i) {
            // What the system starts for everybody is switched off for this user.
            if (QFile::exists(_folders.at(i) + u'/' + file.fileName())) {
                _write(file.fileName(), u"[Desktop Entry]\nType=Application\nHidden=true\n"_s);
                return;
            }
        }
    }

private:
    [[nodiscard]] bool _starts(const DesktopEntry& entry) const
    {
        if (entry.boolean(u"Hidden"_s, false) || !entry.boolean(u"X-GNOME-Autostart-enabled"_s, true))
            return false;
        const auto current = [this](const QString& desktop) { return _currentDesktops.contains(desktop); };
        const auto only = entry.strings(u"OnlyShowIn"_s);
        const auto never = entry.strings(u"NotShowIn"_s);
        return (only.isEmpty() || std::any_of(only.cbegin(), only.cend(), current)) &&
               std::none_of(never.cbegin(), never.cend(), current);
    }

    /// That of a file of its own: other entries stay, also those of which it cannot be told what they start.
    [[nodiscard]] QString _nameOfNewEntry(const QUrl& applicationUrl) const
    {
        QString name = desktop_names::BusName + u".desktop"_s;
        for (int number = 2; _isOfAnother(name, applicationUrl); ++number)
            name = u"%1-%2.desktop"_s.arg(desktop_names::BusName, QString::number(number));
        return name;
    }

    /// Whether there is such a file that is not this program's own entry, switched off or not.
    [[nodiscard]] bool _isOfAnother(const QString& name, const QUrl& applicationUrl) const
    {
        for (const QString& folder : _folders) {
            const QFileInfo file(folder + u'/' + name);
            if (!file.exists() && !file.isSymLink())
                continue;
            const auto entry = DesktopEntry::read(file.filePath());
            return !entry || AutostartItem(file, entry->command()).program() != applicationUrl;
        }
        return false;
    }

    void _write(const QString& name, const QString& contents) const
    {
        // Where it cannot be written, the switch in the preferences goes back.
        if (private_file::makeFolder(_userFolder))
            static_cast<void>(private_file::replace(_userFolder + u'/' + name, contents.toUtf8()));
    }

    QString _userFolder;
    QStringList _folders; ///< the user's first
    QStringList _currentDesktops;
};

} // namespace

XdgLoginItems::XdgLoginItems(QString userConfiguration, QStringList systemConfigurations,
                             QStringList currentDesktops)
    : _userConfiguration(std::move(userConfiguration)),
      _systemConfigurations(std::move(systemConfigurations)), _currentDesktops(std::move(currentDesktops))
{
}

std::unique_ptr<XdgLoginItems> XdgLoginItems::ofSession()
{
    const auto folders = xdg_session::configurationFolders();
    return std::make_unique<XdgLoginItems>(folders.user, folders.system, xdg_session::currentDesktops());
}

std::unique_ptr<LoginItems::List> XdgLoginItems::createSessionLoginItems()
{
    if (_userConfiguration.isEmpty())
        return nullptr;
    return std::make_unique<AutostartList>(_userConfiguration, _systemConfigurations, _currentDesktops);
}

} // namespace tarnwick
